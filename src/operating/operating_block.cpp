#include "operating/operating_block.h"

#include "core/number_text.h"
#include "operating/target_traits.h"

namespace vantrel {

namespace {

/// Where a number of the block comes from: the field of run ICs and that of dimming ICs. One that
/// is missing is not read.
struct Source {
  float OperatingBlock::*number;
  const char* running;
  const char* dimming;
  double factor = 1;
  double divisor = 1;
};

constexpr Source kSources[] = {
    {&OperatingBlock::PLamp, "running_lamp_power", "pmax"},
    {&OperatingBlock::VLamp, "running_lamp_voltage", "vmax"},
    {&OperatingBlock::PMin, nullptr, "pmin"},
    {&OperatingBlock::VMin, nullptr, "vmin"},
    {&OperatingBlock::VPreheatMax, "max_preheat_voltage", "max_preheat_voltage"},
    {&OperatingBlock::VIgnition, "max_ignition_voltage", "max_ignition_voltage"},
    {&OperatingBlock::PreheatTime, "preheat_time", "preheat_time"},
    {&OperatingBlock::VBusPreheat, "preheat_dc_bus_voltage", "preheat_dc_bus_voltage"},
    {&OperatingBlock::VBusIgnition, "ignition_dc_bus_voltage", "ignition_dc_bus_voltage"},
    {&OperatingBlock::VBus, "running_dc_bus_voltage", "max_dc_bus_voltage"},
    {&OperatingBlock::VLineMin, "min_input_voltage", "min_input_voltage"},
    {&OperatingBlock::VLineMax, "max_input_voltage", "max_input_voltage"},
    {&OperatingBlock::FBallast, "ballast_run_frequency", "ballast_run_frequency", 1000, 1},
    {&OperatingBlock::FracMax, nullptr, "max", 1, 100},
    {&OperatingBlock::FracMin, nullptr, "min", 1, 100},
    {&OperatingBlock::VBusMin, nullptr, "min_dc_bus_voltage"},
    {&OperatingBlock::IPreheat, "preheat_current", "preheat_current"},
};

/// Which ICs a result belongs to.
enum class Shown { Both, Running, Dimming };

struct Result {
  const char* field;
  float OperatingBlock::*number;
  Shown shown;
};

constexpr Result kResults[] = {
    {"start_frequency", &OperatingBlock::FStart, Shown::Both},
    {"preheat_frequency", &OperatingBlock::FPreheat, Shown::Both},
    {"ignition_frequency", &OperatingBlock::FIgnition, Shown::Both},
    {"resonance_frequency", &OperatingBlock::FResonance, Shown::Both},
    {"preheat_voltage", &OperatingBlock::VPreheat, Shown::Both},
    {"ignition_current", &OperatingBlock::IIgnition, Shown::Both},
    {"run_frequency", &OperatingBlock::FRun, Shown::Running},
    {"lamp_resistance", &OperatingBlock::RLamp, Shown::Running},
    {"lamp_resistance_max", &OperatingBlock::RLamp, Shown::Dimming},
    {"lamp_resistance_min", &OperatingBlock::RLampMin, Shown::Dimming},
    {"max_frequency", &OperatingBlock::FRun, Shown::Dimming},
    {"min_frequency", &OperatingBlock::FMin, Shown::Dimming},
    {"PhiMaxValue", &OperatingBlock::PhiMax, Shown::Dimming},
    {"PhiMinValue", &OperatingBlock::PhiMin, Shown::Dimming},
};

}  // namespace

OperatingBlock read_operating_block(Advanced& advanced) {
  const bool dimming = target_traits(advanced.target()).dimming;
  OperatingBlock block;
  for (const Source& source : kSources) {
    const char* name = dimming ? source.dimming : source.running;
    if (name == nullptr) continue;
    const double value = to_double(advanced.field(name).GetValue(true));
    block.*source.number = checked_single(value * source.factor / source.divisor);
  }
  block.VLineAvg = checked_single((static_cast<double>(block.VLineMax) + block.VLineMin) / 2.0);
  return block;
}

void write_operating_block(Advanced& advanced, const OperatingBlock& block) {
  const bool dimming = target_traits(advanced.target()).dimming;
  for (const Result& result : kResults) {
    if (result.shown == (dimming ? Shown::Running : Shown::Dimming)) continue;
    advanced.field(result.field).SetValue(block.*result.number);
  }
}

}  // namespace vantrel
