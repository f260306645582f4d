#include "selection/browser_view.h"

#include "selection_fixture.h"

namespace vantrel {
namespace {

TEST(BrowserViewTest, CaptionsOfTheSlots) {
  const std::vector<std::array<std::string, 2>> expected = {
      {"Select Target IC", "Available target ICs"},
      {"Select Line Input", "Available line inputs"},
      {"Select Lamp", "Available lamp groups"},
      {"Select Lamp Configuration", "Available lamp configurations"}};
  for (int slot = 0; slot < kSlotCount; ++slot) {
    EXPECT_EQ(ChooserCaption(slot), expected[static_cast<std::size_t>(slot)][0]);
    EXPECT_EQ(AvailableCaption(slot), expected[static_cast<std::size_t>(slot)][1]);
  }
}

TEST_F(SelectionTest, TilesShowFourGroupsFromTheScrollPosition) {
  browser_control browser = makeBrowser();
  selectAll(browser, "T8 58W");
  ASSERT_TRUE(browser.StartBrowser(kSlotLamp, browser.GetInfo(kSlotLamp)));
  EXPECT_EQ(browser.ScrollMaximum(), 1);
  EXPECT_EQ(browser.ScrollPosition(), 1);
  std::vector<std::array<std::string, 3>> shown;
  for (const GroupTile& tile : SelectionPictures(browser)) {
    shown.push_back({tile.firstLine, tile.secondLine, tile.marker});
  }
  EXPECT_EQ(shown, (std::vector<std::array<std::string, 3>>{
                       {"T8", "Linear - 2 Types", " (Currently Selected)"},
                       {"User", "O'Brien", ""},
                       {"TC-L", "TC-L 36W", ""},
                       {"TC-F", "Flat", ""}}))
      << "two items, one item, one item, none";
  EXPECT_EQ(GroupLines(browser), (Texts{"T5 High Efficiency", "T8 Linear", "User Lamps",
                                        "TC-L Long Compact", "TC-F Flat"}));

  sql("UPDATE [DATA:INPUT] SET [Group] = 21 WHERE [ID] = 1");
  browser.StartBrowser(kSlotInput, -1);
  ASSERT_EQ(SelectionPictures(browser).size(), 2U);
  EXPECT_EQ(SelectionPictures(browser)[1].firstLine, "DC Bus");
  EXPECT_EQ(SelectionPictures(browser)[1].secondLine, "- 2 Types") << "a title without a slash";
}

TEST_F(SelectionTest, TheListedGroupHasItsHeadingItemsAndButton) {
  browser_control browser = makeBrowser();
  EXPECT_EQ(SelectionTitle(browser), "");
  EXPECT_EQ(SelectionLines(browser), Texts{});
  selectAll(browser, "T8 58W");
  browser.StartBrowser(kSlotLamp, 3);
  EXPECT_EQ(SelectionTitle(browser), "Lamp : Select type of T8 Linear");
  EXPECT_EQ(SelectionLines(browser), (Texts{"T8 36W", "T8 58W"}));
  EXPECT_TRUE(IsEditShown(browser));
  EXPECT_FALSE(IsEditEnabled(browser));

  browser.ListGroup(2);
  EXPECT_EQ(SelectionTitle(browser), "Lamp : User Lamps");
  EXPECT_EQ(SelectionLines(browser), Texts{"User:Own Lamp"});
  EXPECT_FALSE(IsEditEnabled(browser)) << "third group";
  browser.ListGroup(3);
  EXPECT_TRUE(IsEditEnabled(browser)) << "fourth group";
  browser.ListGroup(9);
  EXPECT_EQ(browser.ListedGroup(), 3);

  const std::vector<std::pair<int, std::string>> titles_of = {
      {kSlotIc, "Target IC : Select type of Fixed Output Half-Bridge"},
      {kSlotInput, "Line Input : Active PFC"},
      {kSlotConfig, "Lamp Configuration : Single Lamp"}};
  for (const auto& [slot, title] : titles_of) {
    browser.StartBrowser(slot, -1);
    EXPECT_EQ(SelectionTitle(browser), title);
    EXPECT_FALSE(IsEditShown(browser));
    EXPECT_FALSE(IsEditEnabled(browser));
  }
}

TEST_F(SelectionTest, ListingAGroupScrollsItIntoSight) {
  browser_control browser = makeBrowser();
  browser.StartBrowser(kSlotLamp, -1);
  const std::vector<std::pair<int, int>> steps = {{4, 1}, {1, 1}, {0, 0}, {3, 0}, {4, 1}};
  for (const auto& [group, position] : steps) {
    browser.ListGroup(group);
    EXPECT_EQ(browser.ScrollPosition(), position) << group;
  }
  browser.ScrollPosition(99);
  EXPECT_EQ(browser.ScrollPosition(), browser.ScrollMaximum());
  browser.ScrollPosition(-1);
  EXPECT_EQ(browser.ScrollPosition(), 0);
  EXPECT_EQ(browser.HowManyItemsInThisGroupList(1), 2);
  EXPECT_EQ(browser.GetMeTheSingleEntryInThisGroupList(1), "T8 58W") << "the last one";
  EXPECT_EQ(browser.HowManyItemsInThisGroupList(5), 0);
  EXPECT_EQ(browser.GetMeTheSingleEntryInThisGroupList(-1), "");
}

TEST_F(SelectionTest, PickingAnItemSelectsItAndChecksTheOthers) {
  browser_control browser = makeBrowser();
  selectAll(browser, "T8 58W");
  select(browser, kSlotConfig, "Dual CM");
  browser.StartBrowser(kSlotLamp, 3);
  browser.ListGroup(2);
  browser.SelectSelectionItem(1);
  EXPECT_EQ(browser.GetInfo(kSlotLamp), 3) << "no such position";
  browser.SelectSelectionItem(0);
  EXPECT_EQ(bars[0].GetInfoName(kSlotLamp), "Own Lamp");
  EXPECT_EQ(bars[0].GetInfoName(kSlotConfig), "Single CM") << "this lamp has no dual configuration";
  EXPECT_EQ(value("running_lamp_power"), Variant(20.0F));
}

}  // namespace
}  // namespace vantrel
