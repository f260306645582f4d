#include "operating/targets/component_entry.h"
#include "operating/targets/component_result.h"
#include "operating/targets/shared_components.h"
#include "operating/targets/tank_formulas.h"
#include "operating/targets/target.h"

namespace vantrel {
namespace {

/// Lamp current sense resistor, a value of the E24 series; the sense input divides by 13.
Variant component_RLS(double reference, double current) {
  return value_result(nearest_e24_resistor(13 * reference / current), "1W");
}

/// Current sense resistor, 1.2 V.
double component_RCS(double current) { return 1.2 / current; }

/// Preheat capacitor, 0.25 uF for each second.
double component_CPH(double time) { return 1e-06 * (time / 4); }

/// Current sense resistor of the PFC stage, 0.5 V.
double component_ROC(double current) { return 0.5 / current; }

constexpr ComponentEntry kComponents[] = {
    trapped<component_RLS>("component_RLS"),
    trapped<component_RCS>("component_RCS"),
    trapped<component_CPH>("component_CPH"),
    trapped<small_half_bridge>("component_MLS"),
    trapped<small_half_bridge>("component_MHSorMLS"),
    trapped<resonant_inductor>("component_LRESs"),
    trapped<resonant_capacitor>("component_CRESs"),
    trapped<small_start_up_resistor>("component_RSUPPLY"),
    trapped<bus_divider>("component_RBUS"),
    trapped<component_ROC>("component_ROC"),
    trapped<dc_input_dropper>("component_ROCxDCInput"),
};

}  // namespace

Target make_tv6107() { return {"tv6107", dimming_tank_formulas(), kComponents}; }

}  // namespace vantrel
