#include "calculator_fixture.h"

namespace vantrel::test {
namespace {

class StageReaderTest : public CalculatorTest {
 protected:
  /// A component that is settled from the start.
  void settled(const std::string& references, Row row = {}) {
    row.insert(row.end(), {{"value", "1"}, {"ValueUnit", "Ohm"}, {"Fixed", true}, {"Desc", "x"}});
    component(references, row);
  }
};

TEST_F(StageReaderTest, TakesRowsThatListPartAndValue) {
  target({{"Input", "INPUT:"}, {"IC", "IC: / EXTRA:"}, {"Config", "CONFIG:"}});
  settled("A", {{"Stage", "INPUT:ActivePFC"}});
  settled("B", {{"Stage", "INPUT:DCInput, IC:TV6103 ,IC:TV6101"}});
  settled("C", {{"Stage", "EXTRA:TV6103"}});
  settled("D", {{"Stage", "CONFIG:SLCM"}});
  settled("E", {{"Stage", "config:SLCM,CONFIG: SLCM,CONFIG:SLVM"}});
  EXPECT_TRUE(run());
  EXPECT_EQ(names(), (Texts{"A", "B", "C", "D"}));
}

TEST_F(StageReaderTest, WithoutFullBomTakesOutputsAndWhatTheyNeed) {
  settled("A");
  settled("B", {{"CCOutput", true}});
  settled("C", {{"CCOutputDependancy", true}});
  EXPECT_TRUE(calculator.CalculateComponents(false, false));
  EXPECT_EQ(names(), (Texts{"B", "C"}));
  EXPECT_TRUE(run());
  EXPECT_EQ(names(), (Texts{"A", "B", "C"}));
}

TEST_F(StageReaderTest, ReportsDuplicatesAndGoesOn) {
  target({{"IC", "IC:/ALSO:"}});
  settled("R1, r2 ,R1");
  settled("R2,R3");
  settled("R4", {{"Stage", "IC:TV6103,ALSO:TV6103"}});
  EXPECT_TRUE(run());
  EXPECT_EQ(names(), (Texts{"R1", "R2", "R3", "R4"}));
  EXPECT_EQ(takeMessages(), (Texts{"Component 'R1' has already been listed in this BOM",
                                   "Component 'R2' has already been listed in this BOM",
                                   "Component 'R4' has already been listed in this BOM"}));
  EXPECT_TRUE(logged("ERROR : Duplicate variable declaration 'R4'"));
}

struct DisallowCase {
  const char* disallow;
  bool kept;
  Texts messages;
};

TEST_F(StageReaderTest, LeavesOutWhatIsDisallowed) {
  const std::string bad = "Invalid entry in disallow field (TV6103 BOM) - '";
  const DisallowCase cases[] = {
      {"IC:TV6103", false, {}},
      {"ic:TV6103", true, {bad + "ic:TV6103' not recognised"}},
      {"IC:tv6103", false, {}},
      {"IC: TV6103", true, {}},
      {"INPUT:ACTIVEPFC", false, {}},
      {"CONFIG:slcm , IC:TV6101", false, {}},
      {"CONFIG:SLVM,INPUT:DCInput,IC:TV6101", true, {}},
      {"IC:TV6103,LAMP:x,y", false, {bad + "LAMP:x' not recognised", bad + "y' not recognised"}},
  };
  for (const DisallowCase& row : cases) {
    SCOPED_TRACE(row.disallow);
    database.execute("delete from [TV6103 BOM]");
    settled("R1", {{"Disallow", row.disallow}});
    EXPECT_TRUE(run());
    EXPECT_EQ(names().size(), row.kept ? 1U : 0U);
    EXPECT_EQ(takeMessages(), row.messages);
  }
}

TEST_F(StageReaderTest, TellsOfEmptyStagesAndTables) {
  settled("R1", {{"Stage", " "}});
  settled("R2");
  EXPECT_TRUE(run());
  EXPECT_EQ(takeMessages(), Texts{"Empty entry in stage field (TV6103 BOM)"});
  EXPECT_EQ(names(), Texts{"R2"});
  target({{"BOMTable", "TV6199 BOM"}});
  EXPECT_TRUE(run());
  EXPECT_TRUE(logged("[IC: table TV6199 BOM] no matching records found"));
  EXPECT_TRUE(logged("Warning: No BOM components for stage 'IC:' in BOM table 'TV6199 BOM' found"));
}

TEST_F(StageReaderTest, FillsAVariableFromItsRow) {
  component("r1", {{"value", "4.7"},
                   {"ValueUnit", "KOhm/Ohm"},
                   {"Rating", "0.5 W"},
                   {"Tolerance", "1 %"},
                   {"Desc", "Resistor"},
                   {"ForceMNR", true},
                   {"RemoveIfNoMatch", true},
                   {"CCOutput", true},
                   {"Fixed", true}});
  EXPECT_TRUE(run());
  const VariableEntry entry = variable("R1");
  EXPECT_EQ(entry.reference, "R1");
  EXPECT_EQ(entry.value, Variant(4700.0F));
  EXPECT_EQ(entry.valueunit, "Ohm");
  EXPECT_EQ(entry.rating, "0.5 W");
  EXPECT_EQ(entry.tolerance, "1 %");
  EXPECT_EQ(entry.description, "Resistor");
  EXPECT_TRUE(entry.fixed && entry.ccoutput && entry.removeifnomatch);
  EXPECT_EQ(entry.flags, 1);
}

TEST_F(StageReaderTest, TakesForcedMatchesFromTexts) {
  ASSERT_TRUE(database.execute_script(
      "create table [Own BOM] (Stage TEXT, RefDes TEXT, Fixed BOOLEAN, Desc TEXT, ForceMNR TEXT,"
      " ForceMNC TEXT);"
      "insert into [Own BOM] values ('IC:TV6103','R1',1,'x',' YES ','no'),"
      " ('IC:TV6103','R2',1,'x','0','-1'), ('IC:TV6103','R3',1,'x','True','true');"));
  target({{"BOMTable", "Own BOM"}});
  EXPECT_TRUE(run());
  EXPECT_EQ(variable("R1").flags, 1);
  EXPECT_EQ(variable("R2").flags, 2);
  EXPECT_EQ(variable("R3").flags, 3);
}

TEST_F(StageReaderTest, OutputsOnlySetsTheShownUnitAndNothingElse) {
  component("R1, C1", {{"value", "4.7"},
                       {"ValueUnit", "KOhm/Ohm"},
                       {"CCOutput", true},
                       {"Rating", "1 W"},
                       {"GeneratorCode", "$ \"rating\", \"never\""}});
  component("R2", {{"CCOutputDependancy", true}});
  component("R3");
  EXPECT_FALSE(calculator.CalculateComponents(false, true));
  EXPECT_EQ(names(), (Texts{"C1", "R1", "R2"}));
  const VariableEntry entry = variable("R1");
  EXPECT_EQ(entry.valueunit, "KOhm");
  EXPECT_TRUE(entry.reference.empty() && entry.rating.empty() && entry.value.is_empty());
  EXPECT_TRUE(takeMessages().empty());
  EXPECT_EQ(bill.clears, 0);
}

}  // namespace
}  // namespace vantrel::test
