// The sections of the design report with graphs: gain and waveforms.

#include <algorithm>
#include <cmath>
#include <memory>

#include "app/report_sections.h"
#include "core/fault.h"
#include "core/number_text.h"
#include "core/plain_ports.h"

namespace vantrel {

namespace {

constexpr Size kGainSize{840, 400};
constexpr Size kWaveformSize{840, 280};
constexpr double kCycles = 100;    ///< Microseconds of a window that shows single cycles.
constexpr double kAround = 1000;   ///< Shown before and behind the ramp, microseconds.
constexpr double kHeadroom = 1.1;  ///< Above the largest value.

/// A simulation of its own, so that the viewer keeps the run that it shows.
struct OwnRun {
  explicit OwnRun(Session& session)
      : wait(messages, clock, pump, std::make_unique<ManualTimer>()),
        graph({.design = session.advanced(),
               .calculator = session.calculator(),
               .heatingMode = [&session] { return session.advanced().heatingMode(); },
               .state = session.state(),
               .missing = session.missingFields(),
               .messages = messages,
               .pleaseWait = wait}) {}

  SysMsg messages;
  SteadyClock clock;
  NoEvents pump;
  PleaseWait wait;
  GraphTD graph;
};

/// One look at the run.
struct Look {
  std::string name;
  double from = 0;  ///< True time, microseconds.
  double to = 0;
  double ignition = 0;  ///< Where the lamp ignites, 0 for a window in which it does not.

  bool is_steady() const { return to - from <= kCycles; }
  /// What is measured ends with the ignition.
  double measuredTo() const { return ignition > 0 ? ignition : to; }
};

std::vector<Look> looks_of(const GraphTD& graph, double total) {
  std::vector<Look> looks;
  const TimeDomainStages& stages = graph.StageTable();
  const bool preheats = time_domain_target(graph.members().TargetNumber).preheats;
  const bool ignites = stages[2].FirstSample > 0;
  if (preheats) {
    const auto at = static_cast<std::size_t>(graph.members().RepeatStart);
    const double begin = graph.Samples()[at].TimeUs;
    looks.push_back({"Preheat", begin, begin + kCycles});
  }
  const double ramp_end = ignites ? stages[2].StartTime : total;
  const double ramp = std::max(0.0, stages[1].StartTime - (preheats ? kAround : 0));
  looks.push_back({"Ignition", ramp, std::min(ramp_end + kAround, total), ramp_end});
  if (ignites) looks.push_back({"Run", std::max(stages[2].StartTime, total - kCycles), total});
  return looks;
}

ReportFigure figure_of(const std::shared_ptr<OwnRun>& run, const Look& look) {
  const auto draw = [run, look](DeviceContext& surface) {
    TimeDomainView view(run->graph, run->messages);
    view.NewMaxV = [&view](double volts) { view.SetVScale(-volts * kHeadroom, volts * kHeadroom); };
    view.NewMaxA = [&view](double amperes) {
      view.SetAScale(-amperes * kHeadroom, amperes * kHeadroom);
    };
    view.RenderTimeDomain(surface, {.UseShortTimeline = false,
                                    .TimeOffset = look.from,
                                    .TimeWindow = look.to - look.from,
                                    .Printing = true,
                                    .DPlotVIN = look.is_steady(),
                                    .DPlotIL = look.is_steady(),
                                    .DPlotVR = true,
                                    .DPlotFreq = !look.is_steady(),
                                    .AutofitScale = true,
                                    .OnlyUsedAxes = true});
  };
  return {
      .picture = {.title = look.name, .size = kWaveformSize, .draw = draw},
      .caption = look.name + ", " + format_mask((look.to - look.from) / 1000, "0.0##") +
                 " ms from " + format_mask(look.from / 1000, "0.000") + " ms on",
      .alternative = (look.is_steady() ? "Half-bridge voltage VIN, lamp voltage VR and inductor "
                                         "current IL against time: "
                                       : "Lamp voltage VR and frequency against time: ") +
                     look.name};
}

/// Half of peak to peak, which leaves out what the lamp's capacitor has not yet blocked.
double peak(const Measurement& measured) { return (measured.maximum - measured.minimum) / 2; }

/// RMS of the alternating part.
double alternating(const Measurement& measured) {
  return std::sqrt(std::max(0.0, measured.rms * measured.rms - measured.mean * measured.mean));
}

TableRow measured_row(const GraphTD& graph, const Look& look) {
  const Measurement lamp = measure(graph, look.from, look.measuredTo(), Trace::VR);
  const Measurement current = measure(graph, look.from, look.measuredTo(), Trace::IL);
  const bool is_steady = look.is_steady();
  return {look.name,
          format_mask(peak(lamp), "0"),
          is_steady ? format_mask(alternating(lamp), "0") : "",
          format_mask(peak(current), "0.00"),
          is_steady ? format_mask(alternating(current), "0.000") : "",
          is_steady && lamp.frequency ? format_mask(*lamp.frequency, "0.0") : ""};
}

}  // namespace

ReportSection gain_graph_section(Session& session) {
  ReportSection section{"Gain Graph", {}};
  const auto messages = std::make_shared<SysMsg>();
  const auto missing = std::make_shared<MissingFields>(*messages);
  const auto graph =
      std::make_shared<GraphOP>(session.advanced(), *missing, *messages,
                                [&session](int slot) { return session.selectionName(slot); });
  if (!graph->inputsAvailable()) {
    section.add(
        ReportParagraph{"There is no gain graph: this design has no operating points of a "
                        "resonant tank.",
                        ReportTone::Note});
    return section;
  }
  section.add(ReportFigure{
      .picture = {.title = "Gain graph",
                  .size = kGainSize,
                  .draw =
                      [messages, missing, graph](DeviceContext& surface) {
                        graph->RenderOperatingPoints(surface, Theme::Print);
                      }},
      .caption = graph->caption(),
      .alternative = "Gain of the resonant tank against frequency, with the operating points"});
  return section;
}

ReportSection waveforms_section(Session& session) {
  ReportSection section{"Waveforms", {}};
  const char* const none = "There are no waveforms: the start of this design cannot be simulated.";
  if (session.bomStore().isEmpty() || !session.operatingPointsGraph().inputsAvailable()) {
    section.add(ReportParagraph{none, ReportTone::Note});
    return section;
  }
  const auto run = std::make_shared<OwnRun>(session);
  try {
    const double total = run->graph.GenerateTimeDomain();
    if (!(total > 0)) {
      section.add(ReportParagraph{none, ReportTone::Warning});
      return section;
    }
    const std::vector<Look> looks = looks_of(run->graph, total);
    section.add(ReportParagraph{"Simulated start: " + start_summary(run->graph) +
                                    ". Peaks are half of peak to peak and RMS values those "
                                    "of the alternating part; at ignition they are those of "
                                    "the ramp.",
                                ReportTone::Plain});
    ReportTable table{"Waveforms",
                      {report_columns({"Window", ">Lamp, Vpk", ">Lamp, Vrms", ">Inductor, Apk",
                                       ">Inductor, Arms", ">Frequency, KHz"}),
                       {}}};
    for (const Look& look : looks) table.grid.rows.push_back(measured_row(run->graph, look));
    section.add(std::move(table));
    for (const Look& look : looks) section.add(figure_of(run, look));
  } catch (const Fault& fault) {
    section.add(ReportParagraph{std::string(none) + " " + fault.what(), ReportTone::Warning});
  }
  return section;
}

}  // namespace vantrel
