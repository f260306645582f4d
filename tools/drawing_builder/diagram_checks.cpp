#include "drawing_builder/diagram_checks.h"

#include <array>
#include <functional>
#include <optional>

namespace vantrel::drawing {

namespace {

constexpr double kTouch = 0.05;  ///< Edges may touch and rounding may make them overlap.
constexpr double kClear = 0.35;  ///< Distance of a text from lines and from other texts.
constexpr double kEdge = 2;      ///< Values may reach out of the drawing by this.
/// Values for which room is sought, the longest first; one that is longer than its room is not
/// shown.
constexpr std::array<std::string_view, 3> kUsualValues{"000 KOhm", "00 KOhm", "000 nF"};
constexpr double kMostRoom = 24;  ///< A value takes no more than this.
constexpr double kRoomStep = 0.5;

bool crosses(const Segment& segment, const Area& area) {
  const Area inside = area.grown(-kTouch);
  const Area line = segment.area();
  return line.left < inside.right && inside.left < line.right + 1e-9 && line.top < inside.bottom &&
         inside.top < line.bottom + 1e-9 && line.right > inside.left && line.bottom > inside.top;
}

std::string name_of(const Mark& mark) {
  return mark.net.empty() ? std::string("sign") : "sign '" + mark.net + "'";
}

/// Letters in symbols stand in their body or at their leads and are looked at by their symbol's
/// author; here only what can collide by placing.
class RoomCheck {
 public:
  RoomCheck(const Diagram& diagram, Problems& problems)
      : diagram_(diagram),
        problems_(problems),
        texts_(part_texts(diagram)),
        wires_(segments(diagram)) {
    for (const Part& part : diagram.parts) bodies_.push_back(part.body());
    for (const Mark& mark : diagram.marks) marks_.push_back(mark_area(mark));
  }

  void run() {
    for (std::size_t i = 0; i < texts_.size(); ++i) checkText(i);
    for (std::size_t i = 0; i < diagram_.parts.size(); ++i) checkBody(i);
    for (std::size_t i = 0; i < diagram_.marks.size(); ++i) checkMark(i);
  }

 private:
  void checkText(std::size_t index) {
    const DrawnText& text = texts_[index];
    const Area room = text.area.grown(kClear);
    const auto fault = [&](const std::string& what) {
      report(problems_, text.part->origin, "text '" + text.text + "' overlaps " + what);
    };
    for (std::size_t i = 0; i < index; ++i) {
      if (room.overlaps(texts_[i].area)) fault("text '" + texts_[i].text + "'");
    }
    const bool inside = text.part->symbol->designator && !text.part->text_side;
    for (std::size_t i = 0; i < bodies_.size(); ++i) {
      if (inside && &diagram_.parts[i] == text.part) continue;
      if (room.overlaps(bodies_[i])) fault("'" + diagram_.parts[i].key + "'");
    }
    for (std::size_t i = 0; i < marks_.size(); ++i) {
      if (room.overlaps(marks_[i])) fault(name_of(diagram_.marks[i]));
    }
    for (const Segment& wire : wires_) {
      if (crosses(wire, room)) {
        fault("the wire of line " + std::to_string(diagram_.wires[wire.wire].origin.line));
      }
    }
  }

  void checkBody(std::size_t index) {
    const Part& part = diagram_.parts[index];
    const Area body = bodies_[index];
    for (std::size_t i = 0; i < index; ++i) {
      if (body.overlaps(bodies_[i].grown(-kTouch))) {
        report(problems_, part.origin,
               "'" + part.key + "' overlaps '" + diagram_.parts[i].key + "'");
      }
    }
    for (const Segment& wire : wires_) {
      if (crosses(wire, body)) {
        report(problems_, diagram_.wires[wire.wire].origin,
               "the wire runs through '" + part.key + "'");
      }
    }
  }

  void checkMark(std::size_t index) {
    const Mark& mark = diagram_.marks[index];
    const Area area = marks_[index];
    for (std::size_t i = 0; i < bodies_.size(); ++i) {
      if (area.overlaps(bodies_[i].grown(-kTouch))) {
        report(problems_, mark.origin, name_of(mark) + " overlaps '" + diagram_.parts[i].key + "'");
      }
    }
    for (const Segment& wire : wires_) {
      if (!wire.contains(mark.at) && crosses(wire, area)) {
        report(problems_, mark.origin,
               name_of(mark) + " overlaps the wire of line " +
                   std::to_string(diagram_.wires[wire.wire].origin.line));
      }
    }
    for (std::size_t i = 0; i < index; ++i) {
      if (area.overlaps(marks_[i])) {
        report(problems_, mark.origin, name_of(mark) + " overlaps " + name_of(diagram_.marks[i]));
      }
    }
  }

