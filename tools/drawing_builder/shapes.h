#pragma once

#include <optional>
#include <string>
#include <vector>

#include "drawing_builder/source_lines.h"

namespace vantrel::drawing {

/// What a symbol or a picture consists of. Curves are kept as lines with many corners.
struct Shape {
  enum class Kind { Line, Fill, Letters };
  Kind kind = Kind::Line;
  std::vector<Spot> points;  ///< Corners; for letters the one position.
  bool bold = false;
  bool dashed = false;
  std::string letters;
  Align align = Align::Left;
  double height = 0;  ///< Of a capital.
};

/// Height of the names of pins and nets.
inline constexpr double kLetterHeight = 1.15;

/// Reads one shape, or gives nothing when the line's first word names none. What is wrong with a
/// shape goes to `problems`, and the shape comes back without points.
///
///     line x y x y ...        bold x y x y ...        dash x y x y ...
///     box left top right bottom                       fill x y x y ...
///     circle x y radius                               dot x y radius
///     arc x y radius from to      degrees, counter-clockwise from three o'clock
///     letters x y left|centre|right TEXT [height]     "_" stands for a blank
std::optional<Shape> parse_shape(const SourceLine& line, Problems& problems);

/// Corners of a part of a circle, counter-clockwise by degrees from three o'clock.
std::vector<Spot> arc_points(Spot centre, double radius, double from, double to);

/// The shape in another place.
Shape moved(const Shape& shape, Turn turn, Spot by);

/// The area that all points fill, letters with their extent.
Area shape_area(const Shape& shape);

}  // namespace vantrel::drawing
