#include "drawing_builder/painter.h"

#include <cmath>
#include <optional>

#include "drawing_builder/stroke_font.h"
#include "outputs/metafile_writer.h"

namespace vantrel::drawing {

namespace {

/// A sheet of 240 steps is as wide as A4 laid across.
constexpr int kUnitsPerInch = 420;
constexpr int kThin = 3;
constexpr int kNormal = 5;
constexpr int kBold = 9;
constexpr double kNodeRadius = 0.42;
constexpr double kMargin = 3;
constexpr double kTitleBand = 4;
constexpr double kTitleHeight = 1.8;
constexpr Colour kInk{0, 0, 0, 255};
constexpr Colour kLettersInk{70, 70, 70, 255};

HorizontalAlign horizontal(Align align) {
  if (align == Align::Left) return HorizontalAlign::Left;
  return align == Align::Right ? HorizontalAlign::Right : HorizontalAlign::Centre;
}

class Painter {
 public:
  /// `origin` is the corner of the sheet in steps.
  Painter(Spot origin, double width, double height)
      : origin_(origin), writer_(units(width), units(height), kUnitsPerInch) {
    writer_.textColour(kInk);
  }

  void shape(const Shape& shape) {
    if (shape.kind == Shape::Kind::Letters) {
      letters(shape.letters, shape.points.front(), shape.align, shape.height);
      return;
    }
    const std::vector<MetafilePoint> points = convert(shape.points);
    writer_.pen(kInk, shape.bold ? kBold : kNormal,
                shape.dashed ? MetafileLine::Dash : MetafileLine::Solid);
    if (shape.kind == Shape::Kind::Fill) {
      writer_.noPen();
      writer_.brush(kInk);
      writer_.polygon(points);
      writer_.noBrush();
    } else {
      writer_.polyline(points);
    }
  }

  void letters(const std::string& text, Spot at, Align align, double height) {
    writer_.pen(kLettersInk, kThin);
    for (const std::vector<Spot>& stroke : stroke_letters(text, at, align, height)) {
      writer_.polyline(convert(stroke));
    }
  }

  void designator(const std::string& text, Spot at, Align align) {
    writer_.font({"Arial", kDesignatorSize * kUnitsPerStep, false, false, 0});
    writer_.textAlign({horizontal(align), VerticalAlign::Middle});
    writer_.text(convert(at), text);
  }

  void wire(const Wire& wire) {
    writer_.pen(kInk, kNormal);
    writer_.polyline(convert(wire.points));
  }

  void node(Spot at) {
    Shape dot;
    dot.kind = Shape::Kind::Fill;
    dot.points = arc_points(at, kNodeRadius, 0, 360);
    shape(dot);
  }

  MetafilePoint convert(Spot spot) const {
    return {units(spot.x - origin_.x), units(spot.y - origin_.y)};
  }
  static int units(double steps) { return static_cast<int>(std::lround(steps * kUnitsPerStep)); }

  std::vector<std::uint8_t> bytes() const { return writer_.bytes(); }

 private:
  std::vector<MetafilePoint> convert(const std::vector<Spot>& spots) const {
    std::vector<MetafilePoint> points;
    for (const Spot& spot : spots) points.push_back(convert(spot));
    return points;
  }

  Spot origin_;
  MetafileWriter writer_;
};

std::string layout_of(const Diagram& diagram, const Painter& painter,
                      const std::map<std::string, std::string>& long_values) {
  std::string text;
  const auto add = [&](int number) { text += " " + std::to_string(number); };
  for (const DrawnText& drawn : part_texts(diagram)) {
    if (drawn.part->piece) continue;
    const Area body = drawn.part->body();
    const MetafilePoint corner = painter.convert({body.left, body.top});
    const MetafilePoint end = painter.convert({body.right, body.bottom});
    text += "component " + drawn.text;
    for (const int number : {corner.x, corner.y, end.x, end.y}) add(number);
    text += "\n";
  }
  for (const auto& [reference, place] : value_places(diagram, long_values)) {
    const MetafilePoint at = painter.convert(place.text.at);
    text += "value " + reference;
    for (const int number : {at.x, at.y, Painter::units(kValueSize), Painter::units(place.room)}) {
      add(number);
    }
    text += place.text.align == Align::Left    ? " left\n"
            : place.text.align == Align::Right ? " right\n"
                                               : " centre\n";
  }
  return text;
}

void paint_parts(const Diagram& diagram, Painter& painter) {
  for (const Part& part : diagram.parts) {
    for (const Shape& shape : part.symbol->shapes) {
      painter.shape(moved(shape, part.turn, part.at));
    }
  }
  for (const DrawnText& text : part_texts(diagram)) {
    if (text.part->piece) {
      painter.letters(text.text, text.at, text.align, kLetterHeight);
    } else {
      painter.designator(text.text, text.at, text.align);
    }
  }
}

}  // namespace

Drawing paint_diagram(const Diagram& diagram, const NetList& nets, const std::string& title,
                      const std::map<std::string, std::string>& long_values) {
  Area sheet = extent(diagram).grown(kMargin);
  const double rule = sheet.bottom;
  sheet.bottom += kTitleBand;
  const Area edge = sheet.grown(1);
  Painter painter({edge.left, edge.top}, edge.width(), edge.height());
  for (const Wire& wire : diagram.wires) painter.wire(wire);
  for (const Spot node : nets.nodes) painter.node(node);
  paint_parts(diagram, painter);
  for (const Mark& mark : diagram.marks) {
    for (const Shape& shape : mark_shapes(mark)) painter.shape(shape);
  }
  Shape frame;
  frame.points = {{sheet.left, sheet.top},
                  {sheet.right, sheet.top},
                  {sheet.right, sheet.bottom},
                  {sheet.left, sheet.bottom},
                  {sheet.left, sheet.top}};
  painter.shape(frame);
  Shape line;
  line.points = {{sheet.left, rule}, {sheet.right, rule}};
  painter.shape(line);
  painter.letters(title, {sheet.left + 2, rule + kTitleBand / 2}, Align::Left, kTitleHeight);
  return {painter.bytes(), layout_of(diagram, painter, long_values)};
}

std::vector<std::uint8_t> paint_shapes(const std::vector<Shape>& shapes, double width,
                                       double height) {
  Painter painter({}, width, height);
  for (const Shape& shape : shapes) painter.shape(shape);
  return painter.bytes();
}

}  // namespace vantrel::drawing
