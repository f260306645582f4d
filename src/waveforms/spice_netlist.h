#pragma once

#include <span>
#include <string>
#include <vector>

#include "waveforms/time_domain_members.h"
#include "waveforms/time_domain_sample.h"

namespace vantrel {

/// A corner of the course that the oscillator's frequency takes; between corners it is a straight
/// line, before the first and behind the last it stays.
struct FrequencyPoint {
  double time_us = 0;  ///< On the time axis of the netlist, see `spice_netlist`.
  double khz = 0;
};

/// The course that the control IC commands.
std::vector<FrequencyPoint> commanded_frequency(const TimeDomainMembers& members);

/// The course that a simulated start has really taken, which lies a little above the commanded one:
/// means over 8 periods of the half-bridge. `samples` without the record behind the last sample.
std::vector<FrequencyPoint> measured_frequency(const TimeDomainMembers& members,
                                               const TimeDomainStages& stages,
                                               std::span<const TimeDomainSample> samples);

/// An ngspice netlist of the output stage that these members describe: the half-bridge with its
/// dead time, the tank, a lamp that ignites, and the frequency sweep. `ngspice -b` runs it as it is
/// and prints its key measurements. Of the preheat it holds the first 2100 us, behind which the
/// ignition ramp begins at once. Without a `course` the source follows the commanded frequency.
std::string spice_netlist(const TimeDomainMembers& members,
                          std::span<const FrequencyPoint> course = {});

}  // namespace vantrel
