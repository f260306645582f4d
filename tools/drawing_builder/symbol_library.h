#pragma once

#include <map>
#include <string>
#include <string_view>
#include <vector>

#include "drawing_builder/shapes.h"

namespace vantrel::drawing {

struct Pin {
  std::string name;
  Spot at;
};

/// Where a text stands at a symbol that never turns.
struct TextPlace {
  Spot at;  ///< The middle of its height.
  Align align = Align::Left;
};

/// One sign of the drawings: its lines, the pins that wires end at, and the body that no wire and
/// no text may cross.
struct Symbol {
  std::string name;
  std::vector<Pin> pins;
  std::vector<Shape> shapes;
  Area body;
  std::optional<TextPlace> designator;  ///< Instead of the places beside or above the body.
  std::optional<TextPlace> value;

  const Pin* pin(std::string_view pin_name) const;
};

using SymbolLibrary = std::map<std::string, Symbol, std::less<>>;

/// Reads symbols into `library`:
///
///     symbol NAME ... end     a symbol, with these lines and shapes between
///     pin NAME x y            where wires end
///     lead NAME NUMBER x y left|right|up|down
///                             a pin of an IC that sticks out of the body in that direction, with
///                             its number outside and its name inside
///     body left top right bottom
///     designator x y align    place of the designator, the same for value
///
/// A symbol that exists already, has no pin or no body, or has the same pin twice is a problem.
void read_symbols(const std::vector<SourceLine>& lines, SymbolLibrary& library, Problems& problems);

}  // namespace vantrel::drawing
