#include "calculator_fixture.h"
#include "components/rule_choice.h"

namespace vantrel::test {
namespace {

class RuleMatchingTest : public CalculatorTest {
 protected:
  RuleMatchingTest() {
    component("R1", {{"ValueUnit", "Ohm"}});
    describe("R1");
    constant("k1", "1");
    constant("k2", "2");
    constant("k3", "3");
  }
  /// A rule for R1 that copies one of the constants.
  void copyRule(const std::string& source, Row row = {}) {
    row.push_back({"functionisvar", true});
    callRule("R1", source, {}, row);
  }
};

TEST(RuleChoiceTest, ListsCompareTheItemAsItIsGiven) {
  const struct {
    const char* item;
    const char* list;
    bool found;
  } cases[] = {
      {"SLCM", "SLCM", true},       {" SLCM", "SLCM ", true},
      {"SLCM", "SLVM, SLCM", true}, {"SLCM ", "SLCM, SLVM", false},
      {"SLCM", "slcm", false},      {"SLCM", "slcm,SLVM", false},
      {"SLC", "SLCM,SLC2", false},  {"", "", true},
      {"a,b", "a,b", true},         {"", "a,,b", true},
  };
  for (const auto& row : cases) {
    EXPECT_EQ(IsThisInTheList(row.item, row.list), row.found) << row.item << " in " << row.list;
  }
}

TEST_F(RuleMatchingTest, TheMostSpecificRuleWins) {
  copyRule("k1");
  copyRule("k2", {{"Input", "DCInput,ActivePFC"}});
  copyRule("k3", {{"Target", "TV6103"}, {"Config", "SLVM,SLCM"}});
  EXPECT_TRUE(run());
  EXPECT_EQ(value("R1"), "Double 3");
  state.CurrentConfig = 2;
  EXPECT_TRUE(run());
  EXPECT_EQ(value("R1"), "Double 2");
  advanced.field("line_input_schematic").SetValue("VoltageDoubler");
  EXPECT_TRUE(run());
  EXPECT_EQ(value("R1"), "Double 1");
}

TEST_F(RuleMatchingTest, ATieStopsTheRunEvenBesideAGeneralRule) {
  copyRule("k1");
  copyRule("k2", {{"Input", "ActivePFC"}});
  copyRule("k3", {{"Target", "TV6103"}});
  EXPECT_FALSE(run());
  EXPECT_EQ(takeMessages(), Texts{"ERROR: Could not decide between given CC:Calculations entry for "
                                  "variable 'R1' - it cannot be calculated"});
  // A better rule settles it.
  copyRule("k1", {{"Input", "ActivePFC"}, {"Target", "TV6103"}});
  EXPECT_TRUE(run());
  EXPECT_EQ(value("R1"), "Double 1");
}

TEST_F(RuleMatchingTest, OneMultipleRuleServesItsWholeList) {
  component("R2", {{"ValueUnit", "Ohm"}});
  describe("R2");
  callRule("R3, R2 ,R1", "k2", {}, {{"functionisvar", true}, {"Multiple", true}});
  callRule("R3,R1", "k1", {}, {{"functionisvar", true}});  // no list: not read for R1
  EXPECT_TRUE(run());
  EXPECT_EQ(value("R1"), "Double 2");
  EXPECT_EQ(value("R2"), "Double 2");
}

TEST_F(RuleMatchingTest, AVariableNamedAsTheFieldTakesAnyRule) {
  callRule("Source", "full", {}, {{"Multiple", true}, {"Target", "TV6103"}});
  callRule("R1", "Calculate", {}, {{"functionisvar", true}});
  EXPECT_TRUE(run());
  EXPECT_EQ(value("Calculate"), "Double 3.3");
  EXPECT_EQ(value("R1"), "Double 3.3");
}

TEST_F(RuleMatchingTest, RefetchWalksTheRulesThatWereCounted) {
  for (const char* input : {"a", "b", "c"}) copyRule("k1", {{"Input", input}});
  callRule("R9,R1", "k9", {}, {{"Multiple", true}, {"Input", "d"}});
  callRule("R9", "k9", {}, {{"Multiple", true}, {"Input", "e"}});
  DesignRows rows(database);
  RuleCursor rules = rows.rules().find("R1");
  const RuleChoice choice = choose_rule(rules, "R1", {.ic = "", .input = "d", .config = ""});
  EXPECT_EQ(choice.best_row, 4);
  EXPECT_EQ(choice.best_score, 1);
  ASSERT_TRUE(refetch_rule(rules, "R1", 4));
  EXPECT_EQ(rules.row().input, "d");
  EXPECT_FALSE(refetch_rule(rules, "R1", 5));
  EXPECT_EQ(choose_rule(rules, "R1", {.ic = "", .input = "z", .config = ""}).best_row, -1);
}

TEST_F(RuleMatchingTest, WithoutAnyRuleOfThatNameTheRunStops) {
  EXPECT_FALSE(run());
  EXPECT_EQ(takeMessages(), Texts{"Could not find CC:Calculations entry for variable 'R1' - it "
                                  "cannot be calculated"});
}

TEST_F(RuleMatchingTest, AsksWhetherToGoOnWithoutAFittingRule) {
  copyRule("k1", {{"Target", "TV6101"}});
  const std::string question =
      "ERROR: Could not match any CC:Calculations entry for variable 'R1' - it cannot be "
      "calculated\r\n\r\nDo you wish to continue ?";
  EXPECT_FALSE(run());  // answered No
  EXPECT_EQ(takeMessages(), Texts{question});
  EXPECT_TRUE(logged("BOM Variable calculations (Iteration 2) ..."));
  messages.injectAnswers({kYes, kYes, kYes});
  EXPECT_FALSE(run());
  EXPECT_EQ(takeMessages(), (Texts{question, question, question}));
  messages.injectAnswers({kYes, kClosed});
  EXPECT_FALSE(run());
  EXPECT_EQ(takeMessages().size(), 2U);
}

TEST_F(RuleMatchingTest, AnEmptyFunctionLeavesTheVariableAsItIs) {
  rule("R1", {{"Target", "TV6103"}, {"Config", "SLCM"}});
  EXPECT_TRUE(run());
  EXPECT_EQ(takeMessages(),
            Texts{"WARNING: Matched calculation has empty function field (input = '', target = "
                  "'TV6103', config = 'SLCM' - assuming inital values are OK"});
  EXPECT_EQ(value("R1"), "Empty");
}

TEST_F(RuleMatchingTest, CopiesAreRepeatedAndNotFixed) {
  copyRule("k2");
  EXPECT_TRUE(run());
  EXPECT_FALSE(variable("R1").fixed);
  EXPECT_TRUE(variable("k2").fixed);
  EXPECT_TRUE(logged("Copied from variable 'k2'"));
}

TEST_F(RuleMatchingTest, DefinesWhatACopyNeeds) {
  copyRule("later");
  callRule("later", "full", {});
  EXPECT_TRUE(run());
  EXPECT_EQ(value("R1"), "Double 3.3");
  const Texts lines =
      logFrom("Matched with Variable 'later' (input = '', target = '', config = ''");
  ASSERT_GT(lines.size(), 3U);
  EXPECT_EQ(lines[1],
            "Source variable (later) is not currently defined - defining it now as a numeric "
            "variable");
  EXPECT_EQ(lines[2], "Source variable (later) defined at index 1");
}

TEST_F(RuleMatchingTest, TellsWhichInputCannotBeFetched) {
  insert("CC:SourceVariables", {{"Variable", "l"}, {"Source", "Advanced,LValue"}});
  copyRule("l");
  EXPECT_FALSE(run());
  EXPECT_EQ(takeMessages(), Texts{"ERROR : Could not fetch input variable 'l' "});
  EXPECT_TRUE(logged("ERROR: Field to create variable from is empty : Advanced, LValue"));
  database.execute("delete from CC:Calculations");
  callRule("R1", "chip_sum", {"k1", "l"});
  EXPECT_FALSE(run());
  EXPECT_EQ(takeMessages(), Texts{"ERROR : Could not fetch input variable 'l' "});
}

TEST_F(RuleMatchingTest, CreatesAllMissingParametersInOnePass) {
  callRule("R1", "chip_sum", {"a", "b"});
  callRule("a", "full", {});
  callRule("b", "full", {});
  EXPECT_TRUE(run());
  EXPECT_EQ(value("R1"), "Double 6.6");
  EXPECT_EQ(names(), (Texts{"R1", "a", "b"}));
  EXPECT_TRUE(logged("Function variable (a) defined at index 1"));
  EXPECT_TRUE(logged("Function variable (b) defined at index 2"));
  EXPECT_TRUE(logged("Function variable 'a' does not yet have a value - cannot calculate R1 yet"));
}

TEST_F(RuleMatchingTest, AFailedCallStopsTheRun) {
  callRule("R1", "divide", {"k1", "k2", "k3"});
  EXPECT_FALSE(run());
  EXPECT_EQ(takeMessages(), (Texts{"ERROR: Could not find the function 'divide'",
                                   "ERROR : Call to function 'Chip.divide' FAILED (k1, k2, k3)"}));
}

struct DirectCase {
  std::vector<const char*> parameters;
  const char* value;
  const char* unit;
  const char* rating;
  const char* tolerance;
  const char* fault;
};

TEST_F(RuleMatchingTest, SetsValuesDirectly) {
  const DirectCase cases[] = {
      {{"4.7", "nF/F"}, "", "", "", "", "CalculateComponents Error : Subscript out of range"},
      {{"4.7", "nF/F", "400 V"}, "Single 0.0000000047", "F", "400 V", "", ""},
      {{"47", "Ohm", "-", "5 %"}, "Double 47", "Ohm", "-", "5 %", ""},
  };
  for (const DirectCase& row : cases) {
    SCOPED_TRACE(row.parameters.size());
    database.execute("delete from CC:Calculations");
    Row columns = {{"SetValueDirectly", true}};
    for (std::size_t i = 0; i < row.parameters.size(); ++i) {
      columns.push_back({"V" + std::to_string(i), row.parameters[i]});
    }
    rule("R1", columns);
    const bool sound = *row.fault == '\0';
    EXPECT_EQ(run(), sound);
    EXPECT_EQ(takeMessages(), sound ? Texts{} : Texts{row.fault});
    if (!sound) continue;
    const VariableEntry entry = variable("R1");
    EXPECT_EQ(value("R1"), row.value);
    EXPECT_EQ(entry.valueunit, row.unit);
    EXPECT_EQ(entry.rating, row.rating);
    EXPECT_EQ(entry.tolerance, row.tolerance);
    EXPECT_TRUE(entry.fixed);
  }
}

class InterpolationTest : public RuleMatchingTest {
 protected:
  InterpolationTest() {
    EXPECT_TRUE(database.execute_script(
        "create table [Lookup:A:B] ([Index] REAL, [value] REAL);"
        "insert into [Lookup:A:B] values (10, 100), (20, 200), (40, 300);"));
  }
  void interpolate(const std::vector<std::string>& parameters) {
    database.execute("delete from CC:Calculations");
    callRule("R1", "InterpolateValue", parameters);
  }
};

TEST_F(InterpolationTest, ScalesTheCurve) {
  constant("x", "25");
  interpolate({"x", "A", "B", "3", "2"});  // 225 on the curve
  EXPECT_TRUE(run());
  EXPECT_EQ(value("R1"), "Single 337.5");
  EXPECT_TRUE(variable("R1").fixed);
  EXPECT_TRUE(logged("Matched Interpolation [input = '', target = '', config = '']"));
  EXPECT_TRUE(logged("Results of interpolation, R1 = 337.5"));
  EXPECT_EQ(names(), (Texts{"R1", "x"}));
}

TEST_F(InterpolationTest, WarnsInTheLogOutsideTheCurve) {
  constant("x", "45");
  interpolate({"x", "A", "B", "1", "1"});
  EXPECT_TRUE(run());
  EXPECT_EQ(value("R1"), "Single 225");  // anchored on the inner point
  EXPECT_TRUE(
      logged("INTERPOLATION WARNING : Lookup index value (45) is above initial table index (40)"));
  EXPECT_TRUE(takeMessages().empty());
}

TEST_F(InterpolationTest, FailsInItsOwnWords) {
  constant("x", "15");
  const struct {
    std::vector<std::string> parameters;
    bool result;
    Texts messages;
  } cases[] = {
      {{"x", "A", "B", "1"}, false, {"ERROR : Interpolation requires 3 variables"}},
      {{"x", "A", "B", "1", "1", "1"}, false, {"ERROR : Interpolation requires 3 variables"}},
      {{"x", "A", "C", "1", "1"},
       true,
       {"Could not read interpolation data from table : Lookup:A:C"}},
      {{"x", "A", "B", "1", "0"}, false, {"CalculateComponents Error : Division by zero"}},
      {{"x", "A", "B", "one", "1"}, false, {"CalculateComponents Error : Type mismatch"}},
  };
  for (const auto& row : cases) {
    interpolate(row.parameters);
    EXPECT_EQ(run(), row.result);
    EXPECT_EQ(takeMessages(), row.messages);
  }
}

}  // namespace
}  // namespace vantrel::test
