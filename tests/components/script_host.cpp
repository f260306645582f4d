#include "components/script/script_host.h"

#include <gtest/gtest.h>

#include <random>
#include <span>
#include <string>
#include <vector>

#include "core/fault.h"
#include "core/text_parsing.h"

namespace vantrel {
namespace {

using namespace std::string_literals;

/// Writes down every call as "Method(type text, ...)". `Twice` gives its argument doubled, `Name`
/// a text, `Break` fails.
class Recorder : public ScriptObject {
 public:
  Variant call(std::string_view method, std::span<const Variant> args) override {
    std::string line = lower(method) + "(";
    for (const Variant& arg : args) {
      if (line.back() != '(') line += ", ";
      line += std::string(arg.type_name());
      if (!arg.is_null() && !arg.is_empty()) line += " " + to_text(arg);
    }
    calls.push_back(line + ")");
    if (equal_ignoring_case(method, "Set")) return {};
    if (equal_ignoring_case(method, "Name")) return "L1";
    if (equal_ignoring_case(method, "Break")) throw Fault("no such form");
    if (!equal_ignoring_case(method, "Twice")) throw unsupported_member(method);
    if (args.size() != 1) throw wrong_arguments(method);
    return to_double(args[0]) * 2;
  }
  std::vector<std::string> calls;
};

using Calls = std::vector<std::string>;

class ScriptHostTest : public testing::Test {
 protected:
  ScriptHostTest() { host.addObject("Calculator", calculator); }

  /// The fault's text, empty when there was none.
  std::string run(const std::string& statement) { return run(host, statement); }
  static std::string run(ScriptHost& on, const std::string& statement) {
    try {
      on.execute(statement);
    } catch (const Fault& fault) {
      return fault.what();
    }
    return "";
  }
  /// What the statements gave to `Calculator.Set`, or their fault.
  Calls calls_of(const std::string& statement) {
    calculator.calls.clear();
    const std::string fault = run(statement);
    if (!fault.empty()) calculator.calls.push_back(fault);
    return calculator.calls;
  }

