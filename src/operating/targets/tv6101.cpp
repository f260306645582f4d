#include "operating/targets/component_entry.h"
#include "operating/targets/shared_components.h"
#include "operating/targets/target.h"

namespace vantrel {
namespace {

constexpr ComponentEntry kComponents[] = {
    trapped<ramp_CPH>("component_CPH"),
    trapped<threshold_RCS>("component_RCS"),
};

}  // namespace

Target make_tv6101() { return {"tv6101", {}, kComponents}; }

}  // namespace vantrel
