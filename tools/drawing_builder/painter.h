#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "drawing_builder/diagram_checks.h"

namespace vantrel::drawing {

inline constexpr int kUnitsPerStep = 20;  ///< Logical units of a metafile for one step of the grid.

/// A finished drawing: the metafile, and the data that the display prints values by.
struct Drawing {
  std::vector<std::uint8_t> metafile;
  std::string layout;
};

/// Draws a diagram inside a frame, with a title in its lower edge. The layout has the box of each
/// component's symbol and, where there is room, place, size and room of its value.
/// `long_values` are the values that are known to be longer than usual, by designator.
Drawing paint_diagram(const Diagram& diagram, const NetList& nets, const std::string& title,
                      const std::map<std::string, std::string>& long_values);

/// Draws shapes on a sheet of that size, without a frame.
std::vector<std::uint8_t> paint_shapes(const std::vector<Shape>& shapes, double width,
                                       double height);

}  // namespace vantrel::drawing
