#pragma once

#include <cstdint>
#include <vector>

#include "waveforms/time_domain.h"

namespace vantrel {

/// What one pixel column of the time-domain view shows. A column that stands for one sample has its
/// values as both bounds.
struct PlotPoint {
  std::int32_t X = 0;  ///< Pixel on the control.
  std::int32_t SampleNo = 0;
  double Time = 0;         ///< Microseconds.
  float FrequencyKHz = 0;  ///< Commanded.
  double ILMin = 0;
  double ILampMin = 0;
  double VINMin = 0;
  double VRMin = 0;
  double ILMax = 0;
  double ILampMax = 0;
  double VINMax = 0;
  double VRMax = 0;
};

/// The first column of a stage within a view.
struct StageBorder {
  std::int32_t column = 0;
  std::int32_t stage = 0;
  friend bool operator==(const StageBorder&, const StageBorder&) = default;
};

/// Width of the margins left and right of the plot, in pixels.
inline constexpr std::int32_t kPlotMargin = 100;
/// Height of the time axis below the plot.
inline constexpr std::int32_t kTimeAxisHeight = 32;

/// The columns of a view, the one source of what is drawn and what is read out.
struct PlotColumns {
  std::vector<PlotPoint> points;
  std::int32_t first = 0;  ///< First drawn column; those before it lie before the first sample.
  bool envelope = false;   ///< The bounds come from the envelope.
  std::vector<StageBorder> borders;
  double offset = 0;  ///< Left edge of the view on the time axis, microseconds.
  double window = 0;  ///< Its length.
  double width = 0;   ///< Pixels of the plot.

  std::int32_t count() const { return static_cast<std::int32_t>(points.size()); }
  const PlotPoint& at(std::int32_t column) const {
    return points[static_cast<std::size_t>(column)];
  }
  /// Position of a column on the time axis, microseconds.
  double timeOf(std::int32_t column) const { return offset + column * window / count(); }
  /// The drawn column nearest to a pixel or a position on the time axis; nothing is drawn when
  /// `first` is not below `count`, and the answer is then -1.
  std::int32_t columnAtX(double x) const;
  std::int32_t columnAtTime(double time) const;
};

/// True when there are samples to look at and the look-ups work on them.
bool has_samples(const GraphTD& graph);

/// What stands at a position on the time axis, with X 0. The look-ups must work on the samples.
PlotPoint plot_point(const GraphTD& graph, double time, bool envelope);

/// The columns of a view of `window` microseconds from `offset` on in `width` pixels; a column
/// takes 50 ns at least. The time axis is the one that the graph is set to. Empty without samples,
/// without width and for a window that is not above 0.
PlotColumns plot_columns(const GraphTD& graph, double offset, double window, double width);

/// A time on the time axis of the graph as true time of the start, and back. They differ in the
/// condensed timeline, which leaves the unsimulated preheat out; a time within that stretch stands
/// at its beginning.
double true_time(const GraphTD& graph, double axis_time);
double axis_time(const GraphTD& graph, double true_time);

}  // namespace vantrel
