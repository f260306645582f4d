#include "waveforms/time_domain_view_lines.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace vantrel {

namespace {

Point at_height(Point a, Point b, double y) {
  return {a.x + (b.x - a.x) * (y - a.y) / (b.y - a.y), y};
}

/// The part of a segment between the heights; false when there is none.
bool cut(Point& a, Point& b, double top, double bottom) {
  if (std::max(a.y, b.y) < top || std::min(a.y, b.y) > bottom) return false;
  const auto [from, to] = std::pair(a, b);
  if (from.y < top) a = at_height(from, to, top);
  if (from.y > bottom) a = at_height(from, to, bottom);
  if (to.y < top) b = at_height(from, to, top);
  if (to.y > bottom) b = at_height(from, to, bottom);
  return true;
}

}  // namespace

std::vector<std::vector<Point>> within_heights(std::span<const Point> line, double top,
                                               double bottom) {
  std::vector<std::vector<Point>> parts;
  bool open = false;
  for (std::size_t i = 1; i < line.size(); ++i) {
    Point from = line[i - 1];
    Point to = line[i];
    if (!cut(from, to, top, bottom)) {
      open = false;
      continue;
    }
    if (!open || parts.back().back() != from) parts.push_back({from});
    parts.back().push_back(to);
    open = true;
  }
  return parts;
}

std::vector<Point> without_idle_points(std::span<const Point> line) {
  std::vector<Point> kept;
  kept.reserve(line.size());
  for (std::size_t i = 0; i < line.size(); ++i) {
    const bool is_end = i == 0 || i + 1 == line.size();
    if (is_end || line[i - 1].y != line[i].y || line[i + 1].y != line[i].y) kept.push_back(line[i]);
  }
  return kept;
}

double line_length(std::span<const Point> line) {
  double length = 0;
  for (std::size_t i = 1; i < line.size(); ++i) {
    length += std::fabs(line[i].x - line[i - 1].x) + std::fabs(line[i].y - line[i - 1].y);
  }
  return length;
}

}  // namespace vantrel
