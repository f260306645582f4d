#include "selection_fixture.h"

#include <unistd.h>

#include <utility>

#include "core/number_text.h"

namespace vantrel {

namespace {

constexpr const char* kDatabase = R"sql(
CREATE TABLE [groups] ([ID] INTEGER, [Group Type] TEXT, [Group Title] TEXT, [sequence] REAL,
  [Include] BOOLEAN, [Group Picture] TEXT, [SelectionAllowed] TEXT);
INSERT INTO [groups] VALUES
  (11, 'IC', 'Dimming/Half-Bridge', 20, 1, 'Graphics\Groups\dim.svg', NULL),
  (10, 'IC', 'Fixed Output/Half-Bridge', 10, 1, 'Graphics\Groups\fixed.svg', NULL),
  (12, 'IC', 'Withdrawn', 5, 0, NULL, NULL),
  (20, 'INPUT', 'Active/PFC', 1, 1, NULL, '  '),
  (21, 'INPUT', 'DC Bus', 2, 1, NULL, 'ic # TV6103, IC#6102'),
  (30, 'LAMP', 'T5/High Efficiency', 1, 1, NULL, '!IC#TV6108'),
  (31, 'LAMP', 'T8/Linear', 2, 1, NULL, '!IC#TV6108,!INPUT#400VDC'),
  (32, 'LAMP', 'Low-Voltage/Halogen', 3, 1, NULL, 'IC#TV6108'),
  (33, 'LAMP', 'User/Lamps', 4, 1, NULL, NULL),
  (34, 'LAMP', 'TC-L/Long Compact', 5, 1, NULL, NULL),
  (35, 'LAMP', 'TC-F/Flat', 6, 1, NULL, NULL),
  (40, 'CONFIG', 'Single/Lamp', 1, 1, NULL, NULL),
  (41, 'CONFIG', 'Dual/Lamp', 2, 1, NULL, '!LAMP#Halogen 50W,!LAMP#O''Brien');

CREATE TABLE [DATA:IC] ([RecordType] INTEGER, [ID] INTEGER, [Group] INTEGER, [Name] TEXT,
  [PullDownName] TEXT, [Include] BOOLEAN, [UserData] BOOLEAN,
  [Input] TEXT, [Config] TEXT, [Advanced] TEXT, [Inductor] TEXT, [Frequency] TEXT);
INSERT INTO [DATA:IC] VALUES
  (0, -1, NULL, NULL, NULL, NULL, NULL, 'allow_input', 'allow_config', 'allow_advanced',
   'allow_inductor,allow_transformer', 'ballast_run_frequency'),
  (2, 1, 10, 'TV6103', NULL, 1, 0, 'Yes', 'YES', 'yes', 'Yes', '$45,50 if target is "TV6102"'),
  (2, 2, 11, 'TV6102', '6102', 1, 0, 'no', 'No', NULL, 'Y', '45'),
  (2, 6, 10, 'TV6108', '6108', 1, 0, 'Yes', 'Yes', 'Yes', 'Yes', '45'),
  (2, 7, 12, 'TV6109', NULL, 1, 0, NULL, NULL, NULL, NULL, NULL),
  (2, 0, 10, 'TV6101', NULL, 0, 0, NULL, NULL, NULL, NULL, NULL);

CREATE TABLE [DATA:INPUT] ([RecordType] INTEGER, [ID] INTEGER, [Group] INTEGER, [Name] TEXT,
  [PullDownName] TEXT, [Include] BOOLEAN, [UserData] BOOLEAN, [Bus] TEXT);
INSERT INTO [DATA:INPUT] VALUES
  (0, -1, NULL, NULL, NULL, NULL, NULL, 'running_dc_bus_voltage'),
  (2, 1, 20, '90 to 265VAC/500VDC', '90-265/500', 1, 0, '500'),
  (2, 2, 21, '400VDC', NULL, 1, 0, '400');

CREATE TABLE [DATA:LAMP] ([RecordType] INTEGER, [ID] INTEGER, [Group] INTEGER, [Name] TEXT,
  [PullDownName] TEXT, [Power] TEXT, [Include] BOOLEAN, [Voltage] TEXT, [Preheat] TEXT,
  [Ignition] TEXT, [UserData] BOOLEAN, [Max] TEXT, [PMax] TEXT, [VMax] TEXT, [Min] TEXT,
  [PMin] TEXT, [VMin] TEXT, [Note] TEXT);
INSERT INTO [DATA:LAMP] VALUES
  (0, -1, NULL, NULL, NULL, ' running_lamp_power , pfc_input_power', NULL, 'running_lamp_voltage',
   'max_preheat_voltage', 'max_ignition_voltage', NULL, 'max', 'pmax', 'vmax', 'min', '#PMin',
   'vmin', NULL),
  (2, 1, 30, 'T5 28W', 'T5-28', '28', 1, '236.1', '340', '700', 0, '100', '28.3', '236', '7',
   '999', '317.7', 'not read'),
  (2, 2, 31, 'T8 36W', NULL, '36', 1, '150', '300', '650', 0, '90', '36', '150', '10', NULL,
   '200', NULL),
  (2, 3, 31, 'T8 58W', ' ', '58', 1, '160', '310', '660', 0, '90', '58', '160', '10', NULL,
   '210', NULL),
  (2, 4, 32, 'Halogen 50W', NULL, '50', 1, NULL, NULL, NULL, 0, NULL, NULL, NULL, NULL, NULL,
   NULL, NULL),
  (2, 5, 33, 'O''Brien', 'Own Lamp', '20', 1, '100', '200', '500', -1, '100', '20', '100', '10',
   NULL, '120', NULL),
  (2, 6, 34, 'TC-L 36W', NULL, '36', 1, '150', '300', '650', 0, '90', '36', '150', '10', NULL,
   '200', NULL),
  (1, 7, 30, 'Ignored kind', NULL, '1', 1, '1', '1', '1', 0, '1', '1', '1', '1', NULL, '1', NULL);

CREATE TABLE [DATA:CONFIG] ([RecordType] INTEGER, [ID] INTEGER, [Group] INTEGER, [Name] TEXT,
  [PullDownName] TEXT, [Include] BOOLEAN, [UserData] BOOLEAN);
INSERT INTO [DATA:CONFIG] VALUES
  (0, -1, NULL, NULL, NULL, NULL, NULL),
  (2, 0, 40, 'Single lamp/current-mode heating', 'Single CM', 1, 0),
  (2, 2, 41, 'Dual lamp series/current-mode heating', 'Dual CM', 1, 0),
  (2, 6, 41, 'Dual lamp parallel/voltage-mode balance transformer', NULL, 1, 0);

CREATE TABLE [Target:Info] ([TargetNo] INTEGER, [target] TEXT, [FullName] TEXT,
  [GroupName] TEXT, [URL] TEXT);
INSERT INTO [Target:Info] VALUES
  (2, 'TV6102', 'Dimming IC', 'Dimming', NULL), (0, 'TV6101', 'Fixed IC', 'Fixed', '/a.pdf'),
  (1, 'TV6103', 'Fixed IC 3', 'Fixed', '/b.pdf'), (3, 'TV6104', '', '', ''),
  (4, 'TV6105', '', '', ''), (5, 'TV6106', '', '', ''), (6, 'TV6108', '', '', ''),
  (7, 'TV6109', '', '', ''), (8, 'TV6110', '', '', ''), (9, 'TV6107', '', '', '');

CREATE TABLE [LoadInputs] ([LoadID] TEXT, [Destination] TEXT, [DestinationField] TEXT,
  [target] TEXT, [CopyRegardlessOfTarget] BOOLEAN, [ValueUnit] TEXT, [DefaultValue] TEXT,
  [Source] TEXT, [Locked] BOOLEAN, [InvisibleIfUnused] BOOLEAN, [InvisibleIfEmpty] BOOLEAN);
)sql";

constexpr const char* kNumbers[] = {"running_lamp_voltage",
                                    "max_preheat_voltage",
                                    "max_ignition_voltage",
                                    "max",
                                    "pmax",
                                    "vmax",
                                    "min",
                                    "pmin",
                                    "vmin",
                                    "pfc_input_power_copy",
                                    "running_dc_bus_voltage",
                                    "running_dc_bus_voltage_mode",
                                    "running_lamp_power",
                                    "ballast_run_frequency"};

constexpr const char* kTexts[] = {"allow_input", "allow_config", "allow_advanced", "allow_inductor",
                                  "allow_transformer"};

}  // namespace

