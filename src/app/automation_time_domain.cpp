#include "app/automation_time_domain.h"

#include <fmt/format.h>

#include <algorithm>
#include <type_traits>

#include "app/automation_ops.h"
#include "app/automation_view.h"
#include "core/file_writer.h"
#include "core/text_parsing.h"
#include "waveforms/spice_netlist.h"
#include "waveforms/time_domain_view_form.h"
#include "waveforms/waveform_table.h"

namespace vantrel {

namespace {

Json stages_json(const TimeDomainStages& stages) {
  Json rows = Json::array();
  for (const StageEntry& stage : stages) {
    rows.push_back({{"StartTime", stage.StartTime},
                    {"EndTime", stage.EndTime},
                    {"FirstSample", stage.FirstSample},
                    {"LastSample", stage.LastSample}});
  }
  return rows;
}

/// The hashes as 16 hexadecimal digits: as numbers they would not read back everywhere.
Json report_json(const TimeDomainReport& report) {
  Json fields = Json::object();
  for (const SampleFieldSum& field : report.fields) {
    fields[std::string(field.name)] = {{"sum", field.sum},
                                       {"hash", fmt::format("{:016x}", field.hash)}};
  }
  return {{"result", report.result},
          {"n", report.n},
          {"repeat_start", report.repeat_start},
          {"repeat_end", report.repeat_end},
          {"stages", stages_json(report.stages)},
          {"fields", fields}};
}

Json sample_json(const TimeDomainSample& s) {
  return {{"TimeUs", s.TimeUs},
          {"RampSlope", s.RampSlope},
          {"RampVoltage", s.RampVoltage},
          {"SwitchState", s.SwitchState},
          {"NodeRaw", s.NodeRaw},
          {"VIN", s.VIN},
          {"IL", s.IL},
          {"VBlock", s.VBlock},
          {"ILamp", s.ILamp},
          {"VR", s.VR},
          {"SeriesDrop", s.SeriesDrop},
          {"FrequencyKHz", s.FrequencyKHz},
          {"Stage", s.Stage}};
}

Json row_json(const TimeDomainSample& sample) { return sample_json(sample); }
Json row_json(const EnvelopeEntry& entry) {
  return {{"Max", sample_json(entry.Max)}, {"Min", sample_json(entry.Min)}};
}

/// The rows "from" to "from" + "count" - 1, as far as there are any.
template <typename Record>
Json rows_json(std::span<const Record> records, const Json& command) {
  const std::int32_t from = number_argument(command, "from");
  const std::int32_t count = number_argument(command, "count");
  if (from < 0 || count < 0) throw CommandError("'from' and 'count' are 0 or more");
  const std::size_t begin = std::min(records.size(), static_cast<std::size_t>(from));
  const std::size_t length = std::min(records.size() - begin, static_cast<std::size_t>(count));
  Json rows = Json::array();
  for (const Record& record : records.subspan(begin, length)) rows.push_back(row_json(record));
  return {{"rows", rows}};
}

double number_of(const Json& value, const std::string& name) {
  if (value.is_boolean()) return value.get<bool>() ? 1 : 0;
  if (!value.is_number()) throw CommandError("'" + name + "' takes a number");
  return value.get<double>();
}

TimeDomainOverrides overrides_argument(const Json& command) {
  TimeDomainOverrides overrides;
  const auto members = command.find("members");
  if (members == command.end()) return overrides;
  if (!members->is_object()) throw CommandError("Argument 'members' is no object");
  for (const auto& [name, value] : members->items()) {
    overrides.emplace_back(name, number_of(value, name));
  }
  return overrides;
}

/// Has the user press Cancel at a tick for as long as it lives.
class CancelAtTick {
 public:
  CancelAtTick(Session& session, std::int32_t tick) : graph_(session.timeDomainGraph()) {
    graph_.onTick = [&wait = session.pleaseWait(), tick](std::int32_t at) {
      if (at == tick) wait.Cancel();
    };
  }
  ~CancelAtTick() { graph_.onTick = {}; }
  CancelAtTick(const CancelAtTick&) = delete;
  CancelAtTick& operator=(const CancelAtTick&) = delete;

