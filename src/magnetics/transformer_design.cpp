#include "magnetics/transformer_design.h"

#include "core/fault.h"
#include "core/fp_trap.h"
#include "core/number_text.h"
#include "magnetics/winding.h"

namespace vantrel {

namespace {

constexpr double kEfficiency = 0.9;

/// One winding of the transformer.
struct Winding {
  double current;  ///< A.
  double area;     ///< Copper area in mm2.
};

Winding winding_for(double power, double voltage) {
  const double current = power / (voltage * kEfficiency);
  return {current, wire_area(current)};
}

/// The windings on one core. The primary counts twice, and the areas are those that the current
/// density asks for, not those of the cut wires.
TransformerDesign wind(const TransformerInputs& inputs, const CoreType& core,
                       const Winding& primary, const Winding& secondary) {
  TransformerDesign design;
  design.core = core.size;
  design.al = al_value(kInitialPermeability, core.factor);
  design.primary_turns =
      round_to_int16((core.ae * inputs.flux_density) / (inputs.magnetizing_current * design.al));
  const double turns = design.primary_turns;
  design.secondary_turns = turns * inputs.output_voltage / (2.0 * inputs.input_voltage);
  const double fill =
      (2.0 * turns * primary.area + design.secondary_turns * secondary.area) / kFillDivisor;
  design.fits = fill < core.winding_area;
  return design;
}

[[gnu::noinline]] TransformerDesign walk_cores(const TransformerInputs& inputs,
                                               std::span<const CoreType> cores) {
  const Winding primary = winding_for(inputs.power, inputs.input_voltage);
  const Winding secondary = winding_for(inputs.power, inputs.output_voltage);
  TransformerDesign design;
  if (inputs.core_fixed) {
    design = wind(inputs, core_named(cores, inputs.core), primary, secondary);
  } else {
    for (const CoreType& core : cores) {
      design = wind(inputs, core, primary, secondary);
      if (design.fits) break;
    }
  }
  design.primary_current = primary.current;
  design.primary_diameter = used_diameter(cut_diameter(primary.area));
  design.secondary_diameter = used_diameter(cut_diameter(secondary.area));
  return design;
}

}  // namespace

TransformerDesign design_transformer(const TransformerInputs& inputs,
                                     std::span<const CoreType> cores) {
  const FpTrap trap;
  TransformerDesign design = walk_cores(inputs, cores);
  if (trap.tripped()) throw Fault(fault_text::kInvalidCall);
  return design;
}

}  // namespace vantrel
