#include "operating/calculation_warnings.h"

#include <gtest/gtest.h>

namespace vantrel {
namespace {

const std::string kRow1 =
    "The preheat voltage is significantly higher than the Maximum preheat voltage for the selected "
    "lamp";
const std::string kHigher =
    "The running frequency is significantly higher than the ignition frequency.";
const std::string kOption1 =
    "\n1) Manually enter values for L and C to increase FRun higher than FIgn";

struct Case {
  const char* what;
  std::int32_t target;
  bool currentMode;
  float preheat, run, ignition;
  std::string text;
  bool retry = false;
};

TEST(CalculationWarnings, ByTargetAndMode) {
  const Case cases[] = {
      {"clean", 1, true, 341, 45000, 50000, ""},
      {"preheat at the limit", 1, true, 342, 45000, 50000, kRow1},
      {"voltage mode", 1, false, 400, 45000, 50000, ""},
      {"no preheat phase", 5, true, 400, 45000, 50000, ""},
      {"no preheat phase", 9, true, 400, 45000, 50000, ""},
      {"limit of TV6106", 5, true, 0, 70123, 90000,
       "The TV6106 maximum run frequency of 70kHz has been exceeded (70.12 kHz)"},
      {"limit of TV6107", 9, true, 0, 71000, 0,
       "The TV6107 maximum run frequency of 70kHz has been exceeded (71.00 kHz)"},
      {"ignition in reach", 1, true, 0, 45000, 43701, ""},
      {"TV6103", 1, false, 0, 45000, 43700,
       kHigher + "¬This solution cannot be implemented with the TV6103.¬¬Options available:¬" +
           kOption1 + "\n2) Select the TV6101 HVIC that support FRun > FIgn"},
      {"TV6103", 1, true, 0, 45000, 43700,
       kHigher + "¬This solution cannot be implemented with the TV6103.¬¬Options available:¬" +
           kOption1 +
           "\n2) Select the TV6101 HVIC that support FRun > FIgn\n3) Select Voltage Mode Preheat",
       true},
      {"TV6104", 3, false, 0, 45000, 43700,
       kHigher + "¬This solution cannot be implemented with the TV6104.¬¬Options available:¬" +
           kOption1},
      {"TV6104", 3, true, 0, 45000, 43700,
       kHigher + "¬This solution cannot be implemented with the TV6104.¬¬Options available:¬" +
           kOption1 + "\n2) Select Voltage Mode Preheat",
       true},
      {"TV6106", 5, true, 0, 45000, 43700,
       kHigher + " You need to manually enter values for L and C to increase FRun higher than FIgn",
       true},
      {"TV6109", 7, true, 0, 45000, 43700,
       kHigher + "¬This solution cannot be implemented with the TV6109.¬¬Options available:¬" +
           kOption1 + "\n2) Select Voltage Mode Preheat",
       true},
      {"may ignite below run", 0, true, 0, 45000, 0, ""},
      {"may ignite below run", 2, true, 0, 45000, 0, ""},
      {"may ignite below run", 4, true, 0, 45000, 0, ""},
      {"may ignite below run", 8, true, 0, 45000, 0, ""},
      {"may ignite below run", 9, true, 0, 45000, 0, ""},
      {"two at once", 5, false, 0, 70200, 60000,
       "The TV6106 maximum run frequency of 70kHz has been exceeded (70.20 kHz)\n\n" + kHigher +
           " You need to manually enter values for L and C to increase FRun higher than FIgn"},
  };
  for (const Case& c : cases) {
    OperatingBlock block;
    block.VPreheatMax = 340;
    block.VPreheat = c.preheat;
    block.FRun = c.run;
    block.FIgnition = c.ignition;
    block.FBallast = 40000;
    const CalculationWarnings warnings =
        calculation_warnings({block, c.target, c.currentMode, false});
    EXPECT_EQ(warnings.text, c.text) << c.what << " " << c.target;
    EXPECT_EQ(warnings.canRetryVoltageMode, c.retry) << c.what << " " << c.target;
  }
}

}  // namespace
}  // namespace vantrel
