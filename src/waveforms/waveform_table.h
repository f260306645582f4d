#pragma once

#include <cstdint>
#include <span>
#include <string>

#include "waveforms/time_domain_sample.h"

namespace vantrel {

/// The waveforms of a run as CSV text (RFC 4180) under one line of titles with units: time, half-
/// bridge, inductor current, blocking capacitor, lamp current and voltage, commanded frequency and
/// stage. Every number reads back as the same value. Only each `step`th sample is written, from the
/// first on; a step below 1 counts as 1.
std::string waveform_csv(std::span<const TimeDomainSample> samples, std::int32_t step = 1);

}  // namespace vantrel
