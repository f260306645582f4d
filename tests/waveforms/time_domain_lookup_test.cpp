#include <cmath>
#include <limits>

#include "time_domain_fixture.h"

namespace vantrel::test {
namespace {

class TimeDomainLookUps : public TimeDomainFixture {
 protected:
  std::int32_t block() const { return graph.members().RepeatEnd - graph.members().RepeatStart; }
  double timeOf(std::int32_t index) const {
    return graph.Samples()[static_cast<std::size_t>(index)].TimeUs;
  }
  std::int32_t last() const { return static_cast<std::int32_t>(graph.Samples().size()) - 2; }
};

TEST_F(TimeDomainLookUps, FindEverySimulatedSample) {
  graph.GenerateFrom({{"LValue", 0.002}, {"RunFrequency", 36}});
  // Between the grid points, so that an inexact quotient does not matter.
  for (std::int32_t i = 0; i <= last(); ++i) {
    if (i == graph.members().RepeatEnd) continue;  // its time belongs to the block's start
    ASSERT_EQ(graph.FindItemNo(timeOf(i) + 0.02), i);
  }
  // On a grid point the quotient may fall short: 0.1 / 0.05 from 1.65 - 1.55 does.
  EXPECT_EQ(graph.FindItemNo(1.65), 1);
  EXPECT_EQ(graph.FindItemNo(-5), 0);
  EXPECT_EQ(graph.FindItemNo(2e6), last());
  EXPECT_TRUE(said().empty());
}

TEST_F(TimeDomainLookUps, FoldTheUnsimulatedPreheatIntoTheBlock) {
  graph.GenerateFrom({{"LValue", 0.002}, {"RunFrequency", 36}});
  const std::int32_t start = graph.members().RepeatStart;
  const std::int32_t end = graph.members().RepeatEnd;
  EXPECT_EQ(graph.FindItemNo(timeOf(end) + 0.02), start);
  for (std::int32_t away = 0; away < 3 * block(); ++away) {
    ASSERT_EQ(graph.FindItemNo(timeOf(end) + 0.02 + away * 0.05), start + away % block());
  }
  // Just before ignition: the sample whose phase is one step before that of the jump.
  const double steps = std::nearbyint((1000000.0 - timeOf(start)) / 0.05) - 1;
  EXPECT_EQ(graph.FindItemNo(1000000.0 - 0.03),
            start + static_cast<std::int32_t>(std::fmod(steps, block())));
}

TEST_F(TimeDomainLookUps, ShortTimelineSkipsToIgnition) {
  graph.GenerateFrom({{"LValue", 0.002}, {"RunFrequency", 36}});
  graph.shortTimeline(true);
  const std::int32_t end = graph.members().RepeatEnd;
  for (const std::int32_t away : {0, 1, 77, 50000, 150000}) {
    EXPECT_EQ(graph.FindItemNo(timeOf(end) + 0.02 + away * 0.05), end + 1 + away);
  }
  EXPECT_EQ(graph.FindItemNo(timeOf(end) - 0.03), end - 1);
  EXPECT_EQ(graph.FindItemNo(1000000.02), end + 1);
  // The mode outlives a run.
  graph.GenerateFrom({});
  EXPECT_TRUE(graph.members().ShortTimeline);
}

TEST_F(TimeDomainLookUps, WithoutPreheatCountFromTheDeadTime) {
  graph.GenerateFrom(
      {{"TargetNumber", 5}, {"LValue", 0.002}, {"RunFrequency", 36}, {"PreheatTime", 10000}});
  EXPECT_EQ(graph.GetDurationBetweenRepeatEndAndIgnition(), 0.0);
  EXPECT_EQ(graph.FindItemNo(timeOf(1000) + 0.02), 1000);
  // Behind the block the first sample counts as that of 1.5 us, 29 steps late.
  const std::int32_t behind = graph.members().RepeatEnd + 500;
  EXPECT_EQ(graph.FindItemNo(timeOf(behind) + 0.02), behind - 29);
}

TEST_F(TimeDomainLookUps, SayWhenTheyFail) {
  const double infinity = std::numeric_limits<double>::infinity();
  EXPECT_EQ(graph.FindItemNo(5), 0);  // no run yet
  EXPECT_THROW(graph.GetDurationBetweenRepeatEndAndIgnition(), Fault);
  EXPECT_EQ(said(), std::vector<std::string>{"Error!"});
  graph.GenerateFrom({});
  EXPECT_EQ(graph.FindItemNo(infinity), 0);
  EXPECT_EQ(graph.FindItemNo(std::nan("")), 0);
  EXPECT_EQ(said().size(), 3u);  // with the run's own warning
}

TEST_F(TimeDomainLookUps, StagesHaveNamesAndTimes) {
  graph.GenerateFrom({{"LValue", 0.002}, {"RunFrequency", 36}});
  EXPECT_EQ(graph.ReturnStageTime(1, true), 1000000.0);
  EXPECT_EQ(graph.ReturnStageTime(1, false), graph.StageTable()[2].StartTime);
  EXPECT_THROW(graph.ReturnStageTime(4, true), Fault);
  EXPECT_THROW(graph.ReturnStageTime(-1, true), Fault);

  const std::vector<std::vector<std::string>> names{
      {"Preheat", "Ignition", "Run", "Unknown", "Unknown"},
      {"INVALID", "Frequency Sweep", "Run", "Unknown", "Unknown"}};
  for (const int target : {0, 4, 5, 6, 9}) {
    graph.GenerateFrom({{"TargetNumber", target}, {"PreheatTime", -9999}});
    const auto& wanted = names[target == 5 || target == 9 ? 1 : 0];
    for (int stage = 0; stage < 4; ++stage) {
      EXPECT_EQ(graph.GetStageString(stage), wanted[static_cast<std::size_t>(stage)]) << target;
    }
  }
  EXPECT_EQ(GraphTD::CapVal(3, 4), 3);
  EXPECT_EQ(GraphTD::CapVal(3, -4), -3);
  EXPECT_EQ(GraphTD::CapVal(3, -2.5), -2.5);
}

}  // namespace
}  // namespace vantrel::test
