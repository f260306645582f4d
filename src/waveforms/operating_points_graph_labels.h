#pragma once

#include <span>
#include <vector>

#include "core/device_context.h"

namespace vantrel {

/// True when the line between two points touches the box.
bool line_meets_box(Point a, Point b, const Box& box);
bool boxes_overlap(const Box& a, const Box& b);

/// Finds room for labels beside lines, marks and each other.
class LabelRoom {
 public:
  /// Labels stay inside `bounds`.
  explicit LabelRoom(const Box& bounds) : bounds_(bounds) {}

  void avoidMark(Point middle, double radius);
  void avoid(const Box& box) { boxes_.push_back(box); }
  void avoidLine(std::span<const Point> line) { lines_.emplace_back(line.begin(), line.end()); }

  /// How much of what stands already a box would cover; 0 for free ground.
  double cost(const Box& box) const;
  /// The freest place for a label of that size around a mark, the nearest first. It counts as
  /// taken from then on.
  Box place(Point mark, Size label);
  /// The freest corner of the bounds for a box of that size, the upper right one first.
  Box placeInCorner(Size size, double margin);

 private:
  Box bounds_;
  bool isNearerToAnother(Point mark, const Box& label) const;

  std::vector<Point> marks_;
  std::vector<Box> boxes_;
  std::vector<std::vector<Point>> lines_;
};

}  // namespace vantrel
