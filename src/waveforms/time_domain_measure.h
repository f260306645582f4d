#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <span>
#include <string>

#include "waveforms/time_domain.h"
#include "waveforms/time_domain_view_traces.h"

namespace vantrel {

/// A stretch of samples without a gap.
struct SampleRun {
  std::int32_t first = 0;
  std::int32_t last = 0;  ///< Included.
  double begin = 0;       ///< True time of the first, microseconds.
};

/// Calls `take` for the samples from one true time to another, both included, in order; the
/// stretches follow each other in steps of 50 ns. The unsimulated preheat counts as its repeat
/// block over and over. A Fault when the span holds more than 50 million samples, or when there is
/// nothing to look at.
void walk_samples(const GraphTD& graph, double from, double to,
                  const std::function<void(const SampleRun& run)>& take);

/// A trace over a span of time.
struct Measurement {
  std::int64_t count = 0;  ///< Of samples; without one all numbers are 0.
  double minimum = 0;
  double maximum = 0;
  double mean = 0;
  double rms = 0;
  std::int64_t zero_crossings = 0;  ///< Rising and falling.
  /// kHz, from the first to the last rising crossing of zero, or of the middle between the extremes
  /// for a trace that does not pass zero; times are interpolated between samples. Nothing with
  /// fewer than two.
  std::optional<double> frequency;
};

/// Measures a trace between two true times in microseconds, in either order. Faults as
/// `walk_samples`.
Measurement measure(const GraphTD& graph, double from, double to, Trace trace);

/// The same for values that stand 50 ns apart.
Measurement measure_values(std::span<const double> values);

/// The start in one line: "preheat 249 Vpk, ignites 7.0 ms into the ramp at 640 Vpk, runs at
/// 236 Vpk". Peaks are half of peak to peak. Empty without samples.
std::string start_summary(const GraphTD& graph);

/// The samples between two true times as a table for files: a row of names, then time in
/// microseconds, the traces in V, A and kHz, and the stage. Faults as `walk_samples`.
std::string samples_csv(const GraphTD& graph, double from, double to);

}  // namespace vantrel
