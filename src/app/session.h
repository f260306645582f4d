#pragma once

#include <array>
#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "app/session_views.h"
#include "components/calculator.h"
#include "components/explain.h"
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
#include "outputs/board_files.h"
#include "outputs/image_display.h"
#include "outputs/printing.h"
#include "outputs/validate_schematic.h"
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
#include "services/user_data.h"
#include "waveforms/operating_points_graph.h"
#include "waveforms/time_domain.h"
#include "waveforms/time_domain_view_form.h"

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
  PageWriter writePages = {};
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

  /// Hands over the windows; until then the session runs without.
  void setViews(SessionViews views);
  /// Lets the user edit his own lamps or cores; without windows nothing happens.
  void editUserData(UserDataKind kind);
  /// True while a calculation, a load or a save runs: no command but the end of the run is taken.
  bool isBusy() const { return busy_; }

  // What the buttons of the designers and of the component calculator do. A design is a calculation
  // like any other; a load is none. False when it failed, or while something else runs.

  bool designInductor(int index);
  bool designTransformer();
  bool findComponents();
  bool designBallast();
  bool loadInductorInputs(int index);
  bool loadTransformerInputs();
  bool loadOperatingPoints();

  /// Saves the design under a path, or loads it; as the commands do, but without asking for a name.
  bool saveProjectTo(const std::string& owner, const std::string& path);
  bool loadProjectFrom(const std::string& owner, const std::string& path);

  /// Raised in front of a calculation that the user has started, and at its end with its success;
  /// a chain of calculations raises the pair for each of its steps.
  Signal<> calculationStarted;
  Signal<bool> calculationEnded;
  /// Raised when a whole design has come on show: a record of the history or a project.
  Signal<> designShown;

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
  /// Explains the variables of the last component calculation.
  Explain explain() { return Explain(calculatorServices(), calculator_); }
  /// The form behind `editUserData`; what it changes is on offer at once.
  EditUserData& userData() { return user_data_; }
  bill_of_materials& billOfMaterials() { return bill_; }
  ImageDisplay& images() { return images_; }
  ValidateSchematic& schematicCheck() { return schematic_check_; }
  BoardFiles& board() { return board_; }
  const BomStore& bomStore() const { return bom_store_; }
  configure& options() { return options_; }
  Project& project() { return project_; }
  CalculationHistory& history() { return history_; }
  GraphOP& operatingPointsGraph() { return graph_op_; }
  /// The screen whose caption and visibility the window of the graph follows; `layoutChanged` asks
  /// for a new drawing.
  Screen& graphOperatingPoints() { return graph_operating_points_; }
  Screen& graphTimeDomain() { return graph_time_domain_; }
  GraphTD& timeDomainGraph() { return graph_td_; }
  TimeDomainView& timeDomainView() { return time_domain_view_; }
  GraphTimeDomain& timeDomainForm() { return time_domain_form_; }
  /// The output circuit beside the graph, with the traces that are shown marked in it.
  TimeDomainRCL& outputCircuit() { return output_circuit_; }
  /// Writes a picture in the format of the file's extension; gives the reason when it fails.
  std::optional<std::string> writePicture(const std::filesystem::path& file,
                                          const Picture& picture) const;
  Printing& printing() { return printing_; }
  /// Prints what a screen shows, by the screen's name; a screen that is not printed does nothing.
  void printScreen(std::string_view screen);
  /// The sheet that everything is printed on, as the user has set it up.
  PaperSetup paperSetup() const { return read_paper_setup(ports_.settings); }
  void paperSetup(const PaperSetup& setup) { store_paper_setup(ports_.settings, setup); }
  /// Writes a print job as a PDF file; gives the reason when it fails.
  std::optional<std::string> writePages(const std::filesystem::path& file, const PrintJob& job,
                                        const PaperSetup& setup) const;
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
  bool calculate(const std::function<bool()>& routine);
  bool calculateUnlessBusy(const std::function<bool()>& routine);
  bool load(const std::function<bool()>& routine);
  bool saveProject(const std::function<bool()>& save);
  bool loadProject(const std::function<bool()>& load);
  void gateDesigners();
  FieldContext fieldContext();
  CalculatorServices calculatorServices();
  DesignerHooks designerHooks(const char* name, std::function<void()> drawing);
  PrintingHooks printingHooks();
  UserDataHooks userDataHooks();
  TimeDomainServices timeDomainServices();
  SelectionHooks selectionHooks();
  OperatingPointsHooks operatingPointsHooks();
  SimpleHooks simpleHooks();
  AdvancedCommands advancedCommands();
  CalculationHistoryHooks historyHooks();
  ConfigureHooks configureHooks();
  ProjectHooks projectHooks();
  BillHooks billHooks();
  ImageHooks imageHooks();
  ValidateHooks validateHooks();
  void openFollowUps();
  void showTimeDomain();
  void drawGraph();
  void showGraph();
  void connectScreens();

  bool selectVoltageMode();
  bool select(int slot, std::int32_t id, std::string_view name);
  void runStages();
  void loadWebLinks();
  void setAppKeys(bool& upgraded);

  ProgramFolder folder_;
  SessionPorts ports_;
  std::string program_version_;
  SessionViews views_;
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
  Printing printing_;
  TableExport table_export_;
  bill_of_materials bill_;
  BoardFiles board_;
  ImageDisplay images_;
  ValidateSchematic schematic_check_;
  Calculator calculator_;
  Project project_;
  GraphOP graph_op_;
  GraphTD graph_td_;
  TimeDomainView time_domain_view_{graph_td_, messages_};
  GraphTimeDomain time_domain_form_{graph_td_, time_domain_view_};
  TimeDomainRCL output_circuit_{field_context_, time_domain_form_};
  EditUserData user_data_{database_, messages_, ports_.dialogs, userDataHooks()};
  std::vector<BarLink> web_links_;
};

}  // namespace vantrel