SelectionTest::SelectionTest() {
  const auto* test = ::testing::UnitTest::GetInstance()->current_test_info();
  file =
      std::filesystem::path(::testing::TempDir()) /
      ("vantrel-selection-" + general_text(std::int32_t{getpid()}) + "-" + test->name() + ".mdb");
  std::filesystem::remove(file);
  if (!database.create_database(file)) ADD_FAILURE() << "no database: " << database.last_error();
  sql(kDatabase);
  for (const char* name : kNumbers) {
    advanced.addField({.name = name, .label = name, .unit = "V", .places = "2"});
  }
  for (const char* name : kTexts) {
    advanced.addField({.name = name, .label = name, .unit = "", .places = "", .type = kTextual});
  }
  advanced.addField({.name = "pfc_input_power",
                     .label = "Input Power",
                     .unit = "W",
                     .places = "1",
                     .style = kLocked,
                     .tick = true});
}

SelectionTest::~SelectionTest() {
  database.close_access();
  std::filesystem::remove(file);
}

void SelectionTest::sql(std::string_view script) {
  if (!database.execute_script(script)) ADD_FAILURE() << script << ": " << database.last_error();
}

browser_control SelectionTest::makeBrowser() {
  const auto note = [this](std::string text) {
    return [this, text = std::move(text)] { calls.push_back(text); };
  };
  SelectionHooks hooks;
  hooks.loadGraphTimeDomain = note("graph");
  hooks.setFramesFromTabstrips = note("frames");
  hooks.magneticsSelectionChanged = [this](int slot) {
    calls.push_back("magnetics " + general_text(std::int32_t{slot}));
  };
  hooks.clearComputedComponents = note("clear");
  hooks.resetAdvanced = note("reset");
  hooks.setAdvancedLayout = note("layout");
  hooks.resetCalculator = note("calculator");
  hooks.enableMainButton = [this](int index, bool on) {
    calls.push_back("button " + general_text(std::int32_t{index}) + (on ? " on" : " off"));
  };
  hooks.showSimpleScreen = note("simple");
  hooks.hideInductor = note("hide inductor");
  hooks.hideTransformer = note("hide transformer");
  const std::array<control_bar*, 5> pointers = {&bars[0], &bars[1], &bars[2], &bars[3], &bars[4]};
  return {database, messages, state, items, advanced, pointers, std::move(hooks)};
}

bool SelectionTest::select(browser_control& browser, int slot, std::string_view name) {
  std::int32_t id = -1;
  return browser.Find(id, slot, name, false);
}

void SelectionTest::selectAll(browser_control& browser, std::string_view lamp) {
  EXPECT_TRUE(select(browser, kSlotIc, "TV6103"));
  EXPECT_TRUE(select(browser, kSlotInput, "90 to 265VAC/500VDC"));
  EXPECT_TRUE(select(browser, kSlotLamp, lamp));
  EXPECT_TRUE(select(browser, kSlotConfig, "Single lamp/current-mode heating"));
}

std::vector<std::string> SelectionTest::takeMessages() {
  std::vector<std::string> texts;
  for (const Message& message : messages.shown()) texts.push_back(message.text);
  messages.clear();
  return texts;
}

std::vector<std::string> SelectionTest::names(const browser_control& browser) {
  std::vector<std::string> result;
  for (const ValidItem& item : browser.ValidItems()) result.push_back(item.Name);
  return result;
}

std::vector<std::string> SelectionTest::titles(const browser_control& browser) {
  std::vector<std::string> result;
  for (const Group* group : browser.GroupList()) result.push_back(group->Title);
  return result;
}

}  // namespace vantrel
