#pragma once

#include <cstdint>
#include <string>

#include "operating/operating_block.h"

namespace vantrel {

/// What a finished calculation is judged by.
struct WarningCase {
  const OperatingBlock& block;
  std::int32_t target;
  bool currentMode;
  bool busRaised;  ///< The bus was, or should have been, raised to find a tank.
};

/// The warnings of a calculation.
struct CalculationWarnings {
  std::string text;                  ///< All warnings in one text, empty when there is none.
  bool canRetryVoltageMode = false;  ///< Voltage-mode preheat may help.
};

/// Hz by which ignition may lie below run before it counts as too low.
inline constexpr double kIgnitionTolerance = 1300;
/// True for an IC that cannot run above its ignition frequency.
bool must_ignite_above_run(std::int32_t target);

/// Judges a finished calculation.
CalculationWarnings calculation_warnings(const WarningCase& finished);

}  // namespace vantrel