  Recorder calculator;
  ScriptHost host;
};

TEST_F(ScriptHostTest, CallsWithAndWithoutParentheses) {
  EXPECT_EQ(calls_of("Calculator.Set 3, \"value\", 4.5"),
            Calls{"set(Integer 3, String value, Double 4.5)"});
  EXPECT_EQ(calls_of("Call Calculator.Set(3, Empty, Null)"), Calls{"set(Integer 3, Empty, Null)"});
  EXPECT_EQ(calls_of("CALL CALCULATOR.SET"), Calls{"set()"});
  EXPECT_EQ(calls_of("calculator.set"), Calls{"set()"});
  EXPECT_EQ(calls_of("Calculator.Set()"), Calls{"set()"});
  EXPECT_EQ(calls_of("Calculator.Set (3)"), Calls{"set(Integer 3)"});
  EXPECT_EQ(calls_of("Calculator.Set (1 + 2) * 3, -1"), Calls{"set(Integer 9, Integer -1)"});
  EXPECT_EQ(calls_of("Calculator.Set (1), (2)"), Calls{"set(Integer 1, Integer 2)"});
  EXPECT_EQ(calls_of("Calculator.Set 1, Calculator.Twice(2) + 1"),
            (Calls{"twice(Integer 2)", "set(Integer 1, Double 5)"}));
  EXPECT_EQ(calls_of("Calculator.Set Calculator.Name & \"!\""),
            (Calls{"name()", "set(String L1!)"}));
  EXPECT_EQ(calls_of("Calculator.Set(1, 2)"), Calls{"Cannot use parentheses when calling a Sub"});
  EXPECT_EQ(calls_of("Call Calculator.Set 1"), Calls{"Expected end of statement"});
}

TEST_F(ScriptHostTest, VariablesLiveFromStatementToStatement) {
  EXPECT_EQ(run("x = 5"), "");
  EXPECT_EQ(run("Let Y = X * 2 : Dim z, x"), "");
  EXPECT_EQ(calls_of("Calculator.Set X, y, z"), Calls{"set(Integer 5, Integer 10, Empty)"});
  EXPECT_EQ(run("y = 1 : y = y / 0 : y = 3"), "Division by zero");
  EXPECT_EQ(calls_of("Calculator.Set y"), Calls{"set(Integer 1)"});
  EXPECT_EQ(run("y = 7 : y = )"), "Syntax error");
  EXPECT_EQ(calls_of("Calculator.Set y"), Calls{"set(Integer 1)"}) << "nothing runs of a bad text";
  host.reset();
  EXPECT_EQ(calls_of("Calculator.Set x, y"), Calls{"set(Empty, Empty)"});
}

TEST_F(ScriptHostTest, SeparatorsAndComments) {
  EXPECT_EQ(calls_of(": x = 1 ::x = x + 1: Calculator.Set x:"), Calls{"set(Integer 2)"});
  EXPECT_EQ(calls_of("Calculator.Set \"it's\" ' a \"remark : x = )"), Calls{"set(String it's)"});
  EXPECT_EQ(calls_of("Rem Calculator.Set 1 : (("), Calls{});
  EXPECT_EQ(calls_of("rem one\r\nCalculator.Set 1\nCalculator.Set 2 ' two\r\n"),
            (Calls{"set(Integer 1)", "set(Integer 2)"}));
  EXPECT_EQ(calls_of(" \t"), Calls{});
}

TEST_F(ScriptHostTest, IfOnOneLine) {
  const auto results = [this](const std::string& statement, const std::string& setup) {
    EXPECT_EQ(run("r = \"\" : " + setup), "");
    EXPECT_EQ(run(statement), "") << statement;
    return calls_of("Calculator.Set r");
  };
  const std::string both = "If a Then r = r & 1 : r = r & 2 Else r = r & 3 : r = r & 4";
  EXPECT_EQ(results(both, "a = True"), Calls{"set(String 12)"});
  EXPECT_EQ(results(both, "a = 0"), Calls{"set(String 34)"});
  EXPECT_EQ(results(both, "a = Null"), Calls{"set(String 34)"});
  EXPECT_EQ(results(both, "a = \"true\""), Calls{"set(String 12)"});
  EXPECT_EQ(results(both + " End If : r = r & 5", "a = True"), Calls{"set(String 125)"});
  EXPECT_EQ(results("if a then r = 1\nr = r & 2", "a = False"), Calls{"set(String 2)"});

  const std::string nested = "If a Then If b Then r = 1 Else r = 2 Else r = 3";
  EXPECT_EQ(results(nested, "a = True : b = True"), Calls{"set(Integer 1)"});
  EXPECT_EQ(results(nested, "a = True : b = False"), Calls{"set(Integer 2)"});
  EXPECT_EQ(results(nested, "a = False : b = True"), Calls{"set(Integer 3)"});
  EXPECT_EQ(calls_of("If 1 > 2 Then Calculator.Set 1 Else Calculator.Set \"no\", 2"),
            Calls{"set(String no, Integer 2)"});
}

TEST_F(ScriptHostTest, FaultsBearTheLanguagesTexts) {
  const std::vector<std::pair<std::string, std::string>> cases = {
      {"x = \"a\" * 2", "Type mismatch"},
      {"x = CInt(40000)", "Overflow"},
      {"x =", "Syntax error"},
      {"x = \"abc", "Unterminated string constant"},
      {"x = 1 # 2", "Invalid character"},
      {"x = " + std::string(256, 'a'), "Identifier too long"},
      {"5", "Expected statement"},
      {"x", "Type mismatch: 'x'"},
      {"x 1, 2", "Type mismatch: 'x'"},
      {"x(1) = 2", "Type mismatch: 'x'"},
      {"Len = 5", "Illegal assignment: 'Len'"},
      {"Calculator = 5", "Illegal assignment: 'Calculator'"},
      {"Dim Calculator", "Illegal assignment: 'Calculator'"},
      {"Dim x, X", "Name redefined"},
      {"Dim 1", "Expected identifier"},
      {"Let x 1", "Expected '='"},
      {"Call 1", "Expected identifier"},
      {"For i = 1 To 3", "Syntax error"},
      {"Else", "Syntax error"},
      {"If 1 x = 2", "Expected 'Then'"},
      {"If 1 Then", "Expected 'End'"},
      {"If 1 Then x = 1 ElseIf 2 Then x = 2", "Expected end of statement"},
      {"If 1 Then x = 1 End", "Expected 'If'"},
      {"If \"maybe\" Then x = 1", "Type mismatch"},
      {"Calculator.Twist 1", "Object doesn't support this property or method: 'Twist'"},
      {"Calculator.Twice", "Wrong number of arguments or invalid property assignment: 'Twice'"},
      {"Calculator.Value = 1", "Object doesn't support this property or method: 'Value'"},
      {"Calculator.Value(2) = 1", "Object doesn't support this property or method: 'Value'"},
      {"Calculator", "Object doesn't support this property or method: 'Calculator'"},
      {"Calculator.", "Expected identifier"},
      {"Nobody.Value 1", "Object required: 'Nobody'"},
      {"Nobody.Value = 1", "Object required: 'Nobody'"},
      {"x = Calculator.Break", "no such form"},
      {"x = CreateObject(\"Scripting.FileSystemObject\")", "Type mismatch: 'CreateObject'"},
  };
  for (const auto& [statement, text] : cases) EXPECT_EQ(run(statement), text) << statement;
}

TEST_F(ScriptHostTest, NestingIsBounded) {
  constexpr std::size_t kDeep = 100'000;
  const std::string many_open(kDeep, '(');
  const std::string many_closed(kDeep, ')');
  EXPECT_EQ(run("x = " + many_open + "1" + many_closed), "Out of stack space");
  EXPECT_EQ(run("Calculator.Set " + many_open + "1" + many_closed), "Out of stack space");
  EXPECT_EQ(run("x = " + many_open), "Out of stack space");

  std::string calls = "x = ";
  std::string ifs;
  std::string powers = "x = 1";
  for (int i = 0; i < 5'000; ++i) {
    calls += "Abs(";
    ifs += "If 1 Then ";
    powers += "^-(2";
  }
  EXPECT_EQ(run(calls), "Out of stack space");
  EXPECT_EQ(run(ifs + "x = 1"), "Out of stack space");
  EXPECT_EQ(run(powers), "Out of stack space");

  const std::string open(100, '(');
  const std::string closed(100, ')');
  EXPECT_EQ(run("x = " + open + "1" + closed), "");
  EXPECT_EQ(run("x = " + std::string(100'000, '-') + "1 : Calculator.Set x"), "");
  EXPECT_EQ(calculator.calls.back(), "set(Integer 1)");
}

TEST_F(ScriptHostTest, LongChainsNeedNoStack) {
  std::string sum = "x = 0";
  for (int i = 0; i < 50'000; ++i) sum += "+1";
  EXPECT_EQ(calls_of(sum + " : Calculator.Set x"), Calls{"set(Long 50000)"});
}

TEST_F(ScriptHostTest, TextsVariablesAndWorkAreBounded) {
  EXPECT_EQ(run("x = \"0123456789abcdef\""), "");
  for (int doubled = 16; doubled < 65'536; doubled *= 2) EXPECT_EQ(run("x = x & x"), "");
  EXPECT_EQ(run("y = x & \"!\""), "Out of string space");
  EXPECT_EQ(run("y = Replace(x, \"0\", x)"), "Out of string space");
  EXPECT_EQ(calls_of("Calculator.Set Len(x), IsEmpty(y)"), Calls{"set(Long 65536, Boolean True)"});

  std::string copies;
  for (int i = 0; i < 1'000; ++i) copies += "y = x : ";
  EXPECT_EQ(run(copies), "Script timed out");
  EXPECT_EQ(run("y = InStr(x & \"\", Left(x, 32767) & \"!\")"), "Script timed out");
  EXPECT_EQ(run("x = " + std::string(300'000, ' ') + "1"), "Out of memory");

  ScriptLimits limits;
  limits.steps = 12;
  limits.variables = 2;
  ScriptHost small(limits);
  EXPECT_EQ(run(small, "a = 1 + 2 : b = 3 : a = b"), "");
  EXPECT_EQ(run(small, "c = 4"), "Out of memory");
  EXPECT_EQ(run(small, "a = 1+1+1+1+1+1+1+1"), "Script timed out");
  EXPECT_EQ(run(small, "b = a"), "");
}

// Damaged statements end in a Fault or run; nothing else leaves the host.
TEST_F(ScriptHostTest, DamagedStatementsDoNoHarm) {
  const std::vector<std::string> seeds = {
      "Calculator.Set 12, \"value\", Calculator.Twice(\"3.5\") * 1e3 ^ -2 Mod 7",
      "If Not IsNull(x) And Len(x & \"é\") >= &H1F Then Let x = Mid(x, 2, 3) Else Dim y, z ' end",
      "x = Replace(Round(1.005, 2), \".\", Chr(181)) : Call Calculator.Name() : y = -(3 \\ 2) Xor "
      "5",
  };
  const std::string spice = "()\"'.,:=<>+-*/\\^&#\0\n\xC3\xFF 09eEhHx_"s;
  std::mt19937 random(20240611);
  const auto below = [&random](std::size_t n) { return random() % n; };
  std::size_t faults = 0;
  for (int round = 0; round < 20'000; ++round) {
    std::string statement = seeds[below(seeds.size())];
    for (std::size_t changes = 1 + below(6); changes > 0; --changes) {
      const std::size_t place = below(statement.size());
      switch (below(3)) {
        case 0:
          statement[place] = spice[below(spice.size())];
          break;
        case 1:
          statement.erase(place, 1 + below(4));
          break;
        default:
          statement.insert(place, statement.substr(below(statement.size()), below(9)));
      }
    }
    if (!run(statement).empty()) ++faults;
    calculator.calls.clear();
  }
  EXPECT_GT(faults, 10'000U);
  EXPECT_LT(faults, 20'000U);
}

}  // namespace
}  // namespace vantrel
