#include "waveforms/time_domain.h"

#include <algorithm>
#include <cmath>
#include <new>
#include <utility>

#include "core/fault.h"
#include "operating/advanced.h"

namespace vantrel {

namespace {
constexpr const char* kOwner = "GraphTD";
constexpr const char* kBoxTitle = "Vantrel";
constexpr const char* kError = "Time Domain Generation error :¬¬";
constexpr double kMicrosPerSecond = 1000000.0;

/// Reads one input; a blank one is noted as missing and counts as 0.
void read(Screen& screen, const char* field, double& member, double factor = 1,
          double divisor = 1) {
  member = to_double(screen.field(field).GetValue(true)) * factor / divisor;
  if (!std::isfinite(member)) throw Fault(fault_text::kOverflow);
}
}  // namespace

GraphTD::GraphTD(TimeDomainServices services)
    : services_(std::move(services)), alive_(std::make_shared<GraphTD*>(this)) {
  services_.pleaseWait.cancelled.connect([alive = std::weak_ptr<GraphTD*>(alive_)] {
    if (const auto graph = alive.lock()) (*graph)->PW_Cancel();
  });
}

void GraphTD::readInputs(TimeDomainMembers& m) {
  Screen& design = services_.design;
  Screen& calculator = services_.calculator;
  const TimeDomainTarget& target = time_domain_target(m.TargetNumber);
  read(design, "LValue", m.LValue, 1, 1000);
  read(design, "CValue", m.CValue, 1, 1e9);
  read(calculator, "cc_preheat_time", m.PreheatTime, kMicrosPerSecond);
  read(calculator, "cc_start_frequency", m.StartFrequency);
  read(calculator, "cc_ignition_frequency", m.IgnitionFrequency);
  read(calculator, "cc_deadtime", m.DeadTime);
  read(calculator, "cc_ignition_ramp_time", m.IgnitionRampTime, 1000);
  if (services_.heatingMode() == kVoltageMode) {
    read(design, "running_dc_bus_voltage_mode", m.PreheatBus);
    m.IgnitionBus = m.RunBus = m.PreheatBus;
  } else {
    read(design, "preheat_dc_bus_voltage", m.PreheatBus);
    read(design, "ignition_dc_bus_voltage", m.IgnitionBus);
    read(design, "max_ignition_voltage", m.MaxIgnitionVoltage);
    if (target.bus != nullptr) read(design, target.bus, m.RunBus);
  }
  if (target.preheats) read(calculator, "cc_preheat_frequency", m.PreheatFrequency);
  if (target.lamp_resistance != nullptr) {
    read(design, target.lamp_resistance, m.LampRunResistance);
  }
  if (target.run_frequency != nullptr) read(calculator, target.run_frequency, m.RunFrequency);
}

bool GraphTD::load(TimeDomainMembers& members, TimeDomainStages& stages) {
  members = default_members(members_);
  members.TargetNumber = services_.state.CurrentTarget;
  stages = {};
  services_.missing.Reset();
  readInputs(members);
  if (services_.missing.IsEmpty(true)) {
    stages = planned_stages(members);
    members.InputsAvailable = services_.missing.CountItems() < 1;
  }
  return members.InputsAvailable;
}

bool GraphTD::InitialiseGraph() {
  const bool available = load(members_, stages_);
  if (!available && writeCentred) writeCentred(kNoInputs);
  return available;
}

std::optional<TimeDomainMembers> GraphTD::designMembers() {
  TimeDomainMembers members;
  TimeDomainStages stages;
  if (!load(members, stages)) return std::nullopt;
  return members;
}

double GraphTD::GenerateTimeDomain() {
  return generate([this] { return InitialiseGraph(); });
}

double GraphTD::GenerateFrom(const TimeDomainOverrides& overrides) {
  TimeDomainMembers asked = default_members(members_);
  asked.TargetNumber = services_.state.CurrentTarget;
  for (const auto& [name, value] : overrides) set_member(asked, name, value);
  return generate([&] {
    members_ = asked;
    stages_ = planned_stages(members_);
    members_.InputsAvailable = true;
    return true;
  });
}

double GraphTD::generate(const std::function<bool()>& initialise) {
  members_.CancelRequested = false;
  result_ = kFailed;
  std::string fault;
  try {
    if (initialise()) result_ = simulate();
    return result_;
  } catch (const Fault& caught) {
    fault = caught.what();
  } catch (const std::bad_alloc&) {
    fault = fault_text::kOutOfMemory;
  }
  discard();
  services_.pleaseWait.Finish();
  warn(kError + fault);
  return result_;
}

double GraphTD::simulate() {
  std::int32_t ticks = 0;
  TimeDomainRun run(members_, stages_, samples_, envelope_, [this, &ticks] { tick(++ticks); });
  services_.pleaseWait.Start("Calculating Time Domain", -1);
  for (auto event = run.advance(); event != TimeDomainRun::Event::Ended; event = run.advance()) {
    if (event == TimeDomainRun::Event::NoCrossing) return noCrossing();
    if (!run.crossingFound()) throw Fault("Failed to find preheat repeat block");
    run.jump();
  }
  run.finish();
  services_.pleaseWait.Finish();
  if (run.stage() < 2) {
    warn("Time Domain Warning !¬¬Ballast run stage was not triggered with these settings");
  }
  return members_.CancelRequested ? kFailed : stages_[2].EndTime - stages_[0].StartTime;
}

void GraphTD::tick(std::int32_t number) {
  services_.pleaseWait.StillCalculating();
  if (onTick) onTick(number);
}

/// The wait window stays as it is on this path.
double GraphTD::noCrossing() {
  discard();
  services_.messages.messageBox(kBoxTitle,
                                "Could not find IL crossover point for preheat repeat match start");
  return kFailed;
}

/// Leaves nothing of a failed run but its stage table.
void GraphTD::discard() {
  samples_.upper_bound = -1;
  samples_.records.trim(0, true);
  envelope_.clear();
}

void GraphTD::warn(std::string_view text) { services_.messages.msg(kOwner, text); }

std::span<const TimeDomainSample> GraphTD::Samples() const {
  return {samples_.records.data(), static_cast<std::size_t>(samples_.upper_bound + 1)};
}

std::span<const TimeDomainSample> GraphTD::simulated() const {
  return Samples().first(static_cast<std::size_t>(std::max(samples_.upper_bound, 0)));
}

const TimeDomainSample& GraphTD::sampleAt(std::int32_t index) const {
  if (index < 0 || index > samples_.upper_bound) throw Fault(fault_text::kSubscript);
  return samples_.records.data()[index];
}

}  // namespace vantrel
