#include "operating/advanced.h"
#include "operating/target_traits.h"

namespace vantrel {

namespace {

/// What the layout depends on.
struct LayoutFacts {
  bool pfc;     ///< The line input has power-factor correction.
  bool onTime;  ///< The IC's PFC stage is told by its on-time.
  bool dimming;
  bool preheats;
};

using Condition = bool (*)(const LayoutFacts&);

constexpr Condition kPfc = [](const LayoutFacts& f) { return f.pfc; };
constexpr Condition kOnTime = [](const LayoutFacts& f) { return f.onTime; };
constexpr Condition kDimming = [](const LayoutFacts& f) { return f.dimming; };
constexpr Condition kRunning = [](const LayoutFacts& f) { return !f.dimming; };
constexpr Condition kPreheats = [](const LayoutFacts& f) { return f.preheats; };
constexpr Condition kAlways = [](const LayoutFacts&) { return true; };

struct LayoutRow {
  const char* name;
  Condition shown;
};

constexpr LayoutRow kFrameRows[] = {
    {"frame_pfc_components", kPfc}, {"frame_pfc_input_power", kPfc},
    {"frame_pfc_ontime", kOnTime},  {"frame_run", kRunning},
    {"frame_dimming", kDimming},    {"frame_phase_angle", kDimming},
};

constexpr LayoutRow kFieldRows[] = {
    {"pfc_frequency", kPfc},
    {"run_frequency", kRunning},
    {"running_dc_bus_voltage", kRunning},
    {"lamp_resistance", kRunning},
    {"max_frequency", kDimming},
    {"min_frequency", kDimming},
    {"max_dc_bus_voltage", kDimming},
    {"min_dc_bus_voltage", kDimming},
    {"lamp_resistance_max", kDimming},
    {"lamp_resistance_min", kDimming},
    {"start_frequency", kAlways},
    {"preheat_frequency", kPreheats},
    {"preheat_voltage", kPreheats},
};

// The heating mode comes last. In current mode the running buses stay as the IC's rows left them.
constexpr const char* kVoltageModeFields[] = {"running_dc_bus_voltage_mode",
                                              "preheat_frequency_vm"};
constexpr const char* kCurrentModeFields[] = {"preheat_current", "preheat_dc_bus_voltage",
                                              "ignition_dc_bus_voltage"};
constexpr const char* kRunningBuses[] = {"max_dc_bus_voltage", "min_dc_bus_voltage",
                                         "running_dc_bus_voltage"};

void label_pfc_frequency(VTLValue& field, bool minimum) {
  field.ValueLabel(minimum ? "Minimum PFC Frequency" : "PFC Frequency");
  field.Tooltip(minimum ? "The minimum PFC switching frequency at the minimum line input voltage"
                        : "The PFC switching frequency at peak line input voltage");
}

void show_heating_mode(Screen& screen, std::string_view mode) {
  const bool voltage = mode == kVoltageMode;
  if (!voltage && mode != kCurrentMode) return;
  for (const char* name : kVoltageModeFields) screen.field(name).Visible(voltage);
  for (const char* name : kCurrentModeFields) screen.field(name).Visible(!voltage);
  if (!voltage) return;
  for (const char* name : kRunningBuses) screen.field(name).Visible(false);
}

}  // namespace

void Advanced::set_layout() {
  const TargetTraits& traits = target_traits(target());
  findButton("command_button", 3)->enabled = says_yes("allow_transformer");
  const LayoutFacts facts{says_yes("line_input_pfc"), traits.limitsOnTime, traits.dimming,
                          traits.preheats};
  for (const LayoutRow& row : kFrameRows) in_layout_[row.name] = row.shown(facts);
  for (const LayoutRow& row : kFieldRows) field(row.name).Visible(row.shown(facts));
  label_pfc_frequency(field("pfc_frequency"), traits.limitsOnTime);
  show_heating_mode(*this, heatingMode());
  set_frames_from_tabstrips();
}

}  // namespace vantrel
