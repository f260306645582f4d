#include "selection/control_bar.h"

#include <algorithm>
#include <set>

#include "core/plain_ports.h"
#include "core/text_parsing.h"
#include "selection/picture_list.h"
#include "selection_fixture.h"

namespace vantrel {
namespace {

/// Key, picture, tool tip, menu group and menu caption.
using Row = std::array<std::string, 5>;

Row row_of(const CommandRow& row) {
  return {row.key, row.picture, row.toolTip, row.menuGroup, row.caption};
}

const std::vector<Row> kDesign = {
    {"c_simple", "Simple", "Select simple display", "view", "&Simple Display"},
    {"c_advanced", "Advanced", "Select advanced display", "view", "&Advanced Display"},
    {"sep1", "-", "", "", ""},
    {"c_print", "Print", "", "", ""},
    {"c_datasheet", "Datasheet", "View datasheet for selected IC", "window", "IC &Datasheet"},
    {"sep3", "-", "", "", ""},
    {"c_web_tv", "Weblinks", "Access internet links", "weblinks", ""},
    {"c_web", "Weblinks", "", "wwwlinks_bm", ""},
    {"c_help", "Help", "Vantrel help", "help", ""},
    {"c_about", "", "", "help", "&About Vantrel"},
    {"sep1", "", "", "help", "-"},
    {"c_update", "", "", "help", "&Check for updates"},
    {"sep4", "-", "", "", ""},
    {"c_previous", "Back", "Back to previous calculation", "history",
     "&Back to previous calculation"},
    {"c_next", "Forward", "Forward to next calculation", "history", "&Forward to next calculation"},
};

const std::vector<Row> kTable = {
    {"c_new", "New", "Create a new data column", "data", "&New Column"},
    {"c_delete", "Delete", "Delete selected columns", "data", "&Delete Column"},
    {"sep4", "-", "", "", ""},
    {"c_load", "Load", "Load data from advanced screen", "data", "&Load Data"},
    {"sep5", "-", "", "", ""},
    {"c_export", "Export Data", "Export File(s)", "file", "&Export Files"},
};

const std::vector<std::array<std::string, 4>> kImage = {
    {"c_zoom_in", "Zoom In", "Zoom In", "Zoom &In"},
    {"c_zoom_out", "Zoom Out", "Zoom Out", "Zoom &Out"},
    {"sep6", "-", "", ""},
    {"c_print", "Print", "Print Image", "&Print"},
    {"c_export_schematic", "Save Image", "Save image", "&Save"},
    {"c_export_bom", "Save BOM", "Export bill of materials", "Export &BOM"},
    {"c_export_gerber", "Save Gerber", "Export gerber files", "Export &Gerber"},
};

Texts button_keys(const control_bar& bar) {
  Texts keys;
  for (const BarCommand& command : bar.buttons()) keys.push_back(command.key);
  return keys;
}

const BarMenu* find_menu(const control_bar& bar, std::string_view name) {
  for (const BarMenu& menu : bar.menus()) {
    if (menu.name == name) return &menu;
  }
  return nullptr;
}

/// "command caption" of each entry.
Texts lines(const control_bar& bar, std::string_view name) {
  Texts result;
  const BarMenu* menu = find_menu(bar, name);
  if (menu == nullptr) return {"no menu"};
  for (const BarCommand& entry : menu->entries) {
    result.push_back(entry.caption == "-" ? "-" : entry.command() + " " + entry.caption);
  }
  return result;
}

TEST(CommandTableTest, RowsHaveTheirExactWords) {
  std::vector<Row> design;
  for (const CommandRow& row : command_rows(kToolbarDesign)) design.push_back(row_of(row));
  EXPECT_NE(std::search(design.begin(), design.end(), kDesign.begin(), kDesign.end()),
            design.end());
  std::vector<Row> table;
  for (const CommandRow& row : command_rows(kToolbarTable)) table.push_back(row_of(row));
  EXPECT_EQ(table, kTable);
  std::vector<std::array<std::string, 4>> image;
  for (const CommandRow& row : command_rows(kToolbarImage)) {
    image.push_back({row.key, row.picture, row.toolTip, row.caption});
  }
  EXPECT_EQ(image, kImage);
}

TEST(CommandTableTest, EveryRowCanBeShown) {
  for (const int type : {kToolbarDesign, kToolbarTable, kToolbarImage}) {
    std::set<std::string> keys;
    std::set<std::string> letters;
    for (const CommandRow& row : command_rows(type)) {
      const std::string picture = row.picture;
      const std::string group = row.menuGroup;
      EXPECT_TRUE(picture.empty() || picture == "-" || find_bar_picture(picture)) << row.key;
      EXPECT_TRUE(group.empty() || find_menu_group(group)) << row.key;
      if (row.kind == CommandKind::Separator) continue;
      EXPECT_TRUE(keys.insert(row.key).second) << row.key << " twice";
      const std::string caption = row.caption;
      const std::size_t mark = caption.find('&');
      // "Open Project..." and "Options" share their letter.
      if (mark == std::string::npos || std::string(row.key) == "c_configure") continue;
      EXPECT_TRUE(letters.insert(group + upper(caption.substr(mark + 1, 1))).second) << row.key;
    }
  }
}

TEST(ControlBarToolbarTest, FlagsDecideWhatABarCarries) {
  const struct {
    int type;
    int flags;
    Texts ends;  // the last buttons, for a design bar those before our outputs
  } cases[] = {
      {kToolbarImage,
       kToolbarPlain,
       {"c_zoom_in", "c_zoom_out", "sep6", "c_print", "c_export_schematic"}},
      {kToolbarImage,
       kToolbarSchematic,
       {"c_zoom_in", "c_zoom_out", "sep6", "c_print", "c_export_schematic", "c_export_gerber"}},
      {kToolbarImage, kToolbarShort, {"c_print", "c_export_schematic"}},
      {kToolbarImage, kToolbarShort | kToolbarBill, {"c_print", "c_export_bom"}},
      {kToolbarTable, kToolbarPlain, {"c_new", "c_delete", "sep4", "c_load", "sep5", "c_export"}},
  };
  control_bar bar;
  for (const auto& expected : cases) {
    EXPECT_TRUE(bar.initialise_toolbar(expected.type, expected.flags));
    EXPECT_EQ(button_keys(bar), expected.ends) << expected.type << " " << expected.flags;
  }
  EXPECT_TRUE(bar.initialise_toolbar(kToolbarDesign, kToolbarPlain));
  const auto has_back = [&] {
    const Texts keys = button_keys(bar);
    return std::count(keys.begin(), keys.end(), "c_previous") == 1;
  };
  EXPECT_TRUE(has_back());
  EXPECT_NE(find_menu(bar, "submenu_history"), nullptr);
  EXPECT_FALSE(bar.is_enabled("c_previous"));  // nothing to walk through yet
  EXPECT_FALSE(bar.is_enabled("c_next"));
  EXPECT_TRUE(bar.initialise_toolbar(kToolbarDesign, kToolbarShort));
  EXPECT_FALSE(has_back());
  EXPECT_EQ(find_menu(bar, "submenu_history"), nullptr);
}

TEST(ControlBarToolbarTest, AnUnknownTypeIsReportedAndLeavesTheBarEmpty) {
  SysMsg messages;
  ControlBarHooks hooks;
  hooks.owner = "Simple";
  hooks.messages = &messages;
  control_bar bar(hooks);
  bar.initialise_toolbar(kToolbarDesign, 0);
  EXPECT_FALSE(bar.initialise_toolbar(4, 0));
  EXPECT_TRUE(bar.buttons().empty());
  EXPECT_TRUE(bar.menus().empty());
  ASSERT_EQ(messages.shown().size(), 1U);
  EXPECT_EQ(messages.shown()[0].text,
            "Initialise Error : Could not create toolbar (unknown toolbar type 4");
  EXPECT_EQ(messages.shown()[0].owner, "Simple");
}

TEST(ControlBarToolbarTest, MenusHoldTheirEntriesInOrder) {
  control_bar bar;
  bar.initialise_toolbar(kToolbarDesign, kToolbarPlain);
  EXPECT_EQ(lines(bar, "submenu_view"),
            (Texts{"c_simple &Simple Display", "c_advanced &Advanced Display"}));
  EXPECT_EQ(lines(bar, "submenu_file"),
            (Texts{"c_load_project &Open Project...", "c_save_project &Save Project...", "-",
                   "c_configure &Options", "-", "c_quit E&xit"}));
  EXPECT_EQ(lines(bar, "submenu_help"),
            (Texts{"c_help Vantrel help", "c_about &About Vantrel", "-",
                   "c_update &Check for updates", "c_diagnostics &Diagnostics"}));
  EXPECT_EQ(lines(bar, "submenu_weblinks"), Texts{"no menu"});
  BarCommand own;
  own.key = "c_own";
  own.group = "view";
  own.caption = "&Own";
  bar.add_button_menu(own);
  own.key = "c_other";
  own.group = "nowhere";
  bar.add_button(own);
  bar.setmenu();
  EXPECT_EQ(lines(bar, "submenu_view").back(), "c_own &Own");
  EXPECT_EQ(button_keys(bar).back(), "c_other");
  Texts names;
  for (const BarMenu& menu : bar.menus()) names.push_back(menu.name);
  EXPECT_EQ(names, (Texts{"submenu_file", "submenu_view", "submenu_window", "submenu_history",
                          "submenu_help"}));
}

TEST(ControlBarToolbarTest, LinksCarryTheirAddress) {
  control_bar bar;
  bar.initialise_toolbar(kToolbarDesign, kToolbarShort);
  const BarLink links[] = {{"Lamps & Co", "https://lamps.example/a*b"}, {"Cores", "http://c"}};
  bar.setweblinks("wwwlinks_bm", links);
  bar.setweblinks("wwwlinks_bm", links);
  EXPECT_EQ(lines(bar, "submenu_weblinks"),
            (Texts{"c_web*https://lamps.example/a*b Lamps && Co", "c_web*http://c Cores"}));
  std::string dropped;
  bar.menuDropped.connect([&](const std::string& menu) { dropped = menu; });
  EXPECT_TRUE(bar.execute_command("c_web_tv"));
  EXPECT_EQ(dropped, "submenu_weblinks");
}

TEST(ControlBarToolbarTest, CommandsAreEnabledByKeyAndByTag) {
  control_bar bar;
  bar.SetAvailable(true, true, false);
  bar.initialise_toolbar(kToolbarDesign, kToolbarPlain);
  EXPECT_FALSE(bar.is_enabled("c_advanced"));  // shut before the bar was filled
  EXPECT_FALSE(find_menu(bar, "submenu_view")->entries[1].enabled);
  bar.SetAvailable(true, true, true);
  EXPECT_TRUE(find_menu(bar, "submenu_view")->entries[1].enabled);
  bar.CreateCalculationBrowserMenu({"1", "2", "3"}, 1);
  bar.set_enabled_byname("sep1", false);
  bar.set_enabled_bytag("", false);
  for (const BarCommand& button : bar.buttons()) EXPECT_TRUE(button.enabled) << button.key;
  bar.set_enabled_bytag("ForwardCalc", false);
  EXPECT_FALSE(bar.is_enabled("c_next"));
  EXPECT_TRUE(bar.is_enabled("c_previous"));
  EXPECT_FALSE(bar.is_enabled("c_unknown"));
}

TEST(ControlBarToolbarTest, HistoryListsCalculations) {
  control_bar bar;
  bar.initialise_toolbar(kToolbarDesign, kToolbarPlain);
  const struct {
    int shown;
    bool back;
    bool forward;
  } cases[] = {{-1, false, false}, {0, false, true}, {1, true, true}, {2, true, false}};
  for (const auto& expected : cases) {
    bar.CreateCalculationBrowserMenu({"Calculation 4", "Calculation 5", "Calculation 6"},
                                     expected.shown);
    EXPECT_EQ(bar.is_enabled("c_previous"), expected.back) << expected.shown;
    EXPECT_EQ(bar.is_enabled("c_next"), expected.forward) << expected.shown;
    EXPECT_EQ(lines(bar, "submenu_history"),
              (Texts{"c_previous &Back to previous calculation",
                     "c_next &Forward to next calculation", "-", "c_browsecalc*1 Calculation 4",
                     "c_browsecalc*2 Calculation 5", "c_browsecalc*3 Calculation 6"}));
    const auto& entries = find_menu(bar, "submenu_history")->entries;
    for (int i = 0; i < 3; ++i) {
      EXPECT_EQ(entries[static_cast<std::size_t>(i + 3)].checked, i == expected.shown);
    }
  }
  bar.CreateCalculationBrowserMenu({}, -1);
  EXPECT_EQ(lines(bar, "submenu_history").size(), 2U);
}

/// A bar whose every way out is recorded.
class ControlBarDispatchTest : public SelectionTest {
 protected:
  ControlBarHooks hooks() {
    ControlBarHooks all;
    all.owner = "Simple";
    all.messages = &messages;
    all.details = &details;
    all.shell = &shell;
    all.ownerHandler = [this](const std::string& command, const std::string& argument,
                              bool& handled) {
      calls.push_back("owner " + command + "|" + argument);
      handled = handled || command == keeps;
    };
    all.application = [this](const std::string& command, const std::string&) {
      calls.push_back("application " + command);
      return command == "c_bom";
    };
    all.isBusy = [this] { return busy; };
    all.print_form = [this] { calls.push_back("print"); };
    all.showAbout = [this] { calls.push_back("about"); };
    all.StartAboutUpdateCheck = [this] { calls.push_back("update"); };
    all.helpPage = [this] { return help; };
    return all;
  }
  Texts takeCalls() { return std::exchange(calls, {}); }

