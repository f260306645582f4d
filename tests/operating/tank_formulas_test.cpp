#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <string>
#include <vector>

#include "core/fault.h"
#include "operating/tank_calculator.h"

namespace vantrel {
namespace {

class TankFormulas : public ::testing::Test {
 protected:
  TankFormulas() { calculator.SelectTarget(0); }
  float call(std::string_view name, const std::vector<float>& arguments) {
    calculator.CalculationFailed = false;
    return calculator.CalculateResult(name, std::span<const float>(arguments));
  }
  std::vector<std::string> texts() const {
    std::vector<std::string> all;
    for (const Message& message : messages.shown()) all.push_back(message.text);
    return all;
  }

  SysMsg messages;
  RunState state;
  TargetFactory factory{messages, state};
  TankCalculator calculator{factory, messages};
};

constexpr float kL = 0.0053F;
constexpr float kC = 3.3e-9F;

// Worked out with 40 decimal digits from the physical relations, the two ten-digit circle constants
// and the 32-bit arguments (and, where a formula keeps a 32-bit step, that step).
TEST_F(TankFormulas, AgreeWithHighPrecisionValues) {
  calculator.SelectTarget(2);
  const struct {
    const char* name;
    std::vector<float> arguments;
    double expected;
  } cases[] = {
      {"calculate_resonance", {kC, kL}, 38056.183269},
      {"calculate_preheat_voltage", {500, kL, kC, 0.21F}, 249.482833546},
      {"calculate_preheat_frequency", {0.21F, kC, 249.5F}, 57398.9999267},
      {"calculate_ignition_frequency", {250, 700, kL, kC}, 45900.3703735},
      {"calculate_ignition_current", {45900, kC, 700}, 0.666199865317},
      {"calculate_lamp_resistance", {236, 28}, 994.571428571},
      {"calculate_run_frequency", {kL, kC, 0, 500, 236, 28}, 40142.0073491},
      {"calculate_min_run_frequency", {kL, kC, 0, 0, 28, 0.1F, 307, 500}, 54238.6865891},
      {"calculate_phimax", {kL, kC, 40.1F, 28, 236}, -55.1074014317},
      {"calculate_phimin", {kL, kC, 54, 0.1F, 28, 307}, -87.0191753806},
      // 9 x 5 / (2 sqrt(2) pi^2 7)
      {"calculate_l", {3, 5, 2, 7}, 0.230287165755},
  };
  for (const auto& c : cases) {
    const float expected = static_cast<float>(c.expected);
    EXPECT_FLOAT_EQ(call(c.name, c.arguments), expected) << c.name;
    EXPECT_FALSE(calculator.CalculationFailed) << c.name;
  }
  EXPECT_TRUE(messages.shown().empty());
}

// |H| of L in series with C parallel to R, times the half-bridge's first harmonic, is the lamp's
// voltage at the run frequency. Uses the exact circle constant.
double lamp_voltage(double l, double c, double r, double bus, double f) {
  const double w = 2 * M_PI * f;
  const double real = 1 - w * w * l * c;
  const double imaginary = w * l / r;
  return 2 * bus / M_PI / std::sqrt(real * real + imaginary * imaginary);
}

TEST_F(TankFormulas, RunFrequenciesSolveTheLoadedTank) {
  calculator.SelectTarget(8);
  const struct {
    float l, c, bus, voltage, power;
  } cases[] = {{0.0053F, 3.3e-9F, 500, 236, 28},
               {0.002F, 8.2e-9F, 400, 140, 58},
               {0.001F, 1e-8F, 320, 100, 100},
               {0.0031F, 4.7e-9F, 200, 120, 18}};
  for (const auto& c : cases) {
    const double r = static_cast<double>(c.voltage) * c.voltage / (2.0 * c.power);
    const float run = call("calculate_run_frequency", {c.l, c.c, 0, c.bus, c.voltage, c.power});
    ASSERT_GT(run, 0);
    EXPECT_NEAR(lamp_voltage(c.l, c.c, r, c.bus, run) / c.voltage, 1, 1e-5);
    const float dimmed =
        call("calculate_min_run_frequency", {c.l, c.c, 0, 0, 2 * c.power, 0.5F, c.voltage, c.bus});
    EXPECT_NEAR(lamp_voltage(c.l, c.c, r, c.bus, dimmed) / c.voltage, 1, 1e-5);
  }
}

// The preheat current through the capacitor at the preheat frequency gives the preheat voltage.
TEST_F(TankFormulas, PreheatValuesBelongTogether) {
  const float voltage = call("calculate_preheat_voltage", {500, kL, kC, 0.21F});
  const double f = call("calculate_preheat_frequency", {0.21F, kC, voltage});
  EXPECT_NEAR(0.21 * 1.414 / (2 * M_PI * f * 3.3e-9), voltage, 1e-4 * voltage);
  EXPECT_NEAR(call("calculate_preheat_voltage", {500, kL, kC, 0}), 0, 2e-5);
}

TEST_F(TankFormulas, RunFrequencyAtUnitGainIsInClosedForm) {
  // V = 2 Vbus / pi in 32 bits, so that X rounds to 1.
  const auto voltage = static_cast<float>(2.0 * 500 / 3.141592654);
  const double u = 1.0 / (static_cast<double>(kL) * kC);
  const double b = 2 * std::pow(28.0 / (static_cast<double>(voltage) * voltage * kC), 2);
  const double expected = std::sqrt(2 * (u - b)) / 6.283185308;
  const float run = call("calculate_run_frequency", {kL, kC, 0, 500, voltage, 28});
  EXPECT_NEAR(run, expected, expected * 1e-6);
}

TEST_F(TankFormulas, FailSilentlyByFloatingPointFlags) {
  const struct {
    const char* name;
    std::vector<float> arguments;
  } cases[] = {
      {"calculate_run_frequency", {kL, kC, 0, 50, 236, 280}},  // negative root
      {"calculate_lamp_resistance", {236, 0}},                 // division by zero
      {"calculate_preheat_frequency", {0, kC, 0}},             // 0 / 0
      {"calculate_resonance", {-1, 1}},
      {"calculate_phimax", {kL, kC, 40, 0, 236}},      // atan would hide the infinity
      {"calculate_lamp_resistance", {1e30F, 1e-30F}},  // too large for 32 bits
  };
  for (const auto& c : cases) {
    EXPECT_EQ(call(c.name, c.arguments), 0) << c.name;
    EXPECT_TRUE(calculator.CalculationFailed) << c.name;
  }
  EXPECT_TRUE(messages.shown().empty());
}

TEST_F(TankFormulas, MissingNamesAndCountsFallThroughAndAreReported) {
  const std::string missing = "Could not find the calculation function : ";
  const std::vector<float> eight(8, 1.0F);
  EXPECT_EQ(call("calculate_min_run_frequency", eight), 0);
  EXPECT_TRUE(calculator.CalculationFailed);
  EXPECT_EQ(texts(), std::vector{missing + "calculate_min_run_frequency"});

  messages.clear();
  EXPECT_EQ(call("calculate_resonance", {1, 1, 1}), 0);
  EXPECT_TRUE(calculator.CalculationFailed);
  EXPECT_EQ(texts(), std::vector{missing + "calculate_resonance"});

  messages.clear();
  EXPECT_EQ(call("calculate_resonance", std::vector<float>(10, 1.0F)), 0);
  const std::string many = "Too many parameters for calculate function : calculate_resonance";
  EXPECT_EQ(texts(), (std::vector{many, many, missing + "calculate_resonance"}));
}

TEST_F(TankFormulas, DynamicArgumentsConvertBeforeTheCall) {
  const std::vector<Variant> good{Variant("236"), Variant(28)};
  EXPECT_FLOAT_EQ(
      calculator.CalculateResult("calculate_lamp_resistance", std::span<const Variant>(good)),
      994.571428571F);
  const std::vector<Variant> text{Variant("two"), Variant(28)};
  EXPECT_THROW(
      calculator.CalculateResult("calculate_lamp_resistance", std::span<const Variant>(text)),
      Fault);
  const std::vector<Variant> large{Variant(1e300), Variant(28)};
  EXPECT_THROW(
      calculator.CalculateResult("calculate_lamp_resistance", std::span<const Variant>(large)),
      Fault);
  EXPECT_TRUE(messages.shown().empty());
}

TEST_F(TankFormulas, TargetsHaveTheirNumbers) {
  const char* names[] = {"tv6101", "tv6103", "tv6102", "tv6104", "tv6105",
                         "tv6106", "tv6108", "tv6109", "tv6110", "tv6107"};
  for (std::int32_t number = 0; number < kTargetCount; ++number) {
    const Target* target = factory.TargetFromNumber(number);
    ASSERT_NE(target, nullptr);
    EXPECT_EQ(target->name(), names[number]);
    EXPECT_EQ(target, factory.TargetFromNumber(number));
    const bool dims = number == 2 || number == 8 || number == 9;
    EXPECT_EQ(target->tankFormula("calculate_min_run_frequency") != nullptr, dims) << number;
  }
  state.CurrentTarget = 12;
  EXPECT_FALSE(calculator.SelectTarget(10));
  EXPECT_FALSE(calculator.SelectTarget(-1));
  EXPECT_EQ(texts(), (std::vector<std::string>(2, "Unknown target type : 12")));
}

}  // namespace
}  // namespace vantrel
