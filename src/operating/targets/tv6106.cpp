#include "operating/targets/component_entry.h"
#include "operating/targets/shared_components.h"
#include "operating/targets/target.h"

namespace vantrel {
namespace {

/// Preheat capacitor, 0.385 uF for each second.
double component_CPH(double time) { return 3.85e-07 * time; }

/// Current sense resistor, 1.3 V.
double component_RCS(double current) { return 1.3 / current; }

/// Capacitor of the frequency sweep.
double component_CVCO(double time) { return 1e-06 * (0.33 * time); }

constexpr ComponentEntry kComponents[] = {
    trapped<component_CPH>("component_CPH"),
    trapped<component_RCS>("component_RCS"),
    trapped<component_CVCO>("component_CVCO"),
    trapped<small_half_bridge>("component_MLS"),
    trapped<small_half_bridge>("component_MHSorMLS"),
    trapped<resonant_inductor>("component_LRESs"),
    trapped<resonant_capacitor>("component_CRESs"),
    trapped<small_start_up_resistor>("component_RSUPPLY"),
    trapped<bus_divider>("component_RBUS"),
};

}  // namespace

Target make_tv6106() { return {"tv6106", {}, kComponents}; }

}  // namespace vantrel
