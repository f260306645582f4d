#include "operating/advanced.h"

#include <utility>

#include "core/text_parsing.h"
#include "operating/advanced_fields.h"
#include "selection/slots.h"

namespace vantrel {

namespace {

constexpr const char* kTitle = "Operating Points & Tank Components";

constexpr const char* kCommands[] = {"Calculate", "Operating Points Graph", "Design Inductors",
                                     "Design Transformer", "Calculate Components"};

constexpr const char* kResultFrames[] = {"frame_pfc_components", "frame_pfc_ontime",
                                         "frame_phase_angle", "frame_operating_points"};

constexpr const char* kBusFields[] = {"preheat_dc_bus_voltage", "ignition_dc_bus_voltage",
                                      "max_dc_bus_voltage", "min_dc_bus_voltage",
                                      "running_dc_bus_voltage"};

/// A field whose label shows a brightness percentage.
struct BrightnessLabel {
  const char* source;
  const char* field;
  const char* before;
  const char* behind;
};

constexpr BrightnessLabel kBrightnessLabels[] = {
    {"max", "max_frequency", "", "% Frequency"},
    {"max", "lamp_resistance_max", "Lamp Resistance ", "%"},
    {"max", "pmax", "Lamp Power ", "%"},
    {"max", "vmax", "Lamp Voltage ", "%"},
    {"min", "min_frequency", "", "% Frequency"},
    {"min", "lamp_resistance_min", "Lamp Resistance ", "%"},
    {"min", "pmin", "Lamp Power ", "%"},
    {"min", "vmin", "Lamp Voltage ", "%"},
};

/// An information line: what stands before the selected item's name, and the line without one.
struct SelectionLine {
  const char* line;
  int slot;
  const char* before;
  const char* none;
};

constexpr SelectionLine kSelectionLines[] = {
    {"InputInfo0", kSlotInput, "Line Input : ", "No Line Input Selected"},
    {"InputInfo1", kSlotLamp, "Lamp : ", "No Lamp Selected"},
    {"OutputInfo0", kSlotIc, "Target IC : ", "No Target IC Selected"},
    {"OutputInfo1", kSlotConfig, "Lamp Configuration : ", "No Lamp Configuration Selected"},
};

void start(const std::function<void()>& command) {
  if (command) command();
}

}  // namespace

Advanced::Advanced(FieldContext& context, const RunState& state, AdvancedSelection selection)
    : Screen("Advanced", kTitle, context),
      input_tabstrip{"input_tabstrip", {{"Line Input"}, {"Lamp"}}},
      output_tabstrip{"output_tabstrip", {{"Operating Points"}, {"PFC Stage"}}},
      state_(state),
      selection_(std::move(selection)) {
  for (const AdvancedFrame& frame : advanced_frames()) {
    addFrame(frame.name, frame.caption);
    in_layout_[frame.name] = true;
  }
  addFields(advanced_fields());
  for (const SelectionLine& line : kSelectionLines) addInfoLine(line.line);
  addPullDown("CalculationPulldown");
  int index = 0;
  for (const char* caption : kCommands) addButton("command_button", caption, index++);
  for (const char* source : {"max", "min"}) {
    field(source).changed.connect([this, source](Variant& value) {
      if (handles_changes_) relabel(source, value);
    });
  }
}

void Advanced::Reset() {
  for (const char* frame : kResultFrames) ClearFrameValues(*this, frame);
  for (const char* name : kTickedResults) {
    VTLValue& result = field(name);
    if (!result.IsFixed()) result.Clear();
  }
}

void Advanced::prepare_calculation_data() {
  if (heatingMode() != kVoltageMode) return;
  VTLValue& bus = field("running_dc_bus_voltage_mode");
  for (const char* name : kBusFields) field(name).CopyFrom(bus);
}

bool Advanced::isOnActiveTab(bool input, int tab) const {
  return tab == (input ? input_tabstrip : output_tabstrip).selected;
}

bool Advanced::isFrameInLayout(std::string_view frame) const {
  const auto found = in_layout_.find(frame);
  return found != in_layout_.end() && found->second;
}

void Advanced::settleTabs(TabStrip& strip, bool input) {
  for (TabStrip::Tab& tab : strip.tabs) tab.enabled = false;
  for (const AdvancedFrame& frame : advanced_frames()) {
    if (frame.input == input && isFrameInLayout(frame.name)) {
      strip.tabs[static_cast<std::size_t>(frame.tab)].enabled = true;
    }
  }
  const bool known = strip.selected >= 0 && strip.selected < static_cast<int>(strip.tabs.size());
  if (!known || !strip.tabs[static_cast<std::size_t>(strip.selected)].enabled) strip.selected = 0;
}

void Advanced::set_frames_from_tabstrips() {
  settleTabs(input_tabstrip, true);
  settleTabs(output_tabstrip, false);
  for (const AdvancedFrame& frame : advanced_frames()) {
    setFrameVisible(frame.name,
                    isFrameInLayout(frame.name) && isOnActiveTab(frame.input, frame.tab));
  }
  for (const SelectionLine& line : kSelectionLines) {
    const std::string name = selection_.itemName(line.slot);
    findInfoLine(line.line)->text = name.empty() ? line.none : line.before + name;
  }
  notifyLayoutChanged();
}

void Advanced::showFrame(std::string_view frame) {
  for (const AdvancedFrame& row : advanced_frames()) {
    if (!equal_ignoring_case(row.name, frame)) continue;
    (row.input ? input_tabstrip : output_tabstrip).selected = row.tab;
    set_frames_from_tabstrips();
    return;
  }
}

void Advanced::show_tabstrip_for_selection(int slot) {
  if (slot == kSlotIc || slot == kSlotInput) {
    input_tabstrip.selected = 0;
  } else if (slot == kSlotLamp || slot == kSlotConfig) {
    input_tabstrip.selected = 1;
  } else {
    return;
  }
  set_frames_from_tabstrips();
}

void Advanced::SetCaption() {
  std::string text = kTitle;
  const PullDown& history = *findPullDown("CalculationPulldown");
  const auto row = static_cast<std::size_t>(history.selected);
  if (CalculationNumber > 0 && history.selected >= 0 && row < history.items.size()) {
    text += " (" + history.items[row] + ")";
  }
  caption(text);
}

void Advanced::command_button_Click(int index, bool focus_tabs) {
  const CommandButton* button = index < 0 ? nullptr : findButton("command_button", index);
  if (button == nullptr || !button->enabled) return;
  if (commands_.isBusy && commands_.isBusy()) return;
  if (focus_tabs) start(commands_.focusInputTabs);
  const std::function<void()>* const by_index[] = {
      &commands_.Calculate, &commands_.DrawGraph, &commands_.designInductors,
      &commands_.designTransformer, &commands_.calculateComponents};
  start(*by_index[index]);
}

void Advanced::ShowSimpleScreen() {
  start(commands_.showSimple);
  visible(false);
}

void Advanced::PrintScreen() { start(commands_.PrintScreen); }

void Advanced::relabel(std::string_view source, const Variant& value) {
  const std::string percent = to_text(value);
  for (const BrightnessLabel& row : kBrightnessLabels) {
    if (row.source == source) field(row.field).ValueLabel(row.before + percent + row.behind);
  }
}

void Advanced::relabel_brightness() {
  for (const char* source : {"max", "min"}) relabel(source, field(source).value());
}

bool Advanced::says_yes(std::string_view field_name) {
  return lower(to_text(field(field_name).value())) == "yes";
}

}  // namespace vantrel
