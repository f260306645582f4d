#include "magnetics/transformer_design.h"

#include <gtest/gtest.h>

#include <vector>

#include "core/fault.h"
#include "support/close.h"

namespace vantrel {
namespace {

using test::close;

TransformerInputs halogen(double power) {
  return {.input_voltage = 207,
          .power = power,
          .output_voltage = 12,
          .flux_density = 200,
          .magnetizing_current = 40000000,
          .core_fixed = false,
          .core = {}};
}

const std::vector<CoreType> kCores{{"EF12.6", 29.6, 12.4, 2.387, 11.6, 0.7},
                                   {"EFD15", 34, 15, 2.267, 15.8, 0.9},
                                   {"EF25", 57.5, 52.5, 1.095, 61, 1.5}};

// 100 W: Ip = 100 / (207 x 0.9) = 0.536769, Is = 100 / (12 x 0.9) = 9.25926; areas 0.107354 and
// 1.851852; dp = sqrt(0.136687) = 0.3697 -> 0.3, ds = sqrt(2.35786) = 1.5355 -> 1.5.
//   EF12.6: AL 1053.2 nH, Np = 2480 / 42.1282 = 58.87 -> 59, fill 19.8 of 11.6
//   EFD15:  AL 1108.95 nH, Np = 3000 / 44.3582 = 67.63 -> 68, fill 22.8 of 15.8
//   EF25:   AL 2295.89 nH, Np = 10500 / 91.8356 = 114.33 -> 114, Ns = 114 x 12 / 414 = 3.30435,
//           fill = (2 x 114 x 0.107354 + 3.30435 x 1.851852) / 0.8 = 38.24 of 61
TEST(TransformerDesign, FirstCoreThatTakesTheWindings) {
  const TransformerDesign design = design_transformer(halogen(100), kCores);
  EXPECT_TRUE(design.fits);
  EXPECT_EQ(design.core, "EF25");
  EXPECT_TRUE(close(design.al, 2295.89e-9, 1e-6));
  EXPECT_TRUE(close(design.primary_current, 0.536769, 1e-6));
  EXPECT_EQ(design.primary_turns, 114);
  EXPECT_TRUE(close(design.secondary_turns, 3.30435, 1e-6));
  EXPECT_EQ(design.primary_diameter, 0.3);
  EXPECT_EQ(design.secondary_diameter, 1.5);
}

// Half of that power needs half the copper: 9.9 of the 11.6 of EF12.6. dp = 0.2614 -> 0.2.
TEST(TransformerDesign, SmallestCoreForLessPower) {
  const TransformerDesign design = design_transformer(halogen(50), kCores);
  EXPECT_EQ(design.core, "EF12.6");
  EXPECT_EQ(design.primary_turns, 59);
  EXPECT_EQ(design.primary_diameter, 0.2);
  // 10 W: dp = sqrt(0.0107354 x 4 / pi) = 0.1169 -> 0.1, which becomes the smallest wire.
  EXPECT_EQ(design_transformer(halogen(10), kCores).primary_diameter, 0.2);
}

TEST(TransformerDesign, FixedCoreIsTheOnlyOneTried) {
  TransformerInputs in = halogen(100);
  in.core_fixed = true;
  in.core = "EFD15";
  const TransformerDesign design = design_transformer(in, kCores);
  EXPECT_FALSE(design.fits);
  EXPECT_EQ(design.core, "EFD15");
  in = halogen(50);
  in.core_fixed = true;
  in.core = "EF25";
  EXPECT_TRUE(design_transformer(in, kCores).fits);
  EXPECT_EQ(design_transformer(in, kCores).core, "EF25");
}

TEST(TransformerDesign, NoCoreIsLargeEnough) {
  // 200 W fill 76.5 of the 61 of EF25, the last one.
  const TransformerDesign design = design_transformer(halogen(200), kCores);
  EXPECT_FALSE(design.fits);
  EXPECT_EQ(design.core, "EF25");
}

// With a core constant of 12.57 AL is 200 nH, so 5e6 "nA" make the turns equal to Ae x B.
TransformerInputs by_area() {
  return {.input_voltage = 20,
          .power = 90,
          .output_voltage = 10,
          .flux_density = 1,
          .magnetizing_current = 5000000,
          .core_fixed = false,
          .core = {}};
}

std::vector<CoreType> core_of_area(double ae, double window = 1e9) {
  return {{"K", 50, ae, 12.57, window, 1}};
}

// Ip = 90 / 18 = 5, Ap = 1; Is = 90 / 9 = 10, As = 2; Np = 2, Ns = 2 x 10 / 40 = 0.5:
// fill = (2 x 2 x 1 + 0.5 x 2) / 0.8 = 6.25.
TEST(TransformerDesign, WindingExactlyAsLargeAsTheWindowDoesNotFit) {
  EXPECT_FALSE(design_transformer(by_area(), core_of_area(2, 6.25)).fits);
  EXPECT_TRUE(design_transformer(by_area(), core_of_area(2, 6.26)).fits);
}

TEST(TransformerDesign, PrimaryTurnsRoundHalfToEvenInto16Bits) {
  for (const auto& [area, turns] : std::vector<std::pair<double, int>>{
           {2.5, 2}, {3.5, 4}, {2.6, 3}, {0.5, 0}, {32767, 32767}}) {
    EXPECT_EQ(design_transformer(by_area(), core_of_area(area)).primary_turns, turns) << area;
  }
  EXPECT_THROW(design_transformer(by_area(), core_of_area(32767.5)), Fault);
  // The magnetizing current in amperes instead of nanoamperes: 1e9 times the turns.
  TransformerInputs in = halogen(100);
  in.magnetizing_current = 0.04;
  EXPECT_THROW(design_transformer(in, kCores), Fault);
}

TEST(TransformerDesign, Faults) {
  TransformerInputs in = halogen(100);
  in.core_fixed = true;
  in.core = "EF99";
  EXPECT_THROW(design_transformer(in, kCores), Fault);
  for (double TransformerInputs::*input :
       {&TransformerInputs::input_voltage, &TransformerInputs::output_voltage,
        &TransformerInputs::magnetizing_current}) {
    in = halogen(100);
    in.*input = 0;
    EXPECT_THROW(design_transformer(in, kCores), Fault);
  }
}

}  // namespace
}  // namespace vantrel
