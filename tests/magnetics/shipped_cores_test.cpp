#include <gtest/gtest.h>

#include "designer_fixture.h"

namespace vantrel {
namespace {

/// The designers on the design database as it is shipped.
class ShippedCores : public DesignerTest {
 protected:
  ShippedCores() {
    EXPECT_TRUE(database.open_access(VANTREL_DATABASE));
    EXPECT_TRUE(inductor.ReInitialise());
    EXPECT_TRUE(transformer.ReInitialise());
    set("line_input_pfc", "yes");
  }
};

// Resonant inductor: 0.21 A give d = 0.231 -> 0.2 mm, 0.15708 mm2 a turn. EFD25 at 0.9 mm: ue =
// 2000 / (1 + 1800 / 57) = 61.389, AL = 61.389 x 1.257 / 0.983 = 78.50 nH, N = 259 (259.84), fill
// 40.68 of 40.7, B = 259 x 0.0785 x 0.7 / 58 = 0.24538 T.
// PFC: 1 A gives 0.5 mm, 0.98175 mm2 a turn. E41/17/12 at 0.5 mm: ue = 2000 / (1 + 1000 / 77) =
// 142.99, AL = 347.66 nH, N = 104 (104.5), fill 102.1 of 104, B = 104 x 0.34766 / 149 = 0.24266 T.
TEST_F(ShippedCores, DefaultDesignFindsItsCores) {
  set("LValue", 5.3);
  set("ignition_current", 0.7);
  set("preheat_current", 0.21);
  set("pfc_inductor", 3.8);
  set("max_pfc_current", 1.0);
  EXPECT_TRUE(inductor.Calculate(true));
  EXPECT_EQ(takeMessages(), Texts{});
  EXPECT_EQ(core(0), "EFD25");
  EXPECT_EQ(number(inductor, "ind_gapsize", 0), 0.9);
  EXPECT_EQ(number(inductor, "ind_al", 0), 78);
  EXPECT_EQ(number(inductor, "ind_numberofturns", 0), 259);
  EXPECT_EQ(number(inductor, "ind_peakfluxdensity", 0), 245);
  EXPECT_EQ(core(1), "E41/17/12");
  EXPECT_EQ(number(inductor, "ind_gapsize", 1), 0.5);
  EXPECT_EQ(number(inductor, "ind_numberofturns", 1), 104);
  EXPECT_EQ(number(inductor, "ind_peakfluxdensity", 1), 242);
}

// Low-voltage loads on both mains voltages: each finds a core.
TEST_F(ShippedCores, ElectronicTransformersFindACore) {
  for (const double voltage : {207.0, 108.0}) {
    for (const double power : {20.0, 35.0, 50.0, 60.0, 75.0, 105.0, 150.0}) {
      SCOPED_TRACE(::testing::Message() << power << " W on " << voltage << " V");
      set("min_input_voltage", voltage);
      set("running_lamp_power", power);
      EXPECT_TRUE(transformer.Calculate(true));
      EXPECT_NE(transformerCore(), "");
      // 12 V from half of the line voltage; the secondary is shown to a hundredth of a turn.
      EXPECT_NEAR(
          number(transformer, "tfr_primaryturns") / number(transformer, "tfr_secondaryturns"),
          voltage / 6, 0.05 * voltage / 6);
    }
  }
  EXPECT_EQ(takeMessages(), Texts{});
}

// Every core that is offered can be chosen for a small inductor: its data make a design.
TEST_F(ShippedCores, EveryCoreMakesADesign) {
  set("LValue", 1.0);
  set("ignition_current", 0.3);
  set("preheat_current", 0.2);
  EXPECT_TRUE(inductor.CommandLoadInputsAction(0));
  const Texts sizes = inductor.findPullDown("ind_comboCore", 0)->items;
  EXPECT_FALSE(sizes.empty());
  for (const std::string& size : sizes) {
    fixCore(0, size.c_str());
    EXPECT_TRUE(inductor.DesignInductor(0)) << size;
    EXPECT_EQ(core(0), size);
  }
}

}  // namespace
}  // namespace vantrel
