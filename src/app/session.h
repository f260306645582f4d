#pragma once

#include <array>
#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "components/calculator.h"
#include "core/click_sound.h"
#include "core/device_context.h"
#include "core/please_wait.h"
#include "core/ports.h"
#include "core/program_folder.h"
#include "core/progress_screen.h"
#include "core/run_state.h"
#include "core/screen.h"
#include "database/adoaccess.h"
#include "magnetics/inductor.h"
#include "magnetics/transformer.h"
#include "operating/advanced.h"
#include "operating/calculation_history.h"
#include "operating/operating_points.h"
#include "operating/simple.h"
#include "operating/targets/target.h"
#include "outputs/bill_of_materials.h"
#include "selection/browser_control.h"
#include "selection/control_bar.h"
#include "selection/details.h"
#include "selection/item_data.h"
#include "selection/load_inputs.h"
#include "selection/missing_fields.h"
#include "services/configure.h"
#include "services/messages/calculation_log.h"
#include "services/messages/sysmsg.h"
#include "services/project.h"
#include "waveforms/operating_points_graph.h"

namespace vantrel {

/// Section of the settings store that holds everything the program remembers.
inline constexpr std::string_view kSettingsSection = "Configure";
inline constexpr std::string_view kAppLocationKey = "AppLocation";
inline constexpr std::string_view kAppVersionKey = "AppVersion";

/// What a session needs of the outside; everything must outlive it. Dialogs and shell may be
/// missing.
struct SessionPorts {
  SettingsStore& settings;
  Clock& clock;
  SoundPlayer& sound;
  EventPump& pump;
  std::function<std::unique_ptr<Timer>()> makeTimer;
  FileDialogs* dialogs = nullptr;
  ShellOpen* shell = nullptr;
  PictureWriter writePicture = {};
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
  Simple& simple() { return simple_; }
  Advanced& advanced() { return advanced_; }
  Inductor& inductor() { return inductor_; }
  Transformer& transformer() { return transformer_; }
  Calculator& calculator() { return calculator_; }
  bill_of_materials& billOfMaterials() { return bill_; }
  const BomStore& bomStore() const { return bom_store_; }
  configure& options() { return options_; }
  Project& project() { return project_; }
  CalculationHistory& history() { return history_; }
  GraphOP& operatingPointsGraph() { return graph_op_; }
  /// Writes a picture in the format of the file's extension; gives the reason when it fails.
  std::optional<std::string> writePicture(const std::filesystem::path& file,
                                          const Picture& picture) const;
  /// The bar of a screen that has one, by the screen's name; nothing for any other.
  control_bar* bar(std::string_view screen);
  SelectionDetails& details() { return details_; }
  MissingFields& missingFields() { return missing_fields_; }
  browser_control& browser() { return browser_; }
  TargetFactory& targets() { return targets_; }
  OperatingPoints& operatingPoints() { return operating_points_; }
  PleaseWait& pleaseWait() { return please_wait_; }
  ProgressScreen& progress() { return progress_; }
  const std::vector<BarLink>& webLinks() const { return web_links_; }

 private:
  /// The bars of Simple, Advanced, Calculator, Inductor and Transformer, in the order in which they
  /// are told of a selection.
  static constexpr std::size_t kBarCount = 5;
  static constexpr std::array<const char*, kBarCount> kBarOwners{"Simple", "Advanced", "Calculator",
                                                                 "Inductor", "Transformer"};
  enum BarOwner : std::size_t { kSimpleBar = 0, kAdvancedBar = 1 };

  std::array<control_bar, kBarCount> makeBars();
  std::array<control_bar*, kBarCount> barPointers();
  ControlBarHooks barHooks(const char* owner);
  bool runCommand(const std::string& owner, const std::string& command,
                  const std::string& argument);
  void gateDesigners();
  FieldContext fieldContext();
  CalculatorServices calculatorServices();
  SelectionHooks selectionHooks();
  OperatingPointsHooks operatingPointsHooks();
  SimpleHooks simpleHooks();
  AdvancedCommands advancedCommands();
  CalculationHistoryHooks historyHooks();
  ConfigureHooks configureHooks();
  ProjectHooks projectHooks();
  BillHooks billHooks();
  void openFollowUps();
  void drawGraph();
  void connectScreens();

  bool selectVoltageMode();
  bool select(int slot, std::int32_t id, std::string_view name);
  void runStages();
  void loadWebLinks();
  void setAppKeys(bool& upgraded);

  ProgramFolder folder_;
  SessionPorts ports_;
  std::string program_version_;
  int stage_ = 0;
  bool busy_ = false;

  SysMsg messages_;
  CalculationLog log_{messages_};
  RunState state_;
  ClickSound click_sound_;
  FieldContext field_context_;
  adoaccess_class database_;
  ScreenRegistry screens_;
  SelectionDetails details_;
  MissingFields missing_fields_;
  TargetFactory targets_;
  std::array<control_bar, kBarCount> bars_;
  configure options_;
  Advanced advanced_;
  Simple simple_;
  Screen graph_operating_points_;
  Screen graph_time_domain_;
  ItemData item_data_;
  InputLoader input_loader_;
  browser_control browser_;
  PleaseWait please_wait_;
  ProgressScreen progress_;
  OperatingPoints operating_points_;
  CalculationHistory history_;
  CoreTable cores_;
  Inductor inductor_;
  Transformer transformer_;
  BomStore bom_store_;
  TableExport table_export_;
  bill_of_materials bill_;
  Calculator calculator_;
  Project project_;
  GraphOP graph_op_;
  std::vector<BarLink> web_links_;
};

}  // namespace vantrel
