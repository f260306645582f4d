#include <cstdint>
#include <limits>

#include "core/fault.h"
#include "core/number_text.h"
#include "operating/targets/component_entry.h"
#include "operating/targets/component_result.h"
#include "operating/targets/shared_components.h"
#include "operating/targets/tank_formulas.h"
#include "operating/targets/target.h"

namespace vantrel {
namespace {

/// Timing capacitor by dead time.
double component_CT(double dead_time) { return dead_time / 1500; }

/// Lamp current sense resistor, whole ohms. The integer is doubled and halved on the way, so one
/// that cannot be doubled fails.
Variant component_RLS(double power, double voltage) {
  const std::int32_t ohms = round_to_int32(5 / (2 * power / voltage));
  if (ohms > std::numeric_limits<std::int32_t>::max() / 2 ||
      ohms < std::numeric_limits<std::int32_t>::min() / 2)
    throw Fault(fault_text::kOverflow);
  return value_result(ohms, "1W");
}

/// Resistor in parallel to the one of the minimum frequency that raises the frequency to that of
/// preheat, a value of the E24 series.
Variant component_RPH(double ct, double rfmin, double frequency) {
  const double a = checked_single(rfmin * (5 - 16121 * ct * frequency));
  const double b = checked_single(frequency * ct * (6.45 * rfmin + 16121) - 5);
  return value_result(nearest_e24_resistor(a / b));
}

/// Current sense resistor, 1.2 V.
double component_RCS(double current) { return 1.2 / current; }

/// Current sense resistor of the PFC stage, 0.5 V.
double component_ROC(double current) { return 0.5 / current; }

/// Resistor of the minimum frequency, a value of the E24 series held in 32 bits.
float component_RFMIN(double ct, double frequency) {
  const double c = checked_single(frequency * ct * 2.15);
  const double r = checked_single(1 / c - 1500);
  return to_single(nearest_e24_resistor(checked_single(5.0 / 3 * r)));
}

constexpr ComponentEntry kComponents[] = {
    trapped<oscillator_RT>("component_RT"),
    trapped<component_CT>("component_CT"),
    trapped<quotient>("component_CPH"),
    trapped<start_up_resistor>("component_RSUPPLY"),
    trapped<component_RLS>("component_RLS"),
    trapped<quotient>("component_CVCO"),
    trapped<snubber>("component_CSNUB"),
    trapped<component_RPH>("component_RPH"),
    trapped<component_RCS>("component_RCS"),
    trapped<component_ROC>("component_ROC"),
    trapped<dc_input_dropper>("component_ROCxDCInput"),
    trapped<component_RFMIN>("component_RFMIN"),
};

}  // namespace

Target make_tv6110() { return {"tv6110", dimming_tank_formulas(), kComponents}; }

}  // namespace vantrel
