#pragma once

#include <array>
#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "core/click_sound.h"
#include "core/please_wait.h"
#include "core/ports.h"
#include "core/program_folder.h"
#include "core/progress_screen.h"
#include "core/run_state.h"
#include "core/screen.h"
#include "database/adoaccess.h"
#include "operating/advanced.h"
#include "operating/operating_points.h"
#include "operating/targets/target.h"
#include "selection/browser_control.h"
#include "selection/control_bar.h"
#include "selection/details.h"
#include "selection/item_data.h"
#include "selection/load_inputs.h"
#include "selection/missing_fields.h"
#include "services/messages/calculation_log.h"
#include "services/messages/sysmsg.h"

namespace vantrel {

/// Section of the settings store that holds everything the program remembers.
inline constexpr std::string_view kSettingsSection = "Configure";
inline constexpr std::string_view kAppLocationKey = "AppLocation";
inline constexpr std::string_view kAppVersionKey = "AppVersion";

/// What a session needs of the outside; everything must outlive it.
struct SessionPorts {
  SettingsStore& settings;
  Clock& clock;
  SoundPlayer& sound;
  EventPump& pump;
  std::function<std::unique_ptr<Timer>()> makeTimer;
};

/// One entry of the list of internet links.
struct WebLink {
  std::string manufacturer;
  std::string homepage;
};

/// The composition root: makes every object of a run, wires them together, and brings the run up
/// and down. It needs no display.
class Session {
 public:
  Session(ProgramFolder folder, SessionPorts ports, std::string_view program_version);
  ~Session();
  Session(const Session&) = delete;
  Session& operator=(const Session&) = delete;

  /// Opens the design database, imports the user's rows after an upgrade, reads the settings and
  /// applies the default selection. False when the run cannot go on; the reason has been shown.
  bool StartSession();
  /// Ends the run: closes the database. Safe to call twice.
  void EndSession();

  /// Selects an item by name or number and replaces what it rules out in the other slots. False
  /// when the present selection does not offer it; nothing changes then.
  bool selectByName(int slot, std::string_view name);
  bool selectById(int slot, std::int32_t id);
  /// Short name of the selected item as the control bars show it, empty without one.
  std::string selectionName(int slot);
  /// Its full name.
  std::string selectionFullName(int slot);

  SysMsg& messages() { return messages_; }
  CalculationLog& log() { return log_; }
  const RunState& state() const { return state_; }
  const ProgramFolder& folder() const { return folder_; }
  adoaccess_class& database() { return database_; }
  ScreenRegistry& screens() { return screens_; }
  Advanced& advanced() { return advanced_; }
  SelectionDetails& details() { return details_; }
  MissingFields& missingFields() { return missing_fields_; }
  ItemData& itemData() { return item_data_; }
  InputLoader& inputLoader() { return input_loader_; }
  browser_control& browser() { return browser_; }
  TargetFactory& targets() { return targets_; }
  OperatingPoints& operatingPoints() { return operating_points_; }
  PleaseWait& pleaseWait() { return please_wait_; }
  ProgressScreen& progress() { return progress_; }
  const std::vector<WebLink>& webLinks() const { return web_links_; }
  std::string_view programVersion() const { return program_version_; }

 private:
  /// The bars of Simple, Advanced, Calculator, Inductor and Transformer, in the order in which they
  /// are told of a selection.
  static constexpr std::size_t kBarCount = 5;

  std::array<control_bar*, kBarCount> barPointers();
  SelectionHooks selectionHooks();
  OperatingPointsHooks operatingPointsHooks();
  bool selectVoltageMode();
  bool select(int slot, std::int32_t id, std::string_view name);
  void runStages();
  void loadWebLinks();
  void setAppKeys(bool& upgraded);

  ProgramFolder folder_;
  SessionPorts ports_;
  std::string program_version_;
  int stage_ = 0;

  SysMsg messages_;
  CalculationLog log_{messages_};
  RunState state_;
  ClickSound click_sound_;
  FieldContext field_context_;
  adoaccess_class database_;
  ScreenRegistry screens_;
  SelectionDetails details_;
  MissingFields missing_fields_;
  std::array<control_bar, kBarCount> bars_;
  Advanced advanced_;
  ItemData item_data_;
  InputLoader input_loader_;
  browser_control browser_;
  TargetFactory targets_;
  OperatingPoints operating_points_;
  PleaseWait please_wait_;
  ProgressScreen progress_;
  std::vector<WebLink> web_links_;
};

}  // namespace vantrel
