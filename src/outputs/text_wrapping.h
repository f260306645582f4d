#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "core/device_context.h"
#include "outputs/svg_device_context.h"
#include "outputs/table_grid.h"

namespace vantrel {

/// Breaks a text into lines that fit into a width: at "\n", behind blanks, commas and the like,
/// and within a word only where that alone is too wide. There is at least one line.
std::vector<std::string> wrapped_text(std::string_view text, const Font& font, double width,
                                      const TextMeasure& measure);

/// The text, cut with "…" at its end where it is wider than that.
std::string shortened_text(std::string_view text, const Font& font, double width,
                           const TextMeasure& measure);

/// Widths of a table's columns that fill `width`. Columns that fit keep their texts on one line;
/// otherwise those with the longest texts give way.
std::vector<double> column_widths(const TableGrid& grid, const Font& head, const Font& cell,
                                  double padding, double width, const TextMeasure& measure);

}  // namespace vantrel
