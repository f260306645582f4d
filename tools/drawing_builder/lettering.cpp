#include "drawing_builder/lettering.h"

#include <array>
#include <cmath>

#include "drawing_builder/stroke_font.h"

namespace vantrel::drawing {

namespace {

/// Widths of A to Z in thousandths of the em.
constexpr std::array<int, 26> kCapitals{667, 667, 722, 722, 667, 611, 778, 722, 278,
                                        500, 667, 556, 833, 722, 778, 667, 778, 722,
                                        667, 611, 722, 667, 944, 667, 667, 611};
constexpr int kOther = 556;
constexpr double kStandIn = 1.17;
constexpr double kCapitalHeight = 0.72;
constexpr double kGap = 0.6;
constexpr double kLine = 1.05;  ///< Half of the distance between designator and value.
constexpr double kSignal = 0.35;

/// Above a part whose pins lie beside each other, else to its right.
Side usual_side(const Part& part) {
  const std::vector<Pin>& pins = part.symbol->pins;
  const Spot reach = turned(pins.back().at - pins.front().at, part.turn);
  return std::abs(reach.x) > std::abs(reach.y) ? Side::Up : Side::Right;
}

double half_height(double size) { return kCapitalHeight * size / 2; }

TextPlace beside(const Area& body, Side side, double size, double offset) {
  const Spot middle = body.centre();
  switch (side) {
    case Side::Left:
      return {{body.left - kGap, middle.y + offset}, Align::Right};
    case Side::Right:
      return {{body.right + kGap, middle.y + offset}, Align::Left};
    case Side::Up:
      return {{middle.x, body.top - kGap - half_height(size)}, Align::Centre};
    case Side::Down:
      break;
  }
  return {{middle.x, body.bottom + kGap + half_height(size)}, Align::Centre};
}

Side opposite(Side side) {
  switch (side) {
    case Side::Left:
      return Side::Right;
    case Side::Right:
      return Side::Left;
    case Side::Up:
      return Side::Down;
    case Side::Down:
      break;
  }
  return Side::Up;
}

Shape line(std::vector<Spot> points, bool bold = false) {
  Shape shape;
  shape.points = std::move(points);
  shape.bold = bold;
  return shape;
}

std::vector<Shape> flag_shapes(const Mark& mark) {
  const Spot at = mark.at;
  Shape name;
  name.kind = Shape::Kind::Letters;
  name.letters = mark.net;
  name.height = kLetterHeight;
  const double near = 2 * kSignal;
  Spot ring = at;
  switch (mark.side) {
    case Side::Left:
      name.align = Align::Right;
      name.points = {{at.x - near - 0.4, at.y}};
      ring.x -= kSignal;
      break;
    case Side::Right:
      name.align = Align::Left;
      name.points = {{at.x + near + 0.4, at.y}};
      ring.x += kSignal;
      break;
    case Side::Up:
      name.align = Align::Centre;
      name.points = {{at.x, at.y - near - 1}};
      ring.y -= kSignal;
      break;
    case Side::Down:
      name.align = Align::Centre;
      name.points = {{at.x, at.y + near + 1}};
      ring.y += kSignal;
      break;
  }
  return {line(arc_points(ring, kSignal, 0, 360)), name};
}

}  // namespace

double text_length(std::string_view text, double size) {
  int thousandths = 0;
  for (const char letter : text) {
    const bool capital = letter >= 'A' && letter <= 'Z';
    thousandths += capital ? kCapitals[static_cast<std::size_t>(letter - 'A')] : kOther;
  }
  return thousandths * size * kStandIn / 1000;
}

Area text_area(std::string_view text, Spot at, Align align, double size) {
  const double length = text_length(text, size);
  double left = at.x;
  if (align == Align::Centre) left -= length / 2;
  if (align == Align::Right) left -= length;
  return {left, at.y - half_height(size), left + length, at.y + half_height(size)};
}

std::vector<DrawnText> part_texts(const Diagram& diagram) {
  std::vector<DrawnText> texts;
  for (const Part& part : diagram.parts) {
    TextPlace place;
    if (part.symbol->designator && !part.text_side) {
      place = *part.symbol->designator;
      place.at = part.place(place.at);
    } else {
      const bool lone = part.piece;
      place = beside(part.body(), part.text_side.value_or(usual_side(part)), kDesignatorSize,
                     lone ? 0 : -kLine);
    }
    DrawnText text{&part, part.reference, place.at, place.align, {}};
    text.area = part.piece ? stroke_area(text.text, text.at, text.align, kLetterHeight)
                           : text_area(text.text, text.at, text.align, kDesignatorSize);
    texts.push_back(text);
  }
  return texts;
}

std::vector<TextPlace> value_candidates(const DrawnText& designator) {
  const Part& part = *designator.part;
  if (part.symbol->value && !part.text_side) {
    return {{part.place(part.symbol->value->at), part.symbol->value->align}};
  }
  const Area body = part.body();
  const Side side = part.text_side.value_or(usual_side(part));
  const TextPlace under{designator.at + Spot{0, 2 * kLine}, designator.align};
  const TextPlace over{designator.at + Spot{0, -2 * kLine}, designator.align};
  const TextPlace across = beside(body, opposite(side), kValueSize, 0);
  if (side == Side::Left || side == Side::Right) return {under, over, across};
  return {across, side == Side::Up ? over : under};
}

std::vector<Shape> mark_shapes(const Mark& mark) {
  const Spot at = mark.at;
  switch (mark.kind) {
    case BlockMark::Kind::Flag:
      return flag_shapes(mark);
    case BlockMark::Kind::Ground:
      return {line({at, at + Spot{0, 0.8}}),
              line({at + Spot{-1.1, 0.8}, at + Spot{1.1, 0.8}}, true)};
    case BlockMark::Kind::Earth:
      return {line({at, at + Spot{0, 0.8}}), line({at + Spot{-1.1, 0.8}, at + Spot{1.1, 0.8}}),
              line({at + Spot{-0.7, 1.2}, at + Spot{0.7, 1.2}}),
              line({at + Spot{-0.3, 1.6}, at + Spot{0.3, 1.6}})};
    case BlockMark::Kind::Open:
      break;
  }
  return {line({at + Spot{-0.5, -0.5}, at + Spot{0.5, 0.5}}),
          line({at + Spot{-0.5, 0.5}, at + Spot{0.5, -0.5}})};
}

Area mark_area(const Mark& mark) {
  Area area{mark.at.x, mark.at.y, mark.at.x, mark.at.y};
  for (const Shape& shape : mark_shapes(mark)) area.include(shape_area(shape));
  return area;
}

}  // namespace vantrel::drawing
