#pragma once

#include <span>
#include <vector>

#include "core/device_context.h"

namespace vantrel {

/// The parts of a line between two heights; cut ends lie on the line.
std::vector<std::vector<Point>> within_heights(std::span<const Point> line, double top,
                                               double bottom);

/// The line without points in the middle of horizontal stretches.
std::vector<Point> without_idle_points(std::span<const Point> line);

/// Length of a line, counted in rows and columns.
double line_length(std::span<const Point> line);

}  // namespace vantrel
