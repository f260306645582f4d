#include "waveforms/time_domain_view.h"

#include <algorithm>
#include <cmath>

#include "core/save_dialog.h"

namespace vantrel {

namespace {

constexpr const char* kScreen = "GraphTimeDomain";
/// Beyond this no axis can be drawn.
constexpr double kMostValue = 1e15;
constexpr std::int32_t kIgnitionStage = 1;

void raise_to(std::optional<double>& maximum, double value) {
  maximum = std::max(maximum.value_or(0), std::fabs(value));
}

}  // namespace

FittedMaxima fitted_maxima(const PlotColumns& columns, const TraceSet& shown) {
  FittedMaxima maxima;
  for (const TraceRow& row : traces()) {
    if (!shown[row.trace] || row.axis == TraceAxis::Frequency) continue;
    auto& maximum = row.axis == TraceAxis::Volts ? maxima.volts : maxima.amperes;
    const std::int32_t from = std::max(columns.first, 1);
    for (std::int32_t column = from; column <= columns.count() - 2; ++column) {
      raise_to(maximum, row.lower(columns.at(column)));
      raise_to(maximum, row.upper(columns.at(column)));
    }
  }
  return maxima;
}

void TimeDomainView::setScale(AxisScale& scale, double min, double max) {
  if (min < max && std::fabs(min) < kMostValue && std::fabs(max) < kMostValue) scale = {min, max};
}

Box TimeDomainView::plotArea() const {
  return {kPlotMargin, 0, std::max(0.0, size_.width - 2 * kPlotMargin),
          std::max(0.0, size_.height - kTimeAxisHeight)};
}

std::string TimeDomainView::stageLabel(std::int32_t stage) const {
  const bool skips = graph_.members().ShortTimeline && stage == kIgnitionStage;
  return std::string("Stage: ") + (skips ? "Skip To " : "") +
         std::string(graph_.GetStageString(stage));
}

bool TimeDomainView::compute(Size size, const TimeDomainRequest& request) {
  size_ = request.Printing && print_size_ ? *print_size_ : size;
  graph_.shortTimeline(request.UseShortTimeline);
  columns_ = plot_columns(graph_, request.TimeOffset, request.TimeWindow, plotArea().width);
  if (columns_.points.empty()) return false;
  if (request.AutofitScale) {
    const FittedMaxima maxima = fitted_maxima(columns_, request.traces());
    if (maxima.volts && NewMaxV) NewMaxV(*maxima.volts);
    if (maxima.amperes && NewMaxA) NewMaxA(*maxima.amperes);
  }
  return true;
}

bool TimeDomainView::RenderTimeDomain(DeviceContext& surface, const TimeDomainRequest& request,
                                      LineFinish finish) {
  const Theme theme = request.Printing ? Theme::Print : Theme::Dark;
  const bool ready = compute(surface.size(), request);
  if (!has_samples(graph_)) {
    draw_time_domain_notice(surface, theme, size_, GraphTD::kNoInputs);
    return false;
  }
  const StageName name = [this](std::int32_t stage) { return stageLabel(stage); };
  const TraceSet shown = request.traces();
  TimeDomainScales scales = scales_;
  if (!request.needsAmperes()) scales.amperes = {0, 0};
  TimeDomainDrawing(surface, theme, size_, columns_, scales, shown, name,
                    request.Printing ? LineFinish::Fine : finish)
      .draw();
  return ready;
}

bool TimeDomainView::ExportGraph(const Picture& picture, FileDialogs& dialogs,
                                 const ProgramFolder& folder, const PictureWriter& write) {
  const std::string path =
      select_savefile(&dialogs, folder, kExportTitle, kExportName, kPictureFilter);
  if (path.empty()) return false;
  const auto failure = write(path, picture);
  if (!failure) return true;
  messages_.msg(kScreen,
                "Could not export file '" + name_without_path(path) + "' (" + *failure + ")",
                kMessageOk, kSeverityWarning);
  return false;
}

}  // namespace vantrel
