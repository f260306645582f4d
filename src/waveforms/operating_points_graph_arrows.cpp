#include <algorithm>
#include <cmath>

#include "waveforms/operating_points_graph_drawing.h"

namespace vantrel {

namespace {

constexpr double kArrowWidth = 1.4;
constexpr double kHeadLength = 9;
constexpr double kHeadHalfWidth = 3.5;
constexpr double kArrowOffset = 13;    // from the curve that it runs beside
constexpr double kGapToMark = 10;      // between a mark's centre and a straight arrow
constexpr double kGapBesideMark = 15;  // and an arrow beside the curve
constexpr double kShortestArrow = 1.5 * kHeadLength;
constexpr double kSampleStep = 2;

double distance(Point a, Point b) { return std::hypot(b.x - a.x, b.y - a.y); }

double length(const std::vector<Point>& line) {
  double sum = 0;
  for (std::size_t at = 1; at < line.size(); ++at) sum += distance(line[at - 1], line[at]);
  return sum;
}

/// The point `along` pixels from `from` towards `to`.
Point towards(Point from, Point to, double along) {
  const double share = along / distance(from, to);
  return {from.x + (to.x - from.x) * share, from.y + (to.y - from.y) * share};
}

/// The last point of the line that is at least a head away from its end.
Point head_base(const std::vector<Point>& line) {
  for (auto point = line.rbegin(); point != line.rend(); ++point) {
    if (distance(*point, line.back()) >= kHeadLength) {
      return towards(line.back(), *point, kHeadLength);
    }
  }
  return line.front();
}

}  // namespace

GraphDrawing::Arrow GraphDrawing::graph_arrows(const GraphMark& from, const GraphMark& to) const {
  std::vector<Point> shaft;
  if (from.curve == 0 && to.curve == 0) shaft = besideCurve(from, to);
  if (shaft.empty()) {
    const Point a = at(from);
    const Point b = at(to);
    if (distance(a, b) < 2 * kGapToMark + kShortestArrow) return {};
    shaft = {towards(a, b, kGapToMark), towards(b, a, kGapToMark)};
  }
  if (length(shaft) < kShortestArrow) return {};
  return {std::move(shaft)};
}

std::vector<Point> GraphDrawing::besideCurve(const GraphMark& from, const GraphMark& to) const {
  const Point a = at(from);
  const Point b = at(to);
  const double span = b.x - a.x;
  const int steps = static_cast<int>(std::ceil(std::abs(span) / kSampleStep));
  if (steps < 1) return {};
  const double load = static_cast<double>(inputs_.loads[0]);
  const auto on_curve = [&](double x) {
    const float gain = calculate_vlamp(inputs_.L * 0.001, inputs_.C * 1e-9, load,
                                       scale_.frequency(x - scale_.plot.left));
    return Point{x, scale_.y(static_cast<double>(gain))};
  };
  std::vector<Point> path;
  for (int step = 0; step <= steps; ++step) {
    const double x = a.x + span * step / steps;
    const Point here = on_curve(x);
    if (here.y < scale_.plot.top) return {};
    const Point next = on_curve(x + 0.5);
    const double slope = next.y - here.y;
    const double size = std::hypot(slope, 0.5);
    const Point moved{here.x + kArrowOffset * slope / size, here.y - kArrowOffset * 0.5 / size};
    const bool free = distance(moved, a) >= kGapBesideMark && distance(moved, b) >= kGapBesideMark;
    if (free && scale_.plot.contains(moved)) path.push_back(moved);
  }
  return path;
}

void GraphDrawing::drawArrow(const Arrow& arrow) {
  if (arrow.shaft.empty()) return;
  const Point tip = arrow.shaft.back();
  const Point base = head_base(arrow.shaft);
  std::vector<Point> shaft = arrow.shaft;
  while (shaft.size() > 1 && distance(shaft.back(), tip) < kHeadLength) shaft.pop_back();
  shaft.push_back(base);
  surface_.setPen({colour(Role::Text), kArrowWidth, {}});
  surface_.polyline(shaft);
  const double size = distance(base, tip);
  const Point across{-(tip.y - base.y) / size * kHeadHalfWidth,
                     (tip.x - base.x) / size * kHeadHalfWidth};
  const Point head[] = {
      tip, {base.x + across.x, base.y + across.y}, {base.x - across.x, base.y - across.y}};
  surface_.setNoPen();
  surface_.setBrush(colour(Role::Text));
  surface_.polygon(head);
}

}  // namespace vantrel
