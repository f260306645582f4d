#include "drawing_builder/shapes.h"

#include <cmath>
#include <numbers>

#include "core/number_text.h"
#include "drawing_builder/stroke_font.h"

namespace vantrel::drawing {

namespace {

constexpr double kDegreesBetweenCorners = 10;

std::vector<Spot> corners(const std::vector<double>& values) {
  std::vector<Spot> points;
  for (std::size_t i = 0; i + 1 < values.size(); i += 2)
    points.push_back({values[i], values[i + 1]});
  return points;
}

std::optional<std::vector<Spot>> points_of(std::string_view word, const std::vector<double>& v) {
  const bool pairs = v.size() >= 4 && v.size() % 2 == 0;
  if (word == "line" || word == "bold" || word == "dash" || word == "fill") {
    return pairs ? std::optional(corners(v)) : std::nullopt;
  }
  if (word == "box") {
    if (v.size() != 4) return std::nullopt;
    return std::vector<Spot>{{v[0], v[1]}, {v[2], v[1]}, {v[2], v[3]}, {v[0], v[3]}, {v[0], v[1]}};
  }
  if (word == "circle" || word == "dot") {
    return v.size() == 3 ? std::optional(arc_points({v[0], v[1]}, v[2], 0, 360)) : std::nullopt;
  }
  if (v.size() != 5 || v[4] <= v[3]) return std::nullopt;
  return arc_points({v[0], v[1]}, v[2], v[3], v[4]);
}

Shape letters(const SourceLine& line, Problems& problems) {
  Shape shape;
  shape.kind = Shape::Kind::Letters;
  const std::vector<std::string>& words = line.words;
  const std::optional<Align> align = words.size() >= 5 ? parse_align(words[3]) : std::nullopt;
  const std::optional<double> x = words.size() >= 5 ? parse_number(words[1]) : std::nullopt;
  const std::optional<double> y = words.size() >= 5 ? parse_number(words[2]) : std::nullopt;
  const std::optional<double> height =
      words.size() == 6 ? parse_number(words[5]) : std::optional(kLetterHeight);
  if (!align || !x || !y || !height || words.size() > 6) {
    report(problems, line.origin, "letters need x, y, an alignment and a text");
    return shape;
  }
  shape.letters = words[4];
  std::ranges::replace(shape.letters, '_', ' ');
  if (!has_strokes(shape.letters)) {
    report(problems, line.origin, "'" + shape.letters + "' has a character without strokes");
  }
  shape.align = *align;
  shape.height = *height;
  shape.points = {{*x, *y}};
  return shape;
}

}  // namespace

std::vector<Spot> arc_points(Spot centre, double radius, double from, double to) {
  const int pieces = std::max(1, static_cast<int>(std::ceil((to - from) / kDegreesBetweenCorners)));
  std::vector<Spot> points;
  for (int i = 0; i <= pieces; ++i) {
    const double angle = (from + (to - from) * i / pieces) * std::numbers::pi / 180;
    points.push_back({centre.x + radius * std::cos(angle), centre.y - radius * std::sin(angle)});
  }
  return points;
}

std::optional<Shape> parse_shape(const SourceLine& line, Problems& problems) {
  const std::string& word = line.words.front();
  if (word == "letters") return letters(line, problems);
  constexpr std::string_view kWords[]{"line", "bold",   "dash", "box",
                                      "fill", "circle", "dot",  "arc"};
  if (std::ranges::find(kWords, word) == std::end(kWords)) return std::nullopt;
  Shape shape;
  const std::optional<std::vector<double>> values = numbers(line, 1);
  const std::optional<std::vector<Spot>> points = values ? points_of(word, *values) : std::nullopt;
  if (!points) {
    report(problems, line.origin, "'" + word + "' has wrong numbers");
    return shape;
  }
  shape.points = *points;
  shape.bold = word == "bold";
  shape.dashed = word == "dash";
  if (word == "fill" || word == "dot") shape.kind = Shape::Kind::Fill;
  return shape;
}

Shape moved(const Shape& shape, Turn turn, Spot by) {
  Shape result = shape;
  for (Spot& point : result.points) point = turned(point, turn) + by;
  return result;
}

Area shape_area(const Shape& shape) {
  if (shape.kind == Shape::Kind::Letters) {
    return stroke_area(shape.letters, shape.points.front(), shape.align, shape.height);
  }
  return around(shape.points);
}

}  // namespace vantrel::drawing
