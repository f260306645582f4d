#include "database/lookup.h"

#include <string>
#include <vector>

#include "core/fault.h"
#include "database_fixture.h"

namespace vantrel::test {
namespace {

class LookupTest : public DatabaseTest {
 protected:
  void SetUp() override {
    open(
        "create table [Lookup:up:T] ([Index] REAL NOT NULL, [value] REAL NOT NULL);"
        "insert into [Lookup:up:T] values (40, 300), (10, 100), (20, 200);"
        "create table [Lookup:down:T] ([Index] REAL NOT NULL, [value] REAL NOT NULL);"
        "insert into [Lookup:down:T] values (1, 8), (2, 4), (4, 2);"
        "create table [Lookup:one:T] ([Index] REAL NOT NULL, [value] REAL NOT NULL);"
        "insert into [Lookup:one:T] values (1, 8);"
        "create table [Lookup:none:T] ([Index] REAL NOT NULL, [value] REAL NOT NULL);"
        "create table [Lookup:step:T] ([Index] REAL NOT NULL, [value] REAL NOT NULL);"
        "insert into [Lookup:step:T] values (1, 8), (1, 9), (2, 10), (2, 11);"
        "create table [Lookup:fine:T] ([Index] REAL NOT NULL, [value] REAL NOT NULL);"
        "insert into [Lookup:fine:T] values (0.1, 1), (0.2, 3.3e38), (0.3, -3.3e38);");
  }

  float at(std::string_view a, float x) {
    warnings.clear();
    return lookup.LookupInterpolate(a, "T", x,
                                    [this](const std::string& line) { warnings.push_back(line); });
  }

  std::vector<std::string> warnings;
  Lookup lookup{database, messages};
};

TEST_F(LookupTest, InterpolatesInsideAndAnchorsOnTheInnerPointOutside) {
  struct Case {
    const char* table;
    float x, expected;
    const char* warning;
  };
  const Case cases[] = {
      {"up", 10, 100, ""},
      {"up", 20, 200, ""},
      {"up", 40, 300, ""},
      {"up", 15, 150, ""},  // as near to 10 as to 20: the earlier one
      {"up", 12, 120, ""},
      {"up", 18, 180, ""},
      {"up", 30, 250, ""},
      {"up", 36, 280, ""},
      {"up", 9, 190, "(9) is below initial table index (10)"},
      {"up", 5, 150, "(5) is below initial table index (10)"},
      {"up", 9.9F, 199, "(9.9) is below initial table index (10)"},
      {"up", 41, 205, "(41) is above initial table index (40)"},
      {"up", 45, 225, "(45) is above initial table index (40)"},
      {"down", 3, 3, ""},
      {"down", 1.5F, 6, ""},
      {"down", 0.5F, 6, "(0.5) is below initial table index (1)"},
      {"down", 5, 3, "(5) is above initial table index (4)"},
  };
  for (const Case& c : cases) {
    EXPECT_FLOAT_EQ(at(c.table, c.x), c.expected) << c.table << " at " << c.x;
    if (std::string_view(c.warning).empty()) {
      EXPECT_TRUE(warnings.empty()) << c.x;
    } else {
      const std::string text = "INTERPOLATION WARNING : Lookup index value ";
      EXPECT_EQ(warnings, std::vector<std::string>{text + c.warning});
    }
  }
  EXPECT_TRUE(messages.shown().empty());
}

TEST_F(LookupTest, ReadsPointsAsSingleAndRoundsOnce) {
  // The end point is the 32-bit 0.1, so the 32-bit 0.1 lies on it, without a warning.
  EXPECT_EQ(at("fine", 0.1F), 1.0F);
  EXPECT_TRUE(warnings.empty());
  // 64-bit steps: the difference of the values alone exceeds 32 bits.
  EXPECT_NEAR(at("fine", 0.25F) / 3.3e38, 0.0, 1e-6);
}

TEST_F(LookupTest, ReportsATableThatCannotBeUsed) {
  const std::pair<const char*, std::string> cases[] = {
      {"missing", "Could not read interpolation data from table : Lookup:missing:T"},
      {"none", "Could not read interpolation data from table : Lookup:none:T"},
      {"up:T] --", "Could not read interpolation data from table : Lookup:up:T] --:T"},
      {"one", "Not enough interpolation values in table ... minimum of 2 required: Lookup:one:T"},
  };
  for (const auto& [table, text] : cases) {
    messages.clear();
    EXPECT_EQ(at(table, 1), 0.0F);
    ASSERT_EQ(messages.shown().size(), 1u) << table;
    EXPECT_EQ(messages.shown().front().text, text);
    EXPECT_TRUE(warnings.empty());
  }
}

TEST_F(LookupTest, AStepOfNoWidthIsAFault) {
  EXPECT_EQ(at("step", 1), 8.0F);
  EXPECT_EQ(at("step", 2), 10.0F);
  EXPECT_THROW(at("step", 0.5F), Fault);
  try {
    at("step", 0.5F);
  } catch (const Fault& fault) {
    EXPECT_STREQ(fault.what(), "Division by zero");
  }
  // Nearest are the two points at 2, the earlier one counts, and the step goes down from it.
  EXPECT_FLOAT_EQ(at("step", 1.9F), 9.9F);
}

TEST_F(LookupTest, ReadsTheTableAfreshAndScales) {
  EXPECT_EQ(at("up", 15), 150.0F);
  database.execute("update [Lookup:up:T] set value = 400 where Index = 20");
  EXPECT_EQ(at("up", 15), 250.0F);
  EXPECT_EQ(lookup.LookupValue("up", "T", 15, 3, 4, {}), 187.5F);
  EXPECT_THROW(lookup.LookupValue("up", "T", 15, 3, 0, {}), Fault);
  database.execute("update [Lookup:up:T] set value = 'text' where Index = 20");
  EXPECT_THROW(at("up", 15), Fault);
}

}  // namespace
}  // namespace vantrel::test
