#pragma once

#include <cstdint>
#include <functional>

#include "waveforms/time_domain_envelope.h"
#include "waveforms/time_domain_members.h"
#include "waveforms/time_domain_memory.h"
#include "waveforms/time_domain_sample.h"

namespace vantrel {

/// The samples of a run. The bound is what users of the array see; behind it nothing is promised.
struct TimeDomainSamples {
  /// The most samples that a run may take.
  static constexpr std::int32_t kMost = 4000000;
  /// By how much the array grows at a time.
  static constexpr std::int32_t kGrowth = 5000;

  PagedArray<TimeDomainSample> records;
  std::int32_t upper_bound = -1;  ///< -1 before the first run.
};

/// One simulated start, stepped from one event to the next. It works on the members, stages,
/// samples and envelope that it is given.
class TimeDomainRun {
 public:
  enum class Event {
    None,
    PreheatEnd,  ///< The simulated part of the preheat is over: `jump` follows.
    NoCrossing,  ///< There is no rising zero crossing to repeat the preheat from.
    Ended        ///< The time is up or the user has cancelled.
  };

  TimeDomainRun(TimeDomainMembers& members, TimeDomainStages& stages, TimeDomainSamples& samples,
                TimeDomainEnvelope& envelope, std::function<void()> tick);

  /// Steps on to the next event. Every 4096 steps it calls `tick`, within which the members may be
  /// told to cancel. A Fault when a formula divides by zero or overflows and when the samples
  /// become too many.
  Event advance();
  bool crossingFound() const { return found_; }
  /// Goes on at the true end of the preheat, in the phase in which the repeat block is then. A
  /// Fault when the block is empty or the phase lies outside the samples.
  void jump();
  /// Ends the run: sets the last sample, the bound of the samples and the envelope.
  void finish();

  std::int32_t n() const { return n_; }
  std::int32_t stage() const { return stage_; }

 private:
  template <std::int32_t kStage>
  Event steps();
  template <std::int32_t kStage>
  void command(TimeDomainSample& cur, std::int32_t n);
  double swept(double time, double khz) const;
  void detectIgnition(double time, double lamp_voltage, std::int32_t n);
  void matchCrossing(std::int32_t n, double signature);
  [[noreturn]] void fail(double khz) const;
  TimeDomainSample sampleAt(std::int64_t index) const;
  void grow();
  void moveTo(std::int32_t n);

  TimeDomainMembers& members_;
  TimeDomainStages& stages_;
  TimeDomainSamples& samples_;
  TimeDomainEnvelope& envelope_;
  std::function<void()> tick_;
  bool preheats_;
  std::int32_t stage_;
  std::int32_t n_ = 0;
  std::int32_t written_ = 0;  ///< From here on the memory may hold samples of an earlier run.
  TimeDomainSample prev_;
  TimeDomainSample cur_;

  bool found_ = false;
  float signature_ = 0;
  float best_ = -1;

  bool first_of_ignition_ = true;
  double lowest_ = 0;
  double highest_ = 0;
};

}  // namespace vantrel
