// What the parts of a run have done by each other, where the layers let no direct call through.

#include <map>

#include "app/session.h"

namespace vantrel {

namespace {

constexpr std::string_view kHelpPage = "\\Help\\index.html";

/// Sets a flag for a scope and puts it back as it was.
class Raised {
 public:
  explicit Raised(bool& flag) : flag_(flag), before_(flag) { flag_ = true; }
  ~Raised() { flag_ = before_; }
  Raised(const Raised&) = delete;
  Raised& operator=(const Raised&) = delete;

 private:
  bool& flag_;
  bool before_;
};

void hide(Screen& screen) {
  if (screen.visible()) screen.visible(false);
}

}  // namespace

FieldContext Session::fieldContext() {
  return {.messages = messages_,
          .decimalSeparator = '.',
          .playClickSound = [this] { click_sound_.PlayClickSound(); },
          .addMissingField = [this](VTLValue& field,
                                    const std::string& text) { missing_fields_.Add(field, text); }};
}

CalculatorServices Session::calculatorServices() {
  return {database_, messages_,       log_,      details_, state_,
          screens_,  missing_fields_, advanced_, targets_, progress_};
}

TimeDomainServices Session::timeDomainServices() {
  return {.design = advanced_,
          .calculator = calculator_,
          .heatingMode = [this] { return details_.ConfigDetails(kConfigHeating); },
          .state = state_,
          .missing = missing_fields_,
          .messages = messages_,
          .pleaseWait = please_wait_};
}

std::array<control_bar, Session::kBarCount> Session::makeBars() {
  return {control_bar(barHooks(kBarOwners[0])), control_bar(barHooks(kBarOwners[1])),
          control_bar(barHooks(kBarOwners[2])), control_bar(barHooks(kBarOwners[3])),
          control_bar(barHooks(kBarOwners[4]))};
}

std::array<control_bar*, Session::kBarCount> Session::barPointers() {
  std::array<control_bar*, kBarCount> pointers{};
  for (std::size_t i = 0; i < kBarCount; ++i) pointers[i] = &bars_[i];
  return pointers;
}

ControlBarHooks Session::barHooks(const char* owner) {
  ControlBarHooks hooks;
  hooks.owner = owner;
  hooks.messages = &messages_;
  hooks.details = &details_;
  hooks.shell = ports_.shell;
  hooks.application = [this, name = hooks.owner](const std::string& command,
                                                 const std::string& argument) {
    return runCommand(name, command, argument);
  };
  hooks.isBusy = [this] { return busy_; };
  hooks.print_form = [this, name = hooks.owner] { printScreen(name); };
  hooks.showAbout = [this] { call_view(views_.showAbout); };
  hooks.StartAboutUpdateCheck = [this] { call_view(views_.checkForUpdate); };
  hooks.helpPage = [this] {
    const auto page = folder_.find(kHelpPage);
    return page ? page->string() : std::string();
  };
  hooks.listItems = [this](int slot, PullDown& list) { browser_.Setup(slot, &list); };
  hooks.selectItem = [this](int slot, std::int32_t id) { return selectById(slot, id); };
  return hooks;
}

bool Session::runCommand(const std::string& owner, const std::string& command,
                         const std::string& argument) {
  if (owner == kBarOwners[kAdvancedBar]) {
    const Raised busy(busy_);
    if (history_.execute_command(command, argument)) return true;
  }
  const std::map<std::string, std::function<void()>> commands{
      {"c_simple", [this] { simple_.ShowSimpleScreen(); }},
      {"c_advanced", [this] { simple_.ShowAdvancedScreen(); }},
      {"c_save_project", [&] { saveProject([&] { return project_.SaveProject(owner); }); }},
      {"c_load_project", [&] { loadProject([&] { return project_.LoadProject(owner); }); }},
      {"c_quit",
       [this] {
         if (views_.quit) {
           views_.quit();
         } else {
           simple_.unload();
         }
       }},
      {"c_configure", [this] { options_.config_show(); }},
      {"c_bom", [this] { bill_.setup_bom(); }},
      {"c_schematic", [this] { images_.show_schematic(); }},
      {"c_lres", [this] { images_.show_lres(); }},
      {"c_pfc", [this] { images_.show_pfc(); }},
      {"c_transformer", [this] { images_.show_transformer(); }},
      {"c_photoplot", [this] { images_.show_photoplot(); }},
      {"c_graph_td", [this] { showTimeDomain(); }},
      {"c_graph_op", [this] { showGraph(); }},
      {"c_diagnostics", [this] { call_view(views_.showDiagnostics); }},
      {"c_inductor", [this] { inductor_.visible(true); }},
      {"c_transformer_designer", [this] { transformer_.visible(true); }},
      {"c_calculator", [this] { calculator_.visible(true); }},
  };
  const auto entry = commands.find(command);
  if (entry == commands.end()) return false;
  entry->second();
  return true;
}

SelectionHooks Session::selectionHooks() {
  SelectionHooks hooks;
  hooks.setFramesFromTabstrips = [this] { advanced_.set_frames_from_tabstrips(); };
  hooks.clearComputedComponents = [this] { bom_store_.clear(); };
  // The designers build their lists anew for another IC only; a line input or a lamp leaves them.
  hooks.magneticsSelectionChanged = [this](int slot) {
    if (slot != kSlotIc) return;
    inductor_.ReInitialise();
    transformer_.ReInitialise();
  };
  hooks.resetAdvanced = [this] { advanced_.Reset(); };
  hooks.setAdvancedLayout = [this] {
    advanced_.set_layout();
    gateDesigners();
  };
  hooks.resetCalculator = [this] { calculator_.Reset(false); };
  hooks.enableMainButton = [this](int index, bool enabled) {
    simple_.enableMainButton(index, enabled);
  };
  hooks.showSimpleScreen = [this] { simple_.ShowSimpleScreen(); };
  hooks.hideInductor = [this] { hide(inductor_); };
  hooks.hideTransformer = [this] { hide(transformer_); };
  return hooks;
}

bool Session::calculate(const std::function<bool()>& routine) {
  // Dialogs and progress calls let events in: nothing else may start while a calculation runs.
  const Raised busy(busy_);
  calculationStarted.raise();
  const bool succeeded = routine();
  calculationEnded.raise(succeeded);
  return succeeded;
}

bool Session::calculateUnlessBusy(const std::function<bool()>& routine) {
  return !busy_ && calculate(routine);
}

bool Session::designInductor(int index) {
  return calculateUnlessBusy([&] { return inductor_.DesignInductor(index); });
}

bool Session::designTransformer() {
  return calculateUnlessBusy([this] { return transformer_.DesignTransformer(); });
}

bool Session::findComponents() {
  return calculateUnlessBusy([this] { return calculator_.CalculateComponents(false, false); });
}

bool Session::designBallast() {
  return calculateUnlessBusy([this] { return calculator_.DesignBallast(); });
}

bool Session::load(const std::function<bool()>& routine) {
  if (busy_) return false;
  const Raised busy(busy_);
  return routine();
}

bool Session::loadInductorInputs(int index) {
  return load([&] { return inductor_.CommandLoadInputsAction(index); });
}

bool Session::loadTransformerInputs() {
  return load([this] { return transformer_.CommandLoadTheInputs(); });
}

bool Session::loadOperatingPoints() {
  return load([this] { return calculator_.Reset(true); });
}

bool Session::saveProject(const std::function<bool()>& save) {
  if (busy_) return false;
  const Raised busy(busy_);
  if (!save()) return false;
  call_view(views_.projectStored, project_.CurrentProjectPath());
  return true;
}

bool Session::loadProject(const std::function<bool()>& load) {
  if (busy_) return false;
  const Raised busy(busy_);
  if (views_.mayReplaceDesign && !views_.mayReplaceDesign()) return false;
  if (!load()) return false;
  designShown.raise();
  call_view(views_.projectStored, project_.CurrentProjectPath());
  return true;
}

bool Session::saveProjectTo(const std::string& owner, const std::string& path) {
  return saveProject([&] { return project_.SaveProjectTo(owner, path); });
}

bool Session::loadProjectFrom(const std::string& owner, const std::string& path) {
  return loadProject([&] { return project_.LoadProjectFrom(owner, path); });
}

void Session::gateDesigners() {
  for (control_bar& bar : bars_) {
    bar.set_enabled_byname("c_inductor", advanced_.says_yes("allow_inductor"));
    bar.set_enabled_byname("c_transformer_designer", advanced_.says_yes("allow_transformer"));
  }
}

OperatingPointsHooks Session::operatingPointsHooks() {
  OperatingPointsHooks hooks;
  hooks.powerFactor = [this] { return item_data_.PfcPowerFactor(state_.CurrentConfig); };
  hooks.addCalculationRecord = [this] { return history_.AddCalculationRecord(); };
  hooks.isCompletionShown = [this] {
    return options_.isChecked("display_calculation_complete_message");
  };
  hooks.selectVoltageMode = [this] { return selectVoltageMode(); };
  hooks.isGraphWanted = [this] {
    return options_.isChecked("display_graph_op_after_calculate") ||
           graph_operating_points_.visible();
  };
  hooks.drawGraph = [this] { showGraph(); };
  return hooks;
}

SimpleHooks Session::simpleHooks() {
  SimpleHooks hooks;
  hooks.startBrowser = [this](int slot, std::string_view title, std::int32_t current) {
    if (browser_.StartBrowser(slot, current)) call_view(views_.openChooser, slot, title);
  };
  hooks.configure_enforcesettings = [this] { options_.configure_enforcesettings(); };
  const auto step = [this](auto routine) { return [this, routine] { return calculate(routine); }; };
  hooks.calculateOperatingPoints = step([this] { return operating_points_.Calculate(false); });
  hooks.calculateInductors = step([this] { return inductor_.Calculate(true); });
  hooks.calculateTransformer = step([this] { return transformer_.Calculate(true); });
  hooks.resetCalculator = step([this] { return calculator_.Reset(true); });
  hooks.calculateComponents = step([this] { return calculator_.CalculateComponents(true, false); });
  hooks.clearComputedComponents = [this] { bom_store_.clear(); };
  hooks.isBusy = [this] { return busy_; };
  hooks.setBusy = [this](bool busy) { busy_ = busy; };
  hooks.startTest = [this] { please_wait_.Start("Testing all combinations", -1); };
  hooks.stillTesting = [this] { please_wait_.StillCalculating(); };
  hooks.finishTest = [this] { please_wait_.Finish(); };
  hooks.refresh = [this] { call_view(views_.repaint); };
  hooks.saveWindowPosition = [this] { call_view(views_.saveWindowPositions); };
  hooks.stopProcess = [this] { call_view(views_.stopProcess); };
  hooks.closeConnection = [this] { database_.close_access(); };
  hooks.unloadOtherScreens = [this] {
    for (Screen* screen : screens_.screens()) hide(*screen);
  };
  return hooks;
}

AdvancedCommands Session::advancedCommands() {
  AdvancedCommands commands;
  commands.Calculate = [this] { calculate([this] { return operating_points_.Calculate(true); }); };
  commands.DrawGraph = [this] { showGraph(); };
  commands.focusInputTabs = [this] { call_view(views_.focusInputTabs); };
  commands.PrintScreen = [this] { printScreen(advanced_.name()); };
  commands.designInductors = [this] { calculate([this] { return inductor_.Calculate(true); }); };
  commands.designTransformer = [this] {
    calculate([this] { return transformer_.Calculate(true); });
  };
  commands.calculateComponents = [this] {
    calculate([this] { return calculator_.CalculateApart(); });
  };
  commands.showSimple = [this] { simple_.ShowSimpleScreen(); };
  commands.isBusy = [this] { return busy_; };
  return commands;
}

CalculationHistoryHooks Session::historyHooks() {
  CalculationHistoryHooks hooks;
  hooks.configDescription = [this] { return details_.ConfigDetails(kConfigName); };
  hooks.itemName = [this](int slot) { return selectionFullName(slot); };
  hooks.selectItem = [this](int slot, std::int32_t id) {
    return browser_.ItemSelect(true, slot, id, false, false, true);
  };
  // The last step of showing a record.
  hooks.DrawGraph = [this] {
    drawGraph();
    designShown.raise();
  };
  return hooks;
}

ConfigureHooks Session::configureHooks() {
  ConfigureHooks hooks;
  hooks.enforce = [this](const CalculatorOptions& options) {
    calculator_.selectSeries(options.e12 ? kSeriesE12 : kSeriesE24);
    log_.keepLines(options.debug);
  };
  hooks.showDebug = [this] { call_view(views_.showDiagnostics); };
  hooks.emergency_quit = [this] { simple_.emergency_quit(); };
  return hooks;
}

ProjectHooks Session::projectHooks() {
  ProjectHooks hooks;
  hooks.GetInfo = [this](int slot) { return browser_.GetInfo(slot); };
  hooks.ItemSelect = [this](int slot, std::int32_t id) {
    return browser_.ItemSelect(true, slot, id, false, false, true);
  };
  hooks.handleAdvancedChanges = [this](bool on) { advanced_.handleChanges(on); };
  hooks.relabelAdvanced = [this] { advanced_.relabel_brightness(); };
  hooks.set_frames_from_tabstrips = [this] { advanced_.set_frames_from_tabstrips(); };
  hooks.set_layout = [this] { advanced_.set_layout(); };
  hooks.reloadGraphOperatingPoints = [this](bool redraw) {
    if (redraw) drawGraph();
  };
  hooks.setWindowStateNormal = [this](Screen& screen) {
    call_view(views_.setWindowStateNormal, screen);
  };
  hooks.linkTimes = [this](bool on) { calculator_.linkTimes(on); };
  return hooks;
}

UserDataHooks Session::userDataHooks() {
  UserDataHooks hooks;
  hooks.lampsChanged = [this](std::int32_t edited) {
    const std::int32_t selected = browser_.GetInfo(kSlotLamp);
    if (!browser_.CheckAvailable(kSlotLamp, selected, true)) return;
    // Its values have changed, so they are loaded anew, and results of the old ones go.
    if (edited == selected) browser_.ItemSelect(false, kSlotLamp, selected, true, false, true);
  };
  hooks.selectSaveFile = [this](std::string_view title, std::string_view name,
                                std::string_view filter) {
    return printing_.select_savefile(title, name, filter);
  };
  hooks.coresChanged = [this] {
    inductor_.ReInitialise();
    transformer_.ReInitialise();
  };
  return hooks;
}

DesignerHooks Session::designerHooks(const char* name, std::function<void()> drawing) {
  DesignerHooks hooks;
  hooks.print = [this, name] { printScreen(name); };
  hooks.showDatasheet = std::move(drawing);
  hooks.editUserData = [this] { editUserData(UserDataKind::Cores); };
  return hooks;
}

PrintingHooks Session::printingHooks() {
  PrintingHooks hooks;
  hooks.nameOfSelection = [this](int slot) { return selectionName(slot); };
  hooks.output = [this](const PrintJob& job, bool preview) {
    if (busy_) return;
    // The dialogs let events in, and the design must not change between two pages.
    const Raised busy(busy_);
    call_view(views_.print, job, preview);
  };
  return hooks;
}

void Session::editUserData(UserDataKind kind) { call_view(views_.editUserData, kind); }

}  // namespace vantrel
