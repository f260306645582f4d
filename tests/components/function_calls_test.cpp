#include "components/function_calls.h"

#include "calculator_fixture.h"

namespace vantrel::test {
namespace {

/// Calls for a variable "X" that holds "as it was" and is not fixed.
class FunctionCallsTest : public CalculatorTest {
 protected:
  FunctionCallsTest()
      : context({database, messages, log, details, state, screens, missing, advanced, targets,
                 progress}),
        functions(context) {
    context.variables.CreateVariableEntry("X");
  }

  bool attempt(const std::string& function, const std::vector<Variant>& values, const Target* own) {
    log.clearLines();
    context.variables.VSet("X", "Value", "as it was");
    context.variables.VSet("X", "Fixed", false);
    context.variables.VSet("X", "Rating", "");
    context.variables.VSet("X", "Tolerance", "");
    return functions.AttemptCalculation(own, &any, 0, function, values, "p");
  }
  /// "type text, rating, tolerance, fixed".
  std::string held() const {
    const VariableEntry& entry = context.entry(0);
    return std::string(entry.value.type_name()) + " " + to_text(entry.value) + ", " + entry.rating +
           ", " + entry.tolerance + ", " + to_text(entry.fixed);
  }

  EngineContext context;
  FunctionCalls functions;
};

struct CallCase {
  const char* function;
  std::vector<Variant> values;
  bool result;
  const char* held;
  Texts lines;
  Texts messages;
};

const std::string kUntouched = "String as it was, , , False";

TEST_F(FunctionCallsTest, StoresResultsAndTellsFailures) {
  const CallCase cases[] = {
      {"chip_sum",
       {1.5, 2.0F},
       true,
       "Double 3.5, , , True",
       {"Calling function Chip.chip_sum (p)", "Results are : Value = 3.5 (Double)"},
       {}},
      // The chip's own one fails as a call, so the generic one answers.
      {"special",
       {0.0},
       true,
       "Long 9, , , True",
       {"Calling function Chip.special (p)", "Calling function Any.special (p)",
        "Results are : Value = 9 (Long)"},
       {}},
      {"special",
       {2.0},
       true,
       "Double 7, , , True",
       {"Calling function Chip.special (p)", "Results are : Value = 7 (Double)"},
       {}},
      {"full",
       {},
       true,
       "Double 3.3, 5 W, 1 %, True",
       {"Calling function Chip.full (p)", "Calling function Any.full (p)",
        "Results are : Value = 3.3 (Double), Rating = 5 W (String), Tolerance = 1 % (String)"},
       {}},
      {"rate",
       {},
       true,
       "String as it was, 2 A, , True",
       {"Calling function Chip.rate (p)", "Calling function Any.rate (p)",
        "Results are : Rating = 2 A (String)"},
       {}},
      {"part",
       {},
       true,
       "String Chip 7, , , True",
       {"Calling function Chip.part (p)", "Calling function Any.part (p)", "Results are : "},
       {}},
      // A bare 32-bit number becomes the 64-bit number of its text and stays open.
      {"tenth",
       {},
       true,
       "Double 0.1, , , False",
       {"Calling function Chip.tenth (p)", "Calling function Any.tenth (p)", "Results are : "},
       {}},
      {"truth",
       {},
       false,
       kUntouched.c_str(),
       {"Calling function Chip.truth (p)", "Calling function Any.truth (p)"},
       {}},
      {"divide",
       {1.0, 0.0},
       false,
       kUntouched.c_str(),
       {"Calling function Chip.divide (p)", "Calling function Any.divide (p)",
        "ERROR: Internal error in function 'divide' (Division by zero)"},
       {"ERROR: Internal error in function 'divide' (Division by zero)"}},
      {"divide",
       {1.0, "2"},
       false,
       kUntouched.c_str(),
       {"Calling function Chip.divide (p)", "Calling function Any.divide (p)",
        "ERROR: Internal error in function 'divide' (Type mismatch)"},
       {"ERROR: Internal error in function 'divide' (Type mismatch)"}},
      {"divide",
       {1.0},
       false,
       kUntouched.c_str(),
       {"Calling function Chip.divide (p)", "Calling function Any.divide (p)",
        "ERROR: Could not find the function 'divide'"},
       {"ERROR: Could not find the function 'divide'"}},
      {"Divide",
       {1.0, 2.0},
       false,
       kUntouched.c_str(),
       {"Calling function Chip.Divide (p)", "Calling function Any.Divide (p)",
        "ERROR: Could not find the function 'Divide'"},
       {"ERROR: Could not find the function 'Divide'"}},
      {"full",
       std::vector<Variant>(10, 1.0),
       false,
       kUntouched.c_str(),
       {"Calling function Chip.full (p)"},
       {"Cannot process this no. of function parameters (10)"}},
      {"bad_rating",
       {},
       false,
       "Double 1, , , True",
       {"Calling function Chip.bad_rating (p)", "Calling function Any.bad_rating (p)",
        "ERROR: Call to function returned a Rating value that wasn't a string"},
       {"ERROR: Call to function returned a Rating value that wasn't a string"}},
      {"bad_tolerance",
       {},
       false,
       kUntouched.c_str(),
       {"Calling function Chip.bad_tolerance (p)", "Calling function Any.bad_tolerance (p)",
        "ERROR: Call to function returned a Tolerance value that wasn't a string"},
       {"ERROR: Call to function returned a Tolerance value that wasn't a string"}},
      {"bad_tag",
       {},
       false,
       kUntouched.c_str(),
       {"Calling function Chip.bad_tag (p)", "Calling function Any.bad_tag (p)",
        "ERROR: Call to function returned UNKNOWN type in results array"},
       {"ERROR: Call to function returned UNKNOWN type in results array"}},
  };
  for (const CallCase& row : cases) {
    SCOPED_TRACE(row.function);
    EXPECT_EQ(attempt(row.function, row.values, &chip), row.result);
    EXPECT_EQ(held(), row.held);
    EXPECT_EQ(log.lines(), row.lines);
    EXPECT_EQ(takeMessages(), row.messages);
  }
}

TEST_F(FunctionCallsTest, WithoutATargetTheGenericOneAnswers) {
  EXPECT_TRUE(attempt("special", {1.0}, nullptr));
  EXPECT_EQ(log.lines().front(), "Calling function Nothing.special (p)");
  EXPECT_EQ(held(), "Long 9, , , True");
}

TEST_F(FunctionCallsTest, AnswersForAVariableOfItsOwn) {
  const std::vector<Variant> arguments = {0.01, 100000.0};
  ComponentEngine& engine = calculator.engine();
  const ScratchResult ramp =
      engine.CallOnScratch(targets.TargetFromNumber(1), "component_CRAMP", arguments);
  EXPECT_TRUE(ramp.result);
  EXPECT_EQ(ramp.variable.value, Variant(0.01 / 100000.0));
  EXPECT_TRUE(ramp.variable.fixed);
  EXPECT_TRUE(logged("Calling function tv6103.component_CRAMP (0.01, 100000)"));
  const ScratchResult choke =
      engine.CallOnScratch(targets.TargetFromNumber(1), "component_L2", {{62.1, 90.0}});
  EXPECT_EQ(choke.variable.rating, "0.7A");
  EXPECT_TRUE(choke.variable.value.is_empty());
  EXPECT_FALSE(engine.CallOnScratch(nullptr, "component_none", {}).result);
  EXPECT_EQ(engine.variables().VariableCount(), 0);
}

}  // namespace
}  // namespace vantrel::test
