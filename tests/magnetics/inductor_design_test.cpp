#include "magnetics/inductor_design.h"

#include <gtest/gtest.h>

#include <numbers>
#include <vector>

#include "core/fault.h"
#include "support/close.h"

namespace vantrel {
namespace {

using test::close;

// Two cores for working by hand. With a core constant of 1/mm AL is ue x 1.257 nH.
//
// "A": ue = 2000 / (1 + 40 g), and for 1 mH:
//   g     ue       AL/nH     N = Int(sqrt(L / AL))
//   0     2000     2514      19   (19.94)
//   0.1   400      502.8     44   (44.60)
//   0.2   222.22   279.333   59   (59.83)
//   1.1   44.444   55.8667   133  (133.79)
// "B": ue = 2000 / (1 + 20 g):
//   0.6   153.846  193.385   71   (71.91)
const CoreType kA{"A", 50, 50, 1, 50, 1.0};
const CoreType kB{"B", 100, 100, 1, 100, 0.5};
const std::vector<CoreType> kTwoCores{kA, kB};

// Wires: 1 A gives an area of 0.2, d = sqrt(0.8 / pi) = 0.5046, cut to 0.5, W = 0.25 pi, so a turn
// fills 0.25 pi / 0.8 = 0.98175 mm2. 0.35 A gives d = 0.2985, cut to 0.2: 0.15708 mm2 a turn.
InductorInputs inputs(double peak, double running) {
  return {.inductance = 1e-3,
          .peak_current = peak,
          .running_current = running,
          .core_fixed = false,
          .core = {},
          .gap_fixed = false,
          .fixed_gap = {}};
}

InductorInputs with_core(InductorInputs in, const char* core) {
  in.core_fixed = true;
  in.core = core;
  return in;
}

InductorInputs with_gap(InductorInputs in, std::optional<double> gap) {
  in.gap_fixed = true;
  in.fixed_gap = gap;
  return in;
}

void expect_design(const InductorDesign& got, const InductorDesign& want) {
  EXPECT_EQ(got.outcome, InductorOutcome::kDesigned);
  EXPECT_EQ(got.core, want.core);
  EXPECT_TRUE(close(got.gap, want.gap, 1e-12)) << got.gap;
  EXPECT_TRUE(close(got.al, want.al * 1e-9, 1e-5)) << got.al;
  EXPECT_EQ(got.turns, want.turns);
  EXPECT_EQ(got.wire_diameter, want.wire_diameter);
  EXPECT_TRUE(close(got.flux_density, want.flux_density, 1e-5)) << got.flux_density;
}

struct DesignCase {
  const char* what;
  InductorInputs in;
  InductorDesign want;  ///< AL in nH.
};

TEST(InductorDesign, ByTheFixes) {
  constexpr auto kDone = InductorOutcome::kDesigned;
  const std::vector<DesignCase> cases{
      // 0.2 mm: 59 turns fill 57.92 > 50, so back to 0.1: 44 x 0.5028 / 50 x 0.6 = 0.26548 T.
      {"free, one step back", inputs(0.6, 1), {kDone, "A", 0.1, 502.8, 44, 0.5, 0.265478}},
      // At 1 A core A has 0.442 T. B passes 0.5 mm, the last one tried below its largest gap, and
      // ends one step above, where 71 turns fill 69.7 < 100: 71 x 0.193385 / 100 = 0.13730 T.
      {"free, second core", inputs(1, 1), {kDone, "B", 0.6, 193.3846, 71, 0.5, 0.137303}},
      // The winding never fills the core: 133 x 0.0558667 / 50 = 0.14861 T at one step above 1 mm.
      {"free, past the gap", inputs(1, 0.35), {kDone, "A", 1.1, 55.86667, 133, 0.2, 0.148605}},
      // 3.2 A: d = 0.9027, cut to 0.9; already 19 turns fill 19 x 0.81 pi / 0.8 = 60.4 > 50. The
      // gap stays 0 and the flux density alone decides: 19 x 2.514 / 50 x 0.3 = 0.28660 T.
      {"free, no room at all", inputs(0.3, 3.2), {kDone, "A", 0, 2514, 19, 0.9, 0.286596}},
      // As "one step back", but with 1 A: 0.44246 T is no reason to refuse a chosen core.
      {"core", with_core(inputs(1, 1), "A"), {kDone, "A", 0.1, 502.8, 44, 0.5, 0.442464}},
      {"core B", with_core(inputs(0.6, 1), "B"), {kDone, "B", 0.6, 193.3846, 71, 0.5, 0.0823818}},
      {"gap", with_gap(inputs(0.6, 1), 0.1), {kDone, "A", 0.1, 502.8, 44, 0.5, 0.265478}},
      // At 0.2 mm A is over-filled; B has ue 400 there: 44 x 0.5028 / 100 x 0.6 = 0.132739 T.
      {"gap, no room", with_gap(inputs(0.6, 1), 0.2), {kDone, "B", 0.2, 502.8, 44, 0.5, 0.132739}},
      // A would have 0.44246 T.
      {"gap, flux", with_gap(inputs(1, 1), 0.1), {kDone, "B", 0.1, 838, 34, 0.5, 0.28492}},
      // Twice the largest gap of A: ue = 2000 / 81 = 24.6914, AL = 31.0370, N = 179 (179.5).
      {"wide gap", with_gap(inputs(1, 0.35), 2), {kDone, "A", 2, 31.03704, 179, 0.2, 0.111113}},
      // Exactly 3 mm: ue = 2000 / 121 = 16.5289, AL = 20.7769, N = 219 (219.4).
      {"widest gap", with_gap(inputs(1, 0.35), 3), {kDone, "A", 3, 20.77686, 219, 0.2, 0.0910026}},
      {"both",
       with_gap(with_core(inputs(1, 1), "A"), 0.1),
       {kDone, "A", 0.1, 502.8, 44, 0.5, 0.442464}},
  };
  for (const DesignCase& test : cases) {
    SCOPED_TRACE(test.what);
    expect_design(design_inductor(test.in, kTwoCores), test.want);
  }
}

TEST(InductorDesign, Refusals) {
  const auto outcome = [](const InductorInputs& in) {
    return design_inductor(in, kTwoCores).outcome;
  };
  // B has 0.137303 T at 1 A, so 2.2 A give 0.30207 T.
  EXPECT_EQ(outcome(inputs(2.2, 1)), InductorOutcome::kNoSolution);
  EXPECT_EQ(outcome(inputs(2.18, 1)), InductorOutcome::kDesigned);
  EXPECT_EQ(outcome(with_gap(inputs(1, 1), {})), InductorOutcome::kNoGap);
  EXPECT_EQ(outcome(with_gap(with_core(inputs(1, 1), "A"), {})), InductorOutcome::kNoGap);
  EXPECT_EQ(outcome(with_gap(inputs(1, 0.35), 3.1)), InductorOutcome::kGapTooLarge);
  EXPECT_EQ(outcome(with_gap(with_core(inputs(1, 1), "A"), 3.1)), InductorOutcome::kGapTooLarge);
  // Without a gap 19 turns on A have 0.955 T at 1 A, and as many on B 0.478 T.
  EXPECT_EQ(outcome(with_gap(inputs(1, 1), 0)), InductorOutcome::kNoCoreLargeEnough);
  // 59 turns fill 57.92 of 50.
  EXPECT_EQ(outcome(with_gap(with_core(inputs(1, 1), "A"), 0.2)), InductorOutcome::kWindingTooBig);
}

TEST(InductorDesign, Faults) {
  // Back from 0 to -0.1 mm, where ue = 2000 / (1 - 4) and the root is that of a negative number.
  EXPECT_THROW(design_inductor(with_core(inputs(0.3, 3.2), "A"), kTwoCores), Fault);
  EXPECT_THROW(design_inductor(with_core(inputs(1, 1), "C"), kTwoCores), Fault);
  EXPECT_THROW(design_inductor(with_core(inputs(1, 1), ""), kTwoCores), Fault);
  EXPECT_THROW(design_inductor(with_gap(with_core(inputs(1, 1), "C"), 1), kTwoCores), Fault);
  EXPECT_THROW(design_inductor(inputs(1, -1), kTwoCores), Fault);
  // What a user's core may hold: nothing but its size, and a gap that no search would end at.
  const std::vector<CoreType> blank{{"blank", 0, 0, 0, 0, 0}};
  EXPECT_THROW(design_inductor(inputs(1, 1), blank), Fault);
  const std::vector<CoreType> endless{{"endless", 50, 50, 1, 50, 1e18}};
  EXPECT_THROW(design_inductor(inputs(1, 0.03), endless), Fault);
  const std::vector<CoreType> negative{{"negative", 50, 50, 1, 50, -1}};
  EXPECT_THROW(design_inductor(inputs(1, 1), negative), Fault);
}

// 0.1 A: d = 0.1596, cut to 0.1. The winding is counted with 0.1 mm and wound with 0.2 mm: 44 turns
// count as 44 x 0.01 pi / 0.8 = 1.728 mm2, where 0.2 mm would be 6.9 mm2.
TEST(InductorDesign, ThinWireIsCountedByItsCutDiameter) {
  const std::vector<CoreType> cores{{"slim", 50, 50, 1, 2, 1}};
  const auto design = design_inductor(with_gap(with_core(inputs(0.1, 0.1), "slim"), 0.1), cores);
  EXPECT_EQ(design.outcome, InductorOutcome::kDesigned);
  EXPECT_EQ(design.wire_diameter, 0.2);
}

// 0.03 A: d = 0.0874, cut to 0. Nothing fills, so only the largest gap ends the search.
TEST(InductorDesign, WireCutToNothingFillsNothing) {
  const std::vector<CoreType> cores{{"tiny", 50, 50, 1, 0, 1}};
  const auto design = design_inductor(inputs(1, 0.03), cores);
  EXPECT_TRUE(close(design.gap, 1.1, 1e-12));
  EXPECT_EQ(design.wire_diameter, 0.2);
}

// 100 turns (L / AL = 10004) on 838 mm2 without a gap: 251.4e-6 Wb / 838 mm2 = 0.3 T exactly. A
// largest gap of -0.05 lets the search try 0 alone.
TEST(InductorDesign, FluxExactlyAtTheLimit) {
  const std::vector<CoreType> cores{{"edge", 50, 838, 1, 500, -0.05}};
  InductorInputs in = inputs(1, 1);
  in.inductance = 0.02515;
  const auto fixed = design_inductor(with_core(in, "edge"), cores);
  EXPECT_EQ(fixed.turns, 100);
  EXPECT_EQ(fixed.flux_density, 0.3);
  EXPECT_FALSE(fixed.flux_density > kFluxDensityLimit);
  EXPECT_EQ(design_inductor(in, cores).outcome, InductorOutcome::kNoSolution);
  EXPECT_EQ(design_inductor(with_gap(in, 0), cores).outcome, InductorOutcome::kNoCoreLargeEnough);
  EXPECT_EQ(design_inductor(with_gap(with_core(in, "edge"), 0), cores).flux_density, 0.3);
}

// 44 turns of 0.25 x 3.1415927 (32 bits) / 0.8 fill 43.19690018892288 mm2.
TEST(InductorDesign, WindingExactlyAsLargeAsTheWindow) {
  const std::vector<CoreType> cores{{"full", 50, 50, 1, 43.19690018892288, 1}};
  const InductorInputs in = with_gap(inputs(0.6, 1), 0.1);
  EXPECT_EQ(design_inductor(in, cores).outcome, InductorOutcome::kNoCoreLargeEnough);
  EXPECT_EQ(design_inductor(with_core(in, "full"), cores).turns, 44);
  // The gap search goes on from a full window and comes back to it.
  EXPECT_TRUE(close(design_inductor(with_core(inputs(0.6, 1), "full"), cores).gap, 0.1, 1e-12));
}

// The same magnetics in SI units: AL = u0 ur Ae / Le and, with a gap, B = u0 ue N I / Le. An
// E25 core that is not ground for a gap has a joint of about 0.01 mm.
TEST(InductorDesign, UnitsAgainstPhysics) {
  const std::vector<CoreType> e25{{"EF25", 57.5, 52.5, 57.5 / 52.5, 61, 1.5}};
  constexpr double kU0 = 4e-7 * std::numbers::pi;
  const auto design_at = [&](double gap) {
    return design_inductor(with_gap(with_core(inputs(0.5, 0.35), "EF25"), gap), e25);
  };
  EXPECT_TRUE(close(design_at(0).al, kU0 * 2000 * 52.5e-6 / 57.5e-3, 1e-3));
  EXPECT_GT(design_at(0.01).al, 1.6e-6);
  EXPECT_LT(design_at(0.01).al, 2.0e-6);
  const InductorDesign gapped = design_at(1.0);
  const double permeability = 2000 / (1 + 2000 * 1.0 / 57.5);
  EXPECT_TRUE(close(gapped.flux_density, kU0 * permeability * gapped.turns * 0.5 / 57.5e-3, 1e-3));
  // The turns give the inductance and one more would give too much.
  EXPECT_LE(gapped.turns * gapped.turns * gapped.al, 1e-3);
  EXPECT_GT((gapped.turns + 1) * (gapped.turns + 1) * gapped.al, 1e-3);
}

}  // namespace
}  // namespace vantrel
