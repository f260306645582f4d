#include "waveforms/time_domain_view_traces.h"

#include <algorithm>
#include <vector>

namespace vantrel {

namespace {

using P = PlotPoint;
using S = TimeDomainSample;

double frequency_of(const P& p) { return static_cast<double>(p.FrequencyKHz); }

const std::array<TraceRow, kTraceCount> kTraces{{
    {Trace::VIN, "VIN", "Halfbridge Voltage", TraceAxis::Volts, Role::TraceVin, Role::TraceVin,
     [](const P& p) { return p.VINMin; }, [](const P& p) { return p.VINMax; },
     [](const S& s) { return s.VIN; }},
    {Trace::IL, "IL", "Inductor Current", TraceAxis::Amperes, Role::TraceIl, Role::TraceIl,
     [](const P& p) { return p.ILMin; }, [](const P& p) { return p.ILMax; },
     [](const S& s) { return s.IL; }},
    {Trace::VR, "VR", "Lamp Voltage", TraceAxis::Volts, Role::TraceVr, Role::TraceVrLabel,
     [](const P& p) { return p.VRMin; }, [](const P& p) { return p.VRMax; },
     [](const S& s) { return s.VR; }},
    {Trace::IR, "IR", "Lamp Current", TraceAxis::Amperes, Role::TraceIr, Role::TraceIr,
     [](const P& p) { return p.ILampMin; }, [](const P& p) { return p.ILampMax; },
     [](const S& s) { return s.ILamp; }},
    {Trace::IC, "IC", "Capacitor Current", TraceAxis::Amperes, Role::TraceIc, Role::TraceIc,
     [](const P& p) { return p.ILMin - p.ILampMin; },
     [](const P& p) { return p.ILMax - p.ILampMax; }, [](const S& s) { return s.IL - s.ILamp; }},
    {Trace::Freq, "Freq", "Frequency", TraceAxis::Frequency, Role::TraceFreq, Role::TraceFreqLabel,
     frequency_of, frequency_of, [](const S& s) { return s.FrequencyKHz; }},
}};

struct PenStyle {
  double width;
  std::vector<double> dashes;
};

const std::array<PenStyle, kTraceCount> kStyles{
    {{1, {}}, {2, {16, 6}}, {2.4, {}}, {1.5, {2, 3}}, {1.5, {9, 3, 1.5, 3}}, {2, {4, 6}}}};

}  // namespace

const std::array<TraceRow, kTraceCount>& traces() { return kTraces; }

std::optional<Trace> find_trace(std::string_view label) {
  const auto row = std::find_if(kTraces.begin(), kTraces.end(),
                                [label](const TraceRow& r) { return r.label == label; });
  if (row == kTraces.end()) return std::nullopt;
  return row->trace;
}

Pen trace_pen(Trace trace, Theme theme) {
  const PenStyle& style = kStyles[static_cast<std::size_t>(trace)];
  return {theme_colour(trace_row(trace).colour, theme), style.width, style.dashes};
}

}  // namespace vantrel
