#pragma once

#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "core/device_context.h"

namespace vantrel {

/// How much is lost when a page ends inside something.
enum class Keeping {
  Line,   ///< A line of text, which is never cut.
  Row,    ///< What belongs to one value.
  Frame,  ///< A group of values.
};

/// A stretch of a long column that should stay on one page.
struct KeptTogether {
  double top = 0;
  double bottom = 0;
  Keeping keeping = Keeping::Line;
};

/// One page's part of a long column.
struct PageSpan {
  double top = 0;
  double bottom = 0;
};

/// Cuts a column of the given length into pages of at most `height`, as late as possible. Rather
/// than leave half a page empty it cuts through a frame, and then through a row; a line is cut only
/// when it is higher than a page. Stretches may contain each other. There is always at least one
/// page.
std::vector<PageSpan> page_spans(std::span<const KeptTogether> kept, double length, double height);

/// A text in lines that are no wider than `width` in the present font of `measure`: broken behind
/// blanks and commas, and inside a word only when the word alone is too wide.
std::vector<std::string> wrapped_lines(DeviceContext& measure, std::string_view text, double width);

}  // namespace vantrel
