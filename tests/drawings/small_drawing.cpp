#include "small_drawing.h"

#include "drawing_builder/diagram_checks.h"

namespace vantrel::drawing {

namespace {

/// Symbols outlive the diagram that points at them.
const SymbolLibrary& library() {
  static const SymbolLibrary symbols = [] {
    SymbolLibrary result;
    Problems problems;
    read_symbols(split_lines("symbol r\npin 1 0 0\npin 2 0 6\nbox -0.8 1 0.8 5\n"
                             "body -0.8 1 0.8 5\nend\n",
                             "symbols"),
                 result, problems);
    return result;
  }();
  return symbols;
}

}  // namespace

SmallDrawing draw_block(std::string_view lines, const std::set<std::string>& bill) {
  Problems problems;
  Blocks blocks;
  read_blocks(split_lines("block only\n" + std::string(lines) + "\nend\n", "blocks"), blocks,
              problems);
  const Plan plan = read_plan(split_lines("band all 0 0\nplace only all 0 0\n", "plan"), problems);
  SmallDrawing result;
  result.diagram = compose(plan, blocks, library(), {}, problems);
  result.nets = follow_wires(result.diagram, problems);
  check_room(result.diagram, problems);
  check_bill(result.diagram, bill, {"plan", 0}, problems);
  for (const Problem& problem : problems.list()) result.problems += problem.text + "\n";
  return result;
}

}  // namespace vantrel::drawing
