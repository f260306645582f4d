#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <string>

#include "core/device_context.h"
#include "core/ports.h"
#include "core/program_folder.h"
#include "core/theme.h"
#include "services/messages/sysmsg.h"
#include "waveforms/time_domain.h"
#include "waveforms/time_domain_view_drawing.h"

namespace vantrel {

/// What a drawing shows.
struct TimeDomainRequest {
  bool UseShortTimeline = true;
  double TimeOffset = 0;  ///< Left edge, microseconds on the time axis.
  double TimeWindow = 0;  ///< Length, microseconds.
  bool Printing = false;
  bool DPlotVIN = false;
  bool DPlotIL = false;
  bool DPlotVR = false;
  bool DPlotIR = false;
  bool DPlotIC = false;
  bool DPlotFreq = false;
  bool AutofitScale = false;
  bool OnlyUsedAxes = false;  ///< No axis of amperes while no current is on show.

  bool needsAmperes() const { return !OnlyUsedAxes || DPlotIL || DPlotIR || DPlotIC; }
  TraceSet traces() const { return {{DPlotVIN, DPlotIL, DPlotVR, DPlotIR, DPlotIC, DPlotFreq}}; }
};

/// The largest absolute values of the shown traces; nothing for an axis without a trace.
struct FittedMaxima {
  std::optional<double> volts;
  std::optional<double> amperes;
};

/// The maxima over all columns but the first and the last.
FittedMaxima fitted_maxima(const PlotColumns& columns, const TraceSet& shown);

/// The drawing side of the time-domain control.
class TimeDomainView {
 public:
  static constexpr const char* kExportTitle = "Export Graph Image";
  static constexpr const char* kExportName = "Time Domain Graph.bmp";

  TimeDomainView(GraphTD& graph, SysMsg& messages) : graph_(graph), messages_(messages) {}

  /// Ends of the axes in volts, amperes and kHz. A range that is empty or not finite changes
  /// nothing.
  void SetVScale(double MinVal, double MaxVal) { setScale(scales_.volts, MinVal, MaxVal); }
  void SetAScale(double MinVal, double MaxVal) { setScale(scales_.amperes, MinVal, MaxVal); }
  void SetFScale(double MinVal, double MaxVal) { setScale(scales_.frequency, MinVal, MaxVal); }
  const TimeDomainScales& scales() const { return scales_; }
  /// 0 absolute values, 1 domain values, 2 none.
  void SetCursorMode(std::int32_t CursorMode) { cursor_mode_ = CursorMode; }
  std::int32_t cursorMode() const { return cursor_mode_; }
  /// Size of the control on paper, in pixels; it replaces that of the surface while printing.
  void SetPrintSize(double print_width, double print_height) {
    print_size_ = Size{print_width, print_height};
  }

  /// Draws the control on the whole surface and makes the plot points. Without a run that can be
  /// looked at it writes GraphTD::kNoInputs instead. True when the graph was drawn.
  bool RenderTimeDomain(DeviceContext& surface, const TimeDomainRequest& request,
                        LineFinish finish = LineFinish::Screen);
  /// The same without drawing, for a control of that size: plot points and autofit.
  bool compute(Size size, const TimeDomainRequest& request);

  /// Drops the plot points, which belong to a run that is no more.
  void forget() { columns_ = {}; }
  /// Of the last drawing; empty when there was nothing to show.
  const PlotColumns& PlotPoints() const { return columns_; }
  /// The plot on the control of the last drawing.
  Box plotArea() const;
  /// What a stage label says: "Stage: Preheat", "Stage: Skip To Ignition".
  std::string stageLabel(std::int32_t stage) const;

  /// Asks for a file, with the usual name in the folder of exports, and writes the picture in the
  /// format of its extension. A failure is reported. True when it was written.
  bool ExportGraph(const Picture& picture, FileDialogs& dialogs, const ProgramFolder& folder,
                   const PictureWriter& write);

  /// Raised while drawing with autofit, before the traces are drawn; the scales that the slots set
  /// are in force for them.
  std::function<void(double volts)> NewMaxV;
  std::function<void(double amperes)> NewMaxA;

 private:
  static void setScale(AxisScale& scale, double min, double max);

  GraphTD& graph_;
  SysMsg& messages_;
  TimeDomainScales scales_;
  std::int32_t cursor_mode_ = 0;
  std::optional<Size> print_size_;
  Size size_;
  PlotColumns columns_;
};

}  // namespace vantrel
