#include "operating/targets/component_entry.h"
#include "operating/targets/shared_components.h"
#include "operating/targets/target.h"

namespace vantrel {
namespace {

/// Preheat capacitor, 0.385 uF for each second.
double component_CPH(double time) { return 3.85e-07 * time; }

/// Current sense resistor, 1.3 V.
double component_RCS(double current) { return 1.3 / current; }

constexpr ComponentEntry kComponents[] = {
    trapped<oscillator_RT>("component_RT"),
    trapped<component_CPH>("component_CPH"),
    trapped<oscillator_RPH>("component_RPH"),
    trapped<component_RCS>("component_RCS"),
};

}  // namespace

Target make_tv6103() { return {"tv6103", {}, kComponents}; }

}  // namespace vantrel
