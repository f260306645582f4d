#pragma once

#include <cstdint>
#include <span>
#include <string>

#include "magnetics/core_table.h"

namespace vantrel {

/// What a transformer is designed from.
struct TransformerInputs {
  double input_voltage = 0;        ///< V, the least.
  double power = 0;                ///< W.
  double output_voltage = 0;       ///< V.
  double flux_density = 0;         ///< mT.
  double magnetizing_current = 0;  ///< nA: with mT and mm2 the turns come out as they are.
  bool core_fixed = false;         ///< The user has chosen the core.
  std::string core;                ///< Size of the chosen core.
};

/// A transformer. When the winding does not fit, only the core is of use: the last one tried.
struct TransformerDesign {
  bool fits = false;
  std::string core;
  double al = 0;               ///< H per turn squared, without a gap.
  double primary_current = 0;  ///< A.
  std::int16_t primary_turns = 0;
  double secondary_turns = 0;     ///< With its fraction.
  double primary_diameter = 0;    ///< mm.
  double secondary_diameter = 0;  ///< mm.
};

/// Designs a transformer on the first core, in ascending winding area, whose window is larger than
/// the winding needs, or on the fixed core. An efficiency of 0.9 is assumed. A core that is not in
/// the list, a primary of more turns than 16 bits hold, and a division by zero are a Fault.
TransformerDesign design_transformer(const TransformerInputs& inputs,
                                     std::span<const CoreType> cores);

}  // namespace vantrel
