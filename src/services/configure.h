#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "core/ports.h"
#include "core/screen.h"
#include "services/options.h"

namespace vantrel {

/// The options that the component calculator works by.
struct CalculatorOptions {
  bool e12 = false;    ///< `default_to_e12_series`
  bool e24 = true;     ///< `default_to_e24_series`
  bool debug = false;  ///< `show_cc_debug`
};

/// What the option sheet asks of other parts of the program. A callable may be empty.
struct ConfigureHooks {
  std::function<void(const CalculatorOptions&)> enforce;  ///< Hands options to `Calculator`.
  std::function<void()> showDebug;                        ///< Shows the debug facilities.
  std::function<void()> emergency_quit;                   ///< Ends the run.
};

/// The option sheet. Its tick boxes show what the user is choosing; the choice takes effect, and is
/// stored, when it is applied. What is in effect is read by `isChecked`.
class configure : public Screen {
 public:
  /// Section of the settings store that holds the options.
  static constexpr std::string_view kSection = "Configure";
  /// Default that tells that the store has no value.
  static constexpr std::string_view kMissing = "*MISSING*";
  /// Distance of the chosen frame from the left edge, and what the screen is higher than it; twips.
  static constexpr int kFrameLeft = 180;
  static constexpr int kBelowFrame = 240;

  /// All options stand as designed until `load_all`.
  configure(FieldContext& context, SettingsStore& store, ConfigureHooks hooks = {});

  /// Shows the sheet with what is in effect. In the start-up mode closing it ends the run.
  void config_show(bool start_up = false);
  /// Chooses a tab: its frame is shown beside the one that always shows. An unknown tab is left
  /// alone.
  void set_display(int tab);
  int tab() const { return tab_; }
  /// Height of the screen for the chosen tab; twips.
  int height() const;

  /// True when the option is in effect; false for an unknown name. Ignores case.
  bool isChecked(std::string_view name) const;
  /// Sets a control as a click of the user would: an option button that is set clears the others
  /// of its frame, and cannot be cleared itself. False when there is no such option.
  bool tick(std::string_view name, bool checked);

  /// Reads all options, stores them, so that a first run fills the store, and enforces them.
  void load_all();
  void save_all();
  void saveItem(std::string_view name, std::string_view value);
  /// The stored text, "*MISSING*" when there is none.
  std::string loadItem(std::string_view name);
  /// Hands the series choice and the debug choice to the component calculator.
  void configure_enforcesettings();

  /// Puts the controls into effect and stores them; the sheet stays open.
  void Apply();
  /// Drops what is not applied and closes the sheet.
  void Cancel();
  /// Runs a button: `command_ok`, `command_apply`, `command_cancel` or `command_debug`. False when
  /// there is no such button.
  bool command_click(std::string_view button);

 private:
  void close();
  void loadControl(const OptionSpec& option);
  void settleOptionButtons(std::string_view frame);
  void showApplied();

  SettingsStore& store_;
  ConfigureHooks hooks_;
  std::vector<bool> applied_;  ///< By the order of `option_specs`.
  int tab_ = 0;
  bool start_up_ = false;
};

}  // namespace vantrel
