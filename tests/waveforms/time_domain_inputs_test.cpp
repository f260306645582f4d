#include "time_domain_fixture.h"

namespace vantrel::test {
namespace {

class TimeDomainInputs : public TimeDomainFixture {
 protected:
  TimeDomainInputs() {
    graph.writeCentred = [this](std::string_view text) { written.emplace_back(text); };
    int value = 100;
    for (Screen* screen : {&design, &calculator}) {
      for (const auto& field : screen->fields()) set(field->Name().c_str(), ++value);
    }
  }
  double of(const char* field) {
    VTLValue* const found = design.findField(field);
    return to_double((found != nullptr ? *found : calculator.field(field)).value());
  }

  std::vector<std::string> written;
};

TEST_F(TimeDomainInputs, EachTargetReadsItsFields) {
  enum Group { kRun, kMax, kNone };
  const Group groups[] = {kRun, kRun, kMax, kRun, kRun, kRun, kNone, kRun, kMax, kMax};
  for (int target = 0; target < 10; ++target) {
    for (const std::string heating : {"Current Mode", "Voltage Mode", "Other"}) {
      SCOPED_TRACE(std::to_string(target) + heating);
      state.CurrentTarget = target;
      mode = heating;
      ASSERT_TRUE(graph.InitialiseGraph());
      const TimeDomainMembers& m = graph.members();
      const Group group = groups[target];
      const bool voltage = heating == "Voltage Mode";
      const bool preheats = target != 5 && target != 9;
      const auto grouped = [&](const char* run, const char* max, double otherwise) {
        return group == kNone ? otherwise : of(group == kRun ? run : max);
      };
      const double shared = of("running_dc_bus_voltage_mode");
      EXPECT_EQ(m.TargetNumber, target);
      EXPECT_EQ(m.LValue, of("LValue") / 1000);
      EXPECT_EQ(m.CValue, of("CValue") / 1e9);
      EXPECT_EQ(m.PreheatTime, of("cc_preheat_time") * 1000000);
      EXPECT_EQ(m.StartFrequency, of("cc_start_frequency"));
      EXPECT_EQ(m.IgnitionFrequency, of("cc_ignition_frequency"));
      EXPECT_EQ(m.DeadTime, of("cc_deadtime"));
      EXPECT_EQ(m.IgnitionRampTime, preheats ? of("cc_ignition_ramp_time") * 1000 : 11000.0);
      EXPECT_EQ(m.PreheatBus, voltage ? shared : of("preheat_dc_bus_voltage"));
      EXPECT_EQ(m.IgnitionBus, voltage ? shared : of("ignition_dc_bus_voltage"));
      EXPECT_EQ(m.RunBus,
                voltage ? shared : grouped("running_dc_bus_voltage", "max_dc_bus_voltage", 400.0));
      EXPECT_EQ(m.MaxIgnitionVoltage, voltage ? 800.0 : of("max_ignition_voltage"));
      EXPECT_EQ(m.PreheatFrequency, preheats ? of("cc_preheat_frequency") : 55.0);
      EXPECT_EQ(m.LampRunResistance, grouped("lamp_resistance", "lamp_resistance_max", 144400.0));
      EXPECT_EQ(m.RunFrequency, grouped("cc_run_frequency", "cc_max_frequency", 44.0));
    }
  }
  EXPECT_TRUE(written.empty());
  EXPECT_TRUE(said().empty());
}

TEST_F(TimeDomainInputs, BlankFieldsAreMissingInReadingOrder) {
  for (Screen* screen : {&design, &calculator}) {
    for (const auto& field : screen->fields()) field->Clear();
  }
  const auto names = [&] {
    EXPECT_FALSE(graph.InitialiseGraph());
    std::vector<std::string> all;
    for (const MissingField& entry : missing.entries()) all.push_back(entry.field->Name());
    return all;
  };
  EXPECT_EQ(names(), (std::vector<std::string>{
                         "LValue", "CValue", "cc_preheat_time", "cc_start_frequency",
                         "cc_ignition_frequency", "cc_deadtime", "cc_ignition_ramp_time",
                         "preheat_dc_bus_voltage", "ignition_dc_bus_voltage",
                         "max_ignition_voltage", "running_dc_bus_voltage", "cc_preheat_frequency",
                         "lamp_resistance", "cc_run_frequency"}));
  state.CurrentTarget = 9;
  mode = "Voltage Mode";
  EXPECT_EQ(names(),
            (std::vector<std::string>{"LValue", "CValue", "cc_preheat_time", "cc_start_frequency",
                                      "cc_ignition_frequency", "cc_deadtime",
                                      "cc_ignition_ramp_time", "running_dc_bus_voltage_mode",
                                      "lamp_resistance_max", "cc_max_frequency"}));
}

TEST_F(TimeDomainInputs, MissingInputsTouchNoSample) {
  set("cc_preheat_time", 0.02);
  set("cc_deadtime", 1.5);
  set("cc_ignition_ramp_time", 0.4);
  set("max_ignition_voltage", 0.001);
  EXPECT_EQ(graph.GenerateTimeDomain(), 21400 - 1.5);
  EXPECT_TRUE(said().empty());
  const TimeDomainReport before = graph.report();

  set("cc_deadtime", 2);
  EXPECT_EQ(graph.designMembers().value().DeadTime, 2);
  EXPECT_EQ(graph.members().DeadTime, 1.5);
  design.field("CValue").Clear();
  EXPECT_EQ(graph.GenerateTimeDomain(), -1.0);
  EXPECT_EQ(said(),
            std::vector<std::string>{"Required fields are missing, do you wish to see the list ?"});
  EXPECT_EQ(written, std::vector<std::string>{"Graph Inputs Not Available, Retry Calculation"});
  EXPECT_FALSE(graph.members().InputsAvailable);
  EXPECT_EQ(graph.report().n, before.n);
  EXPECT_EQ(graph.report().fields[6].hash, before.fields[6].hash);
  // The tables are planned anew before the fields are read.
  EXPECT_EQ(graph.ReturnStageTime(1, true), 0.0);
}

}  // namespace
}  // namespace vantrel::test
