#include "core/variable_class.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <random>

#include "support/fixtures.h"

namespace vantrel {
namespace {

using Lines = std::vector<std::string>;

class Variables : public ::testing::Test {
 protected:
  Lines names() const {
    Lines result;
    for (const VariableEntry& entry : table.entries()) result.push_back(entry.variablename);
    return result;
  }
  Lines takeMessages() {
    Lines result = test::texts(messages);
    messages.clear();
    return result;
  }

  SysMsg messages;
  VariableClass table{messages};
};

TEST_F(Variables, CreationTrimsAndRefusesASecondOne) {
  EXPECT_EQ(table.CreateVariableEntry(" A "), 0);
  EXPECT_EQ(table.CreateVariableEntry("a"), 1);
  EXPECT_EQ(table.CreateVariableEntry("A"), 2);
  EXPECT_EQ(table.VariableCount(), 2);
  EXPECT_EQ(names(), (Lines{"A", "a"}));
  EXPECT_EQ(takeMessages(), Lines{"Cannot create variable 'A' as it already exists"});
  EXPECT_EQ(table.VGet("A", "fixed"), Variant(false));
  EXPECT_EQ(table.VGet(std::int32_t{0}, "value"), Variant());
  EXPECT_EQ(table.VGet("A", "Tolerance"), Variant(""));
  table.initialise();
  EXPECT_EQ(table.VariableCount(), 0);
  EXPECT_EQ(table.GetVariableEntryNumber("A"), -1);
  EXPECT_TRUE(messages.shown().empty());
}

TEST_F(Variables, DeletionKeepsTheOrderOfTheRest) {
  for (const char* name : {"C", "A", "B"}) table.CreateVariableEntry(name);
  EXPECT_TRUE(table.DeleteVariableEntry(" C ", -1));
  EXPECT_EQ(names(), (Lines{"A", "B"}));
  EXPECT_EQ(table.GetVariableEntryNumber("B"), 1);
  EXPECT_TRUE(table.DeleteVariableEntry("", 1));
  EXPECT_EQ(names(), Lines{"A"});
  EXPECT_TRUE(messages.shown().empty());
  EXPECT_FALSE(table.DeleteVariableEntry("", -1));
  EXPECT_FALSE(table.DeleteVariableEntry("B", 0));
  EXPECT_FALSE(table.DeleteVariableEntry("", 1));
  EXPECT_EQ(takeMessages(), (Lines{"Cannot delete variable - no variable name or index specified",
                                   "Cannot delete variable - no valid index found",
                                   "Cannot delete variable - no valid index found"}));
  EXPECT_EQ(names(), Lines{"A"});
}

TEST_F(Variables, SortingMovesEntriesWhole) {
  for (const char* name : {"b", "RT", "C10", "C2", "Z"}) {
    table.CreateVariableEntry(name);
    table.VSet(name, "rating", name);
  }
  table.SortVariablesAlphabetically(true);
  EXPECT_EQ(names(), (Lines{"C10", "C2", "RT", "Z", "b"}));
  EXPECT_EQ(table.VGet("RT", "rating"), Variant("RT"));
  EXPECT_EQ(table.GetVariableEntryNumber("b"), 4);
  table.SortVariablesAlphabetically(false);
  EXPECT_EQ(names(), (Lines{"b", "Z", "RT", "C2", "C10"}));
  EXPECT_EQ(table.VGet(std::int32_t{1}, "rating"), Variant("Z"));
}

TEST_F(Variables, SettingConvertsToTheFieldsType) {
  table.CreateVariableEntry("x");
  const struct {
    const char* field;
    Variant given;
    Variant stored;
  } cases[] = {
      {"VALUE", 1.0, 1.0},
      {"value", "text", "text"},
      {"value", 0.1F, 0.1F},
      {"Fixed", -1.0, true},
      {"fixed", "False", false},
      {"reference", 12.5, "12.5"},
      {"rating", {}, ""},
      {"flags", 12.0, std::int32_t{12}},
      {"flags", "8", std::int32_t{8}},
      {"CCOutput", std::int32_t{1}, true},
      {"removeifnomatch", true, true},
      {"description", 0.21F, "0.21"},
  };
  for (const auto& c : cases) {
    EXPECT_TRUE(table.VSet("x", c.field, c.given)) << c.field;
    EXPECT_EQ(table.VGet("x", c.field), c.stored) << c.field;
  }
  EXPECT_TRUE(messages.shown().empty());
}

TEST_F(Variables, AValueThatCannotBeConvertedIsNotStored) {
  table.CreateVariableEntry("x");
  table.VSet("x", "flags", 4.0);
  EXPECT_FALSE(table.VSet("x", "flags", "four"));
  EXPECT_FALSE(table.VSet("x", "flags", 1e12));
  EXPECT_FALSE(table.VSet("x", "rating", Null{}));
  EXPECT_EQ(table.VGet("x", "flags"), Variant(std::int32_t{4}));
  EXPECT_EQ(takeMessages(),
            (Lines{"VSET (x) - Type mismatch : flags", "VSET (x) - Overflow : flags",
                   "VSET (x) - Invalid use of Null : rating"}));
}

TEST_F(Variables, UnknownFieldsAndVariables) {
  table.CreateVariableEntry("x");
  EXPECT_TRUE(table.VSet("x", "Colour", 1.0));
  EXPECT_TRUE(table.VSet("x", "VariableName", "y"));
  EXPECT_FALSE(table.VSet("X", "value", 1.0));
  EXPECT_FALSE(table.VSet(std::int32_t{1}, "value", 1.0));
  EXPECT_EQ(takeMessages(),
            (Lines{"VSET (x) - unknown field : Colour", "VSET (x) - unknown field : VariableName",
                   "VSET (X) - Cannot find this variable to set field : value",
                   "VSET (1) - Cannot find this variable to set field : value"}));
  EXPECT_EQ(table.VGet("x", "variablename"), Variant("x"));
  EXPECT_TRUE(table.VGet("x", "Colour").is_empty());
  EXPECT_TRUE(table.VGet(-1.0, "value").is_empty());
  EXPECT_EQ(takeMessages(), (Lines{"VGET (x) - unknown field : Colour",
                                   "VGET (-1) - Cannot find this variable to get field : value"}));
  EXPECT_EQ(table.VType("x", "fixed"), "");
  EXPECT_EQ(table.VType("y", "value"), "");
  EXPECT_EQ(takeMessages(),
            (Lines{"VTYPE (x) - unknown field : fixed",
                   "VTYPE (y) - Cannot find this variable to get fieldtype : value"}));
  EXPECT_FALSE(table.VEmpty("y"));
  EXPECT_FALSE(table.HasValue("y"));
  EXPECT_FALSE(table.HasValue(Null{}));
  EXPECT_EQ(takeMessages(), (Lines{"VEmpty (y) - Cannot find this variable to empty",
                                   "HasValue (y) - Cannot find this variable",
                                   "HasValue (Null) - Cannot find this variable"}));
}

TEST_F(Variables, TypesOfThePresentValues) {
  table.CreateVariableEntry("x");
  EXPECT_EQ(table.VType("x", "value"), "Empty");
  EXPECT_FALSE(table.HasValue("x"));
  table.VSet("x", "value", 1.5F);
  EXPECT_EQ(table.VType("x", "Value"), "Single");
  EXPECT_TRUE(table.HasValue(" x "));
  EXPECT_EQ(table.VType("x", "variablename"), "String");
  EXPECT_EQ(table.VType("x", "tolerance"), "String");
  EXPECT_EQ(table.VType("x", "flags"), "Long");
  EXPECT_EQ(table.VType("x", "ccoutput"), "Boolean");
  EXPECT_TRUE(table.VEmpty("x"));
  EXPECT_EQ(table.VType("x", "value"), "Empty");
  EXPECT_TRUE(messages.shown().empty());
}

TEST_F(Variables, ANumberIsAnIndexAndATextAName) {
  table.CreateVariableEntry("a");
  table.CreateVariableEntry("0");
  EXPECT_EQ(table.VGet("0", "variablename"), Variant("0"));
  EXPECT_EQ(table.VGet(0.4, "variablename"), Variant("a"));
  EXPECT_EQ(table.VGet(1.5F - 0.9F, "variablename"), Variant("0"));
  EXPECT_EQ(table.VGet(Variant(), "variablename"), Variant("a"));
}

TEST_F(Variables, TheIndexAgreesWithALinearSearchAfterManyChanges) {
  std::mt19937 random(5);
  Lines mirror;
  for (int i = 0; i < 2000; ++i) {
    std::string name = "V";
    name += std::to_string(random() % 60);
    const auto at = std::find(mirror.begin(), mirror.end(), name);
    if (at == mirror.end()) {
      table.CreateVariableEntry(name);
      mirror.push_back(name);
    } else {
      table.DeleteVariableEntry(name, -1);
      mirror.erase(at);
    }
  }
  ASSERT_EQ(names(), mirror);
  for (std::size_t i = 0; i < mirror.size(); ++i) {
    EXPECT_EQ(table.GetVariableEntryNumber(mirror[i]), static_cast<std::int32_t>(i));
  }
  EXPECT_TRUE(messages.shown().empty());
}

}  // namespace
}  // namespace vantrel
