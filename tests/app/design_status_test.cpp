#include "app/design_status.h"

#include <gtest/gtest.h>

#include "session_bench.h"

namespace vantrel {
namespace {

using State = DesignStatus::State;

class DesignStatusTest : public testing::Test {
 protected:
  void calculate() { session_.advanced().command_button_Click(0); }
  void fix(const char* field, double value) {
    session_.advanced().field(field).SetFixValue(true);
    session_.advanced().field(field).SetValue(value);
    status_.inputChanged();
  }

  SessionBench bench_;
  Session& session_ = bench_.start();
  DesignStatus status_{session_};
};

TEST_F(DesignStatusTest, FollowsRunsInputsAndSelections) {
  EXPECT_EQ(status_.state(), State::Empty);
  status_.inputChanged();
  EXPECT_EQ(status_.state(), State::Empty) << "without results nothing is out of date";
  calculate();
  EXPECT_EQ(status_.state(), State::Current);
  EXPECT_EQ(status_.bannerText(), "");

  status_.inputChanged();
  EXPECT_EQ(status_.state(), State::Stale);
  EXPECT_EQ(status_.bannerText(),
            "Inputs have changed since calculation #1: these results are out of date.");
  session_.advanced().command_button_Click(2);
  EXPECT_EQ(status_.state(), State::Stale) << "inductors do not renew the operating points";
  calculate();
  EXPECT_EQ(status_.state(), State::Current);

  status_.inputChanged();
  session_.bar("Advanced")->execute_command("c_browsecalc*1");
  EXPECT_EQ(status_.state(), State::Current);
  ASSERT_TRUE(session_.selectByName(kSlotIc, "TV6101"));
  EXPECT_EQ(status_.state(), State::Empty);
  EXPECT_TRUE(status_.keyNumbers().empty());
}

TEST_F(DesignStatusTest, FirstWarningOfTheLastRunStands) {
  struct Case {
    const char* name;
    double l;
    double c;
    State state;
    const char* banner;
  };
  // L and C were chosen so that the run is too slow, that the lamp ignites below it, and that
  // nothing is wrong.
  const Case cases[] = {
      {"slow", 8, 3.3, State::Current,
       "Calculation #1: The run frequency is significantly lower than the Ballast run frequency"},
      {"ignition", 3, 8, State::Current,
       "Calculation #2: The running frequency is significantly higher than the ignition "
       "frequency."},
      {"well", 4, 3.3, State::Current, ""},
  };
  for (const Case& row : cases) {
    SCOPED_TRACE(row.name);
    fix("LValue", row.l);
    fix("CValue", row.c);
    calculate();
    EXPECT_EQ(status_.state(), row.state);
    EXPECT_EQ(status_.bannerText(), row.banner);
  }
}

TEST_F(DesignStatusTest, VoltageModeAnswersTheWarning) {
  fix("LValue", 3);
  fix("CValue", 8);
  session_.messages().injectAnswers({kYes});
  calculate();
  EXPECT_EQ(session_.advanced().heatingMode(), kVoltageMode);
  // The warning on show is that of the second run, which has no way out by voltage mode any more.
  EXPECT_EQ(status_.warning().find("Voltage Mode"), std::string::npos) << status_.warning();
}

TEST_F(DesignStatusTest, MarginsAreDifferencesOfTheFields) {
  EXPECT_TRUE(status_.margins().empty());
  calculate();
  Advanced& advanced = session_.advanced();
  advanced.field("ballast_run_frequency").SetValue(40);
  advanced.field("run_frequency").value(40125.0);
  advanced.field("ignition_frequency").value(45930.0);
  advanced.field("max_preheat_voltage").SetValue(340);
  advanced.field("preheat_voltage").value(341.4);
  struct Row {
    const char* label;
    const char* text;
    bool kept;
  };
  const auto expect = [&](const std::vector<Row>& rows) {
    const std::vector<Margin> margins = status_.margins();
    ASSERT_EQ(margins.size(), rows.size());
    for (std::size_t i = 0; i < rows.size(); ++i) {
      EXPECT_EQ(margins[i].label, rows[i].label);
      EXPECT_EQ(margins[i].text, rows[i].text);
      EXPECT_EQ(margins[i].kept, rows[i].kept) << rows[i].label;
    }
  };
  expect({{"Preheat Voltage", "341 of 340 Vpk", true},
          {"Run above Ballast Run Frequency", "+0.1 KHz", true},
          {"Ignition above Run Frequency", "+5.8 KHz", true}});
  advanced.field("run_frequency").value(38700.0);
  advanced.field("preheat_voltage").value(700.0);
  advanced.field("ignition_frequency").value(30000.0);
  expect({{"Preheat Voltage", "700 of 340 Vpk", false},
          {"Run above Ballast Run Frequency", "-1.3 KHz", false},
          {"Ignition above Run Frequency", "-8.7 KHz", false}});
}

TEST_F(DesignStatusTest, UnsavedFromAChangeUntilItIsStored) {
  status_.stored();
  EXPECT_FALSE(status_.isUnsaved());
  status_.inputChanged();
  EXPECT_TRUE(status_.isUnsaved());
  status_.stored();
  calculate();
  EXPECT_TRUE(status_.isUnsaved());
}

}  // namespace
}  // namespace vantrel
