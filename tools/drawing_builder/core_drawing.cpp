#include "drawing_builder/core_drawing.h"

#include <cmath>

#include "core/number_text.h"

namespace vantrel::drawing {

namespace {

constexpr double kWidth = 64;
constexpr double kHeight = 76;
constexpr double kFormerShare = 0.6;  ///< Of the window that the former leaves to the winding.
constexpr double kDrawn = 42;         ///< Longest side of the core on the sheet.
constexpr double kGapOnSheet = 0.8;

struct Window {
  double width = 0;
  double height = 0;
};

/// The path runs once round the window at half a leg's distance: 2 (width + height + leg). The
/// sides of a rectangle from its area and half its circumference; a square where there is none.
Window window_of(const CoreData& core, double leg) {
  const double area = core.winding / kFormerShare;
  const double half = core.path / 2 - leg;
  const double root = half * half / 4 - area;
  if (half <= 0 || root <= 0) return {std::sqrt(area), std::sqrt(area)};
  const double width = half / 2 - std::sqrt(root);
  return {width, area / width};
}

Shape line(std::vector<Spot> points, bool bold = false) {
  Shape shape;
  shape.points = std::move(points);
  shape.bold = bold;
  return shape;
}

Shape box(const Area& area, bool bold = false) {
  return line({{area.left, area.top},
               {area.right, area.top},
               {area.right, area.bottom},
               {area.left, area.bottom},
               {area.left, area.top}},
              bold);
}

Shape letters(std::string text, Spot at, Align align, double height) {
  Shape shape;
  shape.kind = Shape::Kind::Letters;
  shape.letters = std::move(text);
  shape.points = {at};
  shape.align = align;
  shape.height = height;
  return shape;
}

/// One half: an E with its back at `back` and its legs reaching to the middle.
Shape half_core(Spot middle, double leg, const Window& window, double side, double gap) {
  const double inner = leg / 2;
  const double outer = inner + window.width;
  const double edge = outer + leg / 2;
  const double back = side * (window.height / 2 + leg / 2);
  const double root = side * window.height / 2;
  const auto at = [&](double x, double y) { return Spot{middle.x + x, middle.y + y}; };
  return line({at(-edge, 0), at(-edge, back), at(edge, back), at(edge, 0), at(outer, 0),
               at(outer, root), at(inner, root), at(inner, side * gap), at(-inner, side * gap),
               at(-inner, root), at(-outer, root), at(-outer, 0), at(-edge, 0)},
              true);
}

void add_pins(Picture& picture, Spot middle, double half_width, double bottom, int pins) {
  const int row = (pins + 1) / 2;
  for (int i = 0; i < row; ++i) {
    const double x = middle.x - half_width + (2 * i + 1) * half_width / row;
    picture.shapes.push_back(line({{x, bottom}, {x, bottom + 2.4}}, true));
  }
}

}  // namespace

std::string core_file_name(const std::string& core) {
  std::string name = core;
  std::erase_if(name, [](char letter) { return letter == '-' || letter == '/'; });
  return name;
}

Picture draw_core(const CoreData& core) {
  Picture picture{"CoreDiagrams", kWidth, kHeight, {}, {}};
  picture.shapes.push_back(letters("CORE " + core.name, {4, 4.5}, Align::Left, 2.4));
  double leg = std::sqrt(core.area);
  Window window = window_of(core, leg);
  const double scale = kDrawn / std::max(2 * leg + 2 * window.width, window.height + leg);
  leg *= scale;
  window = {window.width * scale, window.height * scale};
  const Spot middle{kWidth / 2, 31};
  picture.shapes.push_back(half_core(middle, leg, window, -1, kGapOnSheet / 2));
  picture.shapes.push_back(half_core(middle, leg, window, 1, kGapOnSheet / 2));
  constexpr double kClear = 0.9;
  const double depth = window.height / 2 - kClear;
  for (const double side : {-1.0, 1.0}) {
    const double near = middle.x + side * (leg / 2 + kClear);
    const double far = middle.x + side * (leg / 2 + window.width - kClear);
    const Area former{std::min(near, far), middle.y - depth, std::max(near, far), middle.y + depth};
    picture.shapes.push_back(box(former));
    picture.shapes.push_back(line({{former.left, former.top}, {former.right, former.bottom}}));
    picture.shapes.push_back(line({{former.right, former.top}, {former.left, former.bottom}}));
  }
  add_pins(picture, middle, leg + window.width, middle.y + window.height / 2 + leg / 2, core.pins);
  const std::string rows[]{"PATH " + general_text(core.path) + " MM",
                           "SECTION " + general_text(core.area) + " MM2",
                           "WINDING AREA " + general_text(core.winding) + " MM2",
                           "LARGEST GAP " + general_text(core.gap) + " MM",
                           "PINS " + general_text(static_cast<double>(core.pins))};
  double y = 59;
  for (const std::string& row : rows) {
    picture.shapes.push_back(letters(row, {4, y}, Align::Left, 1.6));
    y += 3.2;
  }
  return picture;
}

}  // namespace vantrel::drawing
