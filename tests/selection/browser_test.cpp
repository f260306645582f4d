#include <map>

#include "selection/browser_control.h"
#include "selection_fixture.h"

namespace vantrel {
namespace {

TEST_F(SelectionTest, SetupListsGroupsBySequenceAndItemsByGroup) {
  browser_control browser = makeBrowser();
  PullDown list{.name = "list", .items = {"old"}, .itemData = {9}};
  bars[0].SetInfo(kSlotLamp, 5, "");
  browser.Setup(kSlotLamp, &list);
  EXPECT_EQ(names(browser), (Texts{"T5 28W", "T8 36W", "T8 58W", "O'Brien", "TC-L 36W"}))
      << "the halogen group needs an IC, the other row is no item";
  EXPECT_EQ(list.items, (Texts{"T5-28", "T8 36W", "T8 58W", "User:Own Lamp", "TC-L 36W"}));
  EXPECT_EQ(list.itemData, (std::vector<std::int32_t>{1, 2, 3, 5, 6}));
  EXPECT_EQ(list.selected, 3);

  browser.Setup(kSlotIc);
  EXPECT_EQ(titles(browser), (Texts{"Fixed Output/Half-Bridge", "Dimming/Half-Bridge"}));
  EXPECT_EQ(names(browser), (Texts{"TV6103", "TV6108", "TV6102"}));
  EXPECT_EQ(browser.GroupList()[0]->Picture, "Graphics\\Groups\\fixed.svg");
  EXPECT_EQ(browser.CurrentSlot(), kSlotIc);
  EXPECT_EQ(takeMessages(), Texts{});
}

TEST_F(SelectionTest, GroupsAreKeptAndItemsReadAnew) {
  browser_control browser = makeBrowser();
  browser.Setup(kSlotIc);
  database.execute("delete from groups");
  database.execute("update [DATA:IC] set Include = yes where ID = 0");
  browser.Setup(kSlotIc);
  EXPECT_EQ(names(browser), (Texts{"TV6103", "TV6108", "TV6101", "TV6102"}));
  database.execute("drop table [DATA:IC]");
  browser.Setup(kSlotIc);
  EXPECT_TRUE(browser.ValidItems().empty());
  EXPECT_EQ(takeMessages(), Texts{});
}

TEST_F(SelectionTest, FindByNameOrNumber) {
  browser_control browser = makeBrowser();
  struct Case {
    std::int32_t id;
    const char* name;
    bool found;
    std::int32_t selected;
    Texts reports;
  };
  const std::string no_match = "Invalid item ID number for find, incorrect search string ?";
  const std::vector<Case> cases = {
      {-1, " T5-28 ", true, 1, {}},
      {-1, "O'Brien", true, 5, {}},
      {-1, "Own Lamp", true, 5, {}},
      {3, "T5 28W", true, 3, {}},
      {-1, "T8", false, 3, {no_match}},
      {-1, "t5 28w", false, 3, {no_match}},
      {-1, "Halogen 50W", false, 3, {no_match}},
      {-1, "  ", false, 3, {"Invalid item ID number AND name for browser find"}},
      {77, "T5 28W", false, 3, {}},
  };
  for (const Case& c : cases) {
    std::int32_t id = c.id;
    EXPECT_EQ(browser.Find(id, kSlotLamp, c.name, false), c.found) << c.name;
    EXPECT_EQ(browser.GetInfo(kSlotLamp), c.selected) << c.name;
    if (c.found) {
      EXPECT_EQ(id, c.selected);
    }
    EXPECT_EQ(takeMessages(), c.reports) << c.name;
  }
  std::int32_t id = -1;
  EXPECT_TRUE(browser.Find(id, -1, "T8 36W", false)) << "in the current slot as it stands";
  EXPECT_EQ(bars[0].GetInfoName(kSlotLamp), "T8 36W");
}

TEST_F(SelectionTest, FindMovesTheGroupIntoSight) {
  browser_control browser = makeBrowser();
  const auto position = [&](std::int32_t id) { return browser.Find(id, kSlotLamp, "", true); };
  EXPECT_TRUE(position(2));
  EXPECT_EQ(browser.ScrollPosition(), 1) << "second of five groups";
  EXPECT_EQ(browser.ListedGroup(), 1);
  EXPECT_TRUE(position(1)) << "a group before the position leaves it";
  EXPECT_EQ(browser.ScrollPosition(), 1);
  EXPECT_EQ(browser.ListedGroup(), 0);
  EXPECT_TRUE(position(6)) << "the last position shows four groups";
  EXPECT_EQ(browser.ScrollPosition(), 1);
  EXPECT_EQ(browser.ListedGroup(), 3);
  EXPECT_FALSE(position(4)) << "not on offer";
  EXPECT_EQ(browser.ScrollPosition(), 0);
  EXPECT_EQ(browser.GetInfo(kSlotLamp), -1) << "nothing was selected";
  EXPECT_EQ(takeMessages(), Texts{});
}

TEST_F(SelectionTest, ASelectionRunsItsStepsInOrder) {
  browser_control browser = makeBrowser();
  browser.itemSelected.connect(
      [&](int slot) { calls.push_back("event " + std::string(GroupTypeName(slot))); });
  selectAll(browser);
  EXPECT_EQ(calls, (Texts{"graph", "clear", "event IC",                              //
                          "graph", "frames", "magnetics 1", "clear", "event INPUT",  //
                          "graph", "frames", "magnetics 2", "clear", "event LAMP",   //
                          "graph", "clear", "event CONFIG"}))
      << "screens are left alone before the first selection stands";
  for (const control_bar& bar : bars) {
    EXPECT_EQ(bar.GetInfo(kSlotInput), 1);
    EXPECT_EQ(bar.GetInfoName(kSlotLamp), "T5-28");
    EXPECT_EQ(bar.GetInfoName(kSlotIc), "TV6103") << "no pull-down name";
  }
  EXPECT_EQ(state.CurrentTarget, 1);
  EXPECT_EQ(state.CurrentConfig, 0);

  state.SelectionReady = true;
  calls.clear();
  EXPECT_TRUE(browser.ItemSelect(true, kSlotInput, 2, false, false, false));
  EXPECT_EQ(calls, (Texts{"graph", "frames", "magnetics 1", "reset", "layout", "calculator",
                          "button 1 on", "button 3 on", "clear", "event INPUT"}));
}

TEST_F(SelectionTest, AnItemThatIsNotListedIsNotSelected) {
  browser_control browser = makeBrowser();
  selectAll(browser);
  calls.clear();
  EXPECT_FALSE(browser.ItemSelect(true, kSlotLamp, 4, true, false, true));
  EXPECT_EQ(takeMessages(), Texts{});
  EXPECT_FALSE(browser.ItemSelect(true, kSlotLamp, 4, true, false, false));
  EXPECT_EQ(takeMessages(),
            Texts{"ItemSelect could not find specified item in the ValidItems list!"});
  EXPECT_EQ(calls, (Texts{"graph", "graph"}));
  EXPECT_EQ(browser.GetInfo(kSlotLamp), 1);
}

TEST_F(SelectionTest, LoadOnlyLoadsTheRowAndNothingElse) {
  browser_control browser = makeBrowser();
  selectAll(browser);
  select(browser, kSlotConfig, "Dual CM");
  calls.clear();
  EXPECT_TRUE(browser.ItemSelect(true, kSlotLamp, 2, true, true, false));
  EXPECT_EQ(value("running_lamp_power"), Variant(36.0)) << "not scaled";
  EXPECT_EQ(browser.GetInfo(kSlotLamp), 1);
  EXPECT_EQ(calls, Texts{"graph"});
}

TEST_F(SelectionTest, AnIcIsLoadedUnderTheIcBefore) {
  browser_control browser = makeBrowser();
  EXPECT_TRUE(select(browser, kSlotIc, "TV6102"));
  EXPECT_TRUE(select(browser, kSlotIc, "TV6103"));
  EXPECT_EQ(value("ballast_run_frequency"), Variant(50.0)) << "if target is TV6102";
  EXPECT_TRUE(select(browser, kSlotIc, "TV6103"));
  EXPECT_EQ(value("ballast_run_frequency"), Variant(45.0));
}

TEST_F(SelectionTest, ANewIcReplacesWhatItRulesOut) {
  browser_control browser = makeBrowser();
  selectAll(browser, "T8 36W");
  select(browser, kSlotConfig, "Dual CM");
  select(browser, kSlotInput, "400VDC");
  Texts events;
  browser.itemSelected.connect([&](int slot) { events.emplace_back(GroupTypeName(slot)); });
  EXPECT_TRUE(browser.ItemSelect(true, kSlotIc, 6, true, false, false));
  EXPECT_EQ(events, (Texts{"INPUT", "LAMP", "CONFIG", "IC"}));
  EXPECT_EQ(bars[4].GetInfoName(kSlotInput), "90-265/500");
  EXPECT_EQ(bars[4].GetInfoName(kSlotLamp), "Halogen 50W") << "first of the groups on offer";
  EXPECT_EQ(bars[4].GetInfoName(kSlotConfig), "Single CM") << "the halogen lamp has no dual one";
  EXPECT_EQ(value("running_lamp_power"), Variant(50.0F));
  EXPECT_EQ(takeMessages(), Texts{});

  events.clear();
  EXPECT_TRUE(browser.ItemSelect(true, kSlotInput, 1, true, false, false));
  EXPECT_EQ(events, Texts{"INPUT"}) << "nothing else had to change";
}

TEST_F(SelectionTest, WithNothingOnOfferTheSelectionStays) {
  browser_control browser = makeBrowser();
  sql("UPDATE [groups] SET [Include] = 0 WHERE [Group Type] = 'CONFIG'");
  bars[0].SetInfo(kSlotConfig, 2, "Dual");
  EXPECT_FALSE(browser.CheckAvailable(kSlotConfig, 2, true));
  EXPECT_EQ(browser.GetInfo(kSlotConfig), 2);
  EXPECT_TRUE(browser.StartBrowser(kSlotConfig, 2)) << "an empty chooser can be shown";
  EXPECT_TRUE(browser.CheckAvailable(kSlotLamp, 1, false));
  EXPECT_FALSE(browser.CheckAvailable(kSlotLamp, 4, false)) << "told, not replaced";
  EXPECT_EQ(browser.GetInfo(kSlotLamp), -1);
  EXPECT_EQ(calls, Texts{});
  EXPECT_EQ(takeMessages(), Texts{});
}

TEST_F(SelectionTest, TheIcOpensAndShutsTheGates) {
  browser_control browser = makeBrowser();
  selectAll(browser);
  state.SelectionReady = true;
  advanced.visible(true);
  calls.clear();
  select(browser, kSlotIc, "TV6102");
  EXPECT_EQ(calls, (Texts{"graph", "reset", "layout", "calculator", "button 1 off", "button 3 off",
                          "simple", "hide inductor", "hide transformer", "clear"}));
  for (const control_bar& bar : bars) {
    EXPECT_FALSE(bar.IsSlotAvailable(kSlotInput));
    EXPECT_FALSE(bar.IsSlotAvailable(kSlotConfig));
    EXPECT_TRUE(bar.IsSlotAvailable(kSlotIc));
    EXPECT_TRUE(bar.IsSlotAvailable(kSlotLamp));
    EXPECT_FALSE(bar.IsAdvancedAvailable());
  }
  calls.clear();
  select(browser, kSlotIc, "TV6103");
  EXPECT_EQ(calls, (Texts{"graph", "reset", "layout", "calculator", "button 1 on", "button 3 on",
                          "clear"}));
  EXPECT_TRUE(bars[4].IsSlotAvailable(kSlotInput));
  EXPECT_TRUE(bars[4].IsAdvancedAvailable());
}

TEST_F(SelectionTest, AConfigurationScalesOnceHoweverOftenItIsChosen) {
  browser_control browser = makeBrowser();
  selectAll(browser);
  EXPECT_EQ(value("running_lamp_power"), Variant(28.0F));
  const std::vector<std::pair<std::string, float>> steps = {
      {"Dual CM", 56}, {"Dual CM", 56}, {"Single CM", 28}, {"Dual CM", 56}};
  for (const auto& [config, power] : steps) {
    select(browser, kSlotConfig, config);
    EXPECT_EQ(value("running_lamp_power"), Variant(power)) << config;
    select(browser, kSlotLamp, "T5 28W");
    EXPECT_EQ(value("running_lamp_power"), Variant(power)) << config << " with the lamp anew";
    select(browser, kSlotInput, "400VDC");
    EXPECT_EQ(value("running_lamp_power"), Variant(power)) << config << " with an input";
  }
}

TEST_F(SelectionTest, AThousandConfigurationsLeaveTheLampAsAFreshLoadGivesIt) {
  browser_control browser = makeBrowser();
  selectAll(browser);
  const auto snapshot = [&] {
    std::map<std::string, Variant> values;
    for (const auto& field : advanced.fields()) values[field->Name()] = field->value();
    return values;
  };
  const auto fresh = snapshot();
  for (int round = 0; round < 1000; ++round) {
    ASSERT_TRUE(select(browser, kSlotConfig, round % 2 == 0 ? "Dual CM" : "Single CM"));
  }
  EXPECT_NEAR(to_double(value("max_preheat_voltage")), 340, 0.1) << "1.5 costs the last bits";
  EXPECT_EQ(value("running_lamp_power"), Variant(28.0F)) << "2 costs nothing";
  ASSERT_TRUE(select(browser, kSlotLamp, "T5 28W"));
  EXPECT_EQ(snapshot(), fresh);
}

TEST(ControlBarTest, HoldsSelectionGatesAndStatus) {
  control_bar bar;
  int changes = 0;
  bar.changed.connect([&] { ++changes; });
  for (const int slot : {-1, 0, 3, 4}) {
    EXPECT_EQ(bar.GetInfo(slot), -1);
    EXPECT_EQ(bar.GetInfoName(slot), "");
  }
  bar.SetInfo(kSlotConfig, 0, "Single");
  bar.SetInfo(4, 8, "nothing");
  bar.set_status("Ready");
  EXPECT_EQ(bar.GetInfo(kSlotConfig), 0);
  EXPECT_EQ(bar.GetInfoName(kSlotConfig), "Single");
  EXPECT_EQ(bar.GetInfo(4), -1);
  EXPECT_EQ(bar.status(), "Ready");
  EXPECT_EQ(changes, 2);
  EXPECT_EQ(GroupTypeName(2), "LAMP");
  EXPECT_EQ(GroupTypeName(4), "UNKNOWN");
  EXPECT_EQ(GroupTypeName(-1), "UNKNOWN");
}

}  // namespace
}  // namespace vantrel
