#include <gtest/gtest.h>

#include "core/number_text.h"

namespace vantrel {
namespace {

TEST(TypedNumber, InTheUnitOfTheField) {
  const struct {
    const char* text;
    const char* unit;
    double want;
  } cases[] = {
      {"45", "KHz", 45},     {"45000", "KHz", 45000}, {"45k", "KHz", 45},    {"45 K", "KHz", 45},
      {"45 kHz", "KHz", 45}, {"45000 Hz", "KHz", 45}, {"0.045M", "KHz", 45}, {"45k", "Hz", 45000},
      {"45k", "", 45000},    {"4.7n", "", 4.7e-9},    {"4.7n", "nF", 4.7},   {"4700p", "nF", 4.7},
      {"4.7 nF", "nF", 4.7}, {"4.7e-9 F", "nF", 4.7}, {"4.7m", "mH", 4.7},   {"4700u", "mH", 4.7},
      {"4.7", "mH", 4.7},    {"2.1 H", "mH", 2100},   {"1,5", "V", 1.5},     {"1.5", "V", 1.5},
      {",5", "V", 0.5},      {"1,000", "V", 1},       {"0.5k", "VDC", 500},  {"500m", "Apk", 0.5},
      {"500m", "Arms", 0.5}, {"10u", "uSec", 10},     {"0.4", "Sec", 0.4},   {"400m", "Sec", 0.4},
      {"90", "Deg", 90},     {"90 deg", "Deg", 90},   {"50%", "%", 50},      {"50", "%", 50},
      {"0.5 mm", "mm", 0.5}, {"500u", "mm", 0.5},     {"12 mm2", "mm2", 12}, {"1e3", "KHz", 1000},
      {"1E-3k", "Hz", 1},    {"-5", "V", -5},         {" 45 ", " KHz ", 45}, {"330", "Ohm", 330},
      {"1M", "Ohm", 1e6},    {"3", "pfx", 3},
  };
  for (const auto& c : cases) {
    EXPECT_EQ(typed_number(c.text, c.unit), c.want) << c.text << " in " << c.unit;
  }
}

TEST(TypedNumber, RefusesWhatHasNoOneMeaning) {
  const struct {
    const char* text;
    const char* unit;
  } cases[] = {
      {"", "V"},      {" ", "V"},     {"abc", "V"}, {"1.000.000", "V"}, {"1,000.5", "V"},
      {"1 000", "V"}, {"nan", "V"},   {"inf", "V"}, {"0x10", "V"},      {"5 A", "V"},
      {"5q", "V"},    {"4k7", ""},    {"5kk", "V"}, {"5 kA", "V"},      {"5k", "%"},
      {"5m", "Deg"},  {"5m", "mm"},   {"5m", "m"},  {"5M", "mm"},       {"5k", "mm2"},
      {"5k", "pfx"},  {"1e999", "V"}, {"k", "V"},   {"5 nFx", "nF"},    {"5e99999999999k", "V"},
      {"1e308k", ""}, {"V", "V"},
  };
  for (const auto& c : cases) {
    EXPECT_FALSE(typed_number(c.text, c.unit).has_value()) << c.text << " in " << c.unit;
  }
}

TEST(TypedNumber, PrefixesMoveThePointExactly) {
  // A multiplication by 1e-9 would miss some of these in the last bit.
  for (int i = 1; i < 1000; ++i) {
    const std::string digits = general_text(i / 100.0);
    EXPECT_EQ(typed_number(digits + "n", "F"), parse_number(digits + "e-9"));
    EXPECT_EQ(typed_number(digits + "n", "nF"), i / 100.0);
    EXPECT_EQ(typed_number(digits + "u", "nF"), parse_number(digits + "e3"));
  }
}

}  // namespace
}  // namespace vantrel
