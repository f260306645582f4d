#include "operating/pfc_stage.h"

#include <algorithm>
#include <cmath>
#include <optional>

#include "components/preferred/preferred_values.h"
#include "core/fault.h"
#include "core/fp_trap.h"
#include "core/number_text.h"
#include "operating/target_traits.h"

namespace vantrel {

namespace {

constexpr std::int32_t kTv6104 = 3;
constexpr double kLargestCompensation = 13;
constexpr double kHighestFrequency = 300000;

struct PfcInputs {
  double bus;
  double line_min;
  double line_avg;
  double frequency;  ///< Hz.
  double power;      ///< W.
};

struct PfcResults {
  double inductor = 0;      ///< mH.
  double current = 0;       ///< A peak.
  double compensation = 0;  ///< Before it is snapped to a preferred value.
  double on_time = 0;       ///< Microseconds.
};

double peak_current(const PfcInputs& in, double efficiency) {
  return (2.0 * in.power * 1.414) / (in.line_min * efficiency);
}

void by_average_line(const PfcInputs& in, PfcResults& out) {
  out.inductor = (in.bus - in.line_avg * 1.414) * (in.line_avg * in.line_avg * 950.0) /
                 (in.power * 2.828 * in.bus * in.frequency);
  out.current = peak_current(in, 0.9);
}

void by_minimum_line(const PfcInputs& in, PfcResults& out) {
  out.inductor = (in.bus - in.line_min * 1.414) * (in.line_min * in.line_min) * 950.0 /
                 (in.frequency * 2.0 * in.power * in.bus);
  out.current = peak_current(in, 0.9);
}

void by_on_time(const PfcInputs& in, PfcResults& out) {
  out.inductor =
      (in.bus - in.line_avg * 1.414) * 0.008 * in.line_avg * 0.95 / (2.0 * in.power * 1.414);
  out.current = peak_current(in, 0.95);
}

void limits(const PfcInputs& in, PfcResults& out) {
  const double line = in.line_min * in.line_min;
  out.compensation = (out.inductor / 1000.0) * (2.0 * in.power) / (line * 0.95 * 0.0000009);
  out.on_time = (2.0 * in.power * out.inductor) / (line * 0.95 * 1000.0) * 1000000.0;
}

using PfcFormula = void (*)(const PfcInputs&, PfcResults&);

/// Runs a formula under the floating-point trap. Never merged with its caller, so that the formula
/// stays an unknown one whose arithmetic cannot move past the flag reads.
[[gnu::noinline]] void trapped(PfcFormula formula, const PfcInputs& in, PfcResults& out) {
  const FpTrap trap;
  formula(in, out);
  if (trap.tripped()) throw Fault(fault_text::kOverflow);
}

PfcFormula formula_of(PfcRule rule) {
  switch (rule) {
    case PfcRule::MinimumLine:
      return by_minimum_line;
    case PfcRule::OnTime:
      return by_on_time;
    case PfcRule::AverageLine:
      break;
  }
  return by_average_line;
}

double next_ten(double value) {
  const double next = (std::floor(value / 10.0) + 1.0) * 10.0;
  if (!(next > value)) throw Fault(fault_text::kOverflow);
  return next;
}

/// Raises `pfc_frequency` in tens until it lies 10 kHz above the run frequency.
void keep_above_run_frequency(VTLValue& field, double run_khz) {
  double khz = to_double(field.GetValue(true));
  if (!(khz - run_khz < 10.0)) return;
  // No multiple of ten up to the run frequency will do, so the climb starts there.
  khz = std::max(khz, run_khz);
  do {
    khz = next_ten(khz);
  } while (khz - run_khz < 10.0);
  field.SetValue(khz);
}

/// The input power for the present configuration, from its copy unless the user fixed it. Nothing,
/// with a report, when it is not above 0.
std::optional<double> input_power(Advanced& advanced, const PfcStageContext& context) {
  VTLValue& field = advanced.field("pfc_input_power");
  if (!field.IsFixed()) {
    field.SetValue(advanced.field("pfc_input_power_copy").GetValue());
    field.MultiplyValue(context.powerFactor());
  }
  const double power = to_double(field.GetValue());
  if (power > 0) return power;
  context.messages.msg(
      advanced.name(),
      "A value must be entered for Lamp Power. Uncheck 'Lamp Power' to have it calculated");
  advanced.field("pfc_inductor").Clear();
  advanced.field("max_pfc_current").Clear();
  return std::nullopt;
}

double snapped(double value, SysMsg& messages) {
  std::int32_t series = 1;
  return to_double(find_nearest_capacitor(value, series, messages));
}

/// One design at the present `pfc_frequency`. False when the frequency was raised because the
/// compensation came out too large: the design must be done again.
bool design(Advanced& advanced, OperatingBlock& block, const PfcStageContext& context) {
  VTLValue& frequency = advanced.field("pfc_frequency");
  const TargetTraits& traits = target_traits(advanced.target());
  PfcInputs in{.bus = block.VBus,
               .line_min = block.VLineMin,
               .line_avg = block.VLineAvg,
               .frequency = to_double(frequency.GetValue(true)) * 1000.0,
               .power = 0};
  const std::optional<double> power = input_power(advanced, context);
  if (!power) return true;
  in.power = *power;
  PfcResults out;
  trapped(formula_of(traits.pfc), in, out);
  if (traits.limitsOnTime) {
    trapped(limits, in, out);
    if (advanced.target() == kTv6104) {
      const double compensation = snapped(out.compensation, context.messages);
      if (compensation > kLargestCompensation && in.frequency < kHighestFrequency) {
        frequency.SetValue(to_double(frequency.GetValue(true)) + 1.0);
        return false;
      }
      advanced.field("TV6104_DCOMP").SetValue(compensation);
    }
    block.PfcOnTime = checked_single(out.on_time);
    advanced.field("max_pfc_ontime").SetValue(block.PfcOnTime);
  }
  advanced.field("pfc_inductor").SetValue(out.inductor);
  advanced.field("max_pfc_current").SetValue(out.current);
  return true;
}

}  // namespace

void run_pfc_stage(Advanced& advanced, OperatingBlock& block, const PfcStageContext& context) {
  VTLValue& frequency = advanced.field("pfc_frequency");
  if (target_traits(advanced.target()).limitsOnTime) {
    keep_above_run_frequency(frequency, static_cast<double>(block.FRun) / 1000.0);
  }
  while (!design(advanced, block, context)) {
  }
}

}  // namespace vantrel
