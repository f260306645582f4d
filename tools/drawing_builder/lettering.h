#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "drawing_builder/diagram.h"

namespace vantrel::drawing {

inline constexpr double kDesignatorSize = 1.7;  ///< Em of the designators, about 6 points on A4.
inline constexpr double kValueSize = 1.5;       ///< Em of the values that are shown beside them.

/// Length of a text in Arial with some room for fonts that stand in for it.
double text_length(std::string_view text, double size);
/// The area of a text of capitals whose middle of the height is at `at`.
Area text_area(std::string_view text, Spot at, Align align, double size);

/// A designator, or the name of a piece of a component, which is drawn in strokes.
struct DrawnText {
  const Part* part = nullptr;
  std::string text;
  Spot at;  ///< The middle of its height.
  Align align = Align::Left;
  Area area;
};

/// The texts of the parts: beside an upright body, above a level one, unless the part or its symbol
/// tells another place.
std::vector<DrawnText> part_texts(const Diagram& diagram);

/// Places for a value beside the designator, the best first.
std::vector<TextPlace> value_candidates(const DrawnText& designator);

/// The sign that a mark is drawn as, and what it fills.
std::vector<Shape> mark_shapes(const Mark& mark);
Area mark_area(const Mark& mark);

}  // namespace vantrel::drawing
