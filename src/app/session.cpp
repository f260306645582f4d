#include "app/session.h"

#include "app/upgrade_import.h"
#include "core/text_parsing.h"

namespace vantrel {

namespace {

constexpr std::string_view kDatabasePath = "\\Data\\VTL.mdb";
constexpr std::string_view kInitialisationTitle = "Vantrel initialisation error";

struct DefaultSelection {
  int slot;
  const char* name;
};

constexpr std::array<DefaultSelection, kSlotCount> kDefaultSelections{{
    {kSlotIc, "TV6103"},
    {kSlotInput, "90 to 265VAC/500VDC"},
    {kSlotLamp, "T5 28W"},
    {kSlotConfig, "Single lamp/current-mode heating"},
}};

enum Stage { kStageChecks = 12, kStageSounds = 13, kStageShow = 14 };

}  // namespace

Session::Session(ProgramFolder folder, SessionPorts ports, std::string_view program_version)
    : folder_(std::move(folder)),
      ports_(std::move(ports)),
      program_version_(program_version),
      click_sound_(state_, ports_.clock, ports_.sound, folder_,
                   [this] { return options_.isChecked("nosounds"); }),
      field_context_(fieldContext()),
      database_(messages_),
      details_(database_, messages_, state_),
      missing_fields_(messages_),
      targets_(messages_, state_),
      bars_(makeBars()),
      options_(field_context_, ports_.settings, configureHooks()),
      advanced_(field_context_, state_,
                {.itemName = [this](int slot) { return selectionName(slot); },
                 .heatingMode = [this] { return details_.ConfigDetails(kConfigHeating); }}),
      simple_(field_context_, messages_, advanced_, bars_[kSimpleBar], ports_.pump, simpleHooks()),
      graph_operating_points_("GraphOperatingPoints", "Operating Points", field_context_),
      graph_time_domain_("GraphTimeDomain", "Time Domain", field_context_),
      item_data_(database_, messages_, details_, advanced_,
                 [this](const std::string& line) { log_.write(line); }),
      input_loader_(database_, messages_, details_, state_, screens_, missing_fields_,
                    [this](const std::string& line) { log_.write(line); }),
      browser_(database_, messages_, state_, item_data_, advanced_, barPointers(),
               selectionHooks()),
      please_wait_(messages_, ports_.clock, ports_.pump, ports_.makeTimer()),
      progress_(ports_.makeTimer(), [this] { openFollowUps(); }),
      operating_points_(advanced_, targets_, missing_fields_, messages_, operatingPointsHooks()),
      history_(advanced_, bars_[kAdvancedBar], messages_, historyHooks()),
      cores_(database_),
      inductor_(field_context_, advanced_, input_loader_, missing_fields_, cores_,
                designerHooks("Inductor", [this] { images_.show_lres(); })),
      transformer_(field_context_, advanced_, input_loader_, missing_fields_, cores_,
                   designerHooks("Transformer", [this] { images_.show_transformer(); })),
      printing_(messages_, please_wait_, ports_.dialogs, folder_, printingHooks()),
      table_export_(messages_, ports_.dialogs, folder_),
      bill_(field_context_, bom_store_, table_export_, billHooks()),
      board_(messages_, ports_.dialogs, folder_),
      images_(field_context_, {advanced_, inductor_, transformer_, bom_store_, folder_},
              ports_.dialogs, imageHooks()),
      schematic_check_(field_context_, bom_store_, ports_.dialogs, folder_, validateHooks()),
      calculator_(field_context_, calculatorServices(), input_loader_, bom_store_,
                  {.designInductors = [this] { return inductor_.Calculate(true); },
                   .designTransformer = [this] { return transformer_.Calculate(true); }}),
      project_({&simple_, &advanced_, &inductor_, &transformer_, &calculator_,
                &graph_operating_points_, &graph_time_domain_},
               screens_, messages_, ports_.dialogs, projectHooks()),
      graph_op_(advanced_, missing_fields_, messages_,
                [this](int slot) { return selectionName(slot); }),
      graph_td_(timeDomainServices()) {
  connectScreens();
}

Session::~Session() { EndSession(); }

void Session::connectScreens() {
  for (Screen* screen : std::initializer_list<Screen*>{
           &simple_, &advanced_, &inductor_, &transformer_, &calculator_, &graph_operating_points_,
           &graph_time_domain_, &bill_, &options_, &images_, &schematic_check_, &output_circuit_}) {
    screens_.add(*screen);
  }
  advanced_.setCommands(advancedCommands());
  time_domain_form_.onStates = [this] { output_circuit_.SetStates(); };
  graph_time_domain_.layoutChanged.connect([this] {
    if (!graph_time_domain_.visible() && output_circuit_.visible()) output_circuit_.visible(false);
  });
  please_wait_.cancelled.connect([this] { simple_.CancelTest(); });
  browser_.itemSelected.connect([this](int slot) { advanced_.show_tabstrip_for_selection(slot); });
}

void Session::setViews(SessionViews views) {
  views_ = std::move(views);
  missing_fields_.showList = views_.showMissingFields;
  missing_fields_.displayField = views_.displayField;
}

control_bar* Session::bar(std::string_view screen) {
  for (std::size_t i = 0; i < kBarCount; ++i) {
    if (equal_ignoring_case(kBarOwners[i], screen)) return &bars_[i];
  }
  return nullptr;
}

std::optional<std::string> Session::writePicture(const std::filesystem::path& file,
                                                 const Picture& picture) const {
  if (!ports_.writePicture) return "this program draws no pictures";
  return ports_.writePicture(file, picture);
}

std::optional<std::string> Session::writePages(const std::filesystem::path& file,
                                               const PrintJob& job, const PaperSetup& setup) const {
  if (!ports_.writePages) return "this program prints no pages";
  return ports_.writePages(file, job, setup);
}

bool Session::selectVoltageMode() {
  std::int32_t sibling = state_.CurrentConfig + 1;
  return browser_.Find(sibling, kSlotConfig, "", false);
}

bool Session::select(int slot, std::int32_t id, std::string_view name) {
  if (busy_) return false;
  browser_.Setup(slot);
  for (const ValidItem& item : browser_.ValidItems()) {
    const bool wanted =
        id >= 0 ? item.ID == id : trimmed(item.Name) == name || trimmed(item.PullDownName) == name;
    if (wanted) return browser_.ItemSelect(false, slot, item.ID, true, false, true);
  }
  return false;
}

bool Session::selectByName(int slot, std::string_view name) {
  const std::string wanted = trimmed(name);
  return !wanted.empty() && select(slot, -1, wanted);
}

bool Session::selectById(int slot, std::int32_t id) { return id >= 0 && select(slot, id, ""); }

std::string Session::selectionName(int slot) { return bars_.front().GetInfoName(slot); }

std::string Session::selectionFullName(int slot) {
  const std::int32_t id = browser_.GetInfo(slot);
  browser_.Setup(slot);
  for (const ValidItem& item : browser_.ValidItems()) {
    if (item.ID == id) return item.Name;
  }
  return selectionName(slot);
}

void Session::setAppKeys(bool& upgraded) {
  const std::string location = folder_.home().string();
  if (ports_.settings.get(kSettingsSection, kAppLocationKey, "") != location) {
    ports_.settings.save(kSettingsSection, kAppLocationKey, location);
  }
  const std::string last_version = ports_.settings.get(kSettingsSection, kAppVersionKey, "");
  upgraded = !last_version.empty() && last_version != program_version_;
  if (last_version != program_version_) {
    ports_.settings.save(kSettingsSection, kAppVersionKey, program_version_);
  }
}

bool Session::StartSession() {
  bool upgraded = false;
  setAppKeys(upgraded);
  if (upgraded) import_user_rows(folder_, messages_);
  const auto database_file = folder_.find(kDatabasePath);
  if (!database_file || !database_.open_access(*database_file)) {
    messages_.messageBox(kInitialisationTitle, "Could not open Vantrel Database");
    return false;
  }
  stage_ = 0;
  try {
    runStages();
  } catch (const std::exception&) {
    messages_.messageBox(kInitialisationTitle,
                         "Vantrel Initialisation error : Stage " + std::to_string(stage_));
    return false;
  }
  return true;
}

void Session::runStages() {
  loadWebLinks();
  state_.SoundsReady = false;
  options_.load_all();
  for (std::size_t i = 0; i < kBarCount; ++i) {
    bars_[i].initialise_toolbar(kToolbarDesign, i == kAdvancedBar ? kToolbarPlain : kToolbarShort);
    bars_[i].setweblinks("wwwlinks_bm", web_links_);
    bars_[i].set_status("Ready");
  }
  history_.SetupCalculationPulldown();
  simple_.load(web_links_);
  inductor_.initialise();
  transformer_.initialise();
  for (const DefaultSelection& selection : kDefaultSelections) {
    stage_ = selection.slot;
    std::int32_t id = -1;
    browser_.Find(id, selection.slot, selection.name, false);
  }
  stage_ = kStageChecks;
  state_.SelectionReady = true;
  browser_.PerformInitialisationAndChecking();
  stage_ = kStageSounds;
  state_.SoundsReady = true;
  stage_ = kStageShow;
}

void Session::loadWebLinks() {
  RecordSet rows;
  if (!database_.read("select * from web", rows, true)) {
    messages_.msg("", "Could not read web table");
    return;
  }
  for (; adoaccess_class::RSOK(rows); rows.MoveNext()) {
    web_links_.push_back({NullToText(adoaccess_class::rs_get(rows, "manufacturer")),
                          NullToText(adoaccess_class::rs_get(rows, "homepage"))});
  }
}

void Session::EndSession() { database_.close_access(); }

}  // namespace vantrel
