#include "core/variant.h"

#include <gtest/gtest.h>

#include "core/fault.h"
#include "core/text_parsing.h"

namespace vantrel {
namespace {

const Variant kArray{Variant::Array{1.0, "a"}};

std::string fault_of(const std::function<void()>& action) {
  try {
    action();
  } catch (const Fault& fault) {
    return fault.what();
  }
  return "";
}

TEST(VariantTest, TheConstructorsArgumentDecidesTheType) {
  const struct {
    Variant value;
    const char* name;
    const char* text;
    double number;
    bool truth;
  } cases[] = {
      {Variant(), "Empty", "", 0, false},
      {true, "Boolean", "True", -1, true},
      {false, "Boolean", "False", 0, false},
      {std::int16_t{-7}, "Integer", "-7", -7, true},
      {std::int32_t{70000}, "Long", "70000", 70000, true},
      {0.1F, "Single", "0.1", double{0.1F}, true},
      {0.1, "Double", "0.1", 0.1, true},
      {"0.5", "String", "0.5", 0.5, true},
      {std::string_view("0"), "String", "0", 0, false},
  };
  for (const auto& c : cases) {
    EXPECT_EQ(c.value.type_name(), c.name);
    EXPECT_EQ(to_text(c.value), c.text);
    EXPECT_EQ(to_double(c.value), c.number);
    EXPECT_EQ(to_bool(c.value), c.truth);
  }
  EXPECT_EQ(kArray.type_name(), "Variant()");
  EXPECT_EQ(Variant(Null{}).type_name(), "Null");
  EXPECT_FALSE(Variant(1.0) == Variant(1.0F));
}

TEST(VariantTest, WhatCannotBeConvertedFaults) {
  const struct {
    Variant value;
    const char* want;
  } cases[] = {{Null{}, "Invalid use of Null"},
               {"4.7 uF", "Type mismatch"},
               {"", "Type mismatch"},
               {kArray, "Type mismatch"}};
  for (const auto& c : cases) {
    EXPECT_EQ(fault_of([&] { to_double(c.value); }), c.want);
    EXPECT_EQ(fault_of([&] { to_int32(c.value); }), c.want);
    EXPECT_EQ(fault_of([&] { to_single(c.value); }), c.want);
    EXPECT_EQ(fault_of([&] { to_bool(c.value); }), c.want);
  }
  EXPECT_EQ(fault_of([] { to_text(Null{}); }), "Invalid use of Null");
  EXPECT_EQ(fault_of([] { to_text(kArray); }), "Type mismatch");
  EXPECT_EQ(fault_of([] { to_int16(40000.0); }), "Overflow");
  EXPECT_EQ(fault_of([] { to_int32(1e10); }), "Overflow");
  EXPECT_EQ(fault_of([] { to_single(1e39); }), "Overflow");
}

TEST(VariantTest, ConversionsRoundToEven) {
  EXPECT_EQ(to_int32(2.5), 2);
  EXPECT_EQ(to_int32("3.5"), 4);
  EXPECT_EQ(to_int16(-0.5F), 0);
  EXPECT_EQ(to_int32(true), -1);
  EXPECT_EQ(to_single(Variant(0.1F)), 0.1F);
}

TEST(VariantTest, BooleanTextsInAnyCase) {
  EXPECT_TRUE(to_bool(" TRUE "));
  EXPECT_FALSE(to_bool("false"));
  EXPECT_EQ(fault_of([] { to_bool("Yes"); }), "Type mismatch");
}

}  // namespace
}  // namespace vantrel
