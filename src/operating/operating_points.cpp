#include "operating/operating_points.h"

#include <cmath>
#include <string>
#include <utility>

#include "core/fault.h"
#include "core/number_text.h"
#include "operating/calculation_warnings.h"
#include "operating/pfc_stage.h"
#include "operating/target_traits.h"

namespace vantrel {

namespace {

constexpr double kFirstBallastFrequency = 40;   // kHz
constexpr double kSecondBallastFrequency = 30;  // kHz
constexpr double kHighestRaisedBus = 350;       // V
constexpr float kLowestPreheatCurrent = 0.04F;  // A
constexpr double kPreheatCurrentStep = 0.02;    // A

constexpr const char* kNoSolution =
    "No solution found. Try the following:\n\n"
    "1) Increase DC Bus Voltage\n"
    "2) Decrease ballast run frequency\n"
    "3) Decrease preheat current";

float start_frequency(StartFrequencyRule rule, const OperatingBlock& block) {
  switch (rule) {
    case StartFrequencyRule::PreheatTimes1_7:
      return checked_single(static_cast<double>(block.FPreheat) * 1.7);
    case StartFrequencyRule::PreheatPlus25k:
      return checked_single(static_cast<double>(block.FPreheat) + 25000.0);
    case StartFrequencyRule::Fixed100k:
      return 100000;
    case StartFrequencyRule::RunTimes2_5:
      return checked_single(static_cast<double>(block.FRun) * 2.5);
    case StartFrequencyRule::None:
      break;
  }
  return 0;
}

template <typename Hook>
auto call(const Hook& hook) -> decltype(hook()) {
  if (hook) return hook();
  return decltype(hook())();
}

}  // namespace

OperatingPoints::OperatingPoints(Advanced& advanced, TargetFactory& targets, MissingFields& missing,
                                 SysMsg& messages, OperatingPointsHooks hooks)
    : advanced_(advanced),
      missing_(missing),
      messages_(messages),
      hooks_(std::move(hooks)),
      calculator_(targets, messages),
      search_(calculator_, block_) {}

void OperatingPoints::setWaitPointer(bool busy) const {
  if (hooks_.waitPointer) hooks_.waitPointer(busy);
}

bool OperatingPoints::Calculate(bool show_results) {
  try {
    advanced_.prepare_calculation_data();
    if (target_traits(advanced_.target()).runsNear40kHz) {
      advanced_.field("ballast_run_frequency").SetValue(kFirstBallastFrequency);
    }
    Outcome outcome = Outcome::Restart;
    while (outcome == Outcome::Restart) outcome = pass(show_results);
    return outcome == Outcome::Done;
  } catch (const Fault&) {
    setWaitPointer(false);
    messages_.msg(advanced_.name(),
                  "The calculation could not be completed. Please check input values");
    return false;
  }
}

OperatingPoints::Outcome OperatingPoints::pass(bool show_results) {
  if (!show_results) {
    for (const char* name : Advanced::kTickedResults) advanced_.field(name).SetFixValue(false);
  }
  missing_.Reset();
  if (advanced_.target() == kTransformerTarget) return Outcome::Done;
  block_ = read_operating_block(advanced_);
  if (!missing_.IsEmpty(true)) return Outcome::Ended;
  bus_raised_ = false;
  std::size_t chosen = 0;
  const Outcome outcome = searchTank(chosen);
  if (outcome != Outcome::Done) return outcome;

  block_.FStart = start_frequency(target_traits(advanced_.target()).start, block_);
  if (advanced_.says_yes("line_input_pfc")) {
    run_pfc_stage(advanced_, block_, {messages_, hooks_.powerFactor});
  }
  writeResults(search_.PossibleResults()[chosen]);
  call(hooks_.refresh);
  const std::int32_t number = call(hooks_.addCalculationRecord);
  if (call(hooks_.isGraphWanted)) call(hooks_.drawGraph);
  return tell(show_results, number);
}

OperatingPoints::Outcome OperatingPoints::searchTank(std::size_t& chosen) {
  while (true) {
    TankSearchSettings settings{.target = advanced_.target()};
    if (!readFixedTank(settings)) return Outcome::Ended;
    if (!calculator_.SelectTarget(settings.target)) return Outcome::Ended;
    const std::string mode = advanced_.heatingMode();
    settings.currentMode = mode == kCurrentMode;
    if (!settings.currentMode && mode != kVoltageMode) {
      messages_.msg(advanced_.name(), "Calculate : Unknown Voltage/Current ... Mode in calculate");
      return Outcome::Ended;
    }
    calculator_.CalculationFailed = false;
    setWaitPointer(true);
    const std::optional<std::size_t> found = search_.SearchAndSelect(settings);
    setWaitPointer(false);
    if (!found) {
      if (raiseBus()) continue;
      return handleNoCandidate();
    }
    chosen = *found;
    // A single candidate is not evaluated again: the block keeps the last tank of the search.
    if (search_.PossibleResults().size() == 1) return Outcome::Done;
    const PossibleResult& candidate = search_.PossibleResults()[chosen];
    if (lowerPreheatCurrent(candidate, settings)) continue;
    block_.C = candidate.C;
    block_.L = candidate.L;
    search_.Evaluate(settings.target, settings.currentMode);
    return Outcome::Done;
  }
}

bool OperatingPoints::readFixedTank(TankSearchSettings& settings) {
  return readFixed("CValue", 'C', 1000000000.0, block_.C, settings.fixedC) &&
         readFixed("LValue", 'L', 1000.0, block_.L, settings.fixedL);
}

bool OperatingPoints::readFixed(const char* field, char quantity, double divisor, float& number,
                                bool& fixed) {
  VTLValue& value = advanced_.field(field);
  fixed = value.IsFixed();
  if (!fixed) return true;
  number = checked_single(to_double(value.GetValue()) / divisor);
  if (number > 0) return true;
  const std::string name(1, quantity);
  messages_.msg(advanced_.name(), "A value must be entered for " + name + ". Uncheck 'Set " + name +
                                      "' to have it calculated");
  return false;
}

bool OperatingPoints::raiseBus() {
  if (advanced_.says_yes("line_input_pfc")) return false;
  bus_raised_ = true;
  // A negative bus is a slip of the keyboard; climbing from there in steps of 10 V could take
  // hours.
  if (!(block_.VBus < kHighestRaisedBus) || block_.VBus < 0) return false;
  block_.VBus =
      static_cast<float>((std::floor(static_cast<double>(block_.VBus) / 10.0) + 1.0) * 10.0);
  return true;
}

OperatingPoints::Outcome OperatingPoints::handleNoCandidate() {
  if (target_traits(advanced_.target()).runsNear40kHz && block_.FBallast > 30000) {
    advanced_.field("ballast_run_frequency").SetValue(kSecondBallastFrequency);
    return Outcome::Restart;
  }
  messages_.msg(advanced_.name(), kNoSolution, kMessageOk, kSeverityWarning);
  return Outcome::Ended;
}

bool OperatingPoints::lowerPreheatCurrent(const PossibleResult& candidate,
                                          const TankSearchSettings& settings) {
  if (settings.currentMode || !target_traits(settings.target).preheats) return false;
  if (!exceeds_preheat_limit(block_.VPreheatMax, candidate.VPreheat)) return false;
  if (!(kLowestPreheatCurrent < block_.IPreheat)) return false;
  const auto lowered =
      static_cast<float>(static_cast<double>(block_.IPreheat) - kPreheatCurrentStep);
  // From half a million amperes on the step is lost in 32 bits, and the retries would never end.
  if (!(lowered < block_.IPreheat)) return false;
  block_.IPreheat = lowered;
  return true;
}

void OperatingPoints::writeResults(const PossibleResult& chosen) {
  write_operating_block(advanced_, block_);
  VTLValue& c = advanced_.field("CValue");
  if (!c.IsFixed()) c.SetValue(static_cast<double>(chosen.C) * 1000000000.0);
  VTLValue& l = advanced_.field("LValue");
  if (!l.IsFixed()) l.SetValue(static_cast<double>(chosen.L) * 1000.0);
}

OperatingPoints::Outcome OperatingPoints::tell(bool show_results, std::int32_t number) {
  const bool current_mode = advanced_.heatingMode() == kCurrentMode;
  const CalculationWarnings warnings =
      calculation_warnings({block_, advanced_.target(), current_mode, bus_raised_});
  const bool warned = !warnings.text.empty();
  if (!warned && !(show_results && call(hooks_.isCompletionShown))) return Outcome::Done;

  std::string text;
  if (show_results) {
    text = "Calculation " + general_text(number) + " Complete\n\nBallast Run Frequency = " +
           format_mask(static_cast<double>(block_.FRun) / 1000.0, "#########0.0") + "kHz";
    if (warned) text += "¬¬Warning: ";
  }
  text += warnings.text;
  if (!warnings.canRetryVoltageMode) {
    messages_.msg(advanced_.name(), text, kMessageOk,
                  warned ? kSeverityWarning : kSeverityInformation);
    return Outcome::Done;
  }
  text += "¬¬Do you wish to retry the calculation in voltage mode ?";
  const int answer = messages_.msg(advanced_.name(), text, kMessageYesNo, kSeverityFromType);
  return answer == kYes && call(hooks_.selectVoltageMode) ? Outcome::Restart : Outcome::Done;
}

}  // namespace vantrel
