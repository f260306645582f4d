// What the parts of a run have done by each other, where the layers let no direct call through.

#include <map>

#include "app/session.h"

namespace vantrel {

namespace {

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
      {"c_save_project",
       [this, &owner] {
         const Raised busy(busy_);
         project_.SaveProject(owner);
       }},
      {"c_load_project",
       [this, &owner] {
         const Raised busy(busy_);
         project_.LoadProject(owner);
       }},
      {"c_quit", [this] { simple_.unload(); }},
      {"c_configure", [this] { options_.config_show(); }},
      {"c_bom", [this] { bill_.setup_bom(); }},
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
  hooks.drawGraph = [this] { drawGraph(); };
  return hooks;
}

SimpleHooks Session::simpleHooks() {
  SimpleHooks hooks;
  hooks.startBrowser = [this](int slot, std::string_view, std::int32_t current) {
    browser_.StartBrowser(slot, current);
  };
  hooks.configure_enforcesettings = [this] { options_.configure_enforcesettings(); };
  // Dialogs and progress calls let events in: nothing else may start while a step runs.
  const auto step = [this](auto calculate) {
    return [this, calculate] {
      const Raised busy(busy_);
      return calculate();
    };
  };
  hooks.calculateOperatingPoints = step([this] { return operating_points_.Calculate(false); });
  hooks.calculateInductors = step([this] { return inductor_.Calculate(true); });
  hooks.calculateTransformer = step([this] { return transformer_.Calculate(true); });
  hooks.resetCalculator = step([this] { return calculator_.Reset(true); });
  hooks.calculateComponents = step([this] { return calculator_.CalculateComponents(true, false); });
  hooks.clearComputedComponents = [this] { bom_store_.clear(); };
  hooks.isBusy = [this] { return busy_; };
  hooks.setBusy = [this](bool busy) { busy_ = busy; };
  hooks.closeConnection = [this] { database_.close_access(); };
  hooks.unloadOtherScreens = [this] {
    for (Screen* screen : screens_.screens()) hide(*screen);
  };
  return hooks;
}

AdvancedCommands Session::advancedCommands() {
  AdvancedCommands commands;
  commands.Calculate = [this] {
    const Raised busy(busy_);
    operating_points_.Calculate(true);
  };
  commands.DrawGraph = [this] { drawGraph(); };
  commands.designInductors = [this] {
    const Raised busy(busy_);
    inductor_.Calculate(true);
  };
  commands.designTransformer = [this] {
    const Raised busy(busy_);
    transformer_.Calculate(true);
  };
  commands.calculateComponents = [this] {
    const Raised busy(busy_);
    calculator_.CalculateApart();
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
  hooks.DrawGraph = [this] { drawGraph(); };
  return hooks;
}

ConfigureHooks Session::configureHooks() {
  ConfigureHooks hooks;
  hooks.enforce = [this](const CalculatorOptions& options) {
    calculator_.selectSeries(options.e12 ? kSeriesE12 : kSeriesE24);
    log_.keepLines(options.debug);
  };
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
  hooks.linkTimes = [this](bool on) { calculator_.linkTimes(on); };
  return hooks;
}

BillHooks Session::billHooks() {
  BillHooks hooks;
  hooks.targetName = [this] { return to_text(details_.TargetDetails(kTargetName)); };
  hooks.calculate_simple = [this] { return simple_.calculate_simple(true, true, true, true); };
  return hooks;
}

void Session::drawGraph() {
  graph_operating_points_.caption(graph_op_.caption());
  graph_operating_points_.notifyLayoutChanged();
}

void Session::openFollowUps() {
  // A circuit without any component has nothing to show; the bill would ask to calculate again.
  if (options_.isChecked("display_bom") && !bom_store_.isEmpty()) bill_.setup_bom();
}

}  // namespace vantrel
