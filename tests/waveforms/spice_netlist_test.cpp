#include "waveforms/spice_netlist.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <optional>

#include "core/number_text.h"
#include "time_domain_fixture.h"
#include "waveforms/time_domain_measure.h"

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

/// Adds measurements of lamp voltage and inductor current over a stretch of the netlist's time, us.
std::string with_measurements(std::string netlist, const std::string& name, double from,
                              double to) {
  const std::string span = " from=" + general_text(from) + "u to=" + general_text(to) + "u\n";
  std::string lines;
  for (const auto& [trace, vector] : {std::pair{"vr", "v(lamp)"}, std::pair{"il", "i(Lres)"}}) {
    const std::string meas = "meas tran " + name + "_" + trace;
    for (const auto& [end, what] :
         {std::pair{"_rms", " RMS "}, std::pair{"_min", " MIN "}, std::pair{"_max", " MAX "}}) {
      lines += meas + end + what + vector + span;
    }
    const std::string rise =
        std::string(" ") + vector + " VAL=0 TD=" + general_text(from) + "u RISE=";
    lines += meas + "_time TRIG" + rise + "1 TARG" + rise + "16\n";
  }
  const std::size_t end = netlist.find("if $?batchmode");
  return netlist.insert(end, lines);
}
constexpr double kMeasuredPeriods = 15;  // from the first crossing to the 16th

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
    const double end = stages[2].EndTime - stages[1].StartTime + 2100;
    std::string netlist = with_measurements(spice_netlist(m, course), "early", 1700, 2100);
    netlist = with_measurements(std::move(netlist), "late", end - 400, end);
    const std::string text = simulated(netlist);
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
    for (const Trace trace : {Trace::VR, Trace::IL}) {
      const auto compare = [&](const std::string& when, double from, double to, double relative) {
        const Measurement here = measure(graph, from, to, trace);
        const std::string name = when + (trace == Trace::VR ? "_vr" : "_il");
        agrees((name + "_rms").c_str(), here.rms, relative);
        agrees((name + "_max").c_str(), here.maximum, relative);
        const std::optional<double> low = measured(text, name + "_min");
        const std::optional<double> time = measured(text, name + "_time");
        ASSERT_TRUE(low && time && here.frequency) << name << "\n" << text;
        EXPECT_NEAR(*low, here.minimum, relative * here.maximum) << name;
        const double khz = kMeasuredPeriods / *time / 1000;
        EXPECT_NEAR(khz, *here.frequency, std::max(relative, course.empty() ? 0.022 : 0.0) * khz)
            << name;
      };
      compare("early", 1700, 2100, tolerance.preheat);
      compare("late", stages[2].EndTime - 400, stages[2].EndTime, tolerance.run);
    }
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
