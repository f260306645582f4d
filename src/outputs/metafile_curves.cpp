#include "outputs/metafile_curves.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace vantrel {
namespace {

constexpr double kTurn = 2 * std::numbers::pi;
/// Chords to a whole turn: smooth at the largest zoom of a sheet.
constexpr double kChords = 96;

/// Appends points of the ellipse in `box` from an angle over `sweep`, both counter-clockwise.
void append_arc(std::vector<Point>& points, const Box& box, double start, double sweep) {
  const Size radius{box.width / 2, box.height / 2};
  const Point centre{box.left + radius.width, box.top + radius.height};
  const int chords = std::max(1, static_cast<int>(std::ceil(sweep / kTurn * kChords)));
  for (int i = 0; i <= chords; ++i) {
    const double angle = start + sweep * i / chords;
    points.push_back(
        {centre.x + radius.width * std::cos(angle), centre.y - radius.height * std::sin(angle)});
  }
}

}  // namespace

std::vector<Point> arc_points(const Box& box, Point from, Point to) {
  if (!(box.width > 0 && box.height > 0)) return {};
  const auto angle = [&box](Point p) {
    return std::atan2((box.top + box.height / 2 - p.y) / box.height,
                      (p.x - box.left - box.width / 2) / box.width);
  };
  const double start = angle(from);
  double sweep = angle(to) - start;
  if (sweep <= 0) sweep += kTurn;
  std::vector<Point> points;
  append_arc(points, box, start, sweep);
  return points;
}

std::vector<Point> round_box_points(const Box& box, Size corner) {
  const double w = std::min(corner.width, box.width);
  const double h = std::min(corner.height, box.height);
  const double right = box.right() - w;
  const double bottom = box.bottom() - h;
  const double quarter = kTurn / 4;
  std::vector<Point> points;
  append_arc(points, {right, box.top, w, h}, 0, quarter);
  append_arc(points, {box.left, box.top, w, h}, quarter, quarter);
  append_arc(points, {box.left, bottom, w, h}, 2 * quarter, quarter);
  append_arc(points, {right, bottom, w, h}, 3 * quarter, quarter);
  return points;
}

}  // namespace vantrel
