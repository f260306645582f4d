#pragma once

#include <vector>

#include "drawing_builder/board.h"

namespace vantrel::drawing {

/// A layer of a board: discs, and lines with round ends.
struct Layer {
  struct Disc {
    Spot at;
    double diameter = 0;
  };
  struct Stroke {
    std::vector<Spot> points;
    double width = 0;
  };
  std::vector<Disc> discs;
  std::vector<Stroke> strokes;
};

Layer copper_layer(const Board& board);
/// What the solder mask leaves free.
Layer mask_layer(const Board& board);
Layer outline_layer(const Board& board);
/// Print on the component side: outlines and names of the components.
Layer print_layer(const Board& board);
/// Print on the copper side: the names of the inputs, to be read from that side.
Layer copper_print_layer(const Board& board);
Layer hole_layer(const Board& board);

}  // namespace vantrel::drawing
