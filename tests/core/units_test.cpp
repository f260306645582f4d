#include "core/units.h"

#include <gtest/gtest.h>

#include "support/close.h"
#include "support/fixtures.h"

namespace vantrel {
namespace {

using test::close;
using Lines = std::vector<std::string>;

TEST(SiConversion, ByThePrefixBeforeTheType) {
  SysMsg messages;
  const struct {
    double shown;
    const char* postfix;
    const char* type;
    float base;
  } cases[] = {
      {2, "uH", "H", 2e-6F},     {2, "H", "H", 2},           {2.1, "mH", "H", 2.1e-3F},
      {4.7, "nF", "F", 4.7e-9F}, {100, "pF", "F", 100e-12F}, {45, "KHz", "Hz", 45000},
      {45, "kHz", "Hz", 45000},  {3, "MHz", "Hz", 3e6F},     {3, "k Hz", "Hz", 3000},
      {3, "K Hz", "Hz", 3000},   {3, "M Hz", "Hz", 3e6F},    {5, "Apk", "A", 5},
      {7, "uH", "", 7},
  };
  for (const auto& c : cases) {
    EXPECT_EQ(si_from(c.shown, c.postfix, c.type, messages), c.base) << c.postfix;
    EXPECT_TRUE(close(si_to(double{c.base}, c.postfix, c.type, messages), c.shown, 1e-7))
        << c.postfix;
  }
  EXPECT_TRUE(messages.shown().empty());
}

TEST(SiConversion, FailuresGiveZeroAndTheExactWords) {
  SysMsg messages;
  EXPECT_EQ(si_from(2, "V", "H", messages), 0);
  EXPECT_EQ(si_to(2, "V", "H", messages), 0);
  EXPECT_EQ(si_from(2, "GHz", "Hz", messages), 0);
  EXPECT_EQ(si_to(2, "m H", "H", messages), 0);
  EXPECT_EQ(si_from(2, "mh", "H", messages), 0);  // the type's letters are exact
  EXPECT_EQ(si_from(1e300, "V", "V", messages), 0);
  EXPECT_EQ(test::texts(messages),
            (Lines{"Could not find type (H) in postfix V for si-from conversion",
                   "Could not find type (H) in postfix V for si-to conversion",
                   "Unknown type (G) in postfix GHz for si-from conversion",
                   "Unknown type (m ) in postfix m H for si-to conversion",
                   "Could not find type (H) in postfix mh for si-from conversion",
                   "Overflow for si-from conversion"}));
}

TEST(SiScale, BySizeAndByFix) {
  SysMsg messages;
  const struct {
    double value;
    const char* fix;
    double want;
    const char* letter;
  } cases[] = {
      {0, "", 0, ""},           {0.1, "", 0.1, ""},
      {0.0999, "", 99.9, "m"},  {0.05, "", 50, "m"},
      {0.5, "", 0.5, ""},       {1000, "", 1, "K"},
      {1500, "", 1.5, "K"},     {999.9, "", 999.9, ""},
      {1e6, "", 1, "M"},        {999999, "", 999.999, "K"},
      {1e-3, "", 1, "m"},       {9e-4, "", 900, "u"},
      {1e-6, "", 1, "u"},       {1e-9, "", 1, "n"},
      {9e-10, "", 900, "p"},    {-1500, "", -1.5, "K"},
      {-0.05, "", -50, "m"},    {5, "p", 5e12, "p"},
      {5, "n", 5e9, "n"},       {5, "u", 5e6, "u"},
      {1e-12, "u", 1e-6, "u"},  {1e-12, "m", 1e-9, "m"},
      {1e-12, "M", 1e-18, "M"}, {5, "K", 0.005, "K"},
      {5, "k", 0.005, "K"},     {5e6, "k", 5000, "K"},
      {1e-12, "p", 1, "p"},     {0, "u", 0, ""},
  };
  for (const auto& c : cases) {
    const Variant scaled = si_scale(c.value, c.fix, messages);
    ASSERT_EQ(scaled.type(), Variant::Type::Double);
    EXPECT_TRUE(close(scaled.get<double>(), c.want, 1e-14)) << c.value << " fixed to " << c.fix;
    EXPECT_EQ(si_prefix(c.value, c.fix, messages), c.letter) << c.value << " fixed to " << c.fix;
    EXPECT_TRUE(close(si_scale_single(c.value, c.fix, messages), c.want, 1e-7)) << c.value;
  }
  EXPECT_TRUE(messages.shown().empty());
}

TEST(SiScale, AFixedPrefixLeavesTheRestOfTheTestsRunning) {
  SysMsg messages;
  // 5e6 fixed to "n" ends at its own test; fixed to "m" the same, although the test of "M" holds
  // too.
  EXPECT_EQ(si_prefix(5e6, "n", messages), "n");
  EXPECT_EQ(si_prefix(5e6, "m", messages), "m");
  EXPECT_EQ(si_prefix(5e-12, "k", messages), "K");
}

TEST(SiScale, ASingleIsComparedAndKeptAt32Bits) {
  SysMsg messages;
  const struct {
    float value;
    float want;
    const char* letter;
  } cases[] = {
      {1e-9F, 1, "n"}, {4.7e-9F, 4.7F, "n"}, {1e-6F, 1, "u"}, {0.1F, 0.1F, ""}, {1e-3F, 1, "m"}};
  for (const auto& c : cases) {
    EXPECT_EQ(si_scale(c.value, "", messages), Variant(c.want)) << c.value;
    EXPECT_EQ(si_prefix(c.value, "", messages), c.letter) << c.value;
    EXPECT_EQ(si_scale_single(c.value, "", messages), c.want) << c.value;
  }
}

TEST(SiScale, TextsAndUnknownPrefixes) {
  SysMsg messages;
  EXPECT_EQ(si_scale("10", "q", messages), Variant("10"));
  EXPECT_EQ(si_prefix("10", "q", messages), "");
  EXPECT_EQ(si_prefix(0.0, "q", messages), "");
  EXPECT_TRUE(messages.shown().empty());
  EXPECT_EQ(si_scale(1500.0, "q", messages), Variant(1500.0));
  EXPECT_EQ(si_prefix(1500.0, "kk", messages), "");
  EXPECT_EQ(si_scale_single(1500.0, "G", messages), 1500.0F);
  EXPECT_EQ(test::texts(messages),
            (Lines{"Unknown si scale to fix to : q", "Unknown si scale to fix to : kk",
                   "Unknown si scale to fix to : G"}));
}

TEST(SiUnscale, FromAPrefixedNumber) {
  const struct {
    const char* letter;
    double want;
  } cases[] = {{"p", 47e-12}, {"n", 47e-9}, {"u", 47e-6}, {"m", 47e-3}, {"", 47},
               {"k", 47e3},   {"K", 47e3},  {"M", 47e6},  {"G", 47}};
  for (const auto& c : cases) EXPECT_EQ(si_unscale(47.0, c.letter), Variant(c.want)) << c.letter;
  EXPECT_EQ(si_unscale("47", "n"), Variant("47"));
  EXPECT_EQ(si_unscale(4.7F, "n"), Variant(4.7e-9F));
}

TEST(SiText, NumberPrefixAndUnitInOne) {
  SysMsg messages;
  EXPECT_EQ(si_text(45250, "Hz", "0.0", "", messages), "45.3KHz");
  EXPECT_EQ(si_text(0.0021, "H", "0.00", "", messages), "2.10mH");
  EXPECT_EQ(si_text(0.0021, "H", "0", "u", messages), "2100uH");
  EXPECT_EQ(si_text(0, "H", "0.00", "u", messages), "0H");
  EXPECT_EQ(si_text(0.5, " V", "##.00", "", messages), ".50 V");
}

}  // namespace
}  // namespace vantrel
