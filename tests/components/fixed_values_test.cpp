#include "components/fixed_values.h"

#include "calculator_fixture.h"
#include "components/input_variables.h"

namespace vantrel::test {
namespace {

/// The parts of an engine that fill single variables, on a table with "X" as index 0 and "Y".
class FixedValuesTest : public CalculatorTest {
 protected:
  FixedValuesTest()
      : context({database, messages, log, details, state, screens, missing, advanced, targets,
                 progress}),
        fixed_values(context),
        inputs(context, fixed_values) {
    context.variables.CreateVariableEntry("X");
    context.variables.CreateVariableEntry("Y");
  }
  std::string held(std::int32_t index) const {
    const VariableEntry& entry = context.entry(index);
    return std::string(entry.value.type_name()) + " " + to_text(entry.value) + " " +
           entry.valueunit;
  }
  void fill(const std::string& value, const std::string& unit, const std::string& code = "") {
    log.clearLines();
    fixed_values.CalculateVariableFromFixed(0, value, unit, "r", "t", code);
  }
  void source(const std::string& variable, Row row) {
    row.insert(row.begin(), {"Variable", variable});
    insert("CC:SourceVariables", row);
    context.rows.clear();
  }

  EngineContext context;
  FixedValues fixed_values;
  InputVariables inputs;
};

TEST_F(FixedValuesTest, ReadsValueAndUnit) {
  const struct {
    const char* value;
    const char* unit;
    const char* held;
    const char* line;
  } cases[] = {
      {"4.7", "nF/F", "Single 0.0000000047 F",
       "Specified as 4.7 nF, Set as 0.0000000047 F (4.7 nF)"},
      {"4.7 or so", " KOhm / Ohm ", "Single 4700 Ohm",
       "Specified as 4.7 or so KOhm, Set as 4700 Ohm (4.7 KOhm)"},
      {"", "nF/F", "Empty  F",
       "Warning! Created (no value, but unit conversion specified) - Base Units : nF/F (nF/F)"},
      {"", "Ohm", "Empty  Ohm", "Created (no value) - Base Units : Ohm"},
      {"0.1", "Ohm", "Double 0.1 Ohm", "Set to base SI value of 0.1 Ohm"},
      {"many", "Ohm", "Double 0 Ohm", "Set to base SI value of 0 Ohm"},
      {"N/C", "", "String N/C ", "Set to string 'N/C'"},
      {"", "", "String  ", "WARNING : String has no value"},
  };
  for (const auto& row : cases) {
    SCOPED_TRACE(row.line);
    context.variables.VEmpty(0);
    context.variables.VSet(0, "ValueUnit", "");
    fill(row.value, row.unit);
    EXPECT_EQ(held(0), row.held);
    EXPECT_EQ(log.lines(), Texts{row.line});
    EXPECT_EQ(context.entry(0).rating, "r");
    EXPECT_EQ(context.entry(0).tolerance, "t");
  }
  EXPECT_TRUE(takeMessages().empty());
}

TEST_F(FixedValuesTest, LooksUpAMissingDescription) {
  const std::string code = "$ \"rating\", \"by script\"";
  describe("R1", {{"description", "Film Resistor"}});
  context.variables.VSet(0, "Reference", "R1");
  fill("1", "Ohm", code);
  EXPECT_EQ(context.entry(0).description, "Film Resistor");
  EXPECT_EQ(context.entry(0).rating, "by script");
  context.variables.VSet(0, "Description", "");
  context.variables.VSet(0, "Reference", "R2");
  fill("1", "Ohm", code);
  EXPECT_TRUE(context.abort);
  EXPECT_EQ(context.entry(0).rating, "r");  // the script is skipped
  EXPECT_EQ(takeMessages(), Texts{"Could not find component description for RefDes 'R2'"});
}

TEST_F(FixedValuesTest, RunsScripts) {
  advanced.field("LValue").SetValue(2.5);
  fill("1", "Ohm",
       " l = #(\"advanced\", \"lvalue\") * 2 ;; $ \"value\", l + 1;$ \"Rating\", \"#1\"; ");
  EXPECT_EQ(held(0), "Double 6 Ohm");
  EXPECT_EQ(context.entry(0).rating, "Calculator.ScriptGetVTLValue1");  // inside quotes too
  fill("1", "Ohm", "$ \"value\", l");                                   // names live on
  EXPECT_EQ(held(0), "Double 5 Ohm");
  EXPECT_TRUE(takeMessages().empty());
}

TEST_F(FixedValuesTest, AFaultyScriptEndsWithItsLine) {
  const std::string error = "CalculateComponents Script error : ";
  const struct {
    const char* code;
    const char* text;
  } cases[] = {
      {"x = 1 / 0;$ \"rating\", \"never\"", "Division by zero\r\nScript line : x = 1 / 0"},
      {"$ \"rating\"; y",
       "Wrong number of arguments or invalid property assignment: 'ScriptSetComponent'\r\nScript "
       "line : Calculator.ScriptSetComponent 0, \"rating\""},
      {"x = 1; Calculator.Show",
       "Object doesn't support this property or method: 'Show'\r\nScript line :  Calculator.Show"},
  };
  for (const auto& row : cases) {
    fill("1", "Ohm", row.code);
    EXPECT_EQ(takeMessages(), Texts{error + row.text});
    EXPECT_EQ(context.entry(0).rating, "r");
    EXPECT_FALSE(context.abort);
  }
}

TEST_F(FixedValuesTest, ScriptsHearOfUnknownScreensAndFields) {
  fill("1", "Ohm", "$ \"value\", #(\"Nowhere\", \"LValue\")");
  EXPECT_EQ(held(0), "Empty  Ohm");
  EXPECT_EQ(takeMessages(),
            (Texts{"Fatal error : ScriptGetVTLValue could not find form Nowhere",
                   "ScriptGetVTLValue : Error (Subscript out of range) form 'Nowhere', control "
                   "'LValue'"}));
  fill("1", "Ohm", "$ \"value\", #(\"Advanced\", \"nothing\")");
  EXPECT_EQ(takeMessages(), Texts{"ScriptGetVTLValue : Error (Unknown field : Advanced.nothing) "
                                  "form 'Advanced', control 'nothing'"});
  fill("1", "Ohm", "$ \"colour\", 1");
  EXPECT_EQ(takeMessages(), Texts{"VSET (0) - unknown field : colour"});
}

TEST_F(FixedValuesTest, ScriptsRunForAVariableOfTheirOwn) {
  const ScratchResult result = calculator.engine().RunOnScratch("$ \"value\", 3");
  EXPECT_TRUE(result.result);
  EXPECT_EQ(result.variable.value.type_name(), "Integer");
  EXPECT_EQ(to_double(result.variable.value), 3);
  EXPECT_FALSE(calculator.engine().RunOnScratch("$").result);
  EXPECT_EQ(calculator.engine().variables().VariableCount(), 0);
}

TEST_F(FixedValuesTest, FetchesInputsFromFields) {
  advanced.field("LValue").SetValue(4.9);
  advanced.field("running_lamp_power").SetValue(28);
  source("l", {{"Source", " Advanced , LValue "}, {"SourceUnits", "H"}});
  source("p", {{"Source", "Advanced,running_lamp_power"}});
  source("input", {{"Source", "Advanced,line_input_schematic"}, {"SourceUnits", "H"}});
  source("Y", {{"Source", "Advanced,running_lamp_power"}});
  const std::int32_t l = inputs.EnsureCCInputVariableHasAValue("l");
  EXPECT_EQ(held(l), "Single 0.0049 H");
  EXPECT_EQ(log.lines(), Texts{"CC Input variable fetched from field 'Advanced , LValue' as 0.0049 "
                               "H (4.9 mH)"});
  EXPECT_EQ(held(inputs.EnsureCCInputVariableHasAValue("p")), "Double 28 W");
  EXPECT_EQ(held(inputs.EnsureCCInputVariableHasAValue("input")), "String ActivePFC ");
  // One that exists without a value is filled.
  EXPECT_EQ(inputs.EnsureCCInputVariableHasAValue("Y"), 1);
  EXPECT_EQ(held(1), "Double 28 W");
  for (const VariableEntry& entry : context.variables.entries()) {
    EXPECT_EQ(entry.fixed, entry.variablename != "X");
  }
  // One with a value is left alone.
  advanced.field("LValue").SetValue(1);
  EXPECT_EQ(inputs.EnsureCCInputVariableHasAValue("l"), l);
  EXPECT_EQ(held(l), "Single 0.0049 H");
  EXPECT_TRUE(takeMessages().empty());
}

TEST_F(FixedValuesTest, TakesConstantsFromRowsWithoutASource) {
  source("k", {{"Source", " "}, {"Value", "2.2"}, {"ValueUnit", "nF/F"}});
  const std::int32_t k = inputs.EnsureCCInputVariableHasAValue("k");
  EXPECT_EQ(held(k), "Single 0.0000000022 F");
  EXPECT_TRUE(context.entry(k).fixed);
  EXPECT_TRUE(inputs.IsVariableACCInputVariable(" k "));
  EXPECT_FALSE(inputs.IsVariableACCInputVariable("K"));
}

TEST_F(FixedValuesTest, TellsWhyAnInputHasNoValue) {
  source("none", {});
  source("one", {{"Source", "Advanced"}});
  source("three", {{"Source", "Advanced,LValue,0"}, {"Value", "1"}});
  source("form", {{"Source", "Nowhere,LValue"}});
  source("empty", {{"Source", "Advanced,LValue"}});
  const std::string invalid = "ERROR: RSSourceVariables record has invalid Source field (";
  const std::pair<const char*, Texts> cases[] = {
      {"missing",
       {"ERROR: Could not find input variable definition 'missing' in CC:SourceVariables"}},
      {"none", {invalid + "none)"}},
      {"one", {invalid + "one)"}},
      {"three", {invalid + "three)"}},
      {"form", {"GetFormIndexFromName: Could not find form 'Nowhere'"}},
      {"empty", {}},
  };
  for (const auto& [name, expected] : cases) {
    EXPECT_EQ(inputs.EnsureCCInputVariableHasAValue(name), -1) << name;
    EXPECT_EQ(takeMessages(), expected) << name;
  }
  EXPECT_EQ(log.lines().back(), "ERROR: Field to create variable from is empty : Advanced, LValue");
  EXPECT_EQ(missing.PrepareToShow(), Texts{"Advanced screen : L"});
  EXPECT_EQ(context.variables.VariableCount(), 2);
}

}  // namespace
}  // namespace vantrel::test
