#include "operating/targets/component_entry.h"

#include <cfenv>

#include "core/fault.h"
#include "core/fp_trap.h"

namespace vantrel {

// The body is reached through a pointer from another source, so none of its arithmetic moves past
// the reads of the floating-point flags.
Variant run_plain(ComponentFunction body, const ComponentContext& context,
                  std::span<const Variant> arguments) {
  const FpTrap trap;
  Variant result = body(context, arguments);
  if (trap.tripped()) {
    throw Fault(std::fetestexcept(FE_OVERFLOW) ? fault_text::kOverflow
                                               : fault_text::kDivisionByZero);
  }
  return result;
}

Variant run_trapped(ComponentFunction body, const ComponentContext& context,
                    std::span<const Variant> arguments) {
  try {
    return run_plain(body, context, arguments);
  } catch (const Fault& fault) {
    if (context.fault != nullptr) *context.fault = fault.what();
    return {};
  }
}

}  // namespace vantrel
