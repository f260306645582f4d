#include "operating/advanced.h"

#include <set>

#include "operating/advanced_fields.h"
#include "operating_fixture.h"

namespace vantrel {
namespace {

/// Where an item is shown: targets by digit; "C" current mode, "V" voltage mode, "N" neither (on a
/// screen that no mode has touched yet).
struct ShownRow {
  const char* name;
  std::string targets;
  std::string modes;
  bool pfcOnly = false;
};

const std::string kAll = "0123456789";
const std::string kRun = "0134567";
const std::string kDim = "289";

const ShownRow kFields[] = {
    {"pfc_frequency", kAll, "CVN", true},
    {"run_frequency", kRun, "CVN"},
    {"lamp_resistance", kRun, "CVN"},
    {"running_dc_bus_voltage", kRun, "CN"},
    {"max_frequency", kDim, "CVN"},
    {"min_frequency", kDim, "CVN"},
    {"max_dc_bus_voltage", kDim, "CN"},
    {"min_dc_bus_voltage", kDim, "CN"},
    {"lamp_resistance_max", kDim, "CVN"},
    {"lamp_resistance_min", kDim, "CVN"},
    {"start_frequency", kAll, "CVN"},
    {"preheat_frequency", "01234678", "CVN"},
    {"preheat_voltage", "01234678", "CVN"},
    {"preheat_current", kAll, "CN"},
    {"running_dc_bus_voltage_mode", kAll, "VN"},
    {"preheat_dc_bus_voltage", kAll, "CN"},
    {"ignition_dc_bus_voltage", kAll, "CN"},
    {"preheat_frequency_vm", kAll, "VN"},
};

const ShownRow kFrames[] = {
    {"frame_pfc_components", kAll, "CVN", true},
    {"frame_pfc_input_power", kAll, "CVN", true},
    {"frame_pfc_ontime", "3478", "CVN"},
    {"frame_run", kRun, "CVN"},
    {"frame_dimming", kDim, "CVN"},
    {"frame_phase_angle", kDim, "CVN"},
    {"frame_tank_components", kAll, "CVN"},
};

class AdvancedLayout : public OperatingFixture {
 protected:
  static bool shown(const ShownRow& row, std::int32_t target, char heating, bool pfc) {
    return row.targets.find(static_cast<char>('0' + target)) != std::string::npos &&
           row.modes.find(heating) != std::string::npos && (pfc || !row.pfcOnly);
  }
  void check(std::int32_t target, char heating, bool pfc) {
    Advanced screen{
        context,
        state,
        {.itemName = [](int) { return std::string(); }, .heatingMode = [this] { return mode; }}};
    screen.field("line_input_pfc").SetValue(pfc ? "Yes" : "no");
    screen.set_layout();
    for (const ShownRow& row : kFields) {
      EXPECT_EQ(screen.field(row.name).Visible(), shown(row, target, heating, pfc))
          << row.name << " " << target << heating << pfc;
    }
    for (const ShownRow& row : kFrames) {
      EXPECT_EQ(screen.isFrameInLayout(row.name), shown(row, target, heating, pfc))
          << row.name << " " << target << heating << pfc;
    }
    const bool minimum =
        std::string("3478").find(static_cast<char>('0' + target)) != std::string::npos;
    const VTLValue& frequency = screen.field("pfc_frequency");
    EXPECT_EQ(frequency.ValueLabel(), minimum ? "Minimum PFC Frequency" : "PFC Frequency");
    EXPECT_EQ(frequency.Tooltip(),
              minimum ? "The minimum PFC switching frequency at the minimum line input voltage"
                      : "The PFC switching frequency at peak line input voltage");
  }
};

TEST_F(AdvancedLayout, EveryTargetAndConfiguration) {
  const std::string heating = "CVCVCVVN";  // by configuration
  for (std::int32_t target = 0; target < kTargetCount; ++target) {
    for (std::size_t config = 0; config < heating.size(); ++config) {
      state.CurrentTarget = target;
      state.CurrentConfig = static_cast<std::int32_t>(config);
      mode = heating[config] == 'C' ? kCurrentMode : heating[config] == 'V' ? kVoltageMode : "";
      check(target, heating[config], true);
      check(target, heating[config], false);
    }
  }
}

TEST_F(AdvancedLayout, TabsShowTheirFramesOnly) {
  set("line_input_pfc", "no");
  advanced.output_tabstrip.selected = 1;
  advanced.set_layout();
  EXPECT_EQ(advanced.output_tabstrip.selected, 0);  // nothing on the second tab
  EXPECT_FALSE(advanced.output_tabstrip.tabs[1].enabled);
  EXPECT_TRUE(advanced.findFrame("frame_tank_components")->visible);
  EXPECT_TRUE(advanced.findFrame("frame_bus_voltage")->visible);
  EXPECT_FALSE(advanced.findFrame("frame_run")->visible);
  for (const int slot : {2, 3}) {
    advanced.show_tabstrip_for_selection(0);
    EXPECT_TRUE(advanced.findFrame("frame_line_voltage")->visible);
    advanced.show_tabstrip_for_selection(slot);
    EXPECT_TRUE(advanced.findFrame("frame_run")->visible) << slot;
    EXPECT_FALSE(advanced.findFrame("frame_line_voltage")->visible) << slot;
  }
  set("line_input_pfc", "yes");
  set("allow_transformer", "Yes");
  advanced.output_tabstrip.selected = 1;
  advanced.set_layout();
  EXPECT_TRUE(advanced.findFrame("frame_pfc_input_power")->visible);
  EXPECT_FALSE(advanced.findFrame("frame_operating_points")->visible);
  EXPECT_TRUE(advanced.findButton("command_button", 3)->enabled);
  set("allow_transformer", "no");
  advanced.set_layout();
  EXPECT_FALSE(advanced.findButton("command_button", 3)->enabled);
}

TEST_F(AdvancedLayout, InformationLines) {
  advanced.set_frames_from_tabstrips();
  EXPECT_EQ(advanced.findInfoLine("InputInfo0")->text, "Line Input : 90 to 265VAC/500VDC");
  EXPECT_EQ(advanced.findInfoLine("InputInfo1")->text, "Lamp : T5 28W");
  names[1] = names[2] = "";
  advanced.set_frames_from_tabstrips();
  EXPECT_EQ(advanced.findInfoLine("InputInfo0")->text, "No Line Input Selected");
  EXPECT_EQ(advanced.findInfoLine("InputInfo1")->text, "No Lamp Selected");
}

TEST_F(AdvancedLayout, PercentagesRelabelTheirFields) {
  set("max", 90.5);
  set("min", 10);
  for (const auto& [name, label] : std::vector<std::pair<const char*, const char*>>{
           {"max_frequency", "90.5% Frequency"},
           {"lamp_resistance_max", "Lamp Resistance 90.5%"},
           {"pmax", "Lamp Power 90.5%"},
           {"vmax", "Lamp Voltage 90.5%"},
           {"min_frequency", "10% Frequency"},
           {"lamp_resistance_min", "Lamp Resistance 10%"},
           {"pmin", "Lamp Power 10%"},
           {"vmin", "Lamp Voltage 10%"}}) {
    EXPECT_EQ(advanced.field(name).ValueLabel(), label);
  }
  advanced.field("max").SetValue(80, true);
  EXPECT_EQ(advanced.field("pmax").ValueLabel(), "Lamp Power 90.5%");
  advanced.relabel_brightness();
  EXPECT_EQ(advanced.field("pmax").ValueLabel(), "Lamp Power 80%");
}

TEST_F(AdvancedLayout, CaptionNamesTheShownCalculation) {
  advanced.SetCaption();
  EXPECT_EQ(advanced.caption(), "Operating Points & Tank Components");
  advanced.CalculationNumber = 7;
  advanced.findPullDown("CalculationPulldown")->items = {"Calculation #6", "Calculation #7"};
  advanced.findPullDown("CalculationPulldown")->selected = 1;
  advanced.SetCaption();
  EXPECT_EQ(advanced.caption(), "Operating Points & Tank Components (Calculation #7)");
}

TEST_F(AdvancedLayout, ResetEmptiesResultsOnly) {
  for (const auto& field : advanced.fields()) {
    if (field->ValueType() == kNumeric) field->SetValue(7, true);
  }
  fix("LValue", 5);
  advanced.Reset();
  std::set<std::string> empty;
  for (const auto& field : advanced.fields()) {
    if (field->ValueType() == kNumeric && field->IsItEmpty()) empty.insert(field->Name());
  }
  EXPECT_EQ(empty,
            (std::set<std::string>{"pfc_inductor", "max_pfc_current", "pfc_input_power",
                                   "max_pfc_ontime", "PhiMaxValue", "PhiMinValue", "CValue",
                                   "start_frequency", "preheat_frequency", "ignition_frequency",
                                   "max_frequency", "min_frequency", "lamp_resistance",
                                   "lamp_resistance_min", "resonance_frequency", "preheat_voltage",
                                   "ignition_current", "run_frequency", "lamp_resistance_max"}));
}

TEST(AdvancedFields, TableIsComplete) {
  std::set<std::string> names;
  std::set<std::string> frames;
  int shown = 0;
  for (const AdvancedFrame& frame : advanced_frames()) frames.insert(frame.name);
  for (const FieldSpec& row : advanced_fields()) {
    EXPECT_TRUE(names.insert(row.name).second) << row.name;
    EXPECT_EQ(row.visible, frames.count(row.frame) == 1) << row.name;
    shown += row.visible ? 1 : 0;
  }
  EXPECT_EQ(frames.size(), 13U);
  EXPECT_EQ(std::pair(shown, names.size()), std::pair(43, std::size_t{55}));
}

}  // namespace
}  // namespace vantrel
