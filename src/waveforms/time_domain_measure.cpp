#include "waveforms/time_domain_measure.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <span>
#include <utility>
#include <vector>

#include "core/fault.h"
#include "core/number_text.h"
#include "waveforms/time_domain_view_points.h"

namespace vantrel {

namespace {

constexpr std::int64_t kMostSamples = 50000000;
constexpr double kStepsPerMicro = 20;
constexpr double kMicrosPerMilli = 1000;
/// The peak of the run stage is taken over its last 100 us, some periods of any design.
constexpr std::int32_t kSettledSamples = 2000;

double time_of(const GraphTD& graph, std::int32_t sample) {
  return graph.Samples()[static_cast<std::size_t>(sample)].TimeUs;
}

/// Steps of 50 ns from `begin` to `time`, rounded up or down; a millionth of a step counts as none.
std::int64_t whole_steps(double steps) {
  constexpr double kMost = 1e15;
  return static_cast<std::int64_t>(std::clamp(steps, -kMost, kMost));
}
std::int64_t steps_up(double begin, double time) {
  return whole_steps(std::ceil((time - begin) * kStepsPerMicro - 1e-6));
}
std::int64_t steps_down(double begin, double time) {
  return whole_steps(std::floor((time - begin) * kStepsPerMicro + 1e-6));
}

/// The whole start as stretches of true time: a part of the samples that counts from `begin` on,
/// `count` samples long, over and over where it is shorter.
struct Stretch {
  std::int32_t first;
  std::int32_t length;
  double begin;
  std::int64_t count;
};

std::vector<Stretch> stretches(const GraphTD& graph) {
  const auto size = static_cast<std::int32_t>(graph.Samples().size()) - 1;
  const TimeDomainMembers& members = graph.members();
  if (!time_domain_target(members.TargetNumber).preheats ||
      graph.StageTable()[1].FirstSample == 0) {
    return {{0, size, time_of(graph, 0), size}};
  }
  const double ignition = graph.StageTable()[1].StartTime;
  const std::int32_t rest = graph.StageTable()[1].FirstSample;
  const std::int32_t block_end = rest - 1;
  const double repeat = time_of(graph, block_end);
  // The last step before the ignition may be shorter than the others.
  const std::int64_t missing = std::max<std::int64_t>(steps_up(repeat, ignition), 0);
  return {{0, block_end, time_of(graph, 0), block_end},
          {members.RepeatStart, block_end - members.RepeatStart, repeat, missing},
          {rest, size - rest, ignition, size - rest}};
}

void walk_stretch(const Stretch& stretch, double from, double to,
                  const std::function<void(const SampleRun& run)>& take) {
  const std::int64_t begin = std::max<std::int64_t>(steps_up(stretch.begin, from), 0);
  const std::int64_t end = std::min(steps_down(stretch.begin, to) + 1, stretch.count);
  if (end - begin > kMostSamples) throw Fault("The span holds too many samples");
  for (std::int64_t at = begin; at < end;) {
    const auto in_block = static_cast<std::int32_t>(at % stretch.length);
    const std::int64_t length = std::min<std::int64_t>(stretch.length - in_block, end - at);
    const std::int32_t first = stretch.first + in_block;
    take({first, first + static_cast<std::int32_t>(length) - 1,
          stretch.begin + static_cast<double>(at) * kTimeStepUs});
    at += length;
  }
}

using TraceValue = double (*)(const TimeDomainSample& sample);

/// Calls `take` with true time and value of each sample of a span.
template <typename Take>
void walk_values(const GraphTD& graph, double from, double to, TraceValue value, Take take) {
  walk_samples(graph, from, to, [&](const SampleRun& run) {
    const auto samples = graph.Samples().subspan(
        static_cast<std::size_t>(run.first), static_cast<std::size_t>(run.last - run.first + 1));
    for (std::size_t i = 0; i < samples.size(); ++i) {
      take(run.begin + static_cast<double>(i) * kTimeStepUs, value(samples[i]));
    }
  });
}

/// Counts how often a trace passes a level.
class Crossings {
 public:
  explicit Crossings(double level) : level_(level) {}
  void take(double time, double value) {
    const double above = value - level_;
    if (started_ && (before_ < 0) != (above < 0)) {
      ++count_;
      if (before_ < 0) rise(before_time_ + (time - before_time_) * before_ / (before_ - above));
    }
    started_ = true;
    before_ = above;
    before_time_ = time;
  }
  std::int64_t count() const { return count_; }
  /// kHz
  std::optional<double> frequency() const {
    if (rising_ < 2 || !(last_ > first_)) return std::nullopt;
    return static_cast<double>(rising_ - 1) / (last_ - first_) * kMicrosPerMilli;
  }

 private:
  void rise(double time) {
    if (rising_++ == 0) first_ = time;
    last_ = time;
  }

