#include "operating/pfc_stage.h"

#include "core/fault.h"
#include "operating_fixture.h"

namespace vantrel {
namespace {

class PfcStageTest : public OperatingFixture {
 protected:
  PfcStageTest() {
    block.VBus = 500;
    block.VLineMin = 90;
    block.VLineMax = 265;
    block.VLineAvg = 177.5F;
    block.FRun = 40142;
  }
  void run(std::int32_t target) {
    state.CurrentTarget = target;
    run_pfc_stage(advanced, block, {messages, [this] { return powerFactor; }});
  }
  OperatingBlock block;
};

// Expected values: the formulas by 40-digit arithmetic, rounded to one place.
TEST_F(PfcStageTest, ByTarget) {
  const struct {
    std::int32_t target;
    double frequency, inductor, current, onTime;
  } cases[] = {
      {0, 60, 3.1, 1.0, -1},   {1, 60, 3.1, 1.0, -1},   {2, 60, 3.1, 1.0, -1},
      {5, 60, 3.1, 1.0, -1},   {9, 60, 3.1, 1.0, -1},   {3, 60, 1.7, 1.0, 12.4},
      {4, 60, 1.7, 1.0, 12.4}, {7, 60, 4.2, 0.9, 30.9}, {8, 60, 4.2, 0.9, 30.9},
  };
  for (const auto& c : cases) {
    advanced.field("max_pfc_ontime").Clear();
    run(c.target);
    EXPECT_EQ(get("pfc_frequency"), c.frequency) << c.target;
    EXPECT_EQ(get("pfc_inductor"), c.inductor) << c.target;
    EXPECT_EQ(get("max_pfc_current"), c.current) << c.target;
    const Variant on_time = advanced.field("max_pfc_ontime").value();
    EXPECT_EQ(on_time, c.onTime < 0 ? Variant() : Variant(c.onTime)) << c.target;
  }
  EXPECT_EQ(get("TV6104_DCOMP"), 13);  // 13.8 snapped
}

TEST_F(PfcStageTest, FrequencyStaysTenKilohertzAboveRun) {
  const struct {
    double entered, run, raised;
  } cases[] = {{50, 40142, 60}, {50, 40000, 50}, {45, 30000, 45}, {0, 40142, 60}, {33, 99999, 110}};
  for (const auto& c : cases) {
    set("pfc_frequency", c.entered);
    block.FRun = static_cast<float>(c.run);
    run(8);
    EXPECT_EQ(get("pfc_frequency"), c.raised) << c.entered << " " << c.run;
  }
  // An empty frequency counts as 0 and is noted.
  advanced.field("pfc_frequency").Clear();
  block.FRun = 40142;
  run(7);
  EXPECT_EQ(get("pfc_frequency"), 60);
  EXPECT_EQ(missing.CountItems(), 1);
}

TEST_F(PfcStageTest, CompensationRaisesTheFrequency) {
  block.VLineMin = 80;  // at 61 kHz the compensation snaps to 15, at 62 kHz to 13
  run(3);
  EXPECT_EQ(get("pfc_frequency"), 62);
  EXPECT_EQ(get("TV6104_DCOMP"), 13);
  EXPECT_EQ(get("pfc_inductor"), 1.4);
  EXPECT_EQ(get("max_pfc_current"), 1.1);
  EXPECT_EQ(get("max_pfc_ontime"), 12.5);
  // At 300 kHz the climb ends whatever the compensation. Only senseless voltages get there.
  block.VBus = -100;
  block.VLineMin = 400;
  run(3);
  EXPECT_EQ(get("pfc_frequency"), 300);
  EXPECT_GT(get("TV6104_DCOMP"), 13);
}

TEST_F(PfcStageTest, InputPower) {
  powerFactor = 2;
  run(1);
  EXPECT_EQ(get("pfc_input_power"), 56);
  EXPECT_EQ(get("pfc_inductor"), 1.6);
  run(1);  // rebuilt from the copy, not doubled again
  EXPECT_EQ(get("pfc_input_power"), 56);
  fix("pfc_input_power", 28);
  run(1);
  EXPECT_EQ(get("pfc_input_power"), 28);
  EXPECT_EQ(get("pfc_inductor"), 3.1);

  set("pfc_input_power", 0);
  run(1);
  EXPECT_EQ(texts(),
            std::vector<std::string>{"A value must be entered for Lamp Power. Uncheck 'Lamp Power' "
                                     "to have it calculated"});
  EXPECT_TRUE(advanced.field("pfc_inductor").IsItEmpty());
  EXPECT_TRUE(advanced.field("max_pfc_current").IsItEmpty());
}

TEST_F(PfcStageTest, DivisionByZeroIsAFault) {
  block.VLineMin = 0;
  EXPECT_THROW(run(1), Fault);
}

}  // namespace
}  // namespace vantrel
