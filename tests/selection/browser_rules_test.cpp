#include "selection_fixture.h"

namespace vantrel {
namespace {

constexpr const char* kGroupTitle = "T8/Linear";

class SelectionRulesTest : public SelectionTest {
 protected:
  void setRule(std::string_view rule) {
    database.execute("update groups set SelectionAllowed = ? where ID = 31", {Variant(rule)});
  }
};

TEST_F(SelectionRulesTest, FaultyRulesAreReportedAndListNothing) {
  const std::string no_mark = "Invalid selection item in field SelectionAllowed of Groups Table : ";
  const std::string no_type = "Could not decode type of SelectionAllowed in Groups table : ";
  const std::string mixed = "There is a mixture of NOT items and OR items in the selection list, ";
  const std::vector<std::pair<const char*, std::string>> cases = {
      {" T5 28W ", no_mark + "T5 28W"},
      {"IC#TV6103,,INPUT#400VDC", no_mark},
      {"!#TV6103", no_type},
      {" line # 400VDC", no_type + "LINE"},
      {"UNKNOWN#x", no_type + "UNKNOWN"},
      {"ic#Nobody's#1", "Could not find Item 'Nobody's#1' In DATA:IC Table (Name or PullDownName)"},
      {"IC#TV6103,!IC#6102,IC#Nobody", mixed + "T8/Linear : 6102 (IC)"},
      {"!LAMP#T5 28W,IC#TV6103,LAMP#T8 36W", mixed + "T8/Linear : T8 36W (LAMP)"},
  };
  browser_control browser = makeBrowser();
  for (const auto& [rule, message] : cases) {
    setRule(rule);
    browser.Setup(kSlotLamp);
    EXPECT_EQ(takeMessages(), Texts{message}) << rule;
    EXPECT_TRUE(browser.GroupList().empty()) << rule;
    EXPECT_TRUE(browser.ValidItems().empty()) << rule;
    EXPECT_EQ(browser.ListedGroup(), -1);
    EXPECT_FALSE(browser.StartBrowser(kSlotLamp, -1)) << rule;
    messages.clear();
  }
  setRule("!IC#TV6108");
  EXPECT_TRUE(browser.StartBrowser(kSlotLamp, -1)) << "a mended rule is read at the next listing";
  EXPECT_EQ(titles(browser), (Texts{"T5/High Efficiency", kGroupTitle, "User/Lamps",
                                    "TC-L/Long Compact", "TC-F/Flat"}));
}

TEST_F(SelectionRulesTest, RulesOfAllTypesDecideTogether) {
  struct Case {
    const char* rule;
    std::int32_t ic, input, lamp;
    bool listed;
  };
  const std::vector<Case> cases = {
      {"", 1, 1, 1, true},
      {"IC#TV6103", 1, 1, 1, true},
      {"IC#TV6103", 2, 1, 1, false},
      {"IC#TV6103", -1, -1, -1, false},
      {"!IC#TV6103", 1, 1, 1, false},
      {"!IC#TV6103", -1, -1, -1, true},
      {"IC#TV6103,ic#6102", 1, 1, 1, true},
      {"IC#TV6103, IC # 6102", 2, 1, 1, true},
      {"IC#TV6103,IC#6102", 6, 1, 1, false},
      {"!IC#TV6103,!IC#TV6102", 2, 1, 1, false},
      {"!IC#TV6103,!IC#TV6102", 6, 1, 1, true},
      {"IC#TV6103,!INPUT#400VDC", 1, 1, 1, true},
      {"IC#TV6103,!INPUT#400VDC", 1, 2, 1, false},
      {"IC#TV6103,!INPUT#400VDC", 2, 1, 1, false},
      {"LAMP#T5-28", 1, 1, 1, true},
      {"LAMP#T5-28", 1, 1, 2, false},
      {"!LAMP#O'Brien", 1, 1, 5, false},
      {"!LAMP#Own Lamp", 1, 1, 4, true},
  };
  for (const Case& c : cases) {
    setRule(c.rule);
    bars[0].SetInfo(kSlotIc, c.ic, "");
    bars[0].SetInfo(kSlotInput, c.input, "");
    bars[0].SetInfo(kSlotLamp, c.lamp, "");
    browser_control browser = makeBrowser();
    browser.Setup(kSlotLamp);
    const Texts listed = titles(browser);
    EXPECT_EQ(std::find(listed.begin(), listed.end(), kGroupTitle) != listed.end(), c.listed)
        << c.rule << " with " << c.ic << ", " << c.input << ", " << c.lamp;
    EXPECT_EQ(takeMessages(), Texts{}) << c.rule;
  }
}

TEST_F(SelectionRulesTest, MissingGroupsAreReported) {
  browser_control browser = makeBrowser();
  browser.Setup(7);
  EXPECT_EQ(browser.CurrentType(), "UNKNOWN");
  database.execute("delete from groups where [Group Type] = 'CONFIG'");
  browser.Setup(kSlotConfig);
  database.execute("drop table groups");
  browser.Setup(kSlotIc);
  const std::string message = "Could not read groups table (or no entries)";
  EXPECT_EQ(takeMessages(), (Texts{message, message, message}));
}

}  // namespace
}  // namespace vantrel
