#pragma once

#include <optional>
#include <span>
#include <string>

#include "magnetics/core_table.h"

namespace vantrel {

/// Flux density in T that a design has to stay below.
inline constexpr double kFluxDensityLimit = 0.3;

/// What an inductor is designed from.
struct InductorInputs {
  double inductance = 0;            ///< H.
  double peak_current = 0;          ///< A.
  double running_current = 0;       ///< A rms.
  bool core_fixed = false;          ///< The user has chosen the core.
  std::string core;                 ///< Size of the chosen core.
  bool gap_fixed = false;           ///< The user has chosen the gap.
  std::optional<double> fixed_gap;  ///< The chosen gap in mm, nothing when it was left blank.
};

enum class InductorOutcome {
  kDesigned,
  kNoSolution,         ///< No core stays below the flux density limit.
  kNoGap,              ///< The gap is fixed but blank.
  kGapTooLarge,        ///< The fixed gap is above 3 mm.
  kNoCoreLargeEnough,  ///< No core takes the winding at the fixed gap.
  kWindingTooBig       ///< The fixed core does not take the winding at the fixed gap.
};

/// An inductor, valid when the outcome is kDesigned.
struct InductorDesign {
  InductorOutcome outcome = InductorOutcome::kDesigned;
  std::string core;
  double gap = 0;            ///< mm.
  double al = 0;             ///< H per turn squared.
  double turns = 0;          ///< A whole number.
  double wire_diameter = 0;  ///< mm.
  double flux_density = 0;   ///< T at the peak current.
};

/// Designs an inductor on the cores, which stand in ascending winding area. With neither fix it
/// takes the first core whose flux density, at the largest gap that the winding leaves, is below
/// the limit; a fixed gap must leave room for the winding too. A fixed core is designed whatever
/// its flux density. A core that is not in the list, a negative current and the like are a Fault.
///
/// With neither fix, a winding that overfills a core even without a gap does not rule that core
/// out; with a fixed core it is a Fault.
InductorDesign design_inductor(const InductorInputs& inputs, std::span<const CoreType> cores);

}  // namespace vantrel
