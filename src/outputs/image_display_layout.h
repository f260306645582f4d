#pragma once

#include <cstddef>
#include <map>
#include <string>
#include <string_view>

#include "core/device_context.h"

namespace vantrel {

/// Where a text of the design is printed over a drawing.
struct TextSlot {
  Point at;         ///< Left end of the text, middle of its height.
  double size = 0;  ///< Height of the em.
  friend bool operator==(const TextSlot&, const TextSlot&) = default;
};

/// Where the value of a component is printed.
struct ValueSlot {
  TextSlot text;     ///< Its place is the end that `align` tells, or the middle.
  double width = 0;  ///< The room that it has.
  HorizontalAlign align = HorizontalAlign::Left;
  friend bool operator==(const ValueSlot&, const ValueSlot&) = default;
};

/// What is known of a drawing beyond its lines: the file beside it, of its name with the extension
/// ".layout". All lengths are units of the drawing's bounding box. One entry a line, its words
/// separated by blanks, "#" in front of a comment:
///
///     overlay NUMBER X Y SIZE
///     component DESIGNATOR LEFT TOP RIGHT BOTTOM
///     value DESIGNATOR X Y SIZE WIDTH left|centre|right
struct DrawingLayout {
  std::map<std::size_t, TextSlot> overlays;              ///< By their number from 1.
  std::map<std::string, Box, std::less<>> components;    ///< Symbols by their designators.
  std::map<std::string, ValueSlot, std::less<>> values;  ///< Room for a component's value.
};

/// Reads a layout file; lines that say something else are left out.
DrawingLayout read_drawing_layout(std::string_view text);

/// The layout's path beside a drawing's.
std::string layout_path(std::string_view drawing);

}  // namespace vantrel
