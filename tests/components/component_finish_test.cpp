#include "components/component_finish.h"

#include "calculator_fixture.h"

namespace vantrel::test {
namespace {

/// Calculates one component by a rule that copies a constant, and tells what became of it.
class ComponentFinishTest : public CalculatorTest {
 protected:
  std::string matched(const std::string& given, const Row& bom, const Row& description) {
    for (const char* table :
         {"[TV6103 BOM]", "CC:Calculations", "ComponentDescriptions", "[CC:SourceVariables]"}) {
      database.execute("delete from " + std::string(table));
    }
    Row row = bom;
    row.push_back({"ValueUnit", "Ohm"});
    component("X1", row);
    if (!description.empty()) describe("X1", description);
    constant("given", given);
    callRule("X1", "given", {}, {{"functionisvar", true}});
    run();
    return value("X1");
  }
};

struct MatchCase {
  const char* given;
  Row bom;
  Row description;
  const char* value;
  const char* line;
};

TEST_F(ComponentFinishTest, MatchesToTheSeriesThatIsDemanded) {
  const Row forced_resistor = {{"ForceMNR", true}};
  const Row forced_capacitor = {{"ForceMNC", true}};
  // 1250 lies midway between two values of E24; in E12 the nearest is 1200. 1280: 1300 or 1200.
  const MatchCase cases[] = {
      {"1280", {}, {{"MNR", false}}, "Double 1280", ""},
      {"1280",
       {},
       {{"MNR", true}},
       "Double 1300",
       "Match Resistor  : X1 = 1280 Ohm Matched To :  1300 Ohm"},
      {"1280",
       {},
       {{"MNR", true}, {"OverrideSeries", " E12 "}},
       "Double 1200",
       "Match Resistor  : X1 = 1280 Ohm Matched To :  1200 Ohm"},
      {"1280", {}, {{"OverrideSeries", "e12"}}, "Double 1280", ""},
      {"1250",
       {},
       {{"MNR", true}},
       "Double 1200",
       "Match Resistor  : X1 = 1250 Ohm Matched To :  1200 Ohm"},
      {"1280",
       forced_resistor,
       {{"OverrideSeries", "e12"}},
       "Double 1300",
       "Match Resistor  : X1 = 1280 Ohm Matched To :  1300 Ohm"},
      {"1280",
       forced_capacitor,
       {{"MNC", false}},
       "Double 1300",
       "Match Capacitor : X1 = 1280 Ohm Matched To :  1300 Ohm"},
      {"1280",
       {},
       {{"MNC", true}, {"OverrideSeries", "e12"}},
       "Double 1200",
       "Match Capacitor : X1 = 1280 Ohm Matched To :  1200 Ohm"},
      // The resistor match demands E12, the forced capacitor match after it finds nothing to do.
      {"1280",
       forced_capacitor,
       {{"MNR", true}, {"OverrideSeries", "e12"}},
       "Double 1200",
       "Match Capacitor : Match Resistor  : X1 = 1280 Ohm Matched To :  1200 Ohm"},
  };
  for (const MatchCase& row : cases) {
    SCOPED_TRACE(row.line);
    EXPECT_EQ(matched(row.given, row.bom, row.description), row.value);
    const std::string unmatched = "Copied from variable 'given'";
    EXPECT_EQ(log.lines().back(), *row.line == '\0' ? unmatched : row.line);
  }
}

TEST_F(ComponentFinishTest, TheOptionOfTheScreenDecidesOtherwise) {
  calculator.selectSeries(kSeriesE12);
  EXPECT_EQ(matched("1280", {}, {{"MNR", true}}), "Double 1200");
  EXPECT_EQ(matched("1280", {}, {{"MNR", true}, {"OverrideSeries", "e24"}}), "Double 1300");
  EXPECT_EQ(matched("1280", {}, {{"MNR", true}}), "Double 1200");
  calculator.selectSeries(kSeriesE24);
  EXPECT_EQ(matched("1280", {}, {{"MNR", true}}), "Double 1300");
}

// Type names are compared exactly and "single" is none, so no value is rounded to DecPlaces.
TEST_F(ComponentFinishTest, DecimalPlacesRoundNothing) {
  component("X1", {{"ValueUnit", "Ohm"}});
  describe("X1", {{"DecPlaces", 1}});
  ASSERT_TRUE(
      database.execute_script("create table [Lookup:A:B] ([Index] REAL, [value] REAL);"
                              "insert into [Lookup:A:B] values (0, 0), (2, 2.4690)"));
  constant("one", "1");
  callRule("X1", "interpolatevalue", {"one", "A", "B", "1", "1"});
  EXPECT_TRUE(run());
  EXPECT_EQ(value("X1"), "Single 1.2345");
}

TEST_F(ComponentFinishTest, TextsAreNotMatched) {
  component("X1");
  describe("X1", {{"MNR", true}, {"MNC", true}});
  callRule("X1", "part", {});
  EXPECT_TRUE(run());
  EXPECT_EQ(value("X1"), "String Chip 7");
  EXPECT_TRUE(takeMessages().empty());
  EXPECT_EQ(bill.lines, Texts{"Resistor | Chip 7 |  |  | X1"});
}

TEST_F(ComponentFinishTest, ARatingAloneLeavesTheValueToBeMatched) {
  component("X1", {{"value", "1280"}, {"ValueUnit", "Ohm"}});
  describe("X1", {{"MNR", true}});
  callRule("X1", "rate", {});
  EXPECT_TRUE(run());
  EXPECT_EQ(value("X1"), "Double 1300");
  EXPECT_EQ(variable("X1").rating, "2 A");
  EXPECT_TRUE(variable("X1").fixed);
}

TEST_F(ComponentFinishTest, ValuesSetDirectlyAreNotMatched) {
  component("X1", {{"ValueUnit", "Ohm"}, {"Desc", "Own words"}});
  describe("X1", {{"MNR", true}});
  rule("X1", {{"SetValueDirectly", true}, {"V0", "1280"}, {"V1", "Ohm"}, {"V2", "-"}});
  EXPECT_TRUE(run());
  EXPECT_EQ(value("X1"), "Double 1280");
  EXPECT_EQ(variable("X1").description, "Own words");
}

TEST_F(ComponentFinishTest, EveryReferenceNeedsADescription) {
  const Row described = {{"Desc", "Own words"}};
  matched("1280", described, {});
  EXPECT_EQ(takeMessages(), Texts{"Could not find component description for RefDes 'X1'"});
  EXPECT_TRUE(logged("1 ... X1"));
}

}  // namespace
}  // namespace vantrel::test
