#pragma once

#include <algorithm>
#include <compare>
#include <span>

namespace vantrel::drawing {

/// A position on a sheet in steps of its grid, x to the right, y down.
struct Spot {
  double x = 0;
  double y = 0;
  friend auto operator<=>(const Spot&, const Spot&) = default;
  friend Spot operator+(Spot a, Spot b) { return {a.x + b.x, a.y + b.y}; }
  friend Spot operator-(Spot a, Spot b) { return {a.x - b.x, a.y - b.y}; }
};

/// A rectangle with its sides along the axes.
struct Area {
  double left = 0;
  double top = 0;
  double right = 0;
  double bottom = 0;
  friend bool operator==(const Area&, const Area&) = default;

  double width() const { return right - left; }
  double height() const { return bottom - top; }
  Spot centre() const { return {(left + right) / 2, (top + bottom) / 2}; }
  Area grown(double by) const { return {left - by, top - by, right + by, bottom + by}; }
  /// True when the insides have a point in common; touching edges do not count.
  bool overlaps(const Area& other) const {
    return left < other.right && other.left < right && top < other.bottom && other.top < bottom;
  }
  bool covers(const Area& other) const {
    return left <= other.left && other.right <= right && top <= other.top && other.bottom <= bottom;
  }
  void include(Spot p) {
    left = std::min(left, p.x);
    top = std::min(top, p.y);
    right = std::max(right, p.x);
    bottom = std::max(bottom, p.y);
  }
  void include(const Area& other) {
    include(Spot{other.left, other.top});
    include(Spot{other.right, other.bottom});
  }
};

/// The smallest area around some positions, of which there must be one at least.
inline Area around(std::span<const Spot> spots) {
  Area area{spots.front().x, spots.front().y, spots.front().x, spots.front().y};
  for (const Spot& spot : spots) area.include(spot);
  return area;
}

/// How a symbol stands: mirrored left to right, then turned clockwise by quarters.
struct Turn {
  int quarters = 0;
  bool mirrored = false;
};

inline Spot turned(Spot p, Turn turn) {
  if (turn.mirrored) p.x = -p.x;
  for (int i = 0; i < turn.quarters; ++i) p = {-p.y, p.x};
  return p;
}

inline Area turned(const Area& area, Turn turn) {
  const Spot corners[]{turned(Spot{area.left, area.top}, turn),
                       turned(Spot{area.right, area.bottom}, turn)};
  return around(corners);
}

enum class Side { Left, Right, Up, Down };
enum class Align { Left, Centre, Right };

}  // namespace vantrel::drawing
