#include <gtest/gtest.h>

#include <cstdlib>
#include <fstream>
#include <sstream>
#include <string>
#include <utility>
#include <vector>

#include "core/fault.h"
#include "core/number_text.h"
#include "divider_gain.h"
#include "support/close.h"
#include "support/fixtures.h"
#include "waveforms/operating_points_graph_curves.h"

namespace vantrel {
namespace {

constexpr double kLoadedL = 5.3e-3;
constexpr double kLoadedC = 3.3e-9;
constexpr double kLoadedR = 994.6;

TEST(CalculateVlamp, IsTheDividerOfComplexImpedances) {
  for (double f = 5000; f <= 81000; f += 250) {
    const double want = divider_gain(kLoadedL, kLoadedC, kLoadedR, f);
    const float got = calculate_vlamp(kLoadedL, kLoadedC, kLoadedR, f);
    EXPECT_TRUE(test::close(static_cast<double>(got), want, 2e-5)) << f << " Hz";
  }
  // Far off resonance the open lamp leaves the ideal low pass 1 / |1 - w^2 L C|.
  const double open = 39.478 * 2e4 * 2e4 * kLoadedL * kLoadedC;
  EXPECT_NEAR(calculate_vlamp(kLoadedL, kLoadedC, 1e6, 2e4), 1 / (1 - open), 1e-6);
}

TEST(CalculateVlamp, FailsWhereItCannotDivide) {
  EXPECT_THROW(calculate_vlamp(1e-3, 1e-9, 0, 40000), Fault);
  EXPECT_THROW(calculate_vlamp(1e200, 1e200, 1, 40000), Fault);
}

/// The pairs of frequency and gain that the simulator prints.
std::vector<std::pair<double, double>> simulated_gains() {
  const test::TemporaryFolder folder;
  folder.write("gain.cir",
               "* Loaded tank\nV1 in 0 dc 0 ac 1\nL1 in lamp 5.3m\nC1 lamp 0 3.3n\n"
               "R1 lamp 0 994.6\n.control\nset numdgt=12\nset wr_singlescale\n"
               "ac lin 153 5k 81k\nwrdata gain.txt vm(lamp)\n.endc\n.end\n");
  // The simulator turns the names in a netlist to lower case, so it runs inside the folder. Its
  // exit status tells of a missing print command; the file tells whether it ran.
  const std::string command =
      "cd '" + folder.path().string() + "' && ngspice -b gain.cir >log.txt 2>&1";
  if (std::system(command.c_str()) < 0) return {};
  std::vector<std::pair<double, double>> gains;
  std::ifstream file(folder.path() / "gain.txt");
  for (std::string line; std::getline(file, line);) {
    std::istringstream words(line);
    std::string frequency;
    std::string gain;
    words >> frequency >> gain;
    gains.emplace_back(parse_number(frequency).value_or(0), parse_number(gain).value_or(0));
  }
  return gains;
}

TEST(CalculateVlamp, AgreesWithTheCircuitSimulator) {
  if (std::system("command -v ngspice >/dev/null 2>&1") != 0) GTEST_SKIP() << "no ngspice";
  const auto gains = simulated_gains();
  ASSERT_EQ(gains.size(), 153U);
  EXPECT_DOUBLE_EQ(gains.front().first, 5000);
  EXPECT_DOUBLE_EQ(gains.back().first, 81000);
  for (const auto& [f, gain] : gains) {
    const auto got = static_cast<double>(calculate_vlamp(kLoadedL, kLoadedC, kLoadedR, f));
    EXPECT_TRUE(test::close(got, gain, 2e-5)) << f << " Hz: " << got << " against " << gain;
  }
}

}  // namespace
}  // namespace vantrel
