#include <gtest/gtest.h>

#include <cmath>
#include <span>
#include <string>
#include <vector>

#include "components/script/script_host.h"
#include "core/fault.h"

namespace vantrel {
namespace {

/// Keeps what a script hands to it.
class Taker : public ScriptObject {
 public:
  Variant call(std::string_view, std::span<const Variant> args) override {
    taken = args.empty() ? Variant() : args.front();
    return {};
  }
  Variant taken;
};

std::string described(const Variant& value) {
  if (value.is_empty() || value.is_null()) return std::string(value.type_name());
  return std::string(value.type_name()) + " " + to_text(value);
}

/// The value of an expression as "Type text", or the text of its fault.
std::string value_of(const std::string& expression, const std::string& before = "") {
  Taker taker;
  ScriptHost host;
  host.addObject("Probe", taker);
  try {
    if (!before.empty()) host.execute(before);
    host.execute("Probe.Take " + expression);
  } catch (const Fault& fault) {
    return fault.what();
  }
  return described(taker.taken);
}

struct Case {
  const char* expression;
  const char* expected;
};

void check(const std::vector<Case>& cases) {
  for (const Case& c : cases) EXPECT_EQ(value_of(c.expression), c.expected) << c.expression;
}

TEST(ScriptExpressions, LiteralsHaveTheNarrowestType) {
  check({{"32767", "Integer 32767"},
         {"32768", "Long 32768"},
         {"2147483647", "Long 2147483647"},
         {"2147483648", "Double 2147483648"},
         {"1.0", "Double 1"},
         {".5", "Double 0.5"},
         {"7.", "Double 7"},
         {"1e3", "Double 1000"},
         {"2.5E-3", "Double 0.0025"},
         {"1e400", "Overflow"},
         {"1e", "Invalid number"},
         {"&H1F", "Integer 31"},
         {"&hffff", "Integer -1"},
         {"&HFFFF&", "Long 65535"},
         {"&H10000", "Long 65536"},
         {"&HFFFFFFFF", "Long -1"},
         {"&H1FFFFFFFF", "Invalid number"},
         {"&O17", "Integer 15"},
         {"\"say \"\"yes\"\"\"", "String say \"yes\""},
         {"\"\"", "String "},
         {"\"it's ; (not\"", "String it's ; (not"},
         {"True", "Boolean True"},
         {"EMPTY", "Empty"},
         {"null", "Null"},
         {"\"open", "Unterminated string constant"}});
}

TEST(ScriptExpressions, PrecedenceAndAssociation) {
  check({{"-2^2", "Double -4"},
         {"2^-1", "Double 0.5"},
         {"2^3^2", "Double 64"},
         {"2+3*4", "Integer 14"},
         {"(2+3)*4", "Integer 20"},
         {"100\\7*2", "Integer 7"},
         {"17 Mod 5*2", "Integer 7"},
         {"17 mod 10\\3", "Integer 2"},
         {"10 Mod 4+1", "Integer 3"},
         {"100/10/5", "Double 2"},
         {"10-4-3", "Integer 3"},
         {"1+2 & 3+4", "String 37"},
         {"\"a\" & 1 = \"a1\"", "Boolean True"},
         {"3 > 2 = True", "Boolean True"},
         {"Not 1 = 2", "Boolean True"},
         {"Not True Or True", "Boolean True"},
         {"True Or False And False", "Boolean True"},
         {"True Xor True Or True", "Boolean False"},
         {"Not Not 5", "Integer 5"},
         {"1 = Not 0", "Boolean False"},
         {"- - -3", "Integer -3"},
         {"2 - -3", "Integer 5"},
         {"+5", "Integer 5"},
         {"-3 Mod 2", "Integer -1"}});
}

TEST(ScriptExpressions, ArithmeticWidensAsItMust) {
  check({{"32767+1", "Long 32768"},
         {"-32767-2", "Long -32769"},
         {"300*300", "Long 90000"},
         {"2147483647+1", "Double 2147483648"},
         {"65536*65536", "Double 4294967296"},
         {"32768-1", "Long 32767"},
         {"-(-32767-1)", "Long 32768"},
         {"1+True", "Integer 0"},
         {"True+True", "Integer -2"},
         {"-True", "Integer 1"},
         {"Empty+Empty", "Integer 0"},
         {"Empty*5", "Integer 0"},
         {"6/3", "Double 2"},
         {"CSng(0.1)+1", "Single 1.1"},
         {"CSng(0.5)+100000", "Double 100000.5"},
         {"CSng(2^127)*4", "Double 6.80564733841877E+38"},
         {"-CSng(1.5)", "Single -1.5"},
         {"1e308*10", "Overflow"},
         {"2^10", "Double 1024"},
         {"(-8)^2", "Double 64"},
         {"(-8)^0.5", "Invalid procedure call or argument"},
         {"0^-1", "Invalid procedure call or argument"},
         {"10^309", "Overflow"},
         {"1/0", "Division by zero"},
         {"0/0", "Overflow"},
         {"Null+1", "Null"},
         {"-Null", "Null"}});
}

TEST(ScriptExpressions, WholeDivisionRoundsItsOperandsHalfToEven) {
  check({{"7\\2", "Integer 3"},
         {"-7\\2", "Integer -3"},
         {"2.5\\1", "Long 2"},
         {"3.5\\1", "Long 4"},
         {"9.6\\10", "Long 1"},
         {"-7 Mod 3", "Integer -1"},
         {"7 Mod -3", "Integer 1"},
         {"10.5 Mod 4", "Long 2"},
         {"70000 Mod 7", "Long 0"},
         {"\"7\"\\2", "Long 3"},
         {"1\\0", "Division by zero"},
         {"1 Mod 0.4", "Division by zero"},
         {"2147483648\\1", "Overflow"},
         {"&H80000000 \\ -1", "Overflow"},
         {"&H80000000 Mod -1", "Long 0"},
         {"Null\\1", "Null"}});
}

TEST(ScriptExpressions, TextsInArithmetic) {
  check({{"\"1\"+\"2\"", "String 12"},
         {"\"1\"+2", "Double 3"},
         {"\"5\"-\"3\"", "Double 2"},
         {"\"2\"*\"3\"", "Double 6"},
         {"-\"5\"", "Double -5"},
         {"\"a\"+Empty", "String a"},
         {"\"abc\"*2", "Type mismatch"},
         {"\"abc\"+2", "Type mismatch"},
         {"\"1,5\"+2", "Type mismatch"},
         {"1 & 2", "String 12"},
         {"0.5 & \"\"", "String 0.5"},
         {"1e20 & \" \" & True", "String 1E+20 True"},
         {"\"a\" & Null", "String a"},
         {"Null & Null", "Null"},
         {"Empty & \"x\"", "String x"},
         {"\"a\"&height", "String a"}});
}

TEST(ScriptExpressions, Comparisons) {
  check({{"1 < 2", "Boolean True"},
         {"2 <= 2.0", "Boolean True"},
         {"3 <> 3", "Boolean False"},
         {"-1 = True", "Boolean True"},
         {"False > True", "Boolean True"},
         {"\"B\" < \"a\"", "Boolean True"},
         {"\"a\" = \"A\"", "Boolean False"},
         {"\"10\" < \"9\"", "Boolean True"},
         {"\"ab\" > \"a\"", "Boolean True"},
         {"1000 < \"1\"", "Boolean True"},
         {"\"5\" = 5", "Boolean False"},
         {"\"1\" >= 1000", "Boolean True"},
         {"Empty = \"\"", "Boolean True"},
         {"Empty = 0", "Boolean True"},
         {"Empty = Empty", "Boolean True"},
         {"Null = Null", "Null"},
         {"1 < Null", "Null"}});
}

TEST(ScriptExpressions, LogicIsBitwiseAndKnowsNull) {
  check({{"12 And 10", "Integer 8"},
         {"12 Or 10", "Integer 14"},
         {"12 Xor 10", "Integer 6"},
         {"Not 0", "Integer -1"},
         {"Not 5", "Integer -6"},
         {"Not 70000", "Long -70001"},
         {"Not 1.5", "Long -3"},
         {"True And False", "Boolean False"},
         {"True And 6", "Integer 6"},
         {"1 And 70000", "Long 0"},
         {"\"True\" And True", "Boolean True"},
         {"\"3\" Or 4", "Long 7"},
         {"\"x\" And 1", "Type mismatch"},
         {"Not Empty", "Integer -1"},
         {"Not Null", "Null"},
         {"Null And True", "Null"},
         {"Null And False", "Boolean False"},
         {"0 And Null", "Integer 0"},
         {"Null Or True", "Boolean True"},
         {"False Or Null", "Null"},
         {"Null Or -1", "Integer -1"},
         {"Null Xor False", "Null"},
         {"3000000000 And 1", "Overflow"}});
}

TEST(ScriptExpressions, NumberFunctions) {
  check({{"Abs(-5)", "Integer 5"},
         {"Abs(\"-2.5\")", "Double 2.5"},
         {"abs(&H8000)", "Long 32768"},
         {"Abs(True)", "Integer 1"},
         {"Abs(Null)", "Null"},
         {"Sgn(-0.1)", "Integer -1"},
         {"Sgn(0)", "Integer 0"},
         {"Sqr(16)", "Double 4"},
         {"Sqr(-1)", "Invalid procedure call or argument"},
         {"Int(-1.5)", "Double -2"},
         {"Int(7)", "Integer 7"},
         {"Int(CSng(2.75))", "Single 2"},
         {"Fix(-1.5)", "Double -1"},
         {"Fix(\"3.9\")", "Double 3"},
         {"Round(2.5)", "Double 2"},
         {"Round(3.5)", "Double 4"},
         {"Round(-2.5)", "Double -2"},
         {"Round(1.005, 2)", "Double 1"},
         {"Round(2.345, 1)", "Double 2.3"},
         {"Round(12345678901.25, 1)", "Double 12345678901.2"},
         {"Round(1e300, 22)", "Double 1E+300"},
         {"Round(7, 3)", "Integer 7"},
         {"Round(1, -1)", "Invalid procedure call or argument"},
         {"Exp(0)", "Double 1"},
         {"Exp(1000)", "Overflow"},
         {"Log(1)", "Double 0"},
         {"Log(0)", "Invalid procedure call or argument"},
         {"Round(Atn(1)*4, 10)", "Double 3.1415926536"},
         {"Round(Sin(Atn(1)*2), 12)", "Double 1"},
         {"Round(Cos(Atn(1)*4), 12)", "Double -1"},
         {"Round(Tan(Atn(1)), 12)", "Double 1"},
         {"Round(Log(Exp(2)), 12)", "Double 2"},
         {"Sqr(Null)", "Invalid use of Null"},
         {"Sqr(\"x\")", "Type mismatch"}});
}

TEST(ScriptExpressions, ConversionFunctions) {
  check({{"CInt(2.5)", "Integer 2"},
         {"CInt(\"3.5\")", "Integer 4"},
         {"CInt(32767.5)", "Overflow"},
         {"CInt(\"x\")", "Type mismatch"},
         {"CInt(Null)", "Invalid use of Null"},
         {"CLng(-40000.5)", "Long -40000"},
         {"CLng(3e9)", "Overflow"},
         {"CSng(0.1)", "Single 0.1"},
         {"CSng(1e39)", "Overflow"},
         {"CDbl(\" 1.5e2 \")", "Double 150"},
         {"CDbl(\"1,5\")", "Type mismatch"},
         {"CStr(1.50)", "String 1.5"},
         {"CStr(False)", "String False"},
         {"CStr(Empty)", "String "},
         {"CStr(0.1+0.2)", "String 0.30000000000000004"},
         {"CBool(2)", "Boolean True"},
         {"CBool(\"false\")", "Boolean False"},
         {"CBool(\"no\")", "Type mismatch"},
         {"IsEmpty(nothing_yet)", "Boolean True"},
         {"IsEmpty(\"\")", "Boolean False"},
         {"IsNull(Null)", "Boolean True"},
         {"IsNumeric(\"1.5E3\")", "Boolean True"},
         {"IsNumeric(\"1.5 V\")", "Boolean False"},
         {"IsNumeric(Empty)", "Boolean True"},
         {"IsNumeric(Null)", "Boolean False"},
         {"FormatNumber(45.25, 1)", "String 45.3"},
         {"FormatNumber(1234.5)", "String 1234.50"},
         {"FormatNumber(2.5, 0)", "String 3"},
         {"FormatNumber(\"0.05\", 3)", "String 0.050"},
         {"FormatNumber(CSng(0.1), 9)", "String 0.100000000"},
         {"FormatNumber(1, 100)", "Invalid procedure call or argument"},
         {"Hex(255)", "String FF"},
         {"Hex(-1)", "String FFFF"},
         {"Hex(CLng(-1))", "String FFFFFFFF"},
         {"Hex(0)", "String 0"},
         {"Hex(15.5)", "String 10"}});
}

TEST(ScriptExpressions, TextFunctions) {
  check({{"Len(\"abc\")", "Long 3"},
         {"Len(1.5)", "Long 3"},
         {"Len(\"4.7 µF\")", "Long 6"},
         {"Len(Null)", "Null"},
         {"Left(\"abc\", 2)", "String ab"},
         {"Left(\"abc\", 9)", "String abc"},
         {"Left(\"µF\", 1)", "String µ"},
         {"Left(\"abc\", -1)", "Invalid procedure call or argument"},
         {"Right(\"abc\", 2)", "String bc"},
         {"Right(\"10 µF\", 2)", "String µF"},
         {"Mid(\"abcdef\", 3)", "String cdef"},
         {"Mid(\"abcdef\", 3, 2)", "String cd"},
         {"Mid(\"aµcd\", 3, 1)", "String c"},
         {"Mid(\"abc\", 7)", "String "},
         {"Mid(\"abc\", 0)", "Invalid procedure call or argument"},
         {"InStr(\"abcabc\", \"ca\")", "Long 3"},
         {"InStr(4, \"abcabc\", \"b\")", "Long 5"},
         {"InStr(\"µF10\", \"1\")", "Long 3"},
         {"InStr(\"abc\", \"B\")", "Long 0"},
         {"InStr(1, \"abc\", \"B\", 1)", "Long 2"},
         {"InStr(2, \"abc\", \"\")", "Long 2"},
         {"InStr(\"\", \"a\")", "Long 0"},
         {"InStr(9, \"abc\", \"a\")", "Long 0"},
         {"InStr(0, \"abc\", \"a\")", "Invalid procedure call or argument"},
         {"InStr(\"abc\", Null)", "Null"},
         {"UCase(\"aBc1\")", "String ABC1"},
         {"LCase(\"aBc1\")", "String abc1"},
         {"\"<\" & Trim(\"  a b  \") & \">\"", "String <a b>"},
         {"\"<\" & LTrim(\"  a  \") & \">\"", "String <a  >"},
         {"\"<\" & RTrim(\"  a  \") & \">\"", "String <  a>"},
         {"Trim(\"   \")", "String "},
         {"Replace(\"a-b-c\", \"-\", \"+\")", "String a+b+c"},
         {"Replace(\"a-b-c\", \"-\", \"\", 1, 1)", "String ab-c"},
         {"Replace(\"abcabc\", \"B\", \"x\", 3, -1, 1)", "String caxc"},
         {"Replace(\"abc\", \"\", \"x\")", "String abc"},
         {"Replace(\"aaa\", \"a\", \"aa\")", "String aaaaaa"},
         {"Replace(Null, \"a\", \"b\")", "Invalid use of Null"},
         {"Chr(65) & Chr(34)", "String A\""},
         {"Chr(181)", "String µ"},
         {"Chr(256)", "Invalid procedure call or argument"},
         {"Asc(\"A\")", "Integer 65"},
         {"Asc(\"µF\")", "Integer 181"},
         {"Asc(\"Ω\")", "Integer 63"},
         {"Asc(\"\")", "Invalid procedure call or argument"}});
}

TEST(ScriptExpressions, FaultsInExpressions) {
  check({{"1 +", "Syntax error"},
         {"* 2", "Syntax error"},
         {"(1", "Expected ')'"},
         {"(1))", "Expected end of statement"},
         {"1 2", "Expected end of statement"},
         {"2 ?", "Invalid character"},
         {"Abs(1, 2)", "Wrong number of arguments or invalid property assignment: 'Abs'"},
         {"LEN", "Wrong number of arguments or invalid property assignment: 'Len'"},
         {"Foo(1)", "Type mismatch: 'Foo'"},
         {"Foo.Bar(1)", "Object required: 'Foo'"},
         {"Probe", "Object doesn't support this property or method: 'Probe'"},
         {"Probe.A(1).B", "Object required: 'Probe.A'"},
         {"While + 1", "Syntax error"},
         {"Left(\"a\",,1)", "Syntax error"}});
}

}  // namespace
}  // namespace vantrel
