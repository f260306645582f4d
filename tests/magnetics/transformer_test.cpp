#include "magnetics/transformer.h"

#include "designer_fixture.h"

namespace vantrel {
namespace {

constexpr const char* kTooBig = "Windings cannot fit this core size, larger core size required";
constexpr const char* kTransformerError = "Transformer Calculation error";

class TransformerTest : public DesignerTest {
 protected:
  void fixCoreSize(const char* core) {
    transformer.findTickBox("tfr_fixcoresize")->checked = true;
    show_core(*transformer.findPullDown("tfr_ComboCore"), core);
  }
};

// 100 W on 207 V to 12 V; see the design's own tests for the windings. Core A (50 mm2): AL 2514 nH,
// Np = 10000 / 100.56 = 99.44 -> 99, Ns = 99 x 12 / 414 = 2.8696, fill = (2 x 99 x 0.107354 +
// 2.8696 x 1.851852) / 0.8 = 33.2, so it takes the windings.
TEST_F(TransformerTest, DesignsFromTheLoadedInputs) {
  EXPECT_TRUE(transformer.Calculate(true));
  EXPECT_EQ(takeMessages(), Texts{});
  EXPECT_EQ(transformer.field("tfr_imag").UnitText(), "nA");
  EXPECT_EQ(number(transformer, "tfr_imag"), 40000000);
  EXPECT_EQ(transformerCore(), "A");
  EXPECT_EQ(number(transformer, "tfr_al"), 2514);
  EXPECT_EQ(number(transformer, "tfr_primarycurrent"), 0.54);
  EXPECT_EQ(number(transformer, "tfr_primaryturns"), 99);
  EXPECT_EQ(number(transformer, "tfr_secondaryturns"), 2.87);
  EXPECT_EQ(number(transformer, "tfr_primarydiameter"), 0.3);
  EXPECT_EQ(number(transformer, "tfr_secondarydiameter"), 1.5);
  EXPECT_EQ(to_text(transformer.field("tfr_BOMValue").value()), "99T, 2T");
}

TEST_F(TransformerTest, ShutGateDoesNothing) {
  set("allow_transformer", "no");
  fixCoreSize("B");
  EXPECT_TRUE(transformer.Calculate(true));
  EXPECT_TRUE(transformer.DesignTransformer());
  EXPECT_TRUE(transformer.field("tfr_inputvoltage").IsItEmpty());
  EXPECT_TRUE(transformer.field("tfr_al").IsItEmpty());
  EXPECT_TRUE(transformer.findTickBox("tfr_fixcoresize")->checked);
  EXPECT_EQ(takeMessages(), Texts{});
}

// 170 W fill 1.7 x 33.2 = 56.4 of the 50 mm2 of A and 1.7 x 38.24 = 65.0 of the 61 mm2 of EF25. B
// has twice the turns of A, 199, and 111 of 100 mm2.
TEST_F(TransformerTest, FixedCoreAndWindingsThatDoNotFit) {
  fixCoreSize("EF25");
  EXPECT_EQ(transformer.comboCoreColour(), 0xffd0d0U);
  EXPECT_TRUE(transformer.Calculate(false));
  EXPECT_EQ(transformerCore(), "EF25");
  EXPECT_EQ(to_text(transformer.field("tfr_BOMValue").value()), "114T, 3T");
  set("running_lamp_power", 170.0);
  EXPECT_FALSE(transformer.Calculate(false));
  EXPECT_EQ(takeMessages(), Texts{kTooBig});
  EXPECT_EQ(transformerCore(), "EF25");
  EXPECT_TRUE(transformer.field("tfr_BOMValue").IsItEmpty());
  EXPECT_FALSE(transformer.Calculate(true));
  EXPECT_EQ(takeMessages(), Texts{kTooBig});
  EXPECT_EQ(transformerCore(), "B");
  EXPECT_EQ(transformer.comboCoreColour(), 0xffffffU);
  EXPECT_TRUE(transformer.field("tfr_al").IsItEmpty());
}

TEST_F(TransformerTest, Errors) {
  EXPECT_TRUE(transformer.CommandLoadTheInputs());
  fixCoreSize("unknown");
  EXPECT_FALSE(transformer.DesignTransformer());
  fixCoreSize("A");
  transformer.field("tfr_imag").SetValue(0.04);  // as if it were amperes: 9.9e10 turns
  EXPECT_FALSE(transformer.DesignTransformer());
  EXPECT_EQ(messages.shown().front().owner, "Transformer");
  EXPECT_EQ(takeMessages(), (Texts{kTransformerError, kTransformerError}));
}

TEST_F(TransformerTest, LabelledPrefixesAreConverted) {
  EXPECT_TRUE(transformer.CommandLoadTheInputs());
  const auto relabel = [this](const char* field, const char* unit, double value) {
    transformer.field(field).ValueBaseUnits(unit);
    transformer.field(field).SetValue(value);
  };
  relabel("tfr_imag", "mA", 40);
  relabel("tfr_peakfluxdensity", "T", 0.2);
  relabel("tfr_totalballastpower", "KW", 0.1);
  EXPECT_TRUE(transformer.DesignTransformer());
  EXPECT_EQ(number(transformer, "tfr_primaryturns"), 99);
  EXPECT_EQ(number(transformer, "tfr_primarycurrent"), 0.54);
}

TEST_F(TransformerTest, MissingInputsEndTheRun) {
  sql("UPDATE [LoadInputs] SET [Source] = NULL WHERE [LoadID] = 'Transformer'");
  EXPECT_FALSE(transformer.Calculate(true));
  EXPECT_EQ(takeMessages(), Texts{kMissing});
  EXPECT_EQ(missing.PrepareToShow(), (Texts{"Transformer Design Screen : Total Ballast Power",
                                            "Transformer Design Screen : Input Voltage (Min)"}));
  // No formula reads the frequency, the design wants it all the same.
  transformer.field("tfr_inputvoltage").SetValue(207.0);
  transformer.field("tfr_totalballastpower").SetValue(100.0);
  transformer.field("tfr_runfrequency").Clear();
  EXPECT_TRUE(transformer.command_click("CalculateTransformer"));
  EXPECT_EQ(missing.PrepareToShow(), Texts{"Transformer Design Screen : Run Frequency"});
}

}  // namespace
}  // namespace vantrel
