#pragma once

#include <array>
#include <cstddef>
#include <vector>

#include "core/device_context.h"
#include "waveforms/operating_points_graph_inputs.h"

namespace vantrel {

/// Voltage gain V Lamp / V in of an inductor in series with a capacitor and a lamp resistance in
/// parallel: 1 / sqrt((1 - w^2 L C)^2 + w^2 L^2 / R^2), with 39.478 f^2 for w^2. L in henries, C in
/// farads, R in ohms, f in hertz. A Fault on a division by zero or an overflow.
float calculate_vlamp(double L, double C, double R, double f);

/// Where frequencies and gains stand on a surface.
struct GainScale {
  /// Lowest and highest gain on the axis.
  static constexpr double kMinGain = 0;
  static constexpr double kMaxGain = 7;

  /// The scale for an area and for the inputs, the frequency axis moved by the two offsets in Hz.
  /// A Fault when the axis has no length or the area has no room for it.
  GainScale(Size area, const GraphInputs& inputs, double start_offset, double end_offset);

  double x(double frequency) const;
  double y(double gain) const;
  /// Frequency at a pixel, counted from the left end of the axis.
  double frequency(double pixel) const;
  bool shows(double hertz, double gain) const;

  Box plot;      ///< The area between the axes.
  double start;  ///< Frequency at its left end, Hz.
  double end;    ///< Frequency at its right end, Hz.
};

/// Spacing of the ticks of the frequency axis.
struct TickSpacing {
  double labelled;  ///< Hz
  double step;      ///< Hz, the small ticks between.
};
TickSpacing tick_spacing(double plot_width);

/// A piece of a curve, cut at the top of the plot.
struct CurveSegment {
  std::size_t index = 0;  ///< Its place in the walk, from 0 at the left.
  std::array<Point, 2> ends;
  bool whole = true;  ///< Not cut.
};

/// A curve in steps of 5 pixels; pieces above the plot are missing.
std::vector<CurveSegment> curve_segments(const GainScale& scale, const GraphInputs& inputs,
                                         std::size_t curve);

/// Joins segments that follow each other to continuous lines.
std::vector<std::vector<Point>> joined(const std::vector<CurveSegment>& segments);

/// The segments of every full step of 15 pixels that lies inside the plot.
std::vector<CurveSegment> full_steps(const std::vector<CurveSegment>& segments);

}  // namespace vantrel
