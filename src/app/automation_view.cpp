#include "app/automation_view.h"

#include <cmath>

#include "app/automation_ops.h"

namespace vantrel {

namespace {

constexpr double kMostPixels = 20000;

double number(const Json& command, const char* name) {
  const auto argument = command.find(name);
  if (argument == command.end() || !argument->is_number()) {
    throw CommandError(std::string("Argument '") + name + "' is missing or no number");
  }
  return argument->get<double>();
}

double number(const Json& command, const char* name, double fallback) {
  return command.contains(name) ? number(command, name) : fallback;
}

Trace trace_named(const std::string& label) {
  const auto trace = find_trace(label);
  if (!trace) throw CommandError("Unknown trace '" + label + "'");
  return *trace;
}

/// The traces of the list "traces", without it those that are shown.
TraceSet traces_argument(const GraphTimeDomain& form, const Json& command) {
  if (!command.contains("traces")) return form.request().traces();
  TraceSet set;
  for (const Variant& label : list_argument(command, "traces")) {
    if (!label.is_string()) throw CommandError("'traces' holds names");
    set[trace_named(label.get<std::string>())] = true;
  }
  return set;
}

Size size_argument(const GraphTimeDomain& form, const Json& command) {
  const Size size{number(command, "width", form.pictureSize().width),
                  number(command, "height", form.pictureSize().height)};
  for (const double edge : {size.width, size.height}) {
    if (!(edge >= 1 && edge <= kMostPixels)) {
      throw CommandError("'width' and 'height' are 1 to 20000 pixels");
    }
  }
  return size;
}

Json point_json(const PlotPoint& p) {
  return {{"X", p.X},           {"SampleNo", p.SampleNo},
          {"Time", p.Time},     {"FrequencyKHz", p.FrequencyKHz},
          {"ILMin", p.ILMin},   {"ILampMin", p.ILampMin},
          {"VINMin", p.VINMin}, {"VRMin", p.VRMin},
          {"ILMax", p.ILMax},   {"ILampMax", p.ILampMax},
          {"VINMax", p.VINMax}, {"VRMax", p.VRMax}};
}

/// The stages of a view, each from its first to its last column.
Json stages_json(const TimeDomainView& view, const GraphTD& graph) {
  const PlotColumns& columns = view.PlotPoints();
  Json spans = Json::array();
  for (std::size_t i = 0; i < columns.borders.size(); ++i) {
    const StageBorder& border = columns.borders[i];
    const bool is_last = i + 1 == columns.borders.size();
    spans.push_back({{"stage", border.stage},
                     {"name", graph.GetStageString(border.stage)},
                     {"label", view.stageLabel(border.stage)},
                     {"first", border.column},
                     {"last", (is_last ? columns.count() : columns.borders[i + 1].column) - 1}});
  }
  return spans;
}

Json scale_json(const AxisScale& scale) { return Json::array({scale.min, scale.max}); }

Json view_json(const GraphTimeDomain& form, const TimeDomainView& view, const GraphTD& graph) {
  const PlotColumns& columns = view.PlotPoints();
  Json points = Json::array();
  for (const PlotPoint& point : columns.points) points.push_back(point_json(point));
  const Box plot = view.plotArea();
  return {
      {"window", form.TimeWindow()},
      {"position", form.TimePosition()},
      {"total", form.TotalTime()},
      {"plot",
       {{"left", plot.left}, {"top", plot.top}, {"width", plot.width}, {"height", plot.height}}},
      {"columns", columns.count()},
      {"first", columns.first},
      {"envelope", columns.envelope},
      {"points", points},
      {"stages", stages_json(view, graph)},
      {"volts", scale_json(view.scales().volts)},
      {"amperes", scale_json(view.scales().amperes)},
      {"summary", form.summary()}};
}

}  // namespace

Json op_view(Session& session, const Json& command) {
  GraphTimeDomain& form = session.timeDomainForm();
  const TraceSet wanted = traces_argument(form, command);
  const Size size = size_argument(form, command);
  const bool condensed = flag_argument(command, "short", form.IsShortTimeline());
  const bool autofit = flag_argument(command, "autofit", form.isAutofit());
  const double window = number(command, "window", 0);
  const double position = number(command, "position", form.TimePosition());
  form.takeRun();
  if (!form.isGenerated()) throw CommandError(GraphTD::kNoInputs);

  for (const TraceRow& row : traces()) form.SetCheckState(row.trace, wanted[row.trace]);
  form.shortTimeline(condensed);
  form.autofit(autofit);
  form.pictureSize(size);
  form.SetGraphView(window);
  form.moveTo(position);
  TimeDomainView& view = session.timeDomainView();
  view.compute(size, form.request());
  return view_json(form, view, session.timeDomainGraph());
}

Json op_measure(Session& session, const Json& command) {
  const Measurement measured =
      measure(session.timeDomainGraph(), number(command, "from"), number(command, "to"),
              trace_named(text_argument(command, "trace")));
  return {{"count", measured.count},
          {"minimum", measured.minimum},
          {"maximum", measured.maximum},
          {"mean", measured.mean},
          {"rms", measured.rms},
          {"zero_crossings", measured.zero_crossings},
          {"frequency", measured.frequency ? Json(*measured.frequency) : Json()}};
}

Picture time_domain_picture(Session& session) {
  GraphTimeDomain& form = session.timeDomainForm();
  form.takeRun();
  if (!form.hasView()) {
    form.autofit(true);
    form.DrawGraph();
  }
  return form.picture();
}

}  // namespace vantrel
