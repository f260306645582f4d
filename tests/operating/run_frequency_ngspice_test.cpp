#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <numbers>
#include <optional>

#include "core/number_text.h"
#include "operating_fixture.h"

namespace vantrel {
namespace {

/// What a command writes to its standard output.
std::string output_of(const std::string& command) {
  std::string text;
  FILE* pipe = popen(command.c_str(), "r");
  if (pipe == nullptr) return text;
  char part[256];
  while (std::fgets(part, sizeof part, pipe) != nullptr) text += part;
  pclose(pipe);
  return text;
}

/// The number behind `label` in the simulator's output.
std::optional<double> printed(const std::string& text, const std::string& label) {
  const std::size_t at = text.find(label);
  if (at == std::string::npos) return std::nullopt;
  const std::size_t begin = at + label.size();
  return parse_number(text.substr(begin, text.find('\n', begin) - begin));
}

class RunFrequencyNgspice : public OperatingFixture {
 protected:
  std::string netlist() {
    const double amplitude = 2.0 * get("running_dc_bus_voltage") / std::numbers::pi;
    const std::string f = general_text(get("run_frequency"));
    return "* Lamp ballast at its run frequency, first harmonic of the half-bridge\n"
           "V1 bridge 0 dc 0 ac " +
           general_text(amplitude) +
           "\n"
           "L1 bridge lamp " +
           general_text(get("LValue") * 1e-3) +
           "\n"
           "C1 lamp 0 " +
           general_text(get("CValue") * 1e-9) +
           "\n"
           "R1 lamp 0 " +
           general_text(get("lamp_resistance")) +
           "\n"
           ".control\n"
           "ac lin 1 " +
           f + " " + f +
           "\n"
           "print vm(lamp)\n"
           ".endc\n.end\n";
  }
};

TEST_F(RunFrequencyNgspice, LampGetsItsRunningVoltage) {
  if (std::system("command -v ngspice >/dev/null 2>&1") != 0) GTEST_SKIP() << "no ngspice";
  ASSERT_TRUE(points.Calculate(false));
  const std::filesystem::path file =
      std::filesystem::path(::testing::TempDir()) / "vantrel_run_frequency.cir";
  std::ofstream(file) << netlist();
  const std::string text = output_of("ngspice -b '" + file.string() + "' 2>&1");
  std::filesystem::remove(file);
  const std::optional<double> voltage = printed(text, "vm(lamp) = ");
  ASSERT_TRUE(voltage) << text;
  EXPECT_NEAR(*voltage, get("running_lamp_voltage"), get("running_lamp_voltage") * 0.001);
}

}  // namespace
}  // namespace vantrel
