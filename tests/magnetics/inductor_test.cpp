#include "magnetics/inductor.h"

#include "core/fault.h"
#include "designer_fixture.h"

namespace vantrel {
namespace {

constexpr const char* kNoCores = "Could not read Inductor Core Types table";
constexpr const char* kError = "Inductor Calculation error";

using InductorTest = DesignerTest;

// 1 mH, 1 A peak, 1 A rms. Core A: the gap search ends at 0.1 mm with 44 turns and 0.442 T. EF25
// (61 mm2): ue = 2000 / (1 + 34.783 g), AL = ue x 1.14795 nH, 0.98175 mm2 a turn.
//   0.3 mm: ue 174.90, AL 200.77, N 70 (70.57), fill 68.7 > 61; back to
//   0.2 mm: ue 251.37, AL 288.56, N 58 (58.87), fill 56.9; B = 58 x 0.28856 / 52.5 = 0.31879 T.
// Core B: 0.6 mm, 71 turns, AL 193.38, 0.13730 T.
TEST_F(InductorTest, DesignsTheResonantInductor) {
  EXPECT_TRUE(inductor.Calculate(true));
  EXPECT_EQ(takeMessages(), Texts{});
  EXPECT_EQ(core(0), "B");
  EXPECT_EQ(number(inductor, "ind_gapsize", 0), 0.6);
  EXPECT_EQ(number(inductor, "ind_al", 0), 193);
  EXPECT_EQ(number(inductor, "ind_numberofturns", 0), 71);
  EXPECT_EQ(number(inductor, "ind_primarydiameter", 0), 0.5);
  EXPECT_EQ(number(inductor, "ind_peakfluxdensity", 0), 137);
  // Without a PFC stage nothing is designed or loaded for it.
  EXPECT_TRUE(isWithoutResults(1));
  EXPECT_TRUE(inductor.field("ind_inductance", 1).IsItEmpty());
}

// 2 A need a wire of sqrt(0.4 x 4 / pi) = 0.713 -> 0.7 mm: W = 0.49 pi, 1.92423 mm2 a turn. At
// 2 A peak B passes 0.2 mm (44 turns, 84.7 of 100; 0.3 mm: 52 turns, 100.06) with
// 44 x 0.5028 / 100 x 2 = 0.442 T: no core will do. 1 A more in the PFC does not hurt the other.
TEST_F(InductorTest, DesignsThePfcInductorOnItsLineInput) {
  set("line_input_pfc", "Yes");
  EXPECT_FALSE(inductor.Calculate(true));
  EXPECT_EQ(takeMessages(), Texts{"No Solution Found"});
  EXPECT_EQ(core(0), "B");
  EXPECT_EQ(core(1), "");
  EXPECT_TRUE(isWithoutResults(1));
  EXPECT_EQ(number(inductor, "ind_runningcurrent", 1), 2);
  set("max_pfc_current", 1.0);
  EXPECT_TRUE(inductor.Calculate(true));
  EXPECT_EQ(core(1), "B");
  EXPECT_EQ(inductor.field("ind_peakignitioncurrent", 0).ValueLabel(), "Peak Ignition Current");
  EXPECT_EQ(inductor.field("ind_peakignitioncurrent", 1).ValueLabel(), "Max PFC Current");
}

TEST_F(InductorTest, ShutGateDoesNothing) {
  set("allow_inductor", "no");
  fixCore(0, "A");
  fixGap(0, 0.1);
  inductor.field("ind_al", 0).SetValue(7.0);
  EXPECT_TRUE(inductor.Calculate(true));
  EXPECT_EQ(number(inductor, "ind_al", 0), 7);
  EXPECT_TRUE(inductor.field("ind_gapsize", 0).IsFixed());
  EXPECT_EQ(core(0), "A");
  EXPECT_EQ(takeMessages(), Texts{});
}

TEST_F(InductorTest, FixesHoldUntilAFreshStart) {
  // 44 turns on A at 0.1 mm: 0.442 T, above the limit but chosen.
  fixCore(0, "A");
  fixGap(0, 0.1);
  EXPECT_TRUE(inductor.Calculate(false));
  EXPECT_EQ(takeMessages(),
            Texts{"Warning! Peak Flux Density is too high, try a larger core or gap !"});
  EXPECT_EQ(core(0), "A");
  EXPECT_EQ(number(inductor, "ind_gapsize", 0), 0.1);
  EXPECT_EQ(number(inductor, "ind_peakfluxdensity", 0), 442);
  EXPECT_TRUE(inductor.Calculate(true));
  EXPECT_FALSE(inductor.findTickBox("ind_checkFixCore", 0)->checked);
  EXPECT_FALSE(inductor.field("ind_gapsize", 0).IsFixed());
  EXPECT_EQ(core(0), "B");
}

TEST_F(InductorTest, OnlyTheFixedResultsOutliveTheClearing) {
  EXPECT_TRUE(inductor.Calculate(true));
  fixCore(0, "A");
  inductor.ClearInductorOutputs(0);
  EXPECT_TRUE(isWithoutResults(0));
  EXPECT_EQ(core(0), "A");
  EXPECT_TRUE(inductor.field("ind_gapsize", 0).IsItEmpty());
  fixGap(0, 0.3);
  inductor.findTickBox("ind_checkFixCore", 0)->checked = false;
  inductor.ClearInductorOutputs(0);
  EXPECT_EQ(core(0), "");
  EXPECT_EQ(number(inductor, "ind_gapsize", 0), 0.3);
}

// Every refusal in its words; the flux warning is above.
TEST_F(InductorTest, Refusals) {
  struct Case {
    const char* core;
    Variant gap;
    bool gap_fixed;
    const char* words;
  };
  const Case cases[] = {
      {"", "", true, "You must specify a valid Gap Size"},
      {"A", "", true, "You must specify a valid Gap Size"},
      {"", 3.1, true, "Gap too Large !"},
      {"A", 3.1, true, "Gap too Large !"},
      // Without a gap 19 turns have 0.955 T on A and 0.478 T on B; on EF25 AL is 2296 nH: 20 turns,
      // 0.875 T.
      {"", 0.0, true, "No Core Large enough in database !"},
      // 59 turns fill 57.9 of 50 mm2.
      {"A", 0.2, true, "Try a Larger Core or Smaller Gap, or reducing the Running Current"},
      {"unknown", 0.2, true, kError},
      {"unknown", "", false, kError},
  };
  EXPECT_TRUE(inductor.CommandLoadInputsAction(0));
  for (const Case& test : cases) {
    SCOPED_TRACE(test.words);
    inductor.findTickBox("ind_checkFixCore", 0)->checked = *test.core != '\0';
    show_core(*inductor.findPullDown("ind_comboCore", 0), test.core);
    inductor.field("ind_gapsize", 0).SetFixed(test.gap_fixed);
    inductor.field("ind_gapsize", 0).SetValue(test.gap);
    EXPECT_FALSE(inductor.DesignInductor(0));
    EXPECT_EQ(takeMessages(), Texts{test.words});
    EXPECT_TRUE(isWithoutResults(0));
  }
  EXPECT_FALSE(inductor.DesignInductor(2));
  EXPECT_EQ(takeMessages(), Texts{kError});
  EXPECT_THROW(inductor.CommandLoadInputsAction(-1), Fault);
}

// A chosen core that is too small even without a gap is an error, the same core found by the walk
// is not: 3.2 A rms take 60.4 mm2, and 0.3 A peak give 0.287 T.
TEST_F(InductorTest, WindingTooBigWithoutAnyGap) {
  set("preheat_current", 3.2);
  set("ignition_current", 0.3);
  EXPECT_TRUE(inductor.Calculate(true));
  EXPECT_EQ(core(0), "A");
  EXPECT_EQ(number(inductor, "ind_gapsize", 0), 0);
  fixCore(0, "A");
  EXPECT_FALSE(inductor.DesignInductor(0));
  EXPECT_EQ(takeMessages(), Texts{kError});
}

TEST_F(InductorTest, MissingInputsEndTheRun) {
  set("ignition_current", "");
  messages.injectAnswers({kYes});
  bool listed = false;
  missing.showList = [&] { listed = true; };
  EXPECT_FALSE(inductor.Calculate(true));
  EXPECT_EQ(takeMessages(), Texts{kMissing});
  EXPECT_TRUE(listed);
  EXPECT_EQ(missing.PrepareToShow(),
            Texts{"Operating Points & Tank Components screen : Ignition Current"});
  // On its own the design asks for what its own fields lack.
  EXPECT_FALSE(inductor.DesignInductor(0));
  EXPECT_EQ(takeMessages(), Texts{kMissing});
  EXPECT_EQ(missing.PrepareToShow(), Texts{"Inductor Design Screen : Peak Ignition Current"});
}

TEST_F(InductorTest, CurrentsWithoutASourceAreMissingToo) {
  sql("UPDATE [LoadInputs] SET [Source] = NULL WHERE [DestinationField] LIKE '%current,0'");
  EXPECT_FALSE(inductor.CommandLoadInputsAction(0));
  EXPECT_EQ(takeMessages(), Texts{kMissing});
  EXPECT_EQ(missing.PrepareToShow(), (Texts{"Inductor Design Screen : Peak Ignition Current",
                                            "Inductor Design Screen : RMS Running Current"}));
}

// A current below 0.1 A comes in as "80 mApk". Counted as 80 A no core would do.
// 0.08 A rms too: d = 0.1427, cut to 0.1, a turn fills 0.03927 mm2. Core A ends at 1.1 mm with 133
// turns: 133 x 0.0558667 / 50 x 0.08 = 0.0118884 T.
TEST_F(InductorTest, LabelledPrefixesAreConverted) {
  advanced.field("ignition_current").ValueRoundDecPlaces("2");
  set("ignition_current", 0.08);
  set("preheat_current", 0.08);
  EXPECT_TRUE(inductor.Calculate(true));
  EXPECT_EQ(takeMessages(), Texts{});
  EXPECT_EQ(number(inductor, "ind_peakignitioncurrent", 0), 80);
  EXPECT_EQ(inductor.field("ind_peakignitioncurrent", 0).UnitText(), "mApk");
  EXPECT_EQ(core(0), "A");
  EXPECT_EQ(number(inductor, "ind_peakfluxdensity", 0), 11);
  EXPECT_EQ(number(inductor, "ind_numberofturns", 0), 133);
  // The same inductance under another label.
  inductor.field("ind_inductance", 0).ValueBaseUnits("uH");
  inductor.field("ind_inductance", 0).SetValue(1000.0);
  EXPECT_TRUE(inductor.DesignInductor(0));
  EXPECT_EQ(number(inductor, "ind_numberofturns", 0), 133);
}

TEST_F(InductorTest, CoreListFollowsTheUsersEdits) {
  EXPECT_EQ(inductor.findPullDown("ind_comboCore", 1)->items, (Texts{"A", "EF25", "B"}));
  fixCore(1, "B");
  sql("INSERT INTO [INDUCTOR:Core Types] VALUES ('Own', 60, 60, 1, 60, 1, 1)");
  EXPECT_TRUE(inductor.initialise());
  EXPECT_EQ(inductor.findPullDown("ind_comboCore", 1)->items.size(), 3U);
  EXPECT_TRUE(inductor.ReInitialise());
  EXPECT_EQ(inductor.findPullDown("ind_comboCore", 0)->items, (Texts{"A", "Own", "EF25", "B"}));
  EXPECT_EQ(core(1), "B");
  sql("DELETE FROM [INDUCTOR:Core Types] WHERE [Core Size] = 'B'");
  EXPECT_TRUE(inductor.ReInitialise());
  EXPECT_EQ(core(1), "");
}

TEST_F(InductorTest, LostCoreTableIsReported) {
  EXPECT_TRUE(inductor.CommandLoadInputsAction(0));
  sql("DROP TABLE [INDUCTOR:Core Types]");
  EXPECT_FALSE(inductor.ReInitialise());
  EXPECT_FALSE(transformer.ReInitialise());
  EXPECT_FALSE(inductor.DesignInductor(0));
  EXPECT_EQ(messages.shown().front().owner, "Inductor");
  EXPECT_EQ(takeMessages(), (Texts{kNoCores, kNoCores, kNoCores}));
}

TEST_F(InductorTest, Buttons) {
  EXPECT_TRUE(inductor.command_click("CommandLoadInputs", 0));
  EXPECT_TRUE(inductor.command_click("CalculateInductor", 0));
  EXPECT_EQ(core(0), "B");
  EXPECT_TRUE(inductor.command_click("CommandEditUserData"));
  EXPECT_TRUE(inductor.command_click("ShowDatasheet"));
  inductor.PrintScreen();
  EXPECT_EQ(calls, (Texts{"edit", "sheet", "print"}));
  EXPECT_FALSE(inductor.command_click("CalculateInductor"));
  EXPECT_FALSE(inductor.command_click("CalculateInductor", 2));
}

}  // namespace
}  // namespace vantrel
