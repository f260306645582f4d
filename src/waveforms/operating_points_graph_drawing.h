#pragma once

#include <string_view>
#include <vector>

#include "core/device_context.h"
#include "core/theme.h"
#include "waveforms/operating_points_graph_curves.h"
#include "waveforms/operating_points_graph_inputs.h"
#include "waveforms/operating_points_graph_labels.h"

namespace vantrel {

/// The line of tank values on the plot: "L = 5.30 mH,  C = 3.30 nF".
std::string tank_line(const GraphInputs& inputs);

/// Fills the area as paper and writes one line in its middle.
void draw_notice(DeviceContext& surface, Theme theme, Size area, std::string_view text);

/// One drawing of the operating-points graph. Everything that can fail is computed on
/// construction, a Fault then; `draw` shows it.
class GraphDrawing {
 public:
  GraphDrawing(DeviceContext& surface, Theme theme, const GraphInputs& inputs, Size area,
               double start_offset, double end_offset);
  void draw();

 private:
  struct Arrow {
    std::vector<Point> shaft;  ///< Ends at the tip; empty where there is no room.
  };

  Colour colour(Role role) const { return theme_colour(role, theme_); }
  Pen curvePen(std::size_t curve) const;
  Point at(const GraphMark& mark) const;
  bool isShown(const GraphMark& mark) const;
  /// Makes the arrows between marks that follow each other and are both inside the plot.
  void joinMarks();
  void takeRoom();

  void drawPaper();
  void drawFrequencyAxis();
  void drawGainAxis();
  void drawCaptions();
  void drawCurves();
  void drawCurve(std::size_t curve);
  void drawLegend();
  void drawLegendRow(const Box& box, double middle, std::size_t curve);
  void drawArrow(const Arrow& arrow);
  void drawMark(const GraphMark& mark);
  void drawLabel(const GraphMark& mark);

  /// The arrow along the path between two points: beside the curve when both lie on the open
  /// lamp's, otherwise straight.
  Arrow graph_arrows(const GraphMark& from, const GraphMark& to) const;
  std::vector<Point> besideCurve(const GraphMark& from, const GraphMark& to) const;
  double labelStride(double spacing);

  DeviceContext& surface_;
  Theme theme_;
  const GraphInputs& inputs_;
  Size area_;
  GainScale scale_;
  std::vector<std::vector<CurveSegment>> curves_;
  std::vector<GraphMark> marks_;  ///< Those inside the plot.
  std::vector<Arrow> arrows_;
  LabelRoom room_;
};

}  // namespace vantrel
