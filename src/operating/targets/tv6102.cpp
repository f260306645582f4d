#include "operating/targets/component_entry.h"
#include "operating/targets/tank_formulas.h"
#include "operating/targets/target.h"

namespace vantrel {
namespace {

/// Preheat capacitor, 0.26 uF for each second.
double component_CPH(double time) { return 2.6e-07 * time; }

/// Current sense resistor, 1.6 V.
double component_RCS(double current) { return 1.6 / current; }

/// Phase reference at minimum brightness; phase in degrees with its sign.
double component_RMIN(double rfmin, double phase) { return (rfmin / 4) * (1 - phase / 45); }

/// Phase reference at maximum brightness, from the phases at both ends.
double component_RMAX(double rfmin, double phase_min, double phase_max) {
  const double m = component_RMIN(rfmin, phase_min);
  return 0.86 * rfmin * m / (4 * m - rfmin * (1 - phase_max / 45));
}

constexpr ComponentEntry kComponents[] = {
    trapped<component_CPH>("component_CPH"),
    trapped<component_RCS>("component_RCS"),
    trapped<component_RMIN>("component_RMIN"),
    trapped<component_RMAX>("component_RMAX"),
};

}  // namespace

Target make_tv6102() { return {"tv6102", dimming_tank_formulas(), kComponents}; }

}  // namespace vantrel
