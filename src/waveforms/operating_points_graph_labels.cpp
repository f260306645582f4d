#include "waveforms/operating_points_graph_labels.h"

#include <algorithm>
#include <cmath>

namespace vantrel {

namespace {

constexpr double kClearance = 2;
constexpr double kOverlapCost = 10;  // a covered label or mark is worse than a crossed line
constexpr double kOutsideCost = 1000;
constexpr double kAmbiguousCost = 10;
constexpr double kDistances[] = {13, 20, 28, 38};
/// Right, left, then the other sides; the direction is that of the label's centre from the mark.
constexpr Point kDirections[] = {{1, -0.6}, {-1, 0.6}, {1, 0},  {-1, -0.6},
                                 {1, 0.6},  {-1, 0},   {0, -1}, {0, 1}};

/// The part of 0..1 along a line that fulfils `p t <= q`; false when nothing is left.
bool narrow(double p, double q, double& from, double& to) {
  if (p == 0) return q >= 0;
  const double t = q / p;
  if (p < 0) {
    from = std::max(from, t);
  } else {
    to = std::min(to, t);
  }
  return from <= to;
}

/// The box with the clear ground that a label wants around it.
Box grown(const Box& box) {
  return {box.left - kClearance, box.top - kClearance, box.width + 2 * kClearance,
          box.height + 2 * kClearance};
}

/// Distance of a point from a box.
double gap(Point from, const Box& box) {
  const double dx = std::max({box.left - from.x, 0.0, from.x - box.right()});
  const double dy = std::max({box.top - from.y, 0.0, from.y - box.bottom()});
  return std::hypot(dx, dy);
}

/// A label's box so that its nearest edge or corner stands `distance` away from the mark.
Box beside(Point mark, Size label, Point direction, double distance) {
  const double width = label.width / 2;
  const double height = label.height / 2;
  const double x = mark.x + direction.x * (distance + width);
  const double y = mark.y + direction.y * (distance + height);
  return {x - width, y - height, label.width, label.height};
}

}  // namespace

bool line_meets_box(Point a, Point b, const Box& box) {
  const double dx = b.x - a.x;
  const double dy = b.y - a.y;
  double from = 0;
  double to = 1;
  return narrow(-dx, a.x - box.left, from, to) && narrow(dx, box.right() - a.x, from, to) &&
         narrow(-dy, a.y - box.top, from, to) && narrow(dy, box.bottom() - a.y, from, to);
}

bool boxes_overlap(const Box& a, const Box& b) {
  return a.left < b.right() && b.left < a.right() && a.top < b.bottom() && b.top < a.bottom();
}

double LabelRoom::cost(const Box& box) const {
  double cost = 0;
  if (!bounds_.contains({box.left, box.top}) || !bounds_.contains({box.right(), box.bottom()})) {
    cost += kOutsideCost;
  }
  for (const Box& taken : boxes_) cost += boxes_overlap(taken, box) ? kOverlapCost : 0;
  for (const auto& line : lines_) {
    for (std::size_t at = 1; at < line.size(); ++at) {
      if (line_meets_box(line[at - 1], line[at], box)) cost += 1;
    }
  }
  return cost;
}

void LabelRoom::avoidMark(Point middle, double radius) {
  marks_.push_back(middle);
  avoid({middle.x - radius, middle.y - radius, 2 * radius, 2 * radius});
}

bool LabelRoom::isNearerToAnother(Point mark, const Box& label) const {
  const double own = gap(mark, label);
  return std::any_of(marks_.begin(), marks_.end(), [&](Point other) {
    return (other.x != mark.x || other.y != mark.y) && gap(other, label) < 1.5 * own;
  });
}

Box LabelRoom::place(Point mark, Size label) {
  Box best;
  double best_cost = HUGE_VAL;
  for (const double distance : kDistances) {
    for (const Point direction : kDirections) {
      const Box box = beside(mark, label, direction, distance);
      const double present = cost(grown(box)) + (isNearerToAnother(mark, box) ? kAmbiguousCost : 0);
      if (present >= best_cost) continue;
      best_cost = present;
      best = box;
    }
  }
  avoid(best);
  return best;
}

Box LabelRoom::placeInCorner(Size size, double margin) {
  const double left = bounds_.left + margin;
  const double right = bounds_.right() - margin - size.width;
  const double top = bounds_.top + margin;
  const double bottom = bounds_.bottom() - margin - size.height;
  const Point corners[] = {{right, top}, {left, top}, {right, bottom}, {left, bottom}};
  Box best;
  double best_cost = HUGE_VAL;
  for (const Point corner : corners) {
    const Box box{corner.x, corner.y, size.width, size.height};
    const double present = cost(box);
    if (present >= best_cost) continue;
    best_cost = present;
    best = box;
  }
  avoid(best);
  return best;
}

}  // namespace vantrel
