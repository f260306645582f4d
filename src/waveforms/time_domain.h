#pragma once

#include <array>
#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <string_view>

#include "core/please_wait.h"
#include "core/run_state.h"
#include "core/screen.h"
#include "selection/missing_fields.h"
#include "services/messages/sysmsg.h"
#include "waveforms/time_domain_envelope.h"
#include "waveforms/time_domain_members.h"
#include "waveforms/time_domain_run.h"
#include "waveforms/time_domain_sample.h"

namespace vantrel {

/// What the simulation uses of the program.
struct TimeDomainServices {
  Screen& design;                            ///< The design screen.
  Screen& calculator;                        ///< The component calculator.
  std::function<std::string()> heatingMode;  ///< Of the selected lamp configuration.
  const RunState& state;
  MissingFields& missing;
  SysMsg& messages;
  PleaseWait& pleaseWait;
};

/// Sum and hash of one field over the samples of a run.
struct SampleFieldSum {
  std::string_view name;
  double sum = 0;          ///< Plain sum in sample order.
  std::uint64_t hash = 0;  ///< 64-bit FNV-1a over the little-endian values in sample order.
};

/// A run in numbers.
struct TimeDomainReport {
  double result = 0;  ///< What the run returned.
  std::int32_t n = 0;
  std::int32_t repeat_start = 0;
  std::int32_t repeat_end = 0;
  TimeDomainStages stages{};
  std::array<SampleFieldSum, 13> fields{};
};

/// Simulation of one complete start of a ballast: preheat, ignition and run. The preheat of a
/// second or more is not simulated whole: a block of it that repeats stands for the rest, and the
/// look-ups fold times of that stretch into the block.
class GraphTD {
 public:
  /// Shown in the middle of the graph when it has nothing to show.
  static constexpr const char* kNoInputs = "Graph Inputs Not Available, Retry Calculation";
  /// Result of a run that has failed or was cancelled.
  static constexpr double kFailed = -1.0;

  explicit GraphTD(TimeDomainServices services);

  /// Loads the members from the design and plans the stages. True when every input is present;
  /// otherwise the user is asked about the missing ones. A Fault for a value that overflows in its
  /// conversion.
  bool InitialiseGraph();
  /// The members that InitialiseGraph would load, and the same question about missing inputs; then
  /// nothing. The last run stays as it is.
  std::optional<TimeDomainMembers> designMembers();
  /// Simulates the design's start. The planned duration in microseconds; kFailed when inputs are
  /// missing, and when the run fails or is cancelled, which is told. A cancelled run keeps its
  /// samples, a failed one leaves none.
  double GenerateTimeDomain();
  /// The same without a design: the defaults with some members set by name, for the
  /// selected IC unless `TargetNumber` is among them. A Fault, before
  /// anything is touched, for what `set_member` refuses.
  double GenerateFrom(const TimeDomainOverrides& overrides);
  /// Asks the run to end at its next step.
  void PW_Cancel() { members_.CancelRequested = true; }

  /// The preheat time that the repeat block stands for, microseconds; 0 for ICs without preheat. A
  /// Fault when there are no samples.
  double GetDurationBetweenRepeatEndAndIgnition() const;
  /// The number of the sample at a time. When that fails (there are no samples, the repeat block is
  /// empty, the number does not fit) it says "Error!" and gives what it had so far.
  std::int32_t FindItemNo(double TimePosition) const;
  /// `ValIn` within -`MaxMinVal` to `MaxMinVal`.
  static double CapVal(double MaxMinVal, double ValIn);
  /// The name of a stage, "Unknown" for other numbers.
  std::string_view GetStageString(std::int32_t Stage) const;
  /// Start or end of a stage in microseconds. A Fault for a number that is not 0 to 3.
  double ReturnStageTime(std::int32_t StageNo, bool GetStart) const;

  const TimeDomainMembers& members() const { return members_; }
  void shortTimeline(bool is_short) { members_.ShortTimeline = is_short; }
  /// All samples up to the bound; after a run the bound is the sample count, so there is one record
  /// more than samples.
  std::span<const TimeDomainSample> Samples() const;
  /// The samples of the last run alone.
  std::span<const TimeDomainSample> simulated() const;
  std::span<const EnvelopeEntry> Envelope() const { return envelope_.entries(); }
  const TimeDomainStages& StageTable() const { return stages_; }
  /// The last run in numbers.
  TimeDomainReport report() const;

  /// Writes a text in white in the middle of the control; empty without a window.
  std::function<void(std::string_view text)> writeCentred;
  /// Called at every tick of a run, which come once in 4096 samples, with its number from 1 on.
  std::function<void(std::int32_t tick)> onTick;

 private:
  bool load(TimeDomainMembers& members, TimeDomainStages& stages);
  void readInputs(TimeDomainMembers& members);
  double generate(const std::function<bool()>& initialise);
  double simulate();
  void tick(std::int32_t number);
  double noCrossing();
  void discard();
  void warn(std::string_view text);
  const TimeDomainSample& sampleAt(std::int32_t index) const;
  void find(double time, std::int64_t& answer) const;

  TimeDomainServices services_;
  TimeDomainMembers members_;
  TimeDomainStages stages_{};
  TimeDomainSamples samples_;
  TimeDomainEnvelope envelope_;
  double result_ = kFailed;
  /// The wait window may outlive this object and must not call it then.
  std::shared_ptr<GraphTD*> alive_;
};

}  // namespace vantrel