  const Diagram& diagram_;
  Problems& problems_;
  std::vector<DrawnText> texts_;
  std::vector<Segment> wires_;
  std::vector<Area> bodies_;
  std::vector<Area> marks_;
};

Area value_area(const TextPlace& place, double room) {
  Area area = text_area("0", place.at, place.align, kValueSize);
  const double middle = area.centre().x;
  if (place.align == Align::Left) area.right = area.left + room;
  if (place.align == Align::Right) area.left = area.right - room;
  if (place.align == Align::Centre) {
    area.left = middle - room / 2;
    area.right = middle + room / 2;
  }
  return area;
}

/// What the larger of two areas of the same height has at its ends.
std::vector<Area> beyond(const Area& inner, const Area& outer) {
  std::vector<Area> ends;
  if (outer.left < inner.left) ends.push_back({outer.left, outer.top, inner.left, outer.bottom});
  if (outer.right > inner.right)
    ends.push_back({inner.right, outer.top, outer.right, outer.bottom});
  return ends;
}

/// The first place where the longest of the values is free that has one.
std::optional<ValuePlace> first_free(const DrawnText& text,
                                     const std::vector<std::string_view>& values,
                                     const std::function<bool(const Area&)>& is_free) {
  for (const std::string_view value : values) {
    const double length = text_length(value, kValueSize);
    for (const TextPlace& candidate : value_candidates(text)) {
      if (is_free(value_area(candidate, length))) return ValuePlace{candidate, length};
    }
  }
  return std::nullopt;
}

}  // namespace

bool Obstacles::clear(const Area& area, double distance) const {
  const Area room = area.grown(distance);
  const auto free_of = [&](const std::vector<Area>& others) {
    return std::ranges::none_of(others, [&](const Area& other) { return room.overlaps(other); });
  };
  return free_of(bodies) && free_of(marks) && free_of(texts) &&
         std::ranges::none_of(wires, [&](const Segment& wire) { return crosses(wire, room); });
}

Area extent(const Diagram& diagram) {
  std::optional<Area> result;
  const auto include = [&](const Area& area) {
    if (!result) result = area;
    result->include(area);
  };
  for (const Part& part : diagram.parts) {
    for (const Shape& shape : part.symbol->shapes) {
      include(shape_area(moved(shape, part.turn, part.at)));
    }
  }
  for (const DrawnText& text : part_texts(diagram)) include(text.area);
  for (const Wire& wire : diagram.wires) include(around(wire.points));
  for (const Mark& mark : diagram.marks) include(mark_area(mark));
  return result.value_or(Area{0, 0, 1, 1});
}

Obstacles obstacles(const Diagram& diagram) {
  Obstacles result;
  for (const Part& part : diagram.parts) {
    result.bodies.push_back(part.body());
    for (const Shape& shape : part.symbol->shapes) {
      result.bodies.push_back(shape_area(moved(shape, part.turn, part.at)));
    }
  }
  for (const Mark& mark : diagram.marks) result.marks.push_back(mark_area(mark));
  for (const DrawnText& text : part_texts(diagram)) result.texts.push_back(text.area);
  result.wires = segments(diagram);
  return result;
}

void check_room(const Diagram& diagram, Problems& problems) { RoomCheck(diagram, problems).run(); }

void check_bill(const Diagram& diagram, const std::set<std::string>& bill, const Origin& origin,
                Problems& problems) {
  std::set<std::string> drawn;
  for (const Part& part : diagram.parts) {
    if (!bill.contains(part.reference)) {
      report(problems, part.origin, "the bill of materials lacks '" + part.reference + "'");
    }
    if (!part.piece) drawn.insert(part.reference);
  }
  for (const std::string& reference : bill) {
    if (!drawn.contains(reference)) {
      report(problems, origin, "component '" + reference + "' of the bill has no symbol");
    }
  }
}

std::map<std::string, ValuePlace> value_places(
    const Diagram& diagram, const std::map<std::string, std::string>& long_values) {
  std::map<std::string, ValuePlace> places;
  Obstacles taken = obstacles(diagram);
  const Area sheet = extent(diagram).grown(kEdge);
  const auto is_free = [&](const Area& area) {
    return sheet.covers(area) && taken.clear(area, kClear);
  };
  const auto is_unused = [&](const Area& area) {
    return sheet.covers(area) && taken.clear(area, 0);
  };
  for (const DrawnText& text : part_texts(diagram)) {
    if (text.part->piece) continue;
    const auto known = long_values.find(text.text);
    const std::vector<std::string_view> usual =
        known == long_values.end()
            ? std::vector<std::string_view>(kUsualValues.begin(), kUsualValues.end())
            : std::vector<std::string_view>{known->second};
    if (const auto place = first_free(text, usual, is_free)) {
      taken.texts.push_back(value_area(place->text, place->room));
      places[text.text] = *place;
    }
  }
  for (auto& [reference, place] : places) {
    while (place.room < kMostRoom) {
      const double room = place.room + kRoomStep;
      const std::vector<Area> more =
          beyond(value_area(place.text, place.room), value_area(place.text, room));
      if (!std::ranges::all_of(more, is_unused)) break;
      taken.texts.insert(taken.texts.end(), more.begin(), more.end());
      place.room = room;
    }
  }
  return places;
}

}  // namespace vantrel::drawing
