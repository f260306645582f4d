#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <utility>
#include <variant>
#include <vector>

#include "waveforms/time_domain_sample.h"

namespace vantrel {

/// What a simulated start is computed from. Microseconds, kHz, V, H, F and ohms.
struct TimeDomainMembers {
  double BusVoltage = 400.0;  ///< In force at the current step.
  double LValue = 0.00025;
  double CValue = 10e-9;
  double CBlock = 100e-9;
  double CNode = 1e-9;  ///< Capacitance at the half-bridge node.
  double PreheatFrequency = 55.0;
  double IgnitionFrequency = 42.0;  ///< Kept, but the model has no use for it.
  double RunFrequency = 44.0;
  double StartFrequency = 75.0;
  double PreheatBus = 400.0;
  double IgnitionBus = 400.0;
  double RunBus = 400.0;
  double MaxIgnitionVoltage = 800.0;
  double DeadTime = 1.5;
  double LampResistance = 1000000.0;  ///< In force at the current step.
  double LampRunResistance = 144400.0;
  double PreheatTime = 1000000.0;
  double IgnitionRampTime = 10000.0;
  bool InputsAvailable = false;
  bool CancelRequested = false;
  bool ShortTimeline = false;     ///< Look-ups leave the unsimulated preheat out of the axis.
  std::int32_t RepeatStart = 0;   ///< First sample of the repeat block of the preheat.
  std::int32_t RepeatEnd = 0;     ///< The sample behind it.
  std::int32_t TargetNumber = 0;  ///< Number of the control IC.
};

/// One member of the table above.
struct TimeDomainMember {
  std::string_view name;
  std::string_view unit;    ///< Empty for what has none.
  std::string_view source;  ///< Where a design gives its value; empty when nowhere.
  std::variant<double TimeDomainMembers::*, bool TimeDomainMembers::*,
               std::int32_t TimeDomainMembers::*>
      place;
};

/// Every member in the order of the table; their defaults are those of a fresh TimeDomainMembers.
std::span<const TimeDomainMember> time_domain_members();

/// Members set by name, each in its unit; anything but 0 is true.
using TimeDomainOverrides = std::vector<std::pair<std::string, double>>;

/// Sets a member. A Fault for an unknown name, for what is no number, and for a count that is not
/// whole or does not fit into 32 bits.
void set_member(TimeDomainMembers& members, std::string_view name, double value);

/// The defaults, with the target, the display mode and the repeat block taken from `kept`.
TimeDomainMembers default_members(const TimeDomainMembers& kept);

/// What a control IC means for the simulation. The names are fields of the design screen, the last
/// of the component calculator; null where the IC leaves the default.
struct TimeDomainTarget {
  bool preheats = true;
  const char* bus = nullptr;
  const char* lamp_resistance = nullptr;
  const char* run_frequency = nullptr;
};

/// The row of a target number; an unknown number preheats and reads none of the three.
const TimeDomainTarget& time_domain_target(std::int32_t target);

/// Fills the stage table from the members. ICs without preheat get their fixed sweep time, which
/// is therefore written into the members.
TimeDomainStages planned_stages(TimeDomainMembers& members);

/// Length of the frequency sweep of ICs without preheat, microseconds.
inline constexpr double kSweepTime = 11000.0;
/// Lamp resistance before ignition, ohms.
inline constexpr double kColdLamp = 1000000.0;
/// End of the part of the preheat that is simulated, microseconds.
inline constexpr double kSimulatedPreheat = 2100.0;

}  // namespace vantrel
