#include "operating/tank_search.h"

#include <gtest/gtest.h>

namespace vantrel {
namespace {

class TankSearchTest : public ::testing::Test {
 protected:
  TankSearchTest() {
    block.PLamp = 28;
    block.VLamp = 236;
    block.VPreheatMax = 340;
    block.VIgnition = 700;
    block.VBusPreheat = 500;
    block.VBus = 500;
    block.FBallast = 40000;
    block.IPreheat = 0.21F;
    block.PMin = 2.8F;
    block.VMin = 307;
    block.FracMin = 0.1F;
    block.VBusMin = 500;
  }
  std::optional<std::size_t> run(TankSearchSettings settings) {
    calculator.SelectTarget(settings.target);
    return search.SearchAndSelect(settings);
  }

  SysMsg messages;
  RunState state;
  TargetFactory factory{messages, state};
  TankCalculator calculator{factory, messages};
  OperatingBlock block;
  TankSearch search{calculator, block};
};

// Expected values come from a search written apart from this one, with 40-digit arithmetic rounded
// to 32 bits where numbers are stored.
TEST_F(TankSearchTest, FindsTheDefaultTankOnEveryTarget) {
  const struct {
    std::int32_t target;
    std::size_t count, chosen;
    float nanofarads, millihenries, preheatVoltage, run, ignition;
  } cases[] = {
      {0, 44, 43, 3.3F, 5.3F, 249.4827881F, 40142.01563F, 45900.375F},
      {1, 44, 43, 3.3F, 5.3F, 249.4827881F, 40142.01563F, 45900.375F},
      {2, 44, 43, 3.3F, 5.3F, 249.4827881F, 40142.01563F, 45900.375F},
      {8, 44, 43, 3.3F, 5.3F, 249.4827881F, 40142.01563F, 45900.375F},
      // Steps down from 6.8 nF until ignition lies above run.
      {5, 43, 42, 3.9F, 5.2F, 218.90625F, 40110.08203F, 42626.25391F},
      {9, 43, 42, 3.9F, 5.2F, 218.90625F, 40110.08203F, 42626.25391F},
  };
  for (const auto& c : cases) {
    const auto chosen = run({.target = c.target, .currentMode = true});
    ASSERT_EQ(chosen, c.chosen) << c.target;
    ASSERT_EQ(search.PossibleResults().size(), c.count);
    const PossibleResult& best = search.PossibleResults()[*chosen];
    EXPECT_FLOAT_EQ(best.C, c.nanofarads * 1e-9F);
    EXPECT_NEAR(best.L, c.millihenries * 1e-3F, 1e-8);
    EXPECT_FLOAT_EQ(best.VPreheat, c.preheatVoltage);
    EXPECT_FLOAT_EQ(best.FRun, c.run);
    EXPECT_FLOAT_EQ(best.FIgnition, c.ignition);
    EXPECT_EQ(best.Reserved, 0);
  }
  EXPECT_TRUE(messages.shown().empty());
}

TEST_F(TankSearchTest, EndsAtTheSmallestCapacitor) {
  block.VIgnition = 5000;  // ignition stays below run for every capacitor
  const auto chosen = run({.target = 5, .currentMode = true});
  ASSERT_EQ(chosen, 43U);
  EXPECT_FLOAT_EQ(search.PossibleResults()[43].C, 3.3e-9F);
  EXPECT_FLOAT_EQ(search.PossibleResults()[43].FRun, 40142.015625F);
  EXPECT_FLOAT_EQ(search.PossibleResults()[43].FIgnition, 39248.863281F);
}

TEST_F(TankSearchTest, WalksTheGridInSingleSteps) {
  block.FBallast = 0;
  ASSERT_TRUE(run({.target = 0, .currentMode = false}));
  const auto& all = search.PossibleResults();
  ASSERT_EQ(all.size(), 91U);
  EXPECT_EQ(all.front().L, 0.001F);
  EXPECT_EQ(all[1].L, 0.0011F);
  EXPECT_FLOAT_EQ(all.back().L, 0.009999990463F);  // 90 steps, each rounded to 32 bits
}

TEST_F(TankSearchTest, FixedAxesCollapse) {
  block.C = 4.7e-9F;
  run({.target = 1, .currentMode = true, .fixedC = true});
  for (const PossibleResult& result : search.PossibleResults()) EXPECT_EQ(result.C, 4.7e-9F);
  EXPECT_GT(search.PossibleResults().size(), 10U);

  // At 8 mH the small capacitors ask for more preheat voltage than the lamp stands.
  block.L = 0.008F;
  block.FBallast = 0;
  block.VPreheatMax = 250;
  ASSERT_EQ(run({.target = 1, .currentMode = true, .fixedL = true}), 0U);
  ASSERT_EQ(search.PossibleResults().size(), 1U);
  EXPECT_GT(search.PossibleResults()[0].C, 3.3e-9F);
  EXPECT_LT(search.PossibleResults()[0].VPreheat, 252);
}

TEST_F(TankSearchTest, ATankFixedWholeIsStoredUnlessAFormulaFails) {
  block.L = 0.0095F;  // needs 369 V of preheat
  block.C = 3.3e-9F;
  const TankSearchSettings settings{
      .target = 1, .currentMode = true, .fixedL = true, .fixedC = true};
  ASSERT_EQ(run(settings), 0U);
  EXPECT_NEAR(block.VPreheat, 369.276, 1e-3);
  EXPECT_EQ(block.FRun, 0);

  block.VPreheatMax = 400;
  block.VIgnition = 0;  // no ignition frequency
  block.FBallast = 0;
  EXPECT_EQ(run(settings), std::nullopt);
}

TEST_F(TankSearchTest, AFailedRunFrequencyIsARejectedTank) {
  calculator.SelectTarget(1);
  block.L = 0.0053F;
  block.C = 3.3e-9F;
  block.PLamp = 280;
  block.VBus = 50;
  EXPECT_EQ(search.Evaluate(1, true), Evaluation::Rejected);
  EXPECT_TRUE(calculator.CalculationFailed);
  EXPECT_EQ(block.FRun, 0);
  // Earlier failures only count at the end.
  block.PLamp = 28;
  block.VBus = 500;
  block.VIgnition = 0;
  EXPECT_EQ(search.Evaluate(1, true), Evaluation::Failed);
  EXPECT_GT(block.FRun, 40000);
}

TEST_F(TankSearchTest, PreheatLimitIsForCurrentModeAndPreheatingTargets) {
  calculator.SelectTarget(1);
  block.L = 0.0053F;
  block.C = 3.3e-9F;
  block.VPreheatMax = 100;
  EXPECT_EQ(search.Evaluate(1, true), Evaluation::Rejected);
  EXPECT_EQ(search.Evaluate(1, false), Evaluation::Accepted);
  calculator.SelectTarget(5);
  EXPECT_EQ(search.Evaluate(5, true), Evaluation::Accepted);
  EXPECT_TRUE(exceeds_preheat_limit(100, 102));
  EXPECT_FALSE(exceeds_preheat_limit(100, 101.99F));
}

TEST(FindNextLowestC, GivesTheNextSmallerListEntry) {
  const float cases[][2] = {{10, 8.2F},   {8.2F, 7.5F}, {7, 6.8F},  {6.8F, 5.6F}, {5.6F, 4.7F},
                            {4.7F, 3.9F}, {3.9F, 3.3F}, {3.3F, -1}, {1, -1},      {100, 10}};
  for (const auto& c : cases) EXPECT_EQ(FindNextLowestCFromPossibleCValues(c[0]), c[1]) << c[0];
}

}  // namespace
}  // namespace vantrel
