#include "magnetics/inductor_design.h"

#include <cmath>

#include "core/fault.h"
#include "core/fp_trap.h"
#include "magnetics/winding.h"

namespace vantrel {

namespace {

constexpr double kGapStep = 0.1;
constexpr double kLargestFixedGap = 3;
/// Steps of a gap search that no real core needs (10 m of gap), so that an absurd largest gap of a
/// user's core fails instead of searching for ever.
constexpr int kMostGapSteps = 100000;

/// What the winding demands of every core.
struct Demand {
  double inductance;
  double peak_current;
  double wire_term;  ///< Four times the copper area of the cut wire, in mm2.
  double wire_diameter;
};

/// One core at one gap.
struct Evaluation {
  double gap = -kGapStep;
  double al = 0;
  double turns = 0;
  double fill = 0;
};

Demand demand_of(const InductorInputs& inputs) {
  const double cut = cut_diameter(wire_area(inputs.running_current));
  return {.inductance = inputs.inductance,
          .peak_current = inputs.peak_current,
          // From the cut diameter, also where a thicker wire is used in its place.
          .wire_term = cut * cut * kCircleConstant,
          .wire_diameter = used_diameter(cut)};
}

Evaluation evaluate(const Demand& demand, const CoreType& core, double gap) {
  const double permeability = kInitialPermeability / (1.0 + kInitialPermeability * gap / core.le);
  Evaluation result;
  result.gap = gap;
  result.al = al_value(permeability, core.factor);
  result.turns = std::floor(std::sqrt(demand.inductance / result.al));
  result.fill = result.turns * demand.wire_term / kFillDivisor;
  return result;
}

InductorDesign finished(const Demand& demand, const CoreType& core, const Evaluation& at) {
  return {.outcome = InductorOutcome::kDesigned,
          .core = core.size,
          .gap = at.gap,
          .al = at.al,
          .turns = at.turns,
          .wire_diameter = demand.wire_diameter,
          .flux_density = (at.turns * 1000000.0) * at.al * demand.peak_current / core.ae};
}

/// A larger gap means more turns, so the gap grows until the winding no longer fits or the core's
/// largest gap is passed. When the winding is what ended it, one step is taken back;
/// `from_zero_gap` says whether that holds for the very first gap as well.
InductorDesign search_gap(const Demand& demand, const CoreType& core, bool from_zero_gap) {
  Evaluation at;
  int steps = 0;
  while (at.fill <= core.winding_area && at.gap <= core.max_gap) {
    if (++steps > kMostGapSteps) throw Fault(fault_text::kOverflow);
    at = evaluate(demand, core, at.gap + kGapStep);
  }
  if (steps == 0) throw Fault(fault_text::kInvalidCall);
  if (at.fill > core.winding_area && (from_zero_gap || at.gap > 0.0)) {
    at = evaluate(demand, core, at.gap - kGapStep);
  }
  return finished(demand, core, at);
}

InductorDesign refused(InductorOutcome outcome) { return {.outcome = outcome, .core = {}}; }

InductorDesign design_free(const Demand& demand, std::span<const CoreType> cores) {
  for (const CoreType& core : cores) {
    InductorDesign design = search_gap(demand, core, false);
    if (design.flux_density < kFluxDensityLimit) return design;
  }
  return refused(InductorOutcome::kNoSolution);
}

InductorDesign design_at_gap(const Demand& demand, double gap, std::span<const CoreType> cores) {
  for (const CoreType& core : cores) {
    const Evaluation at = evaluate(demand, core, gap);
    InductorDesign design = finished(demand, core, at);
    if (design.flux_density < kFluxDensityLimit && at.fill < core.winding_area) return design;
  }
  return refused(InductorOutcome::kNoCoreLargeEnough);
}

InductorDesign design_fixed(const Demand& demand, double gap, const CoreType& core) {
  const Evaluation at = evaluate(demand, core, gap);
  if (at.fill > core.winding_area) return refused(InductorOutcome::kWindingTooBig);
  return finished(demand, core, at);
}

[[gnu::noinline]] InductorDesign design_by_fixes(const InductorInputs& inputs,
                                                 std::span<const CoreType> cores) {
  const Demand demand = demand_of(inputs);
  if (!inputs.gap_fixed) {
    if (!inputs.core_fixed) return design_free(demand, cores);
    return search_gap(demand, core_named(cores, inputs.core), true);
  }
  if (!inputs.fixed_gap) return refused(InductorOutcome::kNoGap);
  const double gap = *inputs.fixed_gap;
  if (gap > kLargestFixedGap) return refused(InductorOutcome::kGapTooLarge);
  if (!inputs.core_fixed) return design_at_gap(demand, gap, cores);
  return design_fixed(demand, gap, core_named(cores, inputs.core));
}

}  // namespace

InductorDesign design_inductor(const InductorInputs& inputs, std::span<const CoreType> cores) {
  const FpTrap trap;
  InductorDesign design = design_by_fixes(inputs, cores);
  if (trap.tripped()) throw Fault(fault_text::kInvalidCall);
  return design;
}

}  // namespace vantrel
