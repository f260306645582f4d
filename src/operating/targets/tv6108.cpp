#include <cmath>
#include <string>

#include "core/number_text.h"
#include "operating/targets/component_entry.h"
#include "operating/targets/component_result.h"
#include "operating/targets/target.h"

namespace vantrel {
namespace {

/// The next whole ampere above.
Variant ampere_rating(double current) {
  return rating_result(general_text(std::floor(current) + 1) + "A");
}

/// Current sense resistor: 0.15 V by the nominal primary current.
double component_RCS(double line_voltage, double power) { return 0.15 * line_voltage / power; }

/// Rectifier diodes, rating only.
Variant component_D1234(double power, double line_voltage) {
  return ampere_rating(power / line_voltage);
}

/// Half-bridge transistors, rating only.
Variant component_Q(double power, double line_voltage) {
  return ampere_rating(power / (22 * line_voltage));
}

constexpr ComponentEntry kComponents[] = {
    trapped<component_RCS>("component_RCS"),
    trapped<component_D1234>("component_D1234"),
    trapped<component_Q>("component_Q"),
};

}  // namespace

Target make_tv6108() { return {"tv6108", {}, kComponents}; }

}  // namespace vantrel
