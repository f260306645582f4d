#pragma once

#include <set>
#include <string>
#include <string_view>

#include "drawing_builder/net_list.h"

namespace vantrel::drawing {

/// What a drawing of one block came to.
struct SmallDrawing {
  std::string problems;  ///< One a line, without file and line.
  Diagram diagram;
  NetList nets;
};

/// Puts a block of the given lines on a sheet, with a symbol "r" of six steps whose pins are 1 and
/// 2, and checks it against a bill.
SmallDrawing draw_block(std::string_view lines, const std::set<std::string>& bill);

}  // namespace vantrel::drawing
