#pragma once

#include <gtest/gtest.h>

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "core/fault.h"
#include "core/plain_ports.h"
#include "support/fixtures.h"
#include "time_domain_plain_model.h"
#include "waveforms/time_domain.h"

namespace vantrel::test {

/// Runs events at every chance it gets.
class CallingPump : public EventPump {
 public:
  std::function<void()> events;
  void yield() override {
    if (events) events();
  }
};

/// The members of the design that the program proposes at its start.
inline const TimeDomainOverrides kDefaultDesign{
    {"LValue", 0.0053},           {"CValue", 3.3 / 1e9},   {"StartFrequency", 82.4},
    {"PreheatFrequency", 57.4},   {"RunFrequency", 40.14}, {"PreheatBus", 500},
    {"IgnitionBus", 500},         {"RunBus", 500},         {"MaxIgnitionVoltage", 700},
    {"LampRunResistance", 994.6}, {"TargetNumber", 1}};

/// A generator with the two screens that it reads, which hold no values yet.
class TimeDomainFixture : public ::testing::Test {
 protected:
  TimeDomainFixture();

  /// What was said since the last call.
  std::vector<std::string> said();
  void set(const char* field, double value);
  /// The inputs of the plain model for members set by name, with the same defaults.
  static plain::Inputs inputsOf(const TimeDomainOverrides& overrides);
  /// Runs both on the same members and compares everything that they leave.
  plain::Outcome compare(const TimeDomainOverrides& overrides, int cancel_at_tick = 0);

  SysMsg messages;
  MissingFields missing{messages};
  FieldContext context{messages, '.', {}, [this](VTLValue& field, const std::string& text) {
                         missing.Add(field, text);
                       }};
  Screen design{"Advanced", "", context};
  Screen calculator{"Calculator", "", context};
  RunState state;
  std::string mode = "Current Mode";
  ManualClock clock;
  CallingPump pump;
  PleaseWait wait{messages, clock, pump, std::make_unique<ManualTimer>()};
  GraphTD graph{{design, calculator, [this] { return mode; }, state, missing, messages, wait}};
};

}  // namespace vantrel::test