 private:
  GraphTD& graph_;
};

/// Has look-ups take one of the two time axes for as long as it lives.
class TimelineMode {
 public:
  TimelineMode(GraphTD& graph, bool is_short)
      : graph_(graph), before_(graph.members().ShortTimeline) {
    graph_.shortTimeline(is_short);
  }
  ~TimelineMode() { graph_.shortTimeline(before_); }
  TimelineMode(const TimelineMode&) = delete;
  TimelineMode& operator=(const TimelineMode&) = delete;

 private:
  GraphTD& graph_;
  bool before_;
};

std::span<const TimeDomainSample> samples_of_run(Session& session) {
  const auto samples = session.timeDomainGraph().simulated();
  if (samples.empty()) throw CommandError("Nothing has been simulated");
  return samples;
}

std::string netlist(Session& session, bool measured) {
  GraphTD& graph = session.timeDomainGraph();
  if (measured) {
    return spice_netlist(graph.members(), measured_frequency(graph.members(), graph.StageTable(),
                                                             samples_of_run(session)));
  }
  const auto members = graph.designMembers();
  if (!members) throw CommandError(GraphTD::kNoInputs);
  return spice_netlist(*members);
}

bool write(const std::string& path, const std::string& text) {
  if (const auto why = write_file(path, text)) throw CommandError(*why);
  return true;
}

}  // namespace

Json op_time_domain(Session& session, const Json& command) {
  const TimeDomainOverrides overrides = overrides_argument(command);
  const std::int32_t tick =
      command.contains("cancel_at_tick") ? number_argument(command, "cancel_at_tick") : 0;
  const CancelAtTick cancel(session, tick);
  session.timeDomainGraph().GenerateFrom(overrides);
  session.timeDomainForm().takeRun();
  session.timeDomainForm().RedrawGraph();
  return report_json(session.timeDomainGraph().report());
}

Json op_stages(Session& session, const Json& /*command*/) {
  Json reply = report_json(session.timeDomainGraph().report());
  reply["rows"] = reply["stages"];
  return reply;
}

Json op_members(Session& session, const Json& /*command*/) {
  const TimeDomainMembers& members = session.timeDomainGraph().members();
  Json rows = Json::array();
  for (const TimeDomainMember& member : time_domain_members()) {
    Json row{{"name", member.name}, {"unit", member.unit}, {"source", member.source}};
    std::visit([&](auto place) { row["value"] = members.*place; }, member.place);
    rows.push_back(std::move(row));
  }
  return {{"rows", rows}};
}

Json op_samples(Session& session, const Json& command) {
  return rows_json(session.timeDomainGraph().Samples(), command);
}

Json op_envelope(Session& session, const Json& command) {
  return rows_json(session.timeDomainGraph().Envelope(), command);
}

Json op_find_item(Session& session, const Json& command) {
  GraphTD& graph = session.timeDomainGraph();
  const TimelineMode mode(graph, flag_argument(command, "short", graph.members().ShortTimeline));
  Json rows = Json::array();
  for (const Variant& time : list_argument(command, "times")) {
    if (!time.is_numeric()) throw CommandError("'times' holds numbers");
    rows.push_back(graph.FindItemNo(to_double(time)));
  }
  return {{"rows", rows}};
}

bool export_spice(Session& session, const Json& command) {
  const std::string frequency =
      command.contains("frequency") ? text_argument(command, "frequency") : "commanded";
  if (frequency != "commanded" && frequency != "measured") {
    throw CommandError("Argument 'frequency' is 'commanded' or 'measured'");
  }
  return write(text_argument(command, "path"), netlist(session, frequency == "measured"));
}

std::optional<std::string> write_time_domain_picture(Session& session,
                                                     const std::filesystem::path& file) {
  TimeDomainView view(session.timeDomainGraph(), session.messages());
  GraphTimeDomain form(session.timeDomainGraph(), view);
  form.takeRun();
  form.autofit(true);
  form.DrawGraph();
  return session.writePicture(file, form.picture());
}

bool export_time_domain(Session& session, const Json& command) {
  const std::string path = text_argument(command, "path");
  const auto samples = samples_of_run(session);
  if (!equal_ignoring_case(std::filesystem::path(path).extension().string(), ".csv")) {
    if (const auto why = session.writePicture(path, time_domain_picture(session))) {
      throw CommandError(*why);
    }
    return true;
  }
  const std::int32_t step = command.contains("step") ? number_argument(command, "step") : 1;
  if (step < 1) throw CommandError("'step' is 1 or more");
  return write(path, waveform_csv(samples, step));
}

}  // namespace vantrel
