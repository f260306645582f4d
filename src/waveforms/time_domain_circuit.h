#pragma once

#include <cmath>

#include "core/fault.h"
#include "waveforms/time_domain_members.h"
#include "waveforms/time_domain_sample.h"

// The circuit of the simulated start, one step of 50 ns at a time: the oscillator of the control
// IC, the half-bridge with its dead time, and the tank with the lamp. The order and the grouping
// of the operations are part of the result, which must be the same to the last bit in every build.

namespace vantrel {

namespace circuit {

inline constexpr double kStepSeconds = 5e-8;
inline constexpr double kSeriesResistance = 10.0;
inline constexpr double kFirstRamp = 200.0;

/// Slope in V per ns at which the ramp takes what the dead time leaves of a half period for half
/// the bus voltage `bus`, at `khz`.
inline double slow_slope(double bus, double dead_time, double khz) {
  return (bus / 2 * 1e-9 * 2 * khz * 1000) / (1 - 2 * dead_time * 1e-6 * khz * 1000);
}

/// Slope at which the ramp takes the dead time for half the bus voltage.
inline double fast_slope(double bus, double dead_time) {
  return (bus / 2 * 1e-9) / dead_time / 1e-6;
}

/// True when one of the switches conducts, false within a dead time.
inline bool conducts(const TimeDomainSample& cur, double bus) {
  return (cur.SwitchState == 0 && cur.RampVoltage < bus / 2) ||
         (cur.SwitchState == bus && cur.RampVoltage > bus / 2);
}

/// The node behind the body diodes.
inline double clamped(double node, double bus) {
  if (node < 0) return 0;
  return node > bus ? bus : node;
}

/// What stays the same through a run.
struct Constants {
  explicit Constants(const TimeDomainMembers& members)
      : inductance(members.LValue),
        twice_capacitance(2 * members.CValue),
        step_per_capacitance(kStepSeconds / twice_capacitance),
        block(members.CBlock),
        node(members.CNode),
        dead_time(members.DeadTime) {}

  double inductance;
  double twice_capacitance;
  double step_per_capacitance;
  double block;
  double node;
  double dead_time;
};

/// Lamp and resonant capacitor by the trapezoid rule, solved for the lamp current.
inline void step_lamp(const Constants& c, double lamp, const TimeDomainSample& prev,
                      TimeDomainSample& cur) {
  cur.ILamp = ((cur.IL + prev.IL - prev.ILamp) * kStepSeconds / c.twice_capacitance + prev.VR) /
              (c.step_per_capacitance + lamp);
  cur.VR = cur.ILamp * lamp;
}

/// The first sample of a run; time and frequency of `cur` are given.
inline void first_step(const Constants& c, double bus, double lamp, const TimeDomainSample& prev,
                       TimeDomainSample& cur) {
  cur.RampSlope = slow_slope(bus, c.dead_time, cur.FrequencyKHz);
  cur.RampVoltage = kFirstRamp;
  cur.SwitchState = bus;
  cur.IL = 0;
  cur.SeriesDrop = 0;
  cur.NodeRaw = conducts(cur, bus) ? cur.SwitchState : bus;
  cur.VIN = clamped(cur.NodeRaw, bus);
  cur.VBlock = 0 * kStepSeconds / c.block + prev.VBlock;
  step_lamp(c, lamp, prev, cur);
}

/// Every later sample, from the one before; `bus` and `lamp` are the bus voltage and the lamp
/// resistance in force.
inline void step(const Constants& c, double bus, double lamp, const TimeDomainSample& prev,
                 TimeDomainSample& cur) {
  // First what the next step waits for: inductor and lamp do not depend on the oscillator.
  cur.IL = (prev.VIN / c.inductance - (prev.SeriesDrop + prev.VBlock + prev.VR) / c.inductance) *
               kStepSeconds +
           prev.IL;
  step_lamp(c, lamp, prev, cur);
  cur.SeriesDrop = cur.IL * kSeriesResistance;
  const double mean = cur.IL - (cur.IL - prev.IL) / 2;
  cur.VBlock = mean * kStepSeconds / c.block + prev.VBlock;

  const bool fast = (prev.RampVoltage >= bus / 2 && prev.SwitchState == 0) ||
                    (prev.RampVoltage < bus / 2 && prev.SwitchState == bus);
  cur.RampSlope =
      fast ? fast_slope(bus, c.dead_time) : slow_slope(bus, c.dead_time, cur.FrequencyKHz);
  const double delta = cur.RampSlope * kTimeStepUs / 0.001;
  cur.RampVoltage = prev.SwitchState == bus ? prev.RampVoltage + delta : prev.RampVoltage - delta;
  cur.SwitchState = cur.RampVoltage < prev.SwitchState ? bus : 0;

  // The node runs on beyond the rails while a dead time lasts: only what the tank sees is clamped.
  cur.NodeRaw = conducts(cur, bus) ? cur.SwitchState : prev.NodeRaw - mean * kStepSeconds / c.node;
  cur.VIN = clamped(cur.NodeRaw, bus);
}

/// True when one of the steps' divisors is zero; asked only when a step has failed.
inline bool divides_by_zero(const TimeDomainMembers& m, double lamp, double khz) {
  return m.DeadTime == 0 || 1 - 2 * m.DeadTime * 1e-6 * khz * 1000 == 0 || m.LValue == 0 ||
         m.CNode == 0 || m.CBlock == 0 || 2 * m.CValue == 0 ||
         kStepSeconds / (2 * m.CValue) + lamp == 0;
}

/// The nearest whole number, ties to even, for what is below 2^51 in size.
inline double nearest(double value) {
  constexpr double kUnitsOnly = 6755399441055744.0;  // 1.5 * 2^52: no bits are left for fractions
  return (value + kUnitsOnly) - kUnitsOnly;
}

/// The next point on the time grid of 0.01 us. A Fault "Overflow" beyond 64 bits of it.
inline double next_time(double time) {
  constexpr double kMost = 2251799813685248.0;  // 2^51
  const double hundredths = time * 100;
  if (std::fabs(hundredths) < kMost) return (nearest(hundredths) + 5) / 100;
  if (!(std::fabs(hundredths) < 9223372036854775808.0)) throw Fault(fault_text::kOverflow);
  return (std::nearbyint(hundredths) + 5) / 100;
}

}  // namespace circuit

}  // namespace vantrel
