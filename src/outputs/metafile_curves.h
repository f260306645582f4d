#pragma once

#include <vector>

#include "core/device_context.h"

namespace vantrel {

/// Points along the ellipse in `box`, counter-clockwise from the ray of its centre through `from`
/// to the one through `to`; all round when the rays are the same. Empty when the box is.
std::vector<Point> arc_points(const Box& box, Point from, Point to);

/// The outline of a box whose corners are quarters of an ellipse of that size.
std::vector<Point> round_box_points(const Box& box, Size corner);

}  // namespace vantrel
