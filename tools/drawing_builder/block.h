#pragma once

#include <map>
#include <string>
#include <vector>

#include "drawing_builder/source_lines.h"

namespace vantrel::drawing {

/// A component, or a further piece of one (a heating winding of an inductor).
struct BlockPart {
  Origin origin;
  std::string key;        ///< What wires call it: the designator, a piece has ":name" behind it.
  std::string reference;  ///< The designator.
  std::string symbol;
  Spot at;
  Turn turn;
  std::optional<Side> text_side;  ///< Where designator and value stand, if not at the usual place.
  bool piece = false;             ///< Bears no designator.
};

/// A point of a wire: a position, a pin, or steps from the point before.
struct WirePoint {
  std::string pin_of;  ///< Key of a part, or nothing.
  std::string pin;
  bool relative = false;
  Spot at;  ///< Position, distance from the pin, or step.
};

enum class Bend { None, LevelFirst, UprightFirst };

struct BlockWire {
  Origin origin;
  std::vector<WirePoint> points;
  std::vector<Bend> bends;  ///< How each point is reached; one less than points.
};

/// Signs at the end of a wire.
struct BlockMark {
  enum class Kind { Flag, Ground, Earth, Open };
  Origin origin;
  Kind kind = Kind::Flag;
  std::string net;
  WirePoint at;
  Side side = Side::Right;
};

/// A part of a circuit that drawings share.
struct Block {
  std::vector<BlockPart> parts;
  std::vector<BlockWire> wires;
  std::vector<BlockMark> marks;
};

using Blocks = std::map<std::string, Block, std::less<>>;

/// Reads blocks:
///
///     block NAME ... end
///     part REFERENCE SYMBOL x y [down|left|up|right] [mirror] [text left|right|above|below]
///     piece REFERENCE:NAME SYMBOL x y ...
///     wire POINT -- POINT -| POINT |- POINT      straight, level first, upright first
///     flag NET POINT left|right|up|down          joins all wires with that flag
///     ground POINT        earth POINT            open POINT
///
/// A symbol is drawn with its pins downwards; the other words turn it. POINT is "x,y", "KEY.PIN",
/// "KEY.PIN+dx,dy" or, behind another point, "+dx,dy".
void read_blocks(const std::vector<SourceLine>& lines, Blocks& blocks, Problems& problems);

}  // namespace vantrel::drawing
