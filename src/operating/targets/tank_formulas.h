#pragma once

#include <span>

#include "operating/targets/target.h"

namespace vantrel {

/// The ten formulas of the resonant tank that serve every control IC. Arguments are in base units
/// (H, F, V, A, W, Hz) unless a name ends in kHz; lamp voltages are peak values.
std::span<const TankEntry> generic_tank_formulas();

/// The formulas that only the dimming ICs (TV6102, TV6107, TV6110) bring along:
/// calculate_min_run_frequency.
std::span<const TankEntry> dimming_tank_formulas();

}  // namespace vantrel
