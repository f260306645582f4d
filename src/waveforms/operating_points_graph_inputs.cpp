#include "waveforms/operating_points_graph_inputs.h"

#include <algorithm>
#include <numbers>

#include "core/fault.h"
#include "core/number_text.h"
#include "operating/target_traits.h"
#include "waveforms/operating_points_graph_curves.h"

namespace vantrel {

namespace {

constexpr std::int32_t kTargetCount = 10;

/// Reads fields and takes note when one is empty.
class Reader {
 public:
  Reader(Advanced& advanced, const MissingFields* missing)
      : advanced_(advanced), missing_(missing) {}

  double number(const char* name) { return to_double(get(name)); }
  std::string text(const char* name) { return to_text(get(name)); }
  bool complete() const { return complete_; }

 private:
  Variant get(const char* name) {
    VTLValue& field = advanced_.field(name);
    if (!field.IsItEmpty()) return field.GetValue();
    complete_ = false;
    // A graph that is drawn again and again notes a field once.
    return field.GetValue(missing_ != nullptr && !isNoted(field));
  }
  bool isNoted(const VTLValue& field) const {
    return std::any_of(missing_->entries().begin(), missing_->entries().end(),
                       [&](const MissingField& entry) { return entry.field == &field; });
  }

  Advanced& advanced_;
  const MissingFields* missing_;
  bool complete_ = true;
};

void read_loads(Reader& read, GraphInputs& inputs) {
  inputs.loads = {kOpenLamp};
  if (target_traits(inputs.target).dimming) {
    inputs.max = read.text("max");
    inputs.min = read.text("min");
    inputs.loads.push_back(checked_single(read.number("lamp_resistance_max")));
    inputs.loads.push_back(checked_single(read.number("lamp_resistance_min") / 10.0));
    inputs.run_frequencies = {read.number("max_frequency"), read.number("min_frequency")};
  } else if (inputs.target >= 0 && inputs.target < kTargetCount) {
    inputs.loads.push_back(checked_single(read.number("lamp_resistance")));
    inputs.run_frequencies = {read.number("run_frequency")};
  }
}

GraphMark mark(const GraphInputs& inputs, std::string label, double frequency, std::size_t curve) {
  const float gain = calculate_vlamp(inputs.L * 0.001, inputs.C * 1e-9,
                                     static_cast<double>(inputs.loads[curve]), frequency);
  return {std::move(label), frequency, gain, curve};
}

/// Bus field of the stage that a mark belongs to; nothing for the dimmed lamp, whose curve is drawn
/// for a tenth of its resistance and so does not tell its voltage.
const char* bus_field(const GraphInputs& inputs, const GraphMark& mark) {
  if (mark.curve == 2) return nullptr;
  if (mark.curve == 1)
    return inputs.loads.size() > 2 ? "max_dc_bus_voltage" : "running_dc_bus_voltage";
  return mark.frequency == inputs.ignition_frequency || !target_traits(inputs.target).preheats
             ? "ignition_dc_bus_voltage"
             : "preheat_dc_bus_voltage";
}

std::string kilohertz(double frequency) { return format_mask(frequency / 1000.0, "0.0"); }

OperatingPointRow row(Advanced& advanced, const GraphInputs& inputs, const GraphMark& mark) {
  const char* field = bus_field(inputs, mark);
  const double bus = field == nullptr ? 0 : to_double(advanced.field(field).value());
  const double volts = static_cast<double>(mark.gain) * bus * 2.0 / std::numbers::pi;
  return {mark.label, kilohertz(mark.frequency), format_mask(mark.gain, "0.00"),
          bus > 0 ? format_mask(volts, "0") : ""};
}

std::vector<OperatingPointRow> filled_rows(Advanced& advanced) {
  const std::optional<GraphInputs> inputs = read_graph_inputs(advanced, nullptr);
  if (!inputs) return {};
  std::vector<GraphMark> marks = graph_marks(*inputs);
  std::erase_if(marks, [](const GraphMark& mark) { return !mark.on_path; });
  const double start = to_double(advanced.field("start_frequency").value());
  if (target_traits(inputs->target).preheats && start > 0) {
    marks.insert(marks.begin(), mark(*inputs, "Start", start, 0));
  }
  std::vector<OperatingPointRow> rows;
  for (const GraphMark& each : marks) rows.push_back(row(advanced, *inputs, each));
  const double resonance = to_double(advanced.field("resonance_frequency").value());
  if (resonance > 0) rows.push_back({"Resonance", kilohertz(resonance), "", ""});
  return rows;
}

}  // namespace

std::optional<GraphInputs> read_graph_inputs(Advanced& advanced, const MissingFields* missing) {
  Reader read(advanced, missing);
  GraphInputs inputs;
  inputs.target = advanced.target();
  inputs.L = read.number("LValue");
  inputs.C = read.number("CValue");
  read_loads(read, inputs);
  inputs.preheat_frequency = read.number("preheat_frequency");
  inputs.ignition_frequency = read.number("ignition_frequency");
  if (!target_traits(inputs.target).preheats) {
    inputs.start_frequency = read.number("start_frequency");
  }
  if (!read.complete() || inputs.target == kTransformerTarget) return std::nullopt;
  return inputs;
}

std::vector<GraphMark> graph_marks(const GraphInputs& inputs) {
  const bool preheats = target_traits(inputs.target).preheats;
  std::vector<GraphMark> marks;
  marks.push_back(mark(inputs, preheats ? "Preheat" : "", inputs.preheat_frequency, 0));
  marks.back().on_path = preheats;
  if (!preheats) marks.push_back(mark(inputs, "Start", inputs.start_frequency, 0));
  marks.push_back(mark(inputs, "Ignition", inputs.ignition_frequency, 0));
  const std::vector<std::string> labels =
      inputs.loads.size() > 2 ? std::vector<std::string>{inputs.max + "%", inputs.min + "%"}
                              : std::vector<std::string>{"Run"};
  for (std::size_t at = 0; at < inputs.run_frequencies.size(); ++at) {
    marks.push_back(mark(inputs, labels[at], inputs.run_frequencies[at], at + 1));
  }
  return marks;
}

std::string curve_name(const GraphInputs& inputs, std::size_t curve) {
  if (curve == 0) return "before ignition, lamp open";
  const std::string lamp = ", lamp " + general_text(inputs.loads[curve]) + " Ohm";
  if (inputs.loads.size() <= 2) return "running" + lamp;
  return "at " + (curve == 1 ? inputs.max : inputs.min) + "%" + lamp;
}

std::vector<OperatingPointRow> operating_point_rows(Advanced& advanced) {
  try {
    return filled_rows(advanced);
  } catch (const Fault&) {
    return {};
  }
}

}  // namespace vantrel
