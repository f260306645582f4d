#include "drawing_builder/board_layers.h"

#include "drawing_builder/stroke_font.h"

namespace vantrel::drawing {

namespace {

constexpr double kPrint = 0.18;
constexpr double kOutline = 0.15;
constexpr double kLetters = 1.2;
constexpr double kMaskMargin = 0.2;

/// Letters grow downwards where they are made, and boards count upwards.
void add_letters(Layer& layer, const std::string& text, Spot at, bool mirrored) {
  for (const std::vector<Spot>& stroke : stroke_letters(text, {}, Align::Left, kLetters)) {
    Layer::Stroke lines{{}, kPrint};
    for (const Spot p : stroke)
      lines.points.push_back({at.x + (mirrored ? -p.x : p.x), at.y - p.y});
    layer.strokes.push_back(lines);
  }
}

}  // namespace

Layer copper_layer(const Board& board) {
  Layer layer;
  for (const Board::Pad& pad : board.pads) layer.discs.push_back({pad.at, pad.diameter});
  for (const Board::Track& track : board.tracks) {
    layer.strokes.push_back({track.points, track.width});
  }
  return layer;
}

Layer mask_layer(const Board& board) {
  Layer layer;
  for (const Board::Pad& pad : board.pads) {
    layer.discs.push_back({pad.at, pad.diameter + kMaskMargin});
  }
  return layer;
}

Layer outline_layer(const Board& board) {
  const double w = board.width;
  const double h = board.height;
  return {{}, {{{{0, 0}, {w, 0}, {w, h}, {0, h}, {0, 0}}, kOutline}}};
}

Layer print_layer(const Board& board) {
  Layer layer;
  for (const Board::Silk& silk : board.silk) {
    layer.strokes.push_back({silk.points, kPrint});
    const Area area = around(silk.points);
    add_letters(layer, silk.component, {area.left, area.bottom + kLetters}, false);
  }
  return layer;
}

Layer copper_print_layer(const Board& board) {
  Layer layer;
  for (const Board::Pad& pad : board.pads) {
    if (pad.component != "-") continue;
    const double right =
        pad.at.x - pad.diameter / 2 + stroke_area(pad.pin, {}, Align::Left, kLetters).width();
    add_letters(layer, pad.pin, {right, pad.at.y - pad.diameter / 2 - kLetters}, true);
  }
  return layer;
}

Layer hole_layer(const Board& board) {
  Layer layer;
  for (const Board::Pad& pad : board.pads) layer.discs.push_back({pad.at, pad.hole});
  return layer;
}

}  // namespace vantrel::drawing
