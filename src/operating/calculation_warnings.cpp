#include "operating/calculation_warnings.h"

#include "core/number_text.h"
#include "operating/tank_search.h"
#include "operating/target_traits.h"

namespace vantrel {

namespace {

constexpr double kHighestRunFrequency = 70000;

constexpr const char* kIgnitionTooLow =
    "The running frequency is significantly higher than the ignition frequency.";
constexpr const char* kEnterTank =
    "Manually enter values for L and C to increase FRun higher than FIgn";

/// An IC that must ignite above its run frequency, and the way out besides another tank.
struct IgnitionRow {
  std::int32_t target;
  const char* name;
  const char* otherIc;
};

constexpr IgnitionRow kIgnitionRows[] = {
    {1, "TV6103", "Select the TV6101 HVIC that support FRun > FIgn"},
    {3, "TV6104", nullptr},
    {5, nullptr, nullptr},
    {7, "TV6109", nullptr},
};

const IgnitionRow* ignition_row(std::int32_t target) {
  for (const IgnitionRow& row : kIgnitionRows) {
    if (row.target == target) return &row;
  }
  return nullptr;
}

/// Collects numbered options, each on a line of its own.
class Options {
 public:
  explicit Options(std::string& text) : text_(text) {}
  void add(const char* option) { text_ += "\n" + general_text(++number_) + ") " + option; }

 private:
  std::string& text_;
  std::int32_t number_ = 0;
};

std::string ignition_text(const WarningCase& c) {
  const IgnitionRow& row = *ignition_row(c.target);
  std::string text = kIgnitionTooLow;
  if (row.name == nullptr) {
    return text +
           " You need to manually enter values for L and C to increase FRun higher than FIgn";
  }
  text += std::string("¬This solution cannot be implemented with the ") + row.name +
          ".¬¬Options available:¬";
  Options options(text);
  options.add(kEnterTank);
  if (row.otherIc != nullptr) options.add(row.otherIc);
  if (c.currentMode) options.add("Select Voltage Mode Preheat");
  return text;
}

std::string limit_text(const WarningCase& c) {
  const std::string name = c.target == 5 ? "TV6106" : "TV6107";
  const double khz = static_cast<double>(c.block.FRun) / 1000.0;
  return "The " + name + " maximum run frequency of 70kHz has been exceeded (" +
         format_mask(khz, "0.00") + " kHz)";
}

bool ignition_too_low(const WarningCase& c) {
  const auto raised =
      static_cast<float>(static_cast<double>(c.block.FIgnition) + kIgnitionTolerance);
  return must_ignite_above_run(c.target) && !(raised > c.block.FRun);
}

using Test = bool (*)(const WarningCase&);
using Text = std::string (*)(const WarningCase&);

struct WarningRow {
  Test applies;
  Text text;
};

constexpr WarningRow kWarnings[] = {
    {[](const WarningCase& c) {
       return c.currentMode && target_traits(c.target).preheats &&
              exceeds_preheat_limit(c.block.VPreheatMax, c.block.VPreheat);
     },
     [](const WarningCase&) -> std::string {
       return "The preheat voltage is significantly higher than the Maximum preheat voltage "
              "for the selected lamp";
     }},
    {[](const WarningCase& c) { return c.block.FRun < c.block.FBallast; },
     [](const WarningCase&) -> std::string {
       return "The run frequency is significantly lower than the Ballast run frequency";
     }},
    {[](const WarningCase& c) {
       return target_traits(c.target).runsNear40kHz && c.block.FRun < 40000;
     },
     [](const WarningCase&) -> std::string {
       return "The running frequency is lower than 40kHz. Operating frequency above 40KHz is "
              "preferable for ballast applications. It is suggested to manually enter values for L "
              "and C to increase the run frequency.";
     }},
    {[](const WarningCase& c) { return c.busRaised; },
     [](const WarningCase&) -> std::string {
       return "The circuit may be operating too close to resonance. Hard-switching of the "
              "half-bridge may occur. Resonant tank capacitor may need to be increased for "
              "zero-voltage switching.";
     }},
    {[](const WarningCase& c) {
       return !target_traits(c.target).preheats && c.block.FRun > kHighestRunFrequency;
     },
     limit_text},
    {ignition_too_low, ignition_text},
};

}  // namespace

bool must_ignite_above_run(std::int32_t target) { return ignition_row(target) != nullptr; }

CalculationWarnings calculation_warnings(const WarningCase& finished) {
  CalculationWarnings warnings;
  for (const WarningRow& row : kWarnings) {
    if (!row.applies(finished)) continue;
    if (!warnings.text.empty()) warnings.text += "\n\n";
    warnings.text += row.text(finished);
  }
  warnings.canRetryVoltageMode = finished.currentMode && ignition_too_low(finished);
  return warnings;
}

}  // namespace vantrel
