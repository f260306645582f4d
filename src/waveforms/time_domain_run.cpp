#include "waveforms/time_domain_run.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <utility>

#include "core/fault.h"
#include "core/fp_trap.h"
#include "waveforms/time_domain_circuit.h"

namespace vantrel {

namespace {

/// Until this time the preheat comes down from the start frequency, microseconds.
constexpr double kPreheatSweep = 1000.0;
/// The tank has settled by then: the search for the repeat block begins, microseconds.
constexpr double kSettled = 1500.0;
/// Time in which the lamp comes down to its resistance, microseconds.
constexpr double kLampCollapse = 100.0;
/// How long the run stage is simulated beyond the ignition ramp, microseconds.
constexpr double kRunTime = 1000.0;
constexpr std::int32_t kBlock = TimeDomainEnvelope::kBlock;
/// Samples between two ticks.
constexpr std::int32_t kTick = 4096;

}  // namespace

TimeDomainRun::TimeDomainRun(TimeDomainMembers& members, TimeDomainStages& stages,
                             TimeDomainSamples& samples, TimeDomainEnvelope& envelope,
                             std::function<void()> tick)
    : members_(members),
      stages_(stages),
      samples_(samples),
      envelope_(envelope),
      tick_(std::move(tick)),
      preheats_(time_domain_target(members.TargetNumber).preheats),
      stage_(preheats_ ? 0 : 1) {
  samples_.records.reserve(TimeDomainSamples::kMost + kBlock + 1);
  envelope_.reserve(TimeDomainSamples::kMost + kBlock);
  samples_.upper_bound = 0;
  samples_.records.data()[0] = {};
  stages_[0].FirstSample = 0;
  prev_.TimeUs = stages_[static_cast<std::size_t>(stage_)].StartTime;
  cur_.FrequencyKHz = members_.StartFrequency;
  cur_.TimeUs = stages_[0].StartTime + kTimeStepUs;
  members_.LampResistance = kColdLamp;
  members_.BusVoltage = members_.PreheatBus;
}

double TimeDomainRun::swept(double time, double khz) const {
  const double begin = stages_[1].StartTime;
  if (time < begin) return khz;
  const TimeDomainMembers& m = members_;
  const double from = preheats_ ? m.PreheatFrequency : m.StartFrequency;
  const double length = preheats_ ? m.IgnitionRampTime : kSweepTime;
  if (time > begin + length) return m.RunFrequency;
  return from - (from - m.RunFrequency) * (time - begin) / length;
}

void TimeDomainRun::detectIgnition(double time, double lamp_voltage, std::int32_t n) {
  if (first_of_ignition_) {
    first_of_ignition_ = false;
    lowest_ = highest_ = lamp_voltage;
  } else if (lamp_voltage < lowest_) {
    lowest_ = lamp_voltage;
  } else if (lamp_voltage > highest_) {
    highest_ = lamp_voltage;
  }
  if (!((highest_ - lowest_) / 2 >= members_.MaxIgnitionVoltage)) return;
  stages_[1].LastSample = n - 1;
  stages_[1].EndTime = time;
  stages_[2].FirstSample = n;
  stages_[2].StartTime = time;
  stages_[2].EndTime = stages_[1].StartTime + members_.IgnitionRampTime + kRunTime;
  members_.BusVoltage = members_.RunBus;
  stage_ = 2;
}

/// What the stage commands: bus voltage, frequency and lamp. `cur` is the last sample at its new
/// time.
template <std::int32_t kStage>
inline void TimeDomainRun::command(TimeDomainSample& cur, std::int32_t n) {
  TimeDomainMembers& m = members_;
  const double time = cur.TimeUs;
  if constexpr (kStage == 0) {
    cur.FrequencyKHz =
        time <= kPreheatSweep
            ? m.StartFrequency - (m.StartFrequency - m.PreheatFrequency) * time / kPreheatSweep
            : m.PreheatFrequency;
  } else {
    // The run stage stays on the ignition bus: `RunBus` acts in the one step that sees the
    // ignition.
    m.BusVoltage = m.IgnitionBus;
    cur.FrequencyKHz = swept(time, cur.FrequencyKHz);
  }
  if constexpr (kStage == 1) detectIgnition(time, cur.VR, n);
  if constexpr (kStage == 2) {
    const double begin = stages_[2].StartTime;
    m.LampResistance =
        time <= begin + kLampCollapse
            ? kColdLamp + (m.LampRunResistance - kColdLamp) * (time - begin) / kLampCollapse
            : m.LampRunResistance;
  }
}

/// Of the crossings after the first, the one whose signature comes nearest to the first one's ends
/// the repeat block.
void TimeDomainRun::matchCrossing(std::int32_t n, double signature) {
  if (!found_) {
    members_.RepeatStart = n;
    signature_ = static_cast<float>(signature);
    best_ = -1;
    found_ = true;
    return;
  }
  const auto difference = static_cast<float>(std::fabs(signature_ - signature));
  if (best_ < 0 || difference < best_) {
    members_.RepeatEnd = n;
    best_ = difference;
  }
}

void TimeDomainRun::fail(double khz) const {
  const bool by_zero = circuit::divides_by_zero(members_, members_.LampResistance, khz);
  throw Fault(by_zero ? fault_text::kDivisionByZero : fault_text::kOverflow);
}

/// Steps within one stage up to the end of the present block of the envelope, or the next event.
template <std::int32_t kStage>
TimeDomainRun::Event TimeDomainRun::steps() {
  // In locals, so that what a step hands to the next stays in registers.
  TimeDomainSample prev = prev_;
  TimeDomainSample cur = cur_;
  std::int32_t n = n_;
  TimeDomainSample* const samples = samples_.records.data();
  const circuit::Constants constants(members_);
  const FpTrap trap;
  Event event = Event::None;
  do {
    command<kStage>(cur, n);
    if (n == 0) {
      circuit::first_step(constants, members_.BusVoltage, members_.LampResistance, prev, cur);
    } else {
      circuit::step(constants, members_.BusVoltage, members_.LampResistance, prev, cur);
    }
    if (trap.tripped()) fail(cur.FrequencyKHz);
    cur.Stage = stage_;
    samples[n] = cur;

    if (cur.TimeUs >= kSettled) {
      if (cur.TimeUs > kSimulatedPreheat) {
        if (!found_) return Event::NoCrossing;
      } else if (prev.IL < 0 && cur.IL >= 0) {
        matchCrossing(n, cur.IL - cur.VR);
      }
    }

    ++n;
    prev = cur;
    cur.TimeUs = circuit::next_time(cur.TimeUs);
    if (kStage == 0 && cur.TimeUs >= stages_[0].EndTime) event = Event::PreheatEnd;
  } while (event == Event::None && n % kBlock != 0 && stage_ == kStage &&
           cur.TimeUs < stages_[2].EndTime);
  if (trap.tripped()) fail(cur.FrequencyKHz);
  prev_ = prev;
  cur_ = cur;
  n_ = n;
  written_ = std::max(written_, n);
  return event;
}

TimeDomainRun::Event TimeDomainRun::advance() {
  constexpr std::array kSteps{&TimeDomainRun::steps<0>, &TimeDomainRun::steps<1>,
                              &TimeDomainRun::steps<2>};
  while (cur_.TimeUs < stages_[2].EndTime && !members_.CancelRequested) {
    const Event event = (this->*kSteps[static_cast<std::size_t>(stage_)])();
    if (event == Event::NoCrossing) return event;
    if (n_ % kBlock == 0) {
      envelope_.takeBlock(n_ / kBlock - 1, samples_.records.data());
    }
    if (n_ % kTick == 0) tick_();
    if (n_ > samples_.upper_bound) grow();
    if (event != Event::None) return event;
  }
  return Event::Ended;
}

/// The array grows in the steps in which its users see it grow; its memory is there already.
void TimeDomainRun::grow() {
  if (n_ > TimeDomainSamples::kMost) throw Fault(fault_text::kOutOfMemory);
  while (samples_.upper_bound < n_) {
    samples_.upper_bound = samples_.upper_bound + 1 + TimeDomainSamples::kGrowth;
  }
}

/// A record of the array as it stands; zero where this run has written nothing yet.
TimeDomainSample TimeDomainRun::sampleAt(std::int64_t index) const {
  if (index < 0 || index > samples_.upper_bound) throw Fault(fault_text::kSubscript);
  return index < written_ ? samples_.records.data()[index] : TimeDomainSample{};
}

/// Has the next sample written at `n`, with nothing of an earlier run before it.
void TimeDomainRun::moveTo(std::int32_t n) {
  if (n < 0 || n > samples_.upper_bound) throw Fault(fault_text::kSubscript);
  TimeDomainSample* const samples = samples_.records.data();
  if (n > written_) std::fill(samples + written_, samples + n, TimeDomainSample{});
  written_ = std::max(written_, n);
  for (std::int32_t block = n_ / kBlock; block < n / kBlock; ++block) {
    envelope_.takeBlock(block, samples);
  }
  n_ = n;
}

void TimeDomainRun::jump() {
  const std::int32_t start = members_.RepeatStart;
  const std::int32_t end = members_.RepeatEnd;
  if (end > samples_.upper_bound) throw Fault(fault_text::kSubscript);
  stage_ = 1;
  stages_[0].LastSample = end;
  stages_[1].FirstSample = end + 1;
  stages_[2].EndTime = members_.IgnitionRampTime + stages_[1].StartTime;
  if (end == start) throw Fault(fault_text::kDivisionByZero);
  const double steps =
      std::nearbyint((stages_[1].StartTime - sampleAt(start).TimeUs) / kTimeStepUs);
  if (!(std::fabs(steps) < 9223372036854775808.0)) throw Fault(fault_text::kOverflow);
  const std::int64_t block = std::int64_t{end} - start;
  const std::int64_t i = static_cast<std::int64_t>(steps) % block + start;
  const std::int64_t j = i - 1 < start ? std::int64_t{end} - 1 : i - 1;
  cur_ = sampleAt(i);
  cur_.TimeUs = stages_[1].StartTime;
  prev_ = sampleAt(j);
  prev_.TimeUs = cur_.TimeUs - kTimeStepUs;
  moveTo(end + 1);
}

void TimeDomainRun::finish() {
  TimeDomainSample* const samples = samples_.records.data();
  stages_[2].LastSample = n_ - 1;
  if (n_ >= written_) samples[n_] = {};
  samples_.upper_bound = n_;
  samples_.records.trim(static_cast<std::size_t>(n_) + 1, members_.CancelRequested);
  envelope_.finish(n_, members_.CancelRequested);
}

}  // namespace vantrel
