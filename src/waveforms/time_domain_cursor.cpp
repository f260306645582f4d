#include "waveforms/time_domain_cursor.h"

#include <algorithm>
#include <cmath>

#include "core/fault.h"
#include "core/number_text.h"
#include "waveforms/time_domain_envelope.h"

namespace vantrel {

namespace {

constexpr std::int32_t kDomainValues = 1;
constexpr std::int32_t kNoValues = 2;
constexpr double kMicrosPerSecond = 1000000;
constexpr double kInfoAway = 16;
constexpr double kSnapPixels = 6;

struct AxisFormat {
  std::string_view mask;
  std::string_view unit;
};

AxisFormat format_of(TraceAxis axis) {
  if (axis == TraceAxis::Volts) return {"0.0", "V"};
  if (axis == TraceAxis::Amperes) return {"0.000", "A"};
  return {"0.00", " KHz"};
}

std::string value_text(TraceAxis axis, double value) {
  const AxisFormat format = format_of(axis);
  return format_mask(value, format.mask) + std::string(format.unit);
}

/// "-109.5 to 572.9V (231.7V)"
std::string bounds_text(TraceAxis axis, double lower, double upper) {
  const AxisFormat format = format_of(axis);
  return format_mask(lower, format.mask) + " to " + value_text(axis, upper) + " (" +
         value_text(axis, (lower + upper) / 2) + ")";
}

std::string time_text(double micros) {
  return format_mask(micros / kMicrosPerSecond, "0.00####") + "S";
}

/// The samples that an entry of the envelope covers.
struct Covered {
  std::int32_t first;
  std::int32_t last;
};

Covered covered(const GraphTD& graph, std::int32_t sample) {
  const std::int32_t first = sample / TimeDomainEnvelope::kBlock * TimeDomainEnvelope::kBlock;
  const auto end = static_cast<std::int32_t>(graph.Samples().size()) - 2;
  return {first, std::min(first + TimeDomainEnvelope::kWindow - 1, end)};
}

double frequency_at(const GraphTD& graph, std::int32_t sample) {
  return graph.Samples()[static_cast<std::size_t>(sample)].FrequencyKHz;
}

std::string domain_text(const GraphTD& graph, const PlotPoint& point, const TraceRow& row) {
  if (row.axis != TraceAxis::Frequency) {
    const auto [lower, upper] = std::minmax({row.lower(point), row.upper(point)});
    return bounds_text(row.axis, lower, upper);
  }
  const Covered span = covered(graph, point.SampleNo);
  const double one = frequency_at(graph, span.first);
  const double other = frequency_at(graph, span.last);
  return bounds_text(row.axis, std::min(one, other), std::max(one, other));
}

std::string time_span(const GraphTD& graph, const PlotPoint& point) {
  const Covered span = covered(graph, point.SampleNo);
  const double from = point.Time + (span.first - point.SampleNo) * kTimeStepUs;
  return time_text(from) + " to " + time_text(from + (span.last - span.first) * kTimeStepUs);
}

}  // namespace

std::vector<TDInfoRow> cursor_rows(const GraphTD& graph, const PlotColumns& columns,
                                   std::int32_t column, const TraceSet& shown,
                                   std::int32_t cursor_mode) {
  std::vector<TDInfoRow> rows;
  if (cursor_mode == kNoValues || column < columns.first || column >= columns.count()) return rows;
  const PlotPoint& point = columns.at(column);
  const TimeDomainSample& sample = graph.Samples()[static_cast<std::size_t>(point.SampleNo)];
  const bool domain = columns.envelope && cursor_mode == kDomainValues;
  rows.push_back({"Time", domain ? time_span(graph, point) : time_text(point.Time)});
  for (const Trace trace : {Trace::VIN, Trace::VR, Trace::IL, Trace::IR, Trace::IC, Trace::Freq}) {
    if (!shown[trace]) continue;
    const TraceRow& row = trace_row(trace);
    rows.push_back(
        {std::string(row.label),
         domain ? domain_text(graph, point, row) : value_text(row.axis, row.value(sample)),
         row.text_colour});
  }
  return rows;
}

std::optional<Box> place_info(Point cursor, Size info, const Box& plot, Size area) {
  if (!plot.contains(cursor)) return std::nullopt;
  double left = cursor.x + kInfoAway;
  if (left + info.width > plot.right()) left = cursor.x - kInfoAway - info.width;
  const double top = std::clamp(cursor.y, 0.0, std::max(0.0, area.height - info.height));
  return Box{std::max(0.0, left), top, info.width, info.height};
}

double snapped_time(const GraphTD& graph, const PlotColumns& columns, double x) {
  const std::int32_t column = columns.columnAtX(x);
  if (column < 0) return columns.offset;
  const double pixels = columns.width / columns.window;
  for (const StageBorder& border : columns.borders) {
    if (border.column == columns.first) continue;
    const double time = axis_time(graph, graph.ReturnStageTime(border.stage, true));
    if (std::fabs(kPlotMargin + (time - columns.offset) * pixels - x) <= kSnapPixels) return time;
  }
  return columns.timeOf(column);
}

namespace {

constexpr std::array<Trace, 5> kTableTraces{Trace::VIN, Trace::VR, Trace::IL, Trace::IR, Trace::IC};

std::string spaced(TraceAxis axis, double value) {
  const AxisFormat format = format_of(axis);
  const std::string_view blank = format.unit.front() == ' ' ? "" : " ";
  return format_mask(value, format.mask) + std::string(blank) + std::string(format.unit);
}

std::string cell(TraceAxis axis, double lower, double upper) {
  if (lower == upper) return spaced(axis, lower);
  return format_mask(std::min(lower, upper), format_of(axis).mask) + " to " +
         spaced(axis, std::max(lower, upper));
}

double middle_of(const TraceRow& row, const PlotPoint& point) {
  return (row.lower(point) + row.upper(point)) / 2;
}

std::vector<std::string> value_row(const char* name, const PlotPoint& point, double time) {
  std::vector<std::string> row{
      name, format_mask(time / kMicrosPerSecond, "0.0000000") + " S",
      spaced(TraceAxis::Frequency, static_cast<double>(point.FrequencyKHz))};
  for (const Trace trace : kTableTraces) {
    const TraceRow& of = trace_row(trace);
    row.push_back(cell(of.axis, of.lower(point), of.upper(point)));
  }
  return row;
}

std::vector<std::string> difference_row(const PlotPoint& a, const PlotPoint& b, double time) {
  std::string span = format_mask(time, "0.00") + " us";
  if (time != 0) span += " = " + spaced(TraceAxis::Frequency, 1000 / std::fabs(time));
  std::vector<std::string> row{
      "B - A", span,
      spaced(TraceAxis::Frequency,
             static_cast<double>(b.FrequencyKHz) - static_cast<double>(a.FrequencyKHz))};
  for (const Trace trace : kTableTraces) {
    const TraceRow& of = trace_row(trace);
    row.push_back(spaced(of.axis, middle_of(of, b) - middle_of(of, a)));
  }
  return row;
}

void add_between(const GraphTD& graph, double a, double b, CursorTable& table) {
  struct Line {
    const char* name;
    double Measurement::*value;
  };
  std::vector<Measurement> all;
  try {
    all.push_back(measure(graph, a, b, Trace::Freq));
    for (const Trace trace : kTableTraces) all.push_back(measure(graph, a, b, trace));
  } catch (const Fault&) {
    return;
  }
  for (const Line& line : {Line{"RMS", &Measurement::rms}, Line{"Min", &Measurement::minimum},
                           Line{"Max", &Measurement::maximum}}) {
    std::vector<std::string> row{line.name, "", spaced(TraceAxis::Frequency, all[0].*line.value)};
    for (std::size_t i = 0; i < kTableTraces.size(); ++i) {
      row.push_back(spaced(trace_row(kTableTraces[i]).axis, all[i + 1].*line.value));
    }
    table.rows.push_back(std::move(row));
  }
}

}  // namespace

CursorTable cursor_table(const GraphTD& graph, bool envelope, const MeasuringCursors& cursors) {
  CursorTable table;
  if (!has_samples(graph) || (!cursors.a && !cursors.b)) return table;
  table.header = {"", "Time", "Freq"};
  for (const Trace trace : kTableTraces) table.header.emplace_back(trace_row(trace).label);
  const auto add = [&](const char* name, std::optional<double> at) {
    if (at) {
      table.rows.push_back(
          value_row(name, plot_point(graph, *at, envelope), true_time(graph, *at)));
    }
  };
  add("A", cursors.a);
  add("B", cursors.b);
  if (!cursors.a || !cursors.b) return table;
  const double a = true_time(graph, *cursors.a);
  const double b = true_time(graph, *cursors.b);
  table.rows.push_back(difference_row(plot_point(graph, *cursors.a, envelope),
                                      plot_point(graph, *cursors.b, envelope), b - a));
  add_between(graph, a, b, table);
  return table;
}

}  // namespace vantrel
