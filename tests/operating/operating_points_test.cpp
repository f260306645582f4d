#include "operating/operating_points.h"

#include <span>

#include "operating_fixture.h"

namespace vantrel {
namespace {

const std::string kRow2 = "The run frequency is significantly lower than the Ballast run frequency";
const std::string kRow3 =
    "The running frequency is lower than 40kHz. Operating frequency above 40KHz is preferable for "
    "ballast applications. It is suggested to manually enter values for L and C to increase the "
    "run "
    "frequency.";
const std::string kRow4 =
    "The circuit may be operating too close to resonance. Hard-switching of the half-bridge may "
    "occur. Resonant tank capacitor may need to be increased for zero-voltage switching.";
const std::string kNoSolution =
    "No solution found. Try the following:\n\n1) Increase DC Bus Voltage\n2) Decrease ballast run "
    "frequency\n3) Decrease preheat current";
const std::string kIgnitionTv6103 =
    "The running frequency is significantly higher than the ignition frequency.¬This solution "
    "cannot be implemented with the TV6103.¬¬Options available:¬\n1) Manually enter values for L "
    "and C to increase FRun higher than FIgn\n2) Select the TV6101 HVIC that support FRun > FIgn";
const std::string kRetry = "¬¬Do you wish to retry the calculation in voltage mode ?";

std::string completed(int number, const std::string& khz) {
  return "Calculation " + std::to_string(number) + " Complete\n\nBallast Run Frequency = " + khz +
         "kHz";
}

class OperatingPointsTest : public OperatingFixture {
 protected:
  void expectFields(const std::vector<std::pair<const char*, double>>& expected) {
    for (const auto& [name, value] : expected) EXPECT_EQ(get(name), value) << name;
  }
  std::string onlyText() const {
    return messages.shown().size() == 1 ? messages.shown()[0].text : "no single message";
  }
  using Pointer = std::vector<bool>;
};

// Stored values are those of an independent high-precision search, rounded to the fields' places.
TEST_F(OperatingPointsTest, DefaultDesign) {
  completionShown = true;
  graphWanted = true;
  ASSERT_TRUE(points.Calculate(true));
  expectFields({{"start_frequency", 82403.0},
                {"preheat_frequency", 57403.0},
                {"ignition_frequency", 45900.4},
                {"run_frequency", 40142.0},
                {"resonance_frequency", 38056.2},
                {"preheat_voltage", 249.5},
                {"ignition_current", 0.7},
                {"lamp_resistance", 994.6},
                {"LValue", 5.3},
                {"CValue", 3.3},
                {"pfc_input_power", 28},
                {"pfc_inductor", 3.1},
                {"max_pfc_current", 1.0}});
  EXPECT_TRUE(advanced.field("max_frequency").IsItEmpty());
  ASSERT_EQ(messages.shown().size(), 1U);
  EXPECT_EQ(messages.shown()[0].text, completed(1, "40.1"));
  EXPECT_EQ(messages.shown()[0].type, kMessageOk);
  EXPECT_EQ(messages.shown()[0].severity, kSeverityInformation);
  EXPECT_EQ(pointer, (Pointer{true, false}));
  EXPECT_EQ(points.PossibleResults().size(), 44U);
  EXPECT_EQ(std::pair(refreshes, graphs), std::pair(1, 1));
}

TEST_F(OperatingPointsTest, StartFrequenciesByTarget) {
  const struct {
    std::int32_t target;
    double start;
  } cases[] = {{0, 97585.0},                                             // 1.7 x 57402.96
               {1, 82403.0}, {2, 100000},  {4, 97585.0}, {5, 100275.2},  // 2.5 x 40110.08
               {8, 82403.0}, {9, 100275.2}};
  for (const auto& c : cases) {
    state.CurrentTarget = c.target;
    ASSERT_TRUE(points.Calculate(false)) << c.target;
    EXPECT_EQ(get("start_frequency"), c.start) << c.target;
  }
  EXPECT_TRUE(messages.shown().empty());
}

// Both angles and the resistances of a dimming ballast at a tank that the user fixed.
TEST_F(OperatingPointsTest, DimmingTargetWithFixedTank) {
  state.CurrentTarget = 2;
  fix("LValue", 5.5);
  fix("CValue", 3.3);
  ASSERT_TRUE(points.Calculate(true));
  // The run frequency misses the wanted 40 kHz, so everything behind that test stays 0.
  EXPECT_EQ(onlyText(), completed(1, "38.8") + "¬¬Warning: " + kRow2);
  expectFields({{"preheat_voltage", 256.0},
                {"lamp_resistance_max", 994.6},
                {"PhiMaxValue", 0},
                {"min_frequency", 0},
                {"LValue", 5.5},
                {"CValue", 3.3}});
  set("ballast_run_frequency", 38);
  ASSERT_TRUE(points.Calculate(true));
  expectFields({{"min_frequency", 53240.6}, {"PhiMaxValue", -54.6}, {"PhiMinValue", -87.0}});
  EXPECT_NEAR(get("lamp_resistance_min"), 307 * 307 / 5.6, 0.05);
}

TEST_F(OperatingPointsTest, SingleCandidateKeepsTheLastTankOfTheGrid) {
  set("ballast_run_frequency", 123);  // only 1 mH with 3.3 nF runs as fast
  ASSERT_TRUE(points.Calculate(true));
  ASSERT_EQ(points.PossibleResults().size(), 1U);
  expectFields({{"LValue", 1.0},  // the candidate's
                {"CValue", 3.3},
                {"run_frequency", 19660.0},  // that of 9.99999 mH with 10 nF
                {"preheat_voltage", 177.8},
                {"preheat_frequency", 26582.0},
                {"start_frequency", 51582.0},
                {"resonance_frequency", 87611.9},  // left from the candidate's evaluation
                {"ignition_current", 1.5}});
  EXPECT_EQ(onlyText(), completed(1, "19.7") + "¬¬Warning: " + kRow2);
}

TEST_F(OperatingPointsTest, BusIsRaisedInTheBlockOnly) {
  withoutPfc(341);
  set("ballast_run_frequency", 111);  // 110.7 kHz is the most at 341 V, 111.7 kHz at 350 V
  ASSERT_TRUE(points.Calculate(true));
  EXPECT_EQ(points.block().VBus, 350);
  EXPECT_EQ(get("running_dc_bus_voltage"), 341);
  EXPECT_EQ(pointer.size(), 4U);
  EXPECT_EQ(onlyText(), completed(1, "14.8") + "¬¬Warning: " + kRow2 + "\n\n" + kRow4);

  pointer.clear();
  set("running_dc_bus_voltage", 320);
  ASSERT_TRUE(points.Calculate(true));
  EXPECT_EQ(pointer.size(), 8U);  // 320, 330, 340, 350
}

TEST_F(OperatingPointsTest, NoSolution) {
  withoutPfc(350);
  set("ballast_run_frequency", 130);
  EXPECT_FALSE(points.Calculate(true));
  EXPECT_EQ(onlyText(), kNoSolution);
  EXPECT_EQ(messages.shown()[0].severity, kSeverityWarning);
  EXPECT_EQ(pointer, (Pointer{true, false}));
  EXPECT_EQ(records, 0);
  // With PFC the bus is never raised.
  messages.clear();
  set("line_input_pfc", "YES");
  set("running_dc_bus_voltage", 300);
  EXPECT_FALSE(points.Calculate(true));
  EXPECT_EQ(onlyText(), kNoSolution);
  EXPECT_EQ(pointer.size(), 4U);
}

TEST_F(OperatingPointsTest, BallastFrequencyDropsTo30) {
  for (const std::int32_t target : {3, 7, 8}) {
    messages.clear();
    state.CurrentTarget = target;
    set("ballast_run_frequency", 77);
    fix("LValue", 7);  // runs at 30.3 kHz
    ASSERT_TRUE(points.Calculate(true)) << target;
    EXPECT_EQ(get("ballast_run_frequency"), 30);
    EXPECT_EQ(onlyText(), completed(records, "30.3") + "¬¬Warning: " + kRow3) << target;
    EXPECT_EQ(get("LValue"), 7);
    messages.clear();
    set("LValue", 9.5);  // 21.2 kHz: no solution at 30 kHz either
    EXPECT_FALSE(points.Calculate(true));
    EXPECT_EQ(onlyText(), kNoSolution);
    EXPECT_EQ(get("ballast_run_frequency"), 30);
  }
}

TEST_F(OperatingPointsTest, PreheatCurrentIsLoweredInVoltageMode) {
  mode = kVoltageMode;
  const struct {
    double limit, current;
    float lowered;
    std::size_t searches;
  } cases[] = {{200, 0.21, 0.17F, 3},  // 0.21 A gives 249 V, 0.17 A 184.6 V
               {1, 0.05, 0.03F, 2},
               {1, 0.06, 0.04F, 2}};  // 0.04 A is not above 0.04 A in 32 bits
  for (const auto& c : cases) {
    pointer.clear();
    set("max_preheat_voltage", c.limit);
    set("preheat_current", c.current);
    ASSERT_TRUE(points.Calculate(false));
    EXPECT_FLOAT_EQ(points.block().IPreheat, c.lowered);
    EXPECT_EQ(pointer.size(), 2 * c.searches);
    EXPECT_EQ(get("preheat_current"), c.current);
  }
  EXPECT_TRUE(messages.shown().empty());  // the preheat warning is for current mode
  EXPECT_EQ(get("preheat_voltage"), 15.4);
}

TEST_F(OperatingPointsTest, VoltageModeTakesOneBusVoltage) {
  mode = kVoltageMode;
  set("running_dc_bus_voltage_mode", 480);
  advanced.field("running_dc_bus_voltage_mode").ValueBaseUnits("V");
  ASSERT_TRUE(points.Calculate(false));
  for (const char* name : {"preheat_dc_bus_voltage", "ignition_dc_bus_voltage",
                           "max_dc_bus_voltage", "min_dc_bus_voltage", "running_dc_bus_voltage"}) {
    EXPECT_EQ(get(name), 480) << name;
    EXPECT_EQ(advanced.field(name).ValueBaseUnits(), "V") << name;
  }
}

class VoltageModeRetry : public OperatingPointsTest {
 protected:
  VoltageModeRetry() {
    // Runs at 40.5 kHz and ignites at 32.6 kHz.
    set("running_lamp_power", 13);
    set("running_lamp_voltage", 120);
    fix("LValue", 5.1);
    fix("CValue", 6.8);
  }
  const std::string asked = completed(1, "40.5") + "¬¬Warning: " + kIgnitionTv6103 +
                            "\n3) Select Voltage Mode Preheat" + kRetry;
};

TEST_F(VoltageModeRetry, YesCalculatesAgainAndAddsARecord) {
  messages.injectAnswers({kYes});
  ASSERT_TRUE(points.Calculate(true));
  ASSERT_EQ(messages.shown().size(), 2U);
  EXPECT_EQ(messages.shown()[0].text, asked);
  EXPECT_EQ(messages.shown()[0].type, kMessageYesNo);
  EXPECT_EQ(messages.shown()[1].text, completed(2, "40.5") + "¬¬Warning: " + kIgnitionTv6103);
  EXPECT_EQ(messages.shown()[1].type, kMessageOk);
  EXPECT_EQ(messages.shown()[1].severity, kSeverityWarning);
  EXPECT_EQ(records, 2);
}

TEST_F(VoltageModeRetry, NoOrNoSuchConfigurationLetsTheResultStand) {
  messages.injectAnswers({kNo, kYes});
  ASSERT_TRUE(points.Calculate(true));
  EXPECT_EQ(onlyText(), asked);
  voltageModeOffered = false;
  ASSERT_TRUE(points.Calculate(true));
  EXPECT_EQ(records, 2);
  EXPECT_EQ(messages.shown().size(), 2U);
}

TEST_F(OperatingPointsTest, ChainedRunUnticksAndShowsBareWarnings) {
  fix("LValue", 7);
  fix("CValue", 8.2);
  fix("pfc_input_power", 50);
  ASSERT_TRUE(points.Calculate(false));
  EXPECT_TRUE(messages.shown().empty());
  expectFields({{"LValue", 5.3}, {"CValue", 3.3}, {"pfc_input_power", 28}});
  EXPECT_FALSE(advanced.field("LValue").IsFixed());

  set("max_ignition_voltage", 30000);  // ignites just above resonance
  ASSERT_TRUE(points.Calculate(false));
  EXPECT_EQ(onlyText(), kIgnitionTv6103 + "\n3) Select Voltage Mode Preheat" + kRetry);
}

TEST_F(OperatingPointsTest, RunsThatEndEarly) {
  const struct {
    const char* what;
    std::function<void()> prepare;
    std::string text;
  } cases[] = {
      {"no C", [this] { fix("CValue", 0); },
       "A value must be entered for C. Uncheck 'Set C' to have it calculated"},
      {"no L",
       [this] {
         advanced.field("CValue").SetFixed(false);
         advanced.field("LValue").SetFixed(true);
         advanced.field("LValue").Clear();
       },
       "A value must be entered for L. Uncheck 'Set L' to have it calculated"},
      {"no mode",
       [this] {
         advanced.field("LValue").SetFixed(false);
         mode = "";
       },
       "Calculate : Unknown Voltage/Current ... Mode in calculate"},
      {"no target", [this] { state.CurrentTarget = 10; }, "Unknown target type : 10"},
      {"no PFC frequency",
       [this] {
         state.CurrentTarget = 1;
         mode = kCurrentMode;
         advanced.field("pfc_frequency").Clear();
       },
       "The calculation could not be completed. Please check input values"},
      {"number too large", [this] { advanced.field("running_lamp_power").value(1e300); },
       "The calculation could not be completed. Please check input values"},
  };
  for (const auto& c : cases) {
    messages.clear();
    c.prepare();
    EXPECT_FALSE(points.Calculate(true)) << c.what;
    EXPECT_EQ(onlyText(), c.text) << c.what;
    EXPECT_TRUE(pointer.empty() || !pointer.back()) << c.what;
  }
  EXPECT_EQ(records, 0);
}

TEST_F(OperatingPointsTest, MissingFieldsEndTheRun) {
  advanced.field("running_lamp_power").Clear();
  advanced.field("pmax").Clear();  // not read on this IC
  EXPECT_FALSE(points.Calculate(true));
  ASSERT_EQ(missing.CountItems(), 1);
  EXPECT_EQ(missing.entries()[0].text,
            "Operating Points & Tank Components Screen : Running Lamp  Power");
  EXPECT_TRUE(pointer.empty());
}

TEST_F(OperatingPointsTest, TransformerTargetHasNoTank) {
  state.CurrentTarget = 6;
  mode = "";
  advanced.field("running_lamp_power").Clear();
  EXPECT_TRUE(points.Calculate(true));
  EXPECT_TRUE(messages.shown().empty());
  EXPECT_EQ(records, 0);
}

}  // namespace
}  // namespace vantrel
