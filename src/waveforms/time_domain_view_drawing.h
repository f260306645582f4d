#pragma once

#include <cstdint>
#include <functional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "core/device_context.h"
#include "core/theme.h"
#include "waveforms/time_domain_view_points.h"
#include "waveforms/time_domain_view_traces.h"

namespace vantrel {

/// Ends of an axis.
struct AxisScale {
  double min = 0;
  double max = 0;
  friend bool operator==(const AxisScale&, const AxisScale&) = default;
};

/// Volts, amperes and kHz.
struct TimeDomainScales {
  AxisScale volts{-1000, 1000};
  AxisScale amperes{-2, 2};
  AxisScale frequency{0, 200};
  const AxisScale& of(TraceAxis axis) const {
    return axis == TraceAxis::Volts ? volts : axis == TraceAxis::Amperes ? amperes : frequency;
  }
};

/// Spacing of ticks: `start`, doubled until an interval spans 20 pixels or the spacing has reached
/// `limit`. Where that leaves ticks closer than 4 pixels it doubles on.
double tick_interval(const AxisScale& scale, double height, double start, double limit);

/// Fills the area as the time-domain control and writes one line in its middle.
void draw_time_domain_notice(DeviceContext& surface, Theme theme, Size area, std::string_view text);

/// How lines are drawn. A screen shows wide lines as several thin ones, which a raster engine draws
/// many times faster; paper and files get true pens.
enum class LineFinish : std::uint8_t { Screen, Fine };

/// A stage as its label names it.
using StageName = std::function<std::string(std::int32_t stage)>;

/// One drawing of the time-domain view.
class TimeDomainDrawing {
 public:
  /// All that is handed over must outlive this.
  TimeDomainDrawing(DeviceContext& surface, Theme theme, Size area, const PlotColumns& columns,
                    const TimeDomainScales& scales, const TraceSet& shown,
                    const StageName& stage_name, LineFinish finish);
  void draw();

 private:
  struct Legend {
    const TraceRow* row;
    std::string text;
    Box box;
  };

  Colour colour(Role role) const { return theme_colour(role, theme_); }
  bool isPrint() const { return theme_ == Theme::Print; }
  double x(std::int32_t column) const { return columns_.at(column).X; }
  double y(double value, const AxisScale& scale) const;
  void fill(const Box& box, Colour colour);
  void upright(double x, double top, double bottom);
  void level(double y, double left, double right);

  void drawPaper();
  void drawStages();
  void drawStageLabels();
  void drawGrid(const AxisScale& scale, double interval, bool volts);
  void drawValueAxis(const AxisScale& scale, double interval, bool volts);
  void drawValueTick(double value, const AxisScale& scale, bool volts);
  double tickRow(double value, const AxisScale& scale) const;
  void drawTimeAxis();
  void drawFrame();
  void drawTraces();
  void drawTrace(const TraceRow& row);
  void drawBand(const TraceRow& row, const std::vector<Point>& upper,
                const std::vector<Point>& lower);
  void fillBand(Colour tint, const std::vector<Point>& upper, const std::vector<Point>& lower);
  void drawLine(const std::vector<Point>& points, const Pen& pen);
  void drawWide(std::span<const Point> line, const Pen& pen);
  std::vector<Point> linePoints(const TraceRow& row, double (*value)(const PlotPoint&)) const;
  void drawLegends();
  std::vector<Legend> legends();
  void addLegend(std::vector<Legend>& list, Trace trace, std::int32_t from_end);
  void moveApart(std::vector<Legend>& list) const;

  DeviceContext& surface_;
  Theme theme_;
  Size area_;
  const PlotColumns& columns_;
  const TimeDomainScales& scales_;
  const TraceSet& shown_;
  const StageName& stage_name_;
  LineFinish finish_;
  Box plot_;
};

}  // namespace vantrel
