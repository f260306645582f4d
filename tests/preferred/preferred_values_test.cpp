#include "components/preferred/preferred_values.h"

#include <gtest/gtest.h>

#include <cmath>

#include "support/close.h"
#include "support/fixtures.h"

namespace vantrel {
namespace {

using test::close;

enum class Part { Resistor, Capacitor };

Variant find(Part part, double value, std::int32_t series) {
  SysMsg messages;
  const Variant found = part == Part::Resistor ? find_nearest_resistor(value, series, messages)
                                               : find_nearest_capacitor(value, series, messages);
  EXPECT_TRUE(messages.shown().empty());
  return found;
}

TEST(PreferredValues, NearestByHand) {
  const struct {
    Part part;
    double value;
    std::int32_t series;
    double want;
  } cases[] = {
      {Part::Resistor, 1.5, kSeriesE24, 1.5},
      {Part::Resistor, 1.25, kSeriesE24, 1.2},   // as far from 1.3: the lower stays
      {Part::Resistor, 1.35, kSeriesE12, 1.5},   // the double 1.35 lies a hair nearer to 1.5,
      {Part::Capacitor, 1.35, kSeriesE12, 1.2},  // which 32 bits do not tell
      {Part::Resistor, 1.26, kSeriesE24, 1.3},
      {Part::Resistor, 46999, kSeriesE12, 47000},
      {Part::Resistor, 9.5, kSeriesE12, 10},
      {Part::Resistor, 9.5, kSeriesE24, 9.1},
      {Part::Resistor, 9.6, kSeriesE24, 10},
      {Part::Resistor, 5e9, kSeriesE12, 8.2e7},
      {Part::Resistor, 5e9, kSeriesE24, 9.1e7},
      {Part::Resistor, -3, kSeriesE12, 0.001},
      {Part::Resistor, 0, kSeriesE24, 0.001},
      {Part::Capacitor, 4.6e-9, kSeriesE12, 4.7e-9},
      {Part::Capacitor, 1.25, kSeriesE24, 1.2},
      {Part::Capacitor, 3.2e-9, kSeriesE24, 3.3e-9},
      {Part::Capacitor, 3e-12, kSeriesE12, 1e-10},  // nothing lies below 100 pF
      {Part::Capacitor, 5e9, kSeriesE12, 8.2e6},
      {Part::Capacitor, -1, kSeriesE24, 1e-10},
  };
  for (const auto& c : cases) {
    const Variant found = find(c.part, c.value, c.series);
    ASSERT_EQ(found.type(), Variant::Type::Double) << c.value;
    EXPECT_TRUE(close(found.get<double>(), c.want, 1e-12))
        << c.value << " gives " << found.get<double>();
  }
}

TEST(PreferredValues, EverySeriesValueFindsItself) {
  const double e24[] = {1.0, 1.1, 1.2, 1.3, 1.5, 1.6, 1.8, 2.0, 2.2, 2.4, 2.7, 3.0,
                        3.3, 3.6, 3.9, 4.3, 4.7, 5.1, 5.6, 6.2, 6.8, 7.5, 8.2, 9.1};
  for (const Part part : {Part::Resistor, Part::Capacitor}) {
    const int lowest = part == Part::Resistor ? -3 : -10;
    const int highest = part == Part::Resistor ? 7 : 6;
    for (int decade = lowest; decade <= highest; ++decade) {
      for (const double entry : e24) {
        const double value = entry * std::pow(10.0, decade);
        EXPECT_TRUE(close(find(part, value, 24).get<double>(), value, 1e-12)) << value;
      }
    }
  }
}

TEST(PreferredValues, DecadesAreAccumulated) {
  EXPECT_EQ(find(Part::Capacitor, 1e-5, 12).get<double>(), 9.999999999999999e-06);
}

TEST(PreferredValues, ASeriesIsRewrittenAndAcceptedAsSuch) {
  SysMsg messages;
  std::int32_t series = kSeriesE12;
  find_nearest_resistor(1, series, messages);
  EXPECT_EQ(series, 12);
  find_nearest_capacitor(1, series, messages);
  EXPECT_EQ(series, 12);
  series = kSeriesE24;
  find_nearest_capacitor(1, series, messages);
  EXPECT_EQ(series, 24);
  EXPECT_TRUE(messages.shown().empty());
}

TEST(PreferredValues, ABadSeriesIsReportedAndGivesNothing) {
  SysMsg messages;
  std::int32_t series = 6;
  EXPECT_TRUE(find_nearest_resistor(1, series, messages).is_empty());
  EXPECT_TRUE(find_nearest_capacitor(1, series, messages).is_empty());
  EXPECT_EQ(series, 6);
  EXPECT_EQ(test::texts(messages),
            (std::vector<std::string>{"Unknown series parameter in find_nearest_resistor",
                                      "Unknown series parameter in find_nearest_capacitor"}));
}

TEST(PreferredValues, TheRowsDemandBeatsTheOptionAndE12BeatsE24) {
  EXPECT_EQ(ReturnForceTypeBits(" E12 "), 4);
  EXPECT_EQ(ReturnForceTypeBits("e24"), 8);
  EXPECT_EQ(ReturnForceTypeBits("e48"), 0);
  EXPECT_EQ(ReturnForceTypeBits(""), 0);
  EXPECT_EQ(OverrideSeriesBasedOnBitSettings(1, 4), 0);
  EXPECT_EQ(OverrideSeriesBasedOnBitSettings(0, 8), 1);
  EXPECT_EQ(OverrideSeriesBasedOnBitSettings(1, 4 | 8), 0);
  EXPECT_EQ(OverrideSeriesBasedOnBitSettings(1, 1 | 2), 1);
  EXPECT_EQ(OverrideSeriesBasedOnBitSettings(0, 0), 0);
}

}  // namespace
}  // namespace vantrel
