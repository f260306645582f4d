#pragma once

#include "operating/advanced.h"

namespace vantrel {

/// The numbers of one operating-point calculation, in base units and 32 bits.
struct OperatingBlock {
  // Inputs, in the order in which they are read.
  float PLamp = 0;        ///< Lamp power; of dimming ICs that at MAX% brightness.
  float VLamp = 0;        ///< Lamp voltage, peak; of dimming ICs that at MAX% brightness.
  float PMin = 0;         ///< Lamp power at MIN% brightness.
  float VMin = 0;         ///< Lamp voltage at MIN% brightness.
  float VPreheatMax = 0;  ///< Highest lamp voltage that does not ignite it during preheat.
  float VIgnition = 0;
  float PreheatTime = 0;  ///< Seconds.
  float VBusPreheat = 0;
  float VBusIgnition = 0;  ///< Required of the user; the formulas ignite on the running bus.
  float VBus = 0;          ///< Running bus; may be raised when there is no solution.
  float VLineMin = 0;
  float VLineMax = 0;
  float VLineAvg = 0;
  float FBallast = 0;  ///< Lowest acceptable run frequency, Hz.
  float FracMax = 0;   ///< Brightness as a fraction.
  float FracMin = 0;
  float VBusMin = 0;   ///< Running bus at MIN% brightness.
  float IPreheat = 0;  ///< A rms; may be lowered in voltage mode.

  // The tank.
  float L = 0;
  float C = 0;

  // Results. Those of steps that an evaluation passes over keep their values.
  float FStart = 0;
  float FPreheat = 0;
  float FIgnition = 0;
  float FRun = 0;
  float FMin = 0;
  float FResonance = 0;
  float RLamp = 0;
  float RLampMin = 0;
  float VPreheat = 0;
  float IIgnition = 0;  ///< A peak.
  float PhiMax = 0;     ///< Degrees.
  float PhiMin = 0;     ///< Degrees.
  float PfcOnTime = 0;  ///< Microseconds.
};

/// Reads the inputs from the screen; everything else in the block is 0. An empty field counts as 0
/// and is added to the missing fields. A text or a number too large for 32 bits is a Fault.
OperatingBlock read_operating_block(Advanced& advanced);

/// Writes the frequencies, voltages, resistances and angles to the screen.
void write_operating_block(Advanced& advanced, const OperatingBlock& block);

}  // namespace vantrel