  RecordingShell shell;
  std::string keeps;
  std::string help;
  bool busy = false;
  control_bar bar{hooks()};
};

TEST_F(ControlBarDispatchTest, TheOwnerComesFirstThenTheBar) {
  const struct {
    const char* command;
    Texts behind_owner;
    bool handled;
  } cases[] = {
      {"c_print", {"print"}, true},
      {"c_about", {"about"}, true},
      {"c_update", {"about", "update"}, true},
      {"c_bom", {"application c_bom"}, true},
      {"c_unknown", {"application c_unknown"}, false},
      {"", {"application "}, false},
  };
  for (const auto& expected : cases) {
    keeps = "none";
    EXPECT_EQ(bar.execute_command(expected.command), expected.handled) << expected.command;
    Texts all = {"owner " + std::string(expected.command) + "|"};
    all.insert(all.end(), expected.behind_owner.begin(), expected.behind_owner.end());
    EXPECT_EQ(takeCalls(), all);
    keeps = expected.command;
    EXPECT_TRUE(bar.execute_command(expected.command));
    EXPECT_EQ(takeCalls().size(), 1U) << expected.command;
  }
}

TEST_F(ControlBarDispatchTest, AStarPartsKeyAndArgument) {
  EXPECT_TRUE(bar.execute_command("c_web*https://a.example/x*y", "lost"));
  EXPECT_TRUE(bar.execute_command("c_web", "HTTP://b.example"));
  EXPECT_EQ(shell.opened, (Texts{"https://a.example/x*y", "HTTP://b.example"}));
  bar.execute_command("c_browsecalc*3");
  bar.execute_command("c_any*", "gone");
  EXPECT_EQ(takeCalls(), (Texts{"owner c_web|https://a.example/x*y", "owner c_web|HTTP://b.example",
                                "owner c_browsecalc|3", "application c_browsecalc", "owner c_any|",
                                "application c_any"}));
}

TEST_F(ControlBarDispatchTest, ABusyProgramTakesNoCommandButQuit) {
  busy = true;
  EXPECT_FALSE(bar.execute_command("c_print"));
  EXPECT_EQ(takeCalls(), Texts{});
  bar.execute_command("c_quit");
  EXPECT_EQ(takeCalls(), (Texts{"owner c_quit|", "application c_quit"}));
}

TEST_F(ControlBarDispatchTest, OnlyWebAddressesAndFilesAreOpened) {
  EXPECT_TRUE(may_open(file.string()));
  for (const char* refused :
       {"", "http://", "ftp://a.example", "javascript:alert(1)", "--help", "http", "/no/such/file",
        "/", "file:///etc/passwd", "https://a.example/\nb"}) {
    EXPECT_FALSE(may_open(refused)) << refused;
    bar.show_web(refused);
    EXPECT_EQ(takeMessages(), Texts{"Could not open '" + std::string(refused) + "'"});
  }
  EXPECT_TRUE(shell.opened.empty());
  shell.succeeds = false;
  bar.show_web("https://a.example");
  EXPECT_EQ(takeMessages(), Texts{"Could not open 'https://a.example'"});
}

TEST_F(ControlBarDispatchTest, DataSheetsAreOfferedByTheirAddress) {
  state.CurrentTarget = 2;
  bar.execute_command("c_datasheet");
  EXPECT_EQ(takeMessages(), Texts{"The Datasheet for the TV6102 is not currently available"});
  sql("UPDATE [Target:Info] SET [URL] = 'https://t.example/1.pdf' WHERE [TargetNo] = 1");
  SelectionDetails fresh(database, messages, state);
  ControlBarHooks changed = hooks();
  changed.details = &fresh;
  control_bar other(changed);
  state.CurrentTarget = 1;
  messages.injectAnswers({kNo, kYes});
  other.execute_command("c_datasheet");
  EXPECT_TRUE(shell.opened.empty());
  other.execute_command("c_datasheet");
  EXPECT_EQ(shell.opened, Texts{"https://t.example/1.pdf"});
  ASSERT_EQ(messages.shown().size(), 2U);
  EXPECT_EQ(messages.shown()[0].type, kMessageYesNo);
  EXPECT_EQ(messages.shown()[0].text,
            "Do you wish to view the TV6103 datasheet from the Torvane website? You must have a "
            ".pdf viewer such as Adobe Acrobat installed.");
}

TEST_F(ControlBarDispatchTest, HelpNeedsItsPages) {
  EXPECT_TRUE(bar.execute_command("c_help"));
  EXPECT_EQ(takeMessages(), Texts{"Help is not available"});
  help = file.string();
  EXPECT_TRUE(bar.execute_command("c_help"));
  EXPECT_EQ(takeMessages(), Texts{});
  EXPECT_EQ(shell.opened, Texts{help});
}

}  // namespace
}  // namespace vantrel
