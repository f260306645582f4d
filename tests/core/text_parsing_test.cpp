#include "core/text_parsing.h"

#include <gtest/gtest.h>

#include "support/fixtures.h"

namespace vantrel {
namespace {

using Lines = std::vector<std::string>;

TEST(Fields, CountAndContent) {
  SysMsg messages;
  EXPECT_EQ(FieldCount("", ','), 1);
  EXPECT_EQ(FieldCount("a,b", ','), 2);
  EXPECT_EQ(FieldCount(",,", ','), 3);
  EXPECT_EQ(FieldCount("\"a,b\"", ','), 2);  // quotes are unknown here
  EXPECT_EQ(GetField("", 1, ',', true, messages), "");
  EXPECT_EQ(GetField("a, b ,c", 2, ',', true, messages), " b ");
  EXPECT_EQ(GetField("a,b", 2, ',', true, messages), "b");
  EXPECT_EQ(GetField("a,", 2, ',', true, messages), "");
  EXPECT_EQ(GetField("a#b#c", 3, '#', true, messages), "c");
  EXPECT_EQ(GetField("a,b", 3, ',', false, messages), "");
  EXPECT_TRUE(messages.shown().empty());
}

TEST(Fields, PastTheLastOneTheBoxNamesEverything) {
  SysMsg messages;
  EXPECT_EQ(GetField("a,b", 3, ',', true, messages), "");
  EXPECT_EQ(GetField("", 2, '#', true, messages), "");
  EXPECT_EQ(GetField("a", 0, ',', true, messages), "");
  ASSERT_EQ(test::texts(messages),
            (Lines{"Could not find field 3 in string 'a,b' with delimiter ','",
                   "Could not find field 2 in string '' with delimiter '#'",
                   "Could not find field 0 in string 'a' with delimiter ','"}));
  EXPECT_EQ(messages.shown().front().title, "Text Parse Error");
}

TEST(Characters, StripAndReplace) {
  EXPECT_EQ(StripCharacter("1'000'000", '\''), "1000000");
  EXPECT_EQ(ReplaceCharacter("O'Brien", '\'', "''"), "O''Brien");
  EXPECT_EQ(ReplaceCharacter("abc", 'x', "y"), "abc");
}

TEST(Characters, CaseAndTrimming) {
  EXPECT_EQ(trimmed(" \ta b\r\n"), "a b");
  EXPECT_EQ(trimmed("   "), "");
  EXPECT_EQ(lower("PhiMax 1"), "phimax 1");
  EXPECT_EQ(upper("PhiMax 1"), "PHIMAX 1");
  EXPECT_TRUE(equal_ignoring_case("LValue", "lvalue"));
  EXPECT_FALSE(equal_ignoring_case("LValue", "LValues"));
  EXPECT_FALSE(equal_ignoring_case("[", "{"));  // differ in the bit that tells the case of letters
}

TEST(NullToTextTest, NullIsEmptyAndTheRestIsTrimmed) {
  EXPECT_EQ(NullToText(Null{}), "");
  EXPECT_EQ(NullToText({}), "");
  EXPECT_EQ(NullToText("  T5 28W "), "T5 28W");
  EXPECT_EQ(NullToText(true), "True");
  EXPECT_EQ(NullToText(0.21F), "0.21");
}

class Script : public ::testing::Test {
 protected:
  SysMsg messages;
  ScriptReader reader{messages};
};

TEST_F(Script, TokensEndAtBlankCommaAndParentheses) {
  reader.ScriptInit("(first second)");
  EXPECT_EQ(reader.ScriptToken("x"), "first");
  EXPECT_EQ(reader.ScriptToken("x"), "second");
  EXPECT_TRUE(messages.shown().empty());
  EXPECT_EQ(reader.ScriptToken(""), "");
  EXPECT_TRUE(messages.shown().empty());
  EXPECT_EQ(reader.ScriptToken("Missing word"), "");
  ASSERT_EQ(test::texts(messages), Lines{"Error : Missing word ((first second))"});
  EXPECT_EQ(messages.shown().front().title, "Error in script");
}

TEST_F(Script, TheDelimiterStaysUnread) {
  reader.ScriptInit("45,  50)");
  EXPECT_EQ(reader.ScriptToken("x"), "45");
  EXPECT_TRUE(reader.ScriptComma(true));
  EXPECT_EQ(reader.ScriptToken("x"), "50");
  EXPECT_FALSE(reader.ScriptComma(false));
  EXPECT_TRUE(messages.shown().empty());
  EXPECT_FALSE(reader.ScriptComma(true));
  EXPECT_TRUE(reader.ScriptChar(')', "Expected )"));
  EXPECT_FALSE(reader.ScriptChar(')', "Expected )"));
  EXPECT_EQ(test::texts(messages),
            (Lines{"Error : Expected comma (45,  50))", "Error : Expected ) (45,  50))"}));
}

TEST_F(Script, CommandsCompareWithWhatIsExpected) {
  reader.ScriptInit("if x");
  EXPECT_EQ(reader.ScriptCommand("if"), "if");
  EXPECT_EQ(reader.ScriptCommand(""), "x");
  EXPECT_TRUE(messages.shown().empty());
  EXPECT_EQ(reader.ScriptCommand("then"), "");
  EXPECT_EQ(test::texts(messages),
            (Lines{"Error : Missing Command (if x)", "Error : Expected then (if x)"}));
  messages.clear();
  reader.ScriptInit("If");
  EXPECT_EQ(reader.ScriptCommand("if"), "If");
  EXPECT_EQ(test::texts(messages), Lines{"Error : Expected if (If)"});
}

TEST_F(Script, StringsBetweenDoubleQuotes) {
  reader.ScriptInit("skipped \"a (b), c\" \"\" rest");
  EXPECT_EQ(reader.ScriptString(), "a (b), c");
  EXPECT_EQ(reader.ScriptString(), "");
  EXPECT_TRUE(messages.shown().empty());
  EXPECT_EQ(reader.ScriptString(), "");
  reader.ScriptInit("\"open");
  EXPECT_EQ(reader.ScriptString("Name"), "");
  reader.ScriptInit("");
  EXPECT_EQ(reader.ScriptString("Name"), "");
  EXPECT_EQ(test::texts(messages),
            (Lines{"Error : Expected String (skipped \"a (b), c\" \"\" rest)",
                   "Error : String Not Delimited (\"open)", "Error : Expected Name"}));
}

}  // namespace
}  // namespace vantrel
