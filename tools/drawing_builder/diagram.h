#pragma once

#include <string>
#include <vector>

#include "drawing_builder/block.h"
#include "drawing_builder/sheet_plan.h"
#include "drawing_builder/symbol_library.h"

namespace vantrel::drawing {

struct Part {
  Origin origin;
  std::string key;
  std::string reference;
  const Symbol* symbol = nullptr;
  Spot at;
  Turn turn;
  std::optional<Side> text_side;
  bool piece = false;

  Area body() const;
  Spot place(Spot in_symbol) const { return turned(in_symbol, turn) + at; }
};

struct Wire {
  Origin origin;
  std::vector<Spot> points;
};

struct Mark {
  Origin origin;
  BlockMark::Kind kind = BlockMark::Kind::Flag;
  std::string net;
  Spot at;
  Side side = Side::Right;
};

/// One circuit diagram: everything at its place on the sheet.
struct Diagram {
  std::vector<Part> parts;
  std::vector<Wire> wires;
  std::vector<Mark> marks;
};

/// Puts the blocks of a combination together. Wires may lead to parts of other blocks. An unknown
/// block, symbol, part or pin, and a component that stands on the sheet twice, are problems.
Diagram compose(const Plan& plan, const Blocks& blocks, const SymbolLibrary& library,
                const Combination& combination, Problems& problems);

}  // namespace vantrel::drawing