  double level_;
  bool started_ = false;
  double before_ = 0;
  double before_time_ = 0;
  std::int64_t count_ = 0;
  std::int64_t rising_ = 0;
  double first_ = 0;
  double last_ = 0;
};

/// Half of peak to peak of the lamp voltage, in V.
double peak(const GraphTD& graph, std::int32_t first, std::int32_t last) {
  const auto samples = graph.Samples().subspan(static_cast<std::size_t>(first),
                                               static_cast<std::size_t>(last - first + 1));
  const auto [low, high] = std::minmax_element(
      samples.begin(), samples.end(),
      [](const TimeDomainSample& a, const TimeDomainSample& b) { return a.VR < b.VR; });
  return (high->VR - low->VR) / 2;
}

std::string volts_text(double volts) { return format_mask(volts, "0") + " Vpk"; }

}  // namespace

void walk_samples(const GraphTD& graph, double from, double to,
                  const std::function<void(const SampleRun& run)>& take) {
  if (!has_samples(graph)) throw Fault(GraphTD::kNoInputs);
  for (const Stretch& stretch : stretches(graph)) {
    const double end = stretch.begin + static_cast<double>(stretch.count) * kTimeStepUs;
    if (stretch.count < 1 || stretch.length < 1 || from > end || to < stretch.begin) continue;
    walk_stretch(stretch, std::max(from, stretch.begin), std::min(to, end), take);
  }
}

namespace {

/// Measures what `walk` hands over, time and value in turn. It is walked again for a trace that
/// does not pass zero.
template <typename Walk>
Measurement measure_walk(Walk walk) {
  Measurement result;
  double sum = 0;
  double squares = 0;
  Crossings zero(0);
  walk([&](double time, double v) {
    result.minimum = result.count == 0 ? v : std::min(result.minimum, v);
    result.maximum = result.count == 0 ? v : std::max(result.maximum, v);
    ++result.count;
    sum += v;
    squares += v * v;
    zero.take(time, v);
  });
  if (result.count == 0) return result;
  result.mean = sum / static_cast<double>(result.count);
  result.rms = std::sqrt(squares / static_cast<double>(result.count));
  result.zero_crossings = zero.count();
  result.frequency = zero.frequency();
  if (zero.count() == 0 && result.minimum < result.maximum) {
    Crossings middle((result.minimum + result.maximum) / 2);
    walk([&](double time, double v) { middle.take(time, v); });
    result.frequency = middle.frequency();
  }
  return result;
}

}  // namespace

Measurement measure(const GraphTD& graph, double from, double to, Trace trace) {
  if (from > to) std::swap(from, to);
  return measure_walk(
      [&](auto take) { walk_values(graph, from, to, trace_row(trace).value, take); });
}

Measurement measure_values(std::span<const double> values) {
  return measure_walk([&](auto take) {
    for (std::size_t i = 0; i < values.size(); ++i) {
      take(static_cast<double>(i) * kTimeStepUs, values[i]);
    }
  });
}

std::string start_summary(const GraphTD& graph) {
  if (!has_samples(graph)) return "";
  const TimeDomainStages& stages = graph.StageTable();
  const TimeDomainMembers& members = graph.members();
  const bool preheats = time_domain_target(members.TargetNumber).preheats;
  const auto last = static_cast<std::int32_t>(graph.Samples().size()) - 2;
  std::string text;
  if (preheats) {
    const auto end = std::min(members.RepeatEnd, last);
    text = "preheat " + volts_text(peak(graph, std::min(members.RepeatStart, end), end)) + ", ";
    if (stages[1].FirstSample == 0) return text + "stopped in preheat";
  }
  const std::string sweep = preheats ? "the ramp" : "the sweep";
  const std::int32_t first = stages[1].FirstSample;
  const bool ignited = stages[2].FirstSample > 0;
  const std::int32_t end = ignited ? stages[2].FirstSample - 1 : last;
  const std::string reached = first <= end ? volts_text(peak(graph, first, end)) : volts_text(0);
  if (!ignited) return text + "does not ignite, reaches " + reached;
  text += "ignites " +
          format_mask((stages[2].StartTime - stages[1].StartTime) / kMicrosPerMilli, "0.0") +
          " ms into " + sweep + " at " + reached;
  const std::int32_t settled = std::max(stages[2].FirstSample, last - kSettledSamples + 1);
  return text + ", runs at " + volts_text(peak(graph, settled, last));
}

std::string samples_csv(const GraphTD& graph, double from, double to) {
  std::string text = "TimeUs";
  for (const TraceRow& row : traces()) text += "," + std::string(row.label);
  text += ",Stage\n";
  walk_samples(graph, from, to, [&](const SampleRun& run) {
    for (std::int32_t i = run.first; i <= run.last; ++i) {
      const TimeDomainSample& sample = graph.Samples()[static_cast<std::size_t>(i)];
      text += format_mask(run.begin + (i - run.first) * kTimeStepUs, "0.00");
      for (const TraceRow& row : traces()) text += "," + general_text(row.value(sample));
      text += "," + general_text(sample.Stage) + "\n";
    }
  });
  return text;
}

}  // namespace vantrel
