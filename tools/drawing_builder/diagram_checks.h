#pragma once

#include <map>
#include <set>
#include <string>
#include <vector>

#include "drawing_builder/lettering.h"
#include "drawing_builder/net_list.h"

namespace vantrel::drawing {

/// What texts and values must keep clear of.
struct Obstacles {
  std::vector<Area> bodies;
  std::vector<Area> marks;
  std::vector<Area> texts;
  std::vector<Segment> wires;

  /// True when nothing of it comes nearer to `area` than `distance`.
  bool clear(const Area& area, double distance) const;
};

Obstacles obstacles(const Diagram& diagram);

/// The area that everything drawn fills.
Area extent(const Diagram& diagram);

/// Reports texts that overlap a text, a body, a sign or a wire, bodies that overlap, and wires that
/// run through a body or a sign.
void check_room(const Diagram& diagram, Problems& problems);

/// Reports designators that the bill lacks and components of the bill that the diagram lacks.
void check_bill(const Diagram& diagram, const std::set<std::string>& bill, const Origin& origin,
                Problems& problems);

/// Where the value of a component stands, the middle of its height, and how long it may be.
struct ValuePlace {
  TextPlace text;
  double room = 0;
};

/// Places of the values of components, by designator; those without room are left out. A value is
/// taken to be as long as a number with its unit, or as long as `long_values` has it; the room that
/// is left goes to it as well.
std::map<std::string, ValuePlace> value_places(
    const Diagram& diagram, const std::map<std::string, std::string>& long_values);

}  // namespace vantrel::drawing
