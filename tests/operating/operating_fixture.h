#pragma once

#include <gtest/gtest.h>

#include <string>
#include <utility>
#include <vector>

#include "core/variant.h"
#include "operating/operating_points.h"

namespace vantrel {

/// A design screen with its calculation, filled by hand with the default design: TV6103, a T5 28 W
/// lamp with current-mode heating on a 500 V bus. Everything else in the program is a counter.
class OperatingFixture : public ::testing::Test {
 protected:
  OperatingFixture() {
    state.CurrentTarget = 1;
    for (const auto& [name, value] :
         std::vector<std::pair<const char*, double>>{{"running_lamp_power", 28},
                                                     {"running_lamp_voltage", 236},
                                                     {"max_preheat_voltage", 340},
                                                     {"max_ignition_voltage", 700},
                                                     {"preheat_current", 0.21},
                                                     {"preheat_time", 1},
                                                     {"max", 100},
                                                     {"pmax", 28},
                                                     {"vmax", 236},
                                                     {"min", 10},
                                                     {"pmin", 2.8},
                                                     {"vmin", 307},
                                                     {"preheat_dc_bus_voltage", 500},
                                                     {"ignition_dc_bus_voltage", 500},
                                                     {"running_dc_bus_voltage", 500},
                                                     {"running_dc_bus_voltage_mode", 500},
                                                     {"max_dc_bus_voltage", 500},
                                                     {"min_dc_bus_voltage", 500},
                                                     {"min_input_voltage", 90},
                                                     {"max_input_voltage", 265},
                                                     {"ballast_run_frequency", 40},
                                                     {"pfc_frequency", 60},
                                                     {"pfc_input_power_copy", 28}}) {
      set(name, value);
    }
    set("line_input_pfc", "yes");
  }

  void set(const char* name, const Variant& value) { advanced.field(name).SetValue(value); }
  void fix(const char* name, double value) {
    advanced.field(name).SetFixed(true);
    set(name, value);
  }
  double get(const char* name) { return to_double(advanced.field(name).value()); }
  void withoutPfc(double bus) {
    set("line_input_pfc", "no");
    set("running_dc_bus_voltage", bus);
  }
  /// The texts of all messages so far.
  std::vector<std::string> texts() const {
    std::vector<std::string> all;
    for (const Message& message : messages.shown()) all.push_back(message.text);
    return all;
  }

  OperatingPointsHooks hooks() {
    return {.waitPointer = [this](bool busy) { pointer.push_back(busy); },
            .powerFactor = [this] { return powerFactor; },
            .refresh = [this] { ++refreshes; },
            .addCalculationRecord = [this] { return ++records; },
            .isGraphWanted = [this] { return graphWanted; },
            .drawGraph = [this] { ++graphs; },
            .isCompletionShown = [this] { return completionShown; },
            .selectVoltageMode =
                [this] {
                  if (voltageModeOffered) mode = kVoltageMode;
                  return voltageModeOffered;
                }};
  }

  SysMsg messages;
  RunState state;
  MissingFields missing{messages};
  FieldContext context{messages, '.', {}, [this](VTLValue& field, const std::string& text) {
                         missing.Add(field, text);
                       }};
  std::string mode{kCurrentMode};
  std::string names[4] = {"TV6103", "90 to 265VAC/500VDC", "T5 28W", ""};
  Advanced advanced{context,
                    state,
                    {.itemName = [this](int slot) { return names[slot]; },
                     .heatingMode = [this] { return mode; }}};
  TargetFactory targets{messages, state};
  float powerFactor = 1;
  int refreshes = 0;
  std::int32_t records = 0;
  int graphs = 0;
  bool graphWanted = false;
  bool completionShown = false;
  bool voltageModeOffered = true;
  std::vector<bool> pointer;
  OperatingPoints points{advanced, targets, missing, messages, hooks()};
};

}  // namespace vantrel
