#pragma once

#include <map>
#include <set>
#include <string>
#include <vector>

#include "drawing_builder/diagram.h"

namespace vantrel::drawing {

/// A straight piece of a wire.
struct Segment {
  Spot from;
  Spot to;
  std::size_t wire = 0;

  bool level() const { return from.y == to.y; }
  Area area() const {
    const Spot ends[]{from, to};
    return around(ends);
  }
  bool contains(Spot p) const;
};

std::vector<Segment> segments(const Diagram& diagram);

/// What is joined to what. Wires are joined where one ends at another or has a corner on it, and
/// by flags of the same name; wires that merely cross are not.
struct NetList {
  /// For each net its pins as "KEY.PIN".
  std::vector<std::set<std::string>> nets;
  /// Names of the flags and signs of each net.
  std::vector<std::set<std::string>> names;
  std::vector<Spot> nodes;  ///< Where three branches meet: drawn as a dot.

  /// True when all pins, and nets named as "=NAME", are one net.
  bool joined(const std::set<std::string>& pins) const;
};

/// Follows the wires. Problems are a slanted wire, wires on top of each other, a wire that ends
/// nowhere, a pin without a connection, a flag without another one, four branches in one point, and
/// two names on one net.
NetList follow_wires(const Diagram& diagram, Problems& problems);

}  // namespace vantrel::drawing
