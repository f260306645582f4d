#include "waveforms/time_domain_members.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>

#include "core/fault.h"

namespace vantrel {

namespace {

using M = TimeDomainMembers;

constexpr auto kMembers = std::to_array<TimeDomainMember>({
    {"BusVoltage", "V", "", &M::BusVoltage},
    {"LValue", "H", "LValue", &M::LValue},
    {"CValue", "F", "CValue", &M::CValue},
    {"CBlock", "F", "", &M::CBlock},
    {"CNode", "F", "", &M::CNode},
    {"PreheatFrequency", "kHz", "cc_preheat_frequency", &M::PreheatFrequency},
    {"IgnitionFrequency", "kHz", "cc_ignition_frequency", &M::IgnitionFrequency},
    {"RunFrequency", "kHz", "cc_run_frequency or cc_max_frequency", &M::RunFrequency},
    {"StartFrequency", "kHz", "cc_start_frequency", &M::StartFrequency},
    {"PreheatBus", "V", "preheat_dc_bus_voltage or running_dc_bus_voltage_mode", &M::PreheatBus},
    {"IgnitionBus", "V", "ignition_dc_bus_voltage or running_dc_bus_voltage_mode", &M::IgnitionBus},
    {"RunBus", "V", "running_dc_bus_voltage, max_dc_bus_voltage or running_dc_bus_voltage_mode",
     &M::RunBus},
    {"MaxIgnitionVoltage", "V", "max_ignition_voltage", &M::MaxIgnitionVoltage},
    {"DeadTime", "us", "cc_deadtime", &M::DeadTime},
    {"LampResistance", "ohm", "", &M::LampResistance},
    {"LampRunResistance", "ohm", "lamp_resistance or lamp_resistance_max", &M::LampRunResistance},
    {"PreheatTime", "us", "cc_preheat_time", &M::PreheatTime},
    {"IgnitionRampTime", "us", "cc_ignition_ramp_time", &M::IgnitionRampTime},
    {"InputsAvailable", "", "", &M::InputsAvailable},
    {"CancelRequested", "", "", &M::CancelRequested},
    {"ShortTimeline", "", "", &M::ShortTimeline},
    {"RepeatStart", "", "", &M::RepeatStart},
    {"RepeatEnd", "", "", &M::RepeatEnd},
    {"TargetNumber", "", "", &M::TargetNumber},
});

constexpr TimeDomainTarget run_values(bool preheats) {
  return {preheats, "running_dc_bus_voltage", "lamp_resistance", "cc_run_frequency"};
}
constexpr TimeDomainTarget max_values(bool preheats) {
  return {preheats, "max_dc_bus_voltage", "lamp_resistance_max", "cc_max_frequency"};
}

constexpr auto kTargets = std::to_array<TimeDomainTarget>({
    run_values(true),   // TV6101
    run_values(true),   // TV6103
    max_values(true),   // TV6102
    run_values(true),   // TV6104
    run_values(true),   // TV6105
    run_values(false),  // TV6106
    {},                 // TV6108
    run_values(true),   // TV6109
    max_values(true),   // TV6110
    max_values(false),  // TV6107
});

constexpr TimeDomainTarget kUnknownTarget{};
/// From the start of the ignition to its planned end, microseconds.
constexpr double kPlannedIgnition = 9999.0;

void store(double& place, double value) { place = value; }
void store(bool& place, double value) { place = value != 0; }
void store(std::int32_t& place, double value) {
  using Limits = std::numeric_limits<std::int32_t>;
  if (value < Limits::min() || value > Limits::max()) throw Fault(fault_text::kOverflow);
  if (value != std::floor(value)) throw Fault(fault_text::kTypeMismatch);
  place = static_cast<std::int32_t>(value);
}

}  // namespace

std::span<const TimeDomainMember> time_domain_members() { return kMembers; }

void set_member(TimeDomainMembers& members, std::string_view name, double value) {
  const auto found = std::ranges::find(kMembers, name, &TimeDomainMember::name);
  if (found == kMembers.end()) throw Fault("Unknown member : " + std::string(name));
  if (!std::isfinite(value)) throw Fault(fault_text::kTypeMismatch);
  std::visit([&](auto place) { store(members.*place, value); }, found->place);
}

TimeDomainMembers default_members(const TimeDomainMembers& kept) {
  TimeDomainMembers members;
  members.ShortTimeline = kept.ShortTimeline;
  members.RepeatStart = kept.RepeatStart;
  members.RepeatEnd = kept.RepeatEnd;
  members.TargetNumber = kept.TargetNumber;
  return members;
}

const TimeDomainTarget& time_domain_target(std::int32_t target) {
  const bool known = target >= 0 && static_cast<std::size_t>(target) < kTargets.size();
  return known ? kTargets[static_cast<std::size_t>(target)] : kUnknownTarget;
}

TimeDomainStages planned_stages(TimeDomainMembers& members) {
  TimeDomainStages stages{};
  if (time_domain_target(members.TargetNumber).preheats) {
    stages[0].StartTime = members.DeadTime;
    stages[0].EndTime = kSimulatedPreheat;
    stages[1].StartTime = members.PreheatTime;
    stages[1].EndTime = members.PreheatTime + kPlannedIgnition;
  } else {
    members.IgnitionRampTime = kSweepTime;
    stages[1].StartTime = members.DeadTime;
    stages[1].EndTime = members.DeadTime + kPlannedIgnition;
  }
  stages[2].StartTime = members.PreheatTime + kPlannedIgnition;
  stages[2].EndTime = stages[2].StartTime;
  return stages;
}

}  // namespace vantrel
