#pragma once

#include <cstdint>

namespace vantrel {

/// How an IC's start frequency follows from the operating points.
enum class StartFrequencyRule { None, PreheatTimes1_7, PreheatPlus25k, Fixed100k, RunTimes2_5 };

/// How an IC's PFC stage works.
enum class PfcRule {
  AverageLine,  ///< Switching frequency given at the average line voltage.
  MinimumLine,  ///< Switching frequency given at the minimum line voltage.
  OnTime,       ///< Fixed relation of inductor and on-time; no switching frequency.
};

/// What the operating-point calculation must know of a control IC besides its formulas.
struct TargetTraits {
  bool dimming = false;         ///< Two operating points, at MAX% and MIN% brightness.
  bool preheats = true;         ///< Has a preheat phase that the user sees.
  bool runsNear40kHz = false;   ///< The ballast frequency is set by the program: 40 kHz, then 30.
  bool limitsOnTime = false;    ///< PFC stage told by its on-time and minimum frequency.
  bool widestIgnition = false;  ///< Prefers the tank with ignition farthest above run.
  StartFrequencyRule start = StartFrequencyRule::None;
  PfcRule pfc = PfcRule::AverageLine;
};

/// The number of the electronic transformer's IC, which has no tank.
inline constexpr std::int32_t kTransformerTarget = 6;

/// The row of a target number; an unknown number gives a row with nothing set.
const TargetTraits& target_traits(std::int32_t target);

}  // namespace vantrel
