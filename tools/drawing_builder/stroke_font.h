#pragma once

#include <string_view>
#include <vector>

#include "drawing_builder/geometry.h"

namespace vantrel::drawing {

/// Names of pins and nets and the titles are drawn as lines: every text of a circuit diagram is a
/// designator that the bill of materials must have.
using Strokes = std::vector<std::vector<Spot>>;

/// The lines of a text in capital letters, digits and "+-.,/=~():" whose capitals are `height`
/// tall; small letters are shown as capitals. `at` lies at the middle of its height.
Strokes stroke_letters(std::string_view text, Spot at, Align align, double height);
/// True when every character has a shape.
bool has_strokes(std::string_view text);
/// The area that the lines fill.
Area stroke_area(std::string_view text, Spot at, Align align, double height);

}  // namespace vantrel::drawing
