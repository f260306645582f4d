#include "waveforms/time_domain_view_points.h"

#include <algorithm>
#include <cmath>

#include "core/number_text.h"
#include "waveforms/time_domain_envelope.h"

namespace vantrel {

namespace {

/// From so many steps of the simulation a column on, the envelope is shown.
constexpr double kEnvelopeSteps = 20;
/// Keeps a column of which the sample covers only a part from being drawn.
constexpr double kFirstColumnRounding = 0.99;

/// The sample at a position. Behind the last one stands a spare record that is none.
std::int32_t sample_number(const GraphTD& graph, double time) {
  const auto last = static_cast<std::int32_t>(graph.Samples().size()) - 2;
  return std::clamp(graph.FindItemNo(time), 0, last);
}

const TimeDomainSample& sample(const GraphTD& graph, std::int32_t number) {
  return graph.Samples()[static_cast<std::size_t>(number)];
}

void take_bounds(PlotPoint& point, const TimeDomainSample& min, const TimeDomainSample& max) {
  point.ILMin = min.IL;
  point.ILampMin = min.ILamp;
  point.VINMin = min.VIN;
  point.VRMin = min.VR;
  point.ILMax = max.IL;
  point.ILampMax = max.ILamp;
  point.VINMax = max.VIN;
  point.VRMax = max.VR;
}

bool needs_envelope(const GraphTD& graph, const PlotColumns& columns) {
  const double at_0 = sample(graph, sample_number(graph, columns.timeOf(0))).TimeUs;
  const double at_1 = sample(graph, sample_number(graph, columns.timeOf(1))).TimeUs;
  return (at_1 - at_0) / kTimeStepUs >= kEnvelopeSteps;
}

std::int32_t first_column(const GraphTD& graph, const PlotColumns& columns) {
  const double begin = sample(graph, 0).TimeUs;
  if (columns.offset >= begin) return 0;
  const double column = (begin - columns.offset) * columns.count() / columns.window;
  return round_to_int32(std::min<double>(column + kFirstColumnRounding, columns.count()));
}

std::int32_t nearest_column(const PlotColumns& columns, double column) {
  if (columns.first >= columns.count() || !std::isfinite(column)) return -1;
  return static_cast<std::int32_t>(
      std::clamp<double>(std::nearbyint(column), columns.first, columns.count() - 1));
}

/// Whether the condensed time axis leaves a stretch out.
bool is_condensed(const GraphTD& graph) {
  return graph.members().ShortTimeline && has_samples(graph) &&
         time_domain_target(graph.members().TargetNumber).preheats;
}

double repeat_end_time(const GraphTD& graph) {
  return sample(graph, graph.members().RepeatEnd).TimeUs;
}

}  // namespace

std::int32_t PlotColumns::columnAtX(double x) const {
  return nearest_column(*this, (x - kPlotMargin) * count() / width);
}

std::int32_t PlotColumns::columnAtTime(double time) const {
  return nearest_column(*this, (time - offset) * count() / window);
}

bool has_samples(const GraphTD& graph) {
  const TimeDomainMembers& members = graph.members();
  const auto size = static_cast<std::int32_t>(graph.Samples().size());
  if (!members.InputsAvailable || size < 2) return false;
  if (members.RepeatEnd < 0 || members.RepeatEnd >= size) return false;
  return !time_domain_target(members.TargetNumber).preheats ||
         members.RepeatEnd != members.RepeatStart;
}

PlotPoint plot_point(const GraphTD& graph, double time, bool envelope) {
  PlotPoint point;
  point.SampleNo = sample_number(graph, time);
  const TimeDomainSample& here = sample(graph, point.SampleNo);
  point.Time = graph.members().ShortTimeline ? here.TimeUs : time;
  point.FrequencyKHz = static_cast<float>(here.FrequencyKHz);
  if (envelope) {
    const auto entry = static_cast<std::size_t>(point.SampleNo / TimeDomainEnvelope::kBlock);
    take_bounds(point, graph.Envelope()[entry].Min, graph.Envelope()[entry].Max);
  } else {
    take_bounds(point, here, here);
  }
  return point;
}

PlotColumns plot_columns(const GraphTD& graph, double offset, double window, double width) {
  PlotColumns columns;
  columns.offset = offset;
  columns.window = window;
  columns.width = width;
  if (!has_samples(graph) || !(width >= 1) || !(window > 0) || !std::isfinite(offset)) {
    return columns;
  }
  const double step = std::max(window / width, kTimeStepUs);
  const std::int32_t count = round_to_int32(window / step);
  if (count < 1) return columns;
  columns.points.resize(static_cast<std::size_t>(count));
  columns.first = first_column(graph, columns);
  columns.envelope = needs_envelope(graph, columns);
  for (std::int32_t column = 0; column < count; ++column) {
    PlotPoint& point = columns.points[static_cast<std::size_t>(column)];
    if (column >= columns.first) {
      point = plot_point(graph, columns.timeOf(column), columns.envelope);
      const std::int32_t stage = sample(graph, point.SampleNo).Stage;
      if (columns.borders.empty() || columns.borders.back().stage != stage) {
        columns.borders.push_back({column, stage});
      }
    }
    point.X = round_to_int32(kPlotMargin + column * width / count);
  }
  return columns;
}

double true_time(const GraphTD& graph, double axis_time) {
  if (!is_condensed(graph)) return axis_time;
  // As the look-up of samples does it.
  const bool is_cut =
      axis_time >= repeat_end_time(graph) && axis_time < graph.StageTable()[1].StartTime;
  if (!is_cut) return axis_time;
  return axis_time + graph.GetDurationBetweenRepeatEndAndIgnition();
}

double axis_time(const GraphTD& graph, double true_time) {
  if (!is_condensed(graph)) return true_time;
  const double end = repeat_end_time(graph);
  if (true_time < end) return true_time;
  return std::max(end, true_time - graph.GetDurationBetweenRepeatEndAndIgnition());
}

}  // namespace vantrel
