#include "calculator_fixture.h"

namespace vantrel::test {
namespace {

using CalculationDriver = CalculatorTest;

TEST_F(CalculationDriver, LogsAWholeRun) {
  target({{"Input", "INPUT:/LINE:"}, {"IC", "IC:"}, {"Config", "CONFIG:"}});
  component("CBUS", {{"Stage", "INPUT:ActivePFC"},
                     {"value", "10"},
                     {"ValueUnit", "uF/F"},
                     {"Rating", "450V"},
                     {"Fixed", true}});
  component("R1, r2", {{"ValueUnit", "Ohm"}, {"CCOutput", true}});
  component("DOPT", {{"RemoveIfNoMatch", true}, {"Desc", "Diode"}});
  describe("CBUS", {{"description", "Capacitor"}});
  describe("R1", {{"MNR", true}});
  describe("R2");
  insert("CC:SourceVariables",
         {{"Variable", "f_run"}, {"Source", "Advanced,run_frequency"}, {"SourceUnits", "Hz"}});
  advanced.field("run_frequency").SetValue(43210);
  callRule("R1", "divide", {"f_run", "k"});
  callRule("R2", "R1", {}, {{"functionisvar", true}});
  callRule("k", "full", {}, {{"Multiple", true}});
  callRule("DOPT", "full", {}, {{"Target", "TV6101"}});

  EXPECT_TRUE(run());
  ASSERT_GT(log.lines().size(), 1U);
  EXPECT_TRUE(log.lines()[0].starts_with("Component calculation for IC TV6103 - "));
  EXPECT_TRUE(log.lines()[0].ends_with(" ... Full BOM : True"));
  const Texts expected = {
      "",
      "Input Stage  : 'INPUT:/LINE:'",
      "IC Stage     : 'IC:'",
      "Config Stage : 'CONFIG:'",
      "",
      "[INPUT: Variables]",
      "Created variable 'CBUS' (index 0)  Type = Fixed",
      "Specified as 10 uF, Set as 0.00001 F (10 uF)",
      "[LINE: Variables]",
      "[IC: Variables]",
      "Created variable 'R1' (index 1)  Type = Variable",
      "Created (no value) - Base Units : Ohm",
      "Created variable 'R2' (index 2)  Type = Variable",
      "Created (no value) - Base Units : Ohm",
      "Created variable 'DOPT' (index 3)  Type = Variable",
      "WARNING : String has no value",
      "[CONFIG: Variables]",
      "Warning: No BOM components for stage 'CONFIG:' in BOM table 'TV6103 BOM' found",
      "",
      "BOM Variable calculations (Iteration 1) ...",
      "",
      "Calculating value for variable 'R1'",
      "Matched with Function divide(f_run, k) [input = '', target = '', config = '']",
      "CC Input variable fetched from field 'Advanced,run_frequency' as 43210 Hz (43.21 KHz)",
      "Required function variable (k) is not currently defined - defining it now as a numeric "
      "variable",
      "Function variable (k) defined at index 5",
      "",
      "Calculating value for variable 'R2'",
      "Matched with Variable 'R1' (input = '', target = '', config = ''",
      "Source variable (R1) does not yet have a value - cannot copy yet",
      "",
      "Calculating value for variable 'DOPT'",
      "Could not match any CC:Calculations entry for variable 'DOPT' - it has been marked for "
      "removal under these conditions",
      "",
      "BOM Variable calculations (Iteration 2) ...",
      "",
      "Calculating value for variable 'R1'",
      "Matched with Function divide(f_run, k) [input = '', target = '', config = '']",
      "Function variable 'k' does not yet have a value - cannot calculate R1 yet",
      "",
      "Calculating value for variable 'R2'",
      "Matched with Variable 'R1' (input = '', target = '', config = ''",
      "Source variable (R1) does not yet have a value - cannot copy yet",
      "",
      "Calculating value for variable 'k'",
      "Matched with Function full() [input = '', target = '', config = '']",
      "Calling function Chip.full ()",
      "Calling function Any.full ()",
      "Results are : Value = 3.3 (Double), Rating = 5 W (String), Tolerance = 1 % (String)",
      "",
      "BOM Variable calculations (Iteration 3) ...",
      "",
      "Calculating value for variable 'R1'",
      "Matched with Function divide(f_run, k) [input = '', target = '', config = '']",
      "Calling function Chip.divide (f_run, k)",
      "Calling function Any.divide (f_run, k)",
      "Results are : Value = 13093.939393939394 (Double)",
      "Match Resistor  : R1 = 13093.939393939394 Ohm Matched To :  13000 Ohm",
      "",
      "Calculating value for variable 'R2'",
      "Matched with Variable 'R1' (input = '', target = '', config = ''",
      "Copied from variable 'R1'"};
  EXPECT_EQ(Texts(log.lines().begin() + 1, log.lines().end()), expected);
  EXPECT_TRUE(takeMessages().empty());
  EXPECT_EQ(bill.lines, (Texts{"Capacitor | 10 uF | 450V |  | CBUS",
                               "Resistor | 13 KOhm |  |  | R1", "Resistor | 13 KOhm |  |  | R2"}));
}

TEST_F(CalculationDriver, NeedsTheRowOfTheIc) {
  target({{"target", "TV6199"}});
  EXPECT_EQ(to_text(details.TargetDetails(kTargetName)), "TV6199");  // kept from now on
  target({{"target", "TV6103"}});
  EXPECT_FALSE(run());
  EXPECT_EQ(takeMessages(), Texts{"Could not find Target:Info for IC 'TV6199' in VTL Database"});
  EXPECT_TRUE(names().empty());
  EXPECT_FALSE(progress.loaded());
}

TEST_F(CalculationDriver, WithoutStagesSucceedsWithAnEmptyBill) {
  target({{"IC", ""}});
  bill.add("left", "over", "", "", "");
  EXPECT_TRUE(run());
  EXPECT_TRUE(bill.lines.empty());
  EXPECT_EQ(bill.clears, 1);
  EXPECT_EQ(logFrom("BOM Variable calculations (Iteration 1) ...").size(), 1U);
}

TEST_F(CalculationDriver, ResolvesAChainAgainstTheOrderOfTheTable) {
  constexpr int kLinks = 200;
  for (int i = 0; i < kLinks; ++i) {
    const std::string name = "R" + std::to_string(i);
    component(name, {{"ValueUnit", "Ohm"}, {"value", i + 1 == kLinks ? "47" : ""}});
    describe(name);
    const std::string next = i + 1 == kLinks ? "seed" : "R" + std::to_string(i + 1);
    callRule(name, next, {}, {{"functionisvar", true}});
  }
  constant("seed", "12");
  EXPECT_TRUE(run());
  // The last one already has a value, so each pass settles one more, and the last pass carries the
  // seed only as far as its neighbour.
  EXPECT_EQ(value("R0"), "Double 47");
  EXPECT_EQ(value("R199"), "Double 12");
  EXPECT_TRUE(logged("BOM Variable calculations (Iteration 199) ..."));
  EXPECT_FALSE(logged("BOM Variable calculations (Iteration 200) ..."));
  EXPECT_EQ(bill.lines.size(), 200U);
}

TEST_F(CalculationDriver, EndsACycleAfterThreeEqualPasses) {
  component("RA, RB, RC", {{"ValueUnit", "Ohm"}});
  for (const char* name : {"RA", "RB", "RC"}) describe(name);
  callRule("RA", "RB", {}, {{"functionisvar", true}});
  callRule("RB", "RA", {}, {{"functionisvar", true}});
  callRule("RC", "full", {});
  bill.add("kept", "", "", "", "");
  EXPECT_FALSE(run());
  EXPECT_FALSE(logged("BOM Variable calculations (Iteration 4) ..."));
  EXPECT_TRUE(logged("BOM Variable calculations (Iteration 3) ..."));
  EXPECT_EQ(logFrom("Processing stopped - missing items are ..."),
            (Texts{"Processing stopped - missing items are ...", "1 ... RA", "2 ... RB", ""}));
  EXPECT_EQ(calculator.findInfoLine(Calculator::kStatusLine)->text,
            "Processing stopped - 2 items missing");
  EXPECT_TRUE(takeMessages().empty());
  EXPECT_EQ(bill.clears, 0);
  EXPECT_FALSE(progress.loaded());
  calculator.CalculateComponents(false, true);
  EXPECT_EQ(calculator.findInfoLine(Calculator::kStatusLine)->text, "");
}

TEST_F(CalculationDriver, VisitsEachVariableOnceBesideRemovedOnes) {
  component("R1, R2, R3, R4, R5", {{"RemoveIfNoMatch", true}, {"ValueUnit", "Ohm"}});
  for (const char* name : {"R1", "R2", "R3", "R4", "R5"}) describe(name);
  callRule("R3", "full", {});
  callRule("R5", "full", {});
  callRule("other", "full", {}, {{"Multiple", true}});
  EXPECT_TRUE(run());
  EXPECT_EQ(names(), (Texts{"R3", "R5"}));
  for (const char* name : {"R1", "R2", "R3", "R4", "R5"}) {
    const std::string line = "Calculating value for variable '" + std::string(name) + "'";
    EXPECT_EQ(std::count(log.lines().begin(), log.lines().end(), line), 1) << name;
  }
  EXPECT_FALSE(logged("BOM Variable calculations (Iteration 2) ..."));
  EXPECT_TRUE(takeMessages().empty());
}

// A fatal rule leaves a count of 0 when it comes last, or while the stages are added.
TEST_F(CalculationDriver, FailsWhateverTheCountOfAStoppedRun) {
  component("R1", {{"ValueUnit", "Ohm"}});
  describe("R1");
  callRule("R1", "unknown_function", {});
  EXPECT_FALSE(run());
  EXPECT_EQ(logFrom("BOM Variable calculations (Iteration 2) ..."),
            (Texts{"BOM Variable calculations (Iteration 2) ...", "",
                   "Processing stopped - missing items are ...", "1 ... R1", ""}));

  database.execute("delete from ComponentDescriptions");
  takeMessages();
  EXPECT_FALSE(run());
  EXPECT_EQ(takeMessages(), Texts{"Could not find component description for RefDes 'R1'"});
  EXPECT_FALSE(logged("BOM Variable calculations (Iteration 1) ..."));
  EXPECT_TRUE(logged("1 ... R1"));
}

TEST_F(CalculationDriver, AFaultyRuleEndsTheRunInItsTrap) {
  component("R1", {{"ValueUnit", "Ohm"}});
  describe("R1");
  rule("R1", {{"SetValueDirectly", true}, {"V0", "5"}, {"V1", "Ohm"}});
  EXPECT_FALSE(run());
  EXPECT_EQ(takeMessages(), Texts{"CalculateComponents Error : Subscript out of range"});
  EXPECT_FALSE(logged("Processing stopped - missing items are ..."));
  EXPECT_FALSE(progress.loaded());
}

TEST_F(CalculationDriver, TakesAChangedRuleAtTheNextRun) {
  component("R1", {{"ValueUnit", "Ohm"}});
  describe("R1");
  callRule("R1", "full", {});
  EXPECT_TRUE(run());
  EXPECT_EQ(value("R1"), "Double 3.3");
  database.execute("update CC:Calculations set Function = 'special', V0 = 'two'");
  constant("two", "2");
  EXPECT_TRUE(run());
  EXPECT_EQ(value("R1"), "Double 7");
}

struct BillCase {
  const char* value;
  const char* unit;
  const char* text;
};

TEST_F(CalculationDriver, WritesBillTexts) {
  const BillCase cases[] = {
      {"4.7", "nF/F", "4.7 nF"},
      {"1.3", "KOhm/Ohm", "1.3 KOhm"},
      {"47", "Ohm", "47 Ohm"},
      {"0.001", "F", "1 mF"},
      {"0.05", "A", "50 mA"},
      {"0.5", "A", "0.5 A"},
      {"0.0000000033", "F", "3.3 nF"},  // 3.3000000000000003 before it is rounded
      {"1234.567", "V", "1.23 KV"},
      {"0.125", "V", "0.12 V"},
      {"N/C", "", "N/C"},
      {"", "Ohm", ""},
      {"0", "V", "0 V"},
  };
  int number = 0;
  Texts expected;
  for (const BillCase& row : cases) {
    const std::string name = "X" + std::to_string(++number);
    component(name, {{"value", row.value}, {"ValueUnit", row.unit}, {"Fixed", true}});
    describe(name, {{"description", "Part"}});
    expected.push_back("Part | " + std::string(row.text) + " |  |  | " + name);
  }
  // The blank one is settled without a value by a rule that does nothing.
  rule("X11", {});
  EXPECT_TRUE(run());
  EXPECT_EQ(bill.lines, expected);
}

TEST_F(CalculationDriver, ShowsMissingFieldsOfASuccessfulRun) {
  int shown = 0;
  missing.showList = [&] { ++shown; };
  EXPECT_TRUE(run());
  EXPECT_EQ(shown, 0);
  component("R1", {{"ValueUnit", "Ohm"}});
  describe("R1");
  // The first rule's input is empty; the run stops, so nothing is shown.
  insert("CC:SourceVariables", {{"Variable", "l"}, {"Source", "Advanced,LValue"}});
  callRule("R1", "l", {}, {{"functionisvar", true}});
  EXPECT_FALSE(run());
  EXPECT_EQ(shown, 0);
  EXPECT_EQ(missing.PrepareToShow(), Texts{"Advanced screen : L"});
}

TEST_F(CalculationDriver, ProgressFollowsTheKindOfRun) {
  component("R1", {{"ValueUnit", "Ohm"}, {"value", "1"}, {"Fixed", true}, {"CCOutput", true}});
  describe("R1");
  EXPECT_TRUE(calculator.CalculateComponents(true, false));
  EXPECT_TRUE(progress.visible());
  EXPECT_EQ(progress.value(), 1);
  timer->fire(100);
  EXPECT_EQ(follow_ups, 1);
  EXPECT_TRUE(calculator.CalculateComponents(false, false));
  EXPECT_FALSE(progress.visible());
  timer->fire(100);
  EXPECT_EQ(follow_ups, 1);
  EXPECT_FALSE(calculator.CalculateComponents(false, true));
  EXPECT_FALSE(progress.loaded());
}

}  // namespace
}  // namespace vantrel::test
