#pragma once

#include <array>
#include <cstdint>

namespace vantrel {

/// One step of the simulated start of a ballast.
struct TimeDomainSample {
  double TimeUs = 0;        ///< Microseconds.
  double RampSlope = 0;     ///< Slope of the oscillator ramp, V per ns.
  double RampVoltage = 0;   ///< Oscillator ramp, between 0 and the bus voltage.
  double SwitchState = 0;   ///< Comparator of the oscillator: 0 or the bus voltage.
  double NodeRaw = 0;       ///< Half-bridge node in V before the body diodes.
  double VIN = 0;           ///< Half-bridge node in V, within the rails; drives the tank.
  double IL = 0;            ///< Current of the resonant inductor, A.
  double VBlock = 0;        ///< Voltage on the DC blocking capacitor.
  double ILamp = 0;         ///< Lamp current, A.
  double VR = 0;            ///< Voltage of the lamp and of the resonant capacitor.
  double SeriesDrop = 0;    ///< Voltage across the 10 ohm in series.
  double FrequencyKHz = 0;  ///< Commanded frequency of the oscillator.
  std::int32_t Stage = 0;   ///< 0 preheat, 1 ignition, 2 run.
};

/// The extremes of 1024 samples: whole records of the first of them, in which `VIN`, `IL`, `ILamp`
/// and `VR` are the greatest (`Max`) and least (`Min`) of the window.
struct EnvelopeEntry {
  TimeDomainSample Max;
  TimeDomainSample Min;
};

/// Where a stage of the start lies.
struct StageEntry {
  double StartTime = 0;  ///< Microseconds.
  double EndTime = 0;    ///< Microseconds.
  std::int32_t FirstSample = 0;
  std::int32_t LastSample = 0;
};

/// The stages by their number; 0 to 2 are in use.
using TimeDomainStages = std::array<StageEntry, 4>;

/// Step of the simulation in microseconds.
inline constexpr double kTimeStepUs = 0.05;

}  // namespace vantrel
