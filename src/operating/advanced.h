#pragma once

#include <cstdint>
#include <functional>
#include <map>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "core/run_state.h"
#include "core/screen.h"

namespace vantrel {

/// What the design screen asks about the present selection.
struct AdvancedSelection {
  /// Name of the item selected in a slot (0 IC, 1 INPUT, 2 LAMP, 3 CONFIG), empty without one.
  std::function<std::string(int slot)> itemName;
  /// Heating of the selected lamp configuration: "Current Mode", "Voltage Mode" or another text.
  std::function<std::string()> heatingMode;
};

/// What the commands of the design screen start. A callable may be empty and then does nothing.
struct AdvancedCommands {
  std::function<void()> Calculate;          ///< The operating points, with results shown.
  std::function<void()> DrawGraph;          ///< The operating points graph.
  std::function<void()> designInductors;    ///< `Calculate` of the inductor designer.
  std::function<void()> designTransformer;  ///< `Calculate` of the transformer designer.
  /// `CalculateComponents` on a calculator made for this one run.
  std::function<void()> calculateComponents;
  std::function<void()> focusInputTabs;  ///< Moves the input focus to `input_tabstrip`.
  std::function<void()> showSimple;      ///< Shows `Simple`.
  std::function<void()> PrintScreen;
  std::function<bool()> isBusy;  ///< While true, no command is taken.
};

/// A strip of tabs, each of which shows some frames.
struct TabStrip {
  struct Tab {
    std::string caption;
    bool enabled = true;  ///< A tab without any frame in the layout is disabled.
  };
  std::string name;
  std::vector<Tab> tabs;
  int selected = 0;
};

inline constexpr std::string_view kCurrentMode = "Current Mode";
inline constexpr std::string_view kVoltageMode = "Voltage Mode";

/// The advanced design screen: it owns every field of the operating points, whether it is on show
/// or not.
class Advanced : public Screen {
 public:
  /// Results that the user can fix with their tick.
  static constexpr const char* kTickedResults[] = {"pfc_input_power", "LValue", "CValue"};

  Advanced(FieldContext& context, const RunState& state, AdvancedSelection selection);

  /// Empties the results; ticked values, inputs and hidden fields stay.
  void Reset();
  /// In a voltage-mode configuration copies the one bus voltage into the five that formulas read.
  void prepare_calculation_data();
  /// Shows what the selected IC, line input and configuration need. Frames that it leaves out stay
  /// hidden whatever the tabs say.
  void set_layout();
  /// Shows the frames of the active tabs and writes the information lines.
  void set_frames_from_tabstrips();
  /// Brings up the input tab that holds the values of a selection slot.
  void show_tabstrip_for_selection(int slot);
  /// Brings up the tab that holds a frame; a frame on no tab is left alone.
  void showFrame(std::string_view frame);
  /// The screen's title, with the selected line of the history behind it once there is a
  /// calculation.
  void SetCaption();
  /// Writes the brightness percentages into the labels of the fields they belong to.
  void relabel_brightness();

  /// Switches the handling of changed fields off and on again, for loads that restore a whole
  /// design; `relabel_brightness` then makes up for what was missed.
  void handleChanges(bool on) { handles_changes_ = on; }

  /// Sets what the commands start; until then they do nothing.
  void setCommands(AdvancedCommands commands) { commands_ = std::move(commands); }
  /// Runs a command button: 0 calculates, 1 draws the graph, 2 and 3 design inductors and
  /// transformer, 4 calculates components. With `focus_tabs` the input focus moves to the tabs
  /// first. A disabled button and any other index are ignored.
  void command_button_Click(int index, bool focus_tabs = false);
  /// Shows `Simple` and hides this screen.
  void ShowSimpleScreen();
  void PrintScreen();

  /// True when the frame belongs to the present layout, be its tab active or not.
  bool isFrameInLayout(std::string_view frame) const;
  /// "Current Mode", "Voltage Mode" or another text; see AdvancedSelection.
  std::string heatingMode() const { return selection_.heatingMode(); }
  /// True when a yes/no field says "yes" in any case.
  bool says_yes(std::string_view field_name);
  std::int32_t target() const { return state_.CurrentTarget; }
  std::int32_t config() const { return state_.CurrentConfig; }

  TabStrip input_tabstrip;
  TabStrip output_tabstrip;
  /// Number of the last calculation, 0 before the first. Never reused.
  std::int32_t CalculationNumber = 0;

 private:
  bool isOnActiveTab(bool input, int tab) const;
  void settleTabs(TabStrip& strip, bool input);
  void relabel(std::string_view source, const Variant& value);

  const RunState& state_;
  AdvancedSelection selection_;
  AdvancedCommands commands_;
  bool handles_changes_ = true;
  std::map<std::string, bool, std::less<>> in_layout_;
};

}  // namespace vantrel
