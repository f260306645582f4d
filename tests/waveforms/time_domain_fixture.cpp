#include "time_domain_fixture.h"

#include <bit>
#include <map>

namespace vantrel::test {

namespace {

constexpr const char* kDesignFields[] = {"LValue",
                                         "CValue",
                                         "running_dc_bus_voltage_mode",
                                         "preheat_dc_bus_voltage",
                                         "ignition_dc_bus_voltage",
                                         "max_ignition_voltage",
                                         "running_dc_bus_voltage",
                                         "max_dc_bus_voltage",
                                         "lamp_resistance",
                                         "lamp_resistance_max"};
constexpr const char* kCalculatorFields[] = {
    "cc_preheat_time",  "cc_start_frequency",    "cc_ignition_frequency", "cc_deadtime",
    "cc_run_frequency", "cc_ignition_ramp_time", "cc_preheat_frequency",  "cc_max_frequency"};

constexpr double TimeDomainSample::*kPlaces[] = {
    &TimeDomainSample::TimeUs,      &TimeDomainSample::RampSlope,  &TimeDomainSample::RampVoltage,
    &TimeDomainSample::SwitchState, &TimeDomainSample::NodeRaw,    &TimeDomainSample::VIN,
    &TimeDomainSample::IL,          &TimeDomainSample::VBlock,     &TimeDomainSample::ILamp,
    &TimeDomainSample::VR,          &TimeDomainSample::SeriesDrop, &TimeDomainSample::FrequencyKHz};

bool is_same(const TimeDomainSample& got, const plain::Record& want) {
  for (int field = 0; field < plain::Stage; ++field) {
    if (std::bit_cast<std::uint64_t>(got.*kPlaces[field]) !=
        std::bit_cast<std::uint64_t>(want.at[field])) {
      return false;
    }
  }
  return got.Stage == want.at[plain::Stage];
}

}  // namespace

TimeDomainFixture::TimeDomainFixture() {
  for (const char* name : kDesignFields) design.addField({name, name, "V", ""});
  for (const char* name : kCalculatorFields) calculator.addField({name, name, "V", ""});
}

std::vector<std::string> TimeDomainFixture::said() {
  std::vector<std::string> all = texts(messages);
  messages.clear();
  return all;
}

void TimeDomainFixture::set(const char* field, double value) {
  Screen& screen = std::string_view(field).starts_with("cc_") ? calculator : design;
  screen.field(field).SetValue(value);
}

plain::Inputs TimeDomainFixture::inputsOf(const TimeDomainOverrides& overrides) {
  plain::Inputs in;
  const std::map<std::string, double*> places{{"LValue", &in.L},
                                              {"CValue", &in.C},
                                              {"CBlock", &in.CBlock},
                                              {"CNode", &in.CNode},
                                              {"PreheatFrequency", &in.preheat_khz},
                                              {"RunFrequency", &in.run_khz},
                                              {"StartFrequency", &in.start_khz},
                                              {"PreheatBus", &in.preheat_bus},
                                              {"IgnitionBus", &in.ignition_bus},
                                              {"RunBus", &in.run_bus},
                                              {"MaxIgnitionVoltage", &in.ignition_voltage},
                                              {"DeadTime", &in.dead_us},
                                              {"LampRunResistance", &in.lamp},
                                              {"PreheatTime", &in.preheat_us},
                                              {"IgnitionRampTime", &in.ramp_us}};
  for (const auto& [name, value] : overrides) {
    if (name == "TargetNumber") {
      in.preheats = value != 5 && value != 9;
    } else if (name == "RepeatEnd") {
      in.repeat_end = static_cast<int>(value);
    } else {
      *places.at(name) = value;
    }
  }
  return in;
}

plain::Outcome TimeDomainFixture::compare(const TimeDomainOverrides& overrides,
                                          int cancel_at_tick) {
  plain::Inputs in = inputsOf(overrides);
  in.cancel_at_tick = cancel_at_tick;
  const plain::Outcome want = plain::simulate(in);
  graph.onTick = [&](std::int32_t tick) {
    if (tick == cancel_at_tick) wait.Cancel();
  };
  TimeDomainOverrides members{{"RepeatEnd", 0}};
  members.insert(members.end(), overrides.begin(), overrides.end());
  EXPECT_EQ(graph.GenerateFrom(members), want.result);
  graph.onTick = {};

  EXPECT_EQ(graph.members().RepeatEnd, want.repeat_end);
  for (std::size_t i = 0; i < 4; ++i) {
    const StageEntry& entry = graph.StageTable()[i];
    EXPECT_EQ(entry.StartTime, want.stages[i].start) << i;
    EXPECT_EQ(entry.EndTime, want.stages[i].end) << i;
    EXPECT_EQ(entry.FirstSample, want.stages[i].first) << i;
    EXPECT_EQ(entry.LastSample, want.stages[i].last) << i;
  }
  EXPECT_EQ(graph.Samples().size(), want.samples.size());
  EXPECT_EQ(graph.Envelope().size(), want.envelope.size());
  if (::testing::Test::HasFailure()) return want;
  for (std::size_t i = 0; i < want.samples.size(); ++i) {
    if (is_same(graph.Samples()[i], want.samples[i])) continue;
    ADD_FAILURE() << "sample " << i << " differs";
    break;
  }
  for (std::size_t i = 0; i < want.envelope.size(); ++i) {
    const EnvelopeEntry& got = graph.Envelope()[i];
    if (is_same(got.Max, want.envelope[i].max) && is_same(got.Min, want.envelope[i].min)) continue;
    ADD_FAILURE() << "envelope entry " << i << " differs";
    break;
  }
  return want;
}

}  // namespace vantrel::test
