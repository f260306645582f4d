#include <algorithm>
#include <array>
#include <bit>
#include <cmath>
#include <limits>
#include <utility>

#include "core/fault.h"
#include "waveforms/time_domain.h"

namespace vantrel {

namespace {

/// The whole number at or below `value`; a Fault "Overflow" when 64 bits do not hold it.
std::int64_t whole(double value) {
  constexpr double kTooMuch = 9223372036854775808.0;  // 2^63
  if (!(std::fabs(value) < kTooMuch)) throw Fault(fault_text::kOverflow);
  const auto cut = static_cast<std::int64_t>(value);
  return static_cast<double>(cut) > value ? cut - 1 : cut;
}

/// The remainder with the sign of `value`. A division of 32 bits takes a fraction of the time that
/// one of 64 takes, and nearly all are small enough for it.
std::int64_t remainder_of(std::int64_t value, std::int64_t divisor) {
  if (divisor == 0) throw Fault(fault_text::kDivisionByZero);
  if (std::in_range<std::int32_t>(value) && std::in_range<std::int32_t>(divisor) && value >= 0) {
    return static_cast<std::int32_t>(value) % static_cast<std::int32_t>(divisor);
  }
  return value % divisor;
}

/// 64-bit FNV-1a.
class Fnv1a {
 public:
  /// Takes the bytes of a value, least significant first.
  template <typename Bits>
  void add(Bits bits) {
    for (std::size_t i = 0; i < sizeof bits; ++i) {
      hash_ = (hash_ ^ (static_cast<std::uint64_t>(bits >> (8 * i)) & 0xff)) * 0x100000001b3;
    }
  }
  std::uint64_t hash() const { return hash_; }

 private:
  std::uint64_t hash_ = 0xcbf29ce484222325;
};

struct SampleField {
  std::string_view name;
  double TimeDomainSample::*place;
};

using S = TimeDomainSample;
constexpr auto kFields = std::to_array<SampleField>({{"TimeUs", &S::TimeUs},
                                                     {"RampSlope", &S::RampSlope},
                                                     {"RampVoltage", &S::RampVoltage},
                                                     {"SwitchState", &S::SwitchState},
                                                     {"NodeRaw", &S::NodeRaw},
                                                     {"VIN", &S::VIN},
                                                     {"IL", &S::IL},
                                                     {"VBlock", &S::VBlock},
                                                     {"ILamp", &S::ILamp},
                                                     {"VR", &S::VR},
                                                     {"SeriesDrop", &S::SeriesDrop},
                                                     {"FrequencyKHz", &S::FrequencyKHz}});

}  // namespace

double GraphTD::GetDurationBetweenRepeatEndAndIgnition() const {
  if (!time_domain_target(members_.TargetNumber).preheats) return 0.0;
  return stages_[1].StartTime - sampleAt(members_.RepeatEnd).TimeUs;
}

void GraphTD::find(double time, std::int64_t& answer) const {
  const std::int64_t k =
      std::max<std::int64_t>(whole((time - sampleAt(0).TimeUs) / kTimeStepUs), 0);
  answer = k;
  const double repeat_end = sampleAt(members_.RepeatEnd).TimeUs;
  if (time < repeat_end) return;
  const double ignition = stages_[1].StartTime;
  if (members_.ShortTimeline && time < ignition) time += ignition - repeat_end;
  if (time < ignition) {
    const std::int64_t block = std::int64_t{members_.RepeatEnd} - members_.RepeatStart;
    answer = remainder_of(k - members_.RepeatStart, block) + members_.RepeatStart;
    return;
  }
  answer = std::min<std::int64_t>(whole((time - ignition) / kTimeStepUs + stages_[1].FirstSample),
                                  samples_.upper_bound - 1);
}

std::int32_t GraphTD::FindItemNo(double TimePosition) const {
  using Limits = std::numeric_limits<std::int32_t>;
  std::int64_t answer = 0;
  try {
    find(TimePosition, answer);
    if (answer > Limits::max()) throw Fault(fault_text::kOverflow);
  } catch (const Fault&) {
    services_.messages.messageBox("Vantrel", "Error!");
  }
  return static_cast<std::int32_t>(std::min<std::int64_t>(answer, Limits::max()));
}

double GraphTD::CapVal(double MaxMinVal, double ValIn) {
  if (ValIn > MaxMinVal) return MaxMinVal;
  return ValIn < -MaxMinVal ? -MaxMinVal : ValIn;
}

std::string_view GraphTD::GetStageString(std::int32_t Stage) const {
  const bool preheats = time_domain_target(members_.TargetNumber).preheats;
  switch (Stage) {
    case 0:
      return preheats ? "Preheat" : "INVALID";
    case 1:
      return preheats ? "Ignition" : "Frequency Sweep";
    case 2:
      return "Run";
    default:
      return "Unknown";
  }
}

double GraphTD::ReturnStageTime(std::int32_t StageNo, bool GetStart) const {
  if (StageNo < 0 || static_cast<std::size_t>(StageNo) >= stages_.size()) {
    throw Fault(fault_text::kSubscript);
  }
  const StageEntry& stage = stages_[static_cast<std::size_t>(StageNo)];
  return GetStart ? stage.StartTime : stage.EndTime;
}

TimeDomainReport GraphTD::report() const {
  TimeDomainReport report{.result = result_,
                          .n = std::max(samples_.upper_bound, 0),
                          .repeat_start = members_.RepeatStart,
                          .repeat_end = members_.RepeatEnd,
                          .stages = stages_};
  const std::span<const TimeDomainSample> samples = simulated();
  for (std::size_t i = 0; i < kFields.size(); ++i) {
    Fnv1a hash;
    double sum = 0;
    for (const TimeDomainSample& sample : samples) {
      const double value = sample.*kFields[i].place;
      sum += value;
      hash.add(std::bit_cast<std::uint64_t>(value));
    }
    report.fields[i] = {kFields[i].name, sum, hash.hash()};
  }
  Fnv1a hash;
  double sum = 0;
  for (const TimeDomainSample& sample : samples) {
    sum += sample.Stage;
    hash.add(static_cast<std::uint32_t>(sample.Stage));
  }
  report.fields.back() = {"Stage", sum, hash.hash()};
  return report;
}

}  // namespace vantrel
