#include "waveforms/spice_netlist.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <optional>

#include "core/number_text.h"
#include "time_domain_fixture.h"

namespace vantrel::test {
namespace {

/// What ngspice prints in batch mode for a netlist.
std::string simulated(const std::string& netlist) {
  const TemporaryFolder folder;
  const std::filesystem::path file = folder.write("stage.cir", netlist);
  std::string text;
  FILE* pipe = popen(("ngspice -b '" + file.string() + "' 2>&1").c_str(), "r");
  if (pipe == nullptr) return text;
  char part[256];
  while (std::fgets(part, sizeof part, pipe) != nullptr) text += part;
  pclose(pipe);
  return text;
}

/// The measurement of that name, or nothing.
std::optional<double> measured(const std::string& text, const std::string& name) {
  const std::size_t line = text.find("\n" + name);
  if (line == std::string::npos) return std::nullopt;
  const std::size_t begin = text.find('=', line) + 1;
  const std::size_t digits = text.find_first_not_of(' ', begin);
  return parse_number(text.substr(digits, text.find_first_of(" \n", digits) - digits));
}

class SpiceNetlist : public TimeDomainFixture {
 protected:
  void SetUp() override {
    if (std::system("command -v ngspice >/dev/null 2>&1") != 0) GTEST_SKIP() << "no ngspice";
  }
  std::span<const TimeDomainSample> samples() const {
    return graph.Samples().first(graph.Samples().size() - 1);
  }
  /// Peak to peak of a field over `count` samples from `first`.
  double swing(double TimeDomainSample::*field, std::int32_t first, std::int32_t count) const {
    const auto part =
        samples().subspan(static_cast<std::size_t>(first), static_cast<std::size_t>(count));
    const auto [low, high] = std::ranges::minmax(part, {}, field);
    return high.*field - low.*field;
  }
};

struct Tolerances {
  double preheat, run, ignition;
};

TEST_F(SpiceNetlist, DefaultDesignAgreesWithTheSimulation) {
  ASSERT_NE(graph.GenerateFrom(kDefaultDesign), -1.0);
  const TimeDomainMembers& m = graph.members();
  const TimeDomainStages& stages = graph.StageTable();
  const std::vector<FrequencyPoint> own = measured_frequency(m, stages, samples());

  // The model's oscillator runs 1.2 to 2.1 % above the commanded frequency, which the netlist
  // knows nothing of unless it is driven at what was measured.
  const std::vector<FrequencyPoint> commanded = commanded_frequency(m);
  EXPECT_EQ(commanded.front().khz, 82.4);
  EXPECT_EQ(commanded.back().khz, 40.14);
  EXPECT_EQ(commanded.back().time_us, 12100.0);
  EXPECT_GT(own.back().khz, 40.14 * 1.012);
  EXPECT_LT(own.back().khz, 40.14 * 1.0215);

  const std::pair<std::vector<FrequencyPoint>, Tolerances> runs[] = {{{}, {0.10, 0.02, 0.08}},
                                                                     {own, {0.02, 0.015, 0.02}}};
  for (const auto& [course, tolerance] : runs) {
    const std::string text = simulated(spice_netlist(m, course));
    const auto agrees = [&](const char* name, double simulation, double relative) {
      const std::optional<double> got = measured(text, name);
      ASSERT_TRUE(got) << name << "\n" << text;
      EXPECT_NEAR(*got, simulation, relative * simulation) << name;
    };
    const std::int32_t block = m.RepeatEnd - m.RepeatStart;
    const std::int32_t late = static_cast<std::int32_t>(samples().size()) - 4000;
    using S = TimeDomainSample;
    agrees("preheat_lamp_voltage", swing(&S::VR, m.RepeatStart, block), tolerance.preheat);
    agrees("preheat_inductor_current", swing(&S::IL, m.RepeatStart, block), tolerance.preheat);
    agrees("run_lamp_voltage", swing(&S::VR, late, 4000), tolerance.run);
    agrees("run_inductor_current", swing(&S::IL, late, 4000), tolerance.run);
    agrees("ignition_delay", (stages[2].StartTime - stages[1].StartTime) * 1e-6,
           tolerance.ignition);
  }
}

TEST_F(SpiceNetlist, SweepWithoutPreheatRuns) {
  ASSERT_NE(graph.GenerateFrom({{"TargetNumber", 5},
                                {"LValue", 0.002},
                                {"RunFrequency", 60},
                                {"StartFrequency", 90},
                                {"MaxIgnitionVoltage", 300},
                                {"LampRunResistance", 500},
                                {"CValue", 4.7e-9},
                                {"PreheatTime", 10000}}),
            -1.0);
  const std::string text = simulated(spice_netlist(graph.members()));
  EXPECT_FALSE(measured(text, "preheat_lamp_voltage")) << text;
  const double simulation =
      (graph.StageTable()[2].StartTime - graph.StageTable()[1].StartTime) * 1e-6;
  ASSERT_TRUE(measured(text, "ignition_delay")) << text;
  EXPECT_NEAR(*measured(text, "ignition_delay"), simulation, 0.08 * simulation);
}

}  // namespace
}  // namespace vantrel::test
