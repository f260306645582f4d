#include <unistd.h>

#include <fstream>

#include "time_domain_fixture.h"

namespace vantrel::test {
namespace {

const TimeDomainOverrides kIgniting{{"LValue", 0.002}, {"RunFrequency", 36}};
const std::string kNoRun =
    "Time Domain Warning !¬¬Ballast run stage was not triggered with these settings";

class TimeDomainFailures : public TimeDomainFixture {};

TEST_F(TimeDomainFailures, EndTheRunAndAreTold) {
  struct Case {
    TimeDomainOverrides members;
    std::string text;
  };
  const std::vector<Case> cases{
      {{{"DeadTime", 0}}, "Division by zero"},
      {{{"LValue", 0}}, "Division by zero"},
      {{{"CValue", 0}}, "Division by zero"},
      {{{"CNode", 0}}, "Division by zero"},
      {{{"CBlock", 0}}, "Division by zero"},
      // A dead time of half a period leaves nothing for the ramp.
      {{{"DeadTime", 8}, {"StartFrequency", 62.5}, {"PreheatFrequency", 62.5}}, "Division by zero"},
      {{{"LValue", 1e-310}}, "Overflow"},
      {{{"CValue", 1e-320}}, "Overflow"},
      {{{"PreheatTime", 1e300}}, "Overflow"},
      // The current never turns negative.
      {{{"LValue", 1000}}, "Failed to find preheat repeat block"},
      // A second of frequency sweep is too long without an ignition.
      {{{"TargetNumber", 5}}, "Out of memory"}};
  for (const Case& row : cases) {
    SCOPED_TRACE(::testing::PrintToString(row.members));
    EXPECT_EQ(graph.GenerateFrom(row.members), -1.0);
    EXPECT_EQ(said(), std::vector<std::string>{"Time Domain Generation error :¬¬" + row.text});
    EXPECT_FALSE(wait.visible());
    EXPECT_TRUE(graph.Samples().empty());
    EXPECT_TRUE(graph.Envelope().empty());
    EXPECT_EQ(graph.report().result, -1.0);
    EXPECT_EQ(graph.report().n, 0);
  }
  compare(kIgniting);  // and the next run works
}

TEST_F(TimeDomainFailures, NoCrossingWithoutPreheatLeavesTheWaitWindow) {
  const TimeDomainOverrides members{{"TargetNumber", 5}, {"LValue", 1000}};
  EXPECT_TRUE(plain::simulate(inputsOf(members)).no_crossing);
  EXPECT_EQ(graph.GenerateFrom(members), -1.0);
  EXPECT_EQ(said(), std::vector<std::string>{
                        "Could not find IL crossover point for preheat repeat match start"});
  EXPECT_TRUE(wait.visible());
  EXPECT_EQ(wait.message(), "Calculating Time Domain");
}

TEST_F(TimeDomainFailures, SingleCrossingKeepsTheOldEndOfTheBlock) {
  // A slow drive on a slow tank: one rising crossing in the 600 us. The end of 0 makes the block
  // negative, and the phase lands inside the samples or beyond them.
  const auto driven = [](double khz) {
    return TimeDomainOverrides{
        {"LValue", 1}, {"CValue", 3e-8}, {"StartFrequency", khz}, {"PreheatFrequency", khz}};
  };
  EXPECT_EQ(compare(driven(1.1)).fault, "Subscript out of range");
  TimeDomainOverrides members = driven(1.3);
  const plain::Outcome found = compare(members);
  EXPECT_EQ(found.fault, "");
  ASSERT_EQ(found.repeat_end, 0);
  ASSERT_GT(found.repeat_start, 29000);
  said();
  // An end left at the start itself: the block is empty.
  members.push_back({"RepeatEnd", found.repeat_start});
  EXPECT_EQ(plain::simulate(inputsOf(members)).fault, "Division by zero");
  EXPECT_EQ(graph.GenerateFrom(members), -1.0);
  // An end behind all samples.
  members.back().second = 100000;
  EXPECT_EQ(graph.GenerateFrom(members), -1.0);
  const std::string error = "Time Domain Generation error :¬¬";
  EXPECT_EQ(said(), (std::vector<std::string>{error + "Division by zero",
                                              error + "Subscript out of range"}));
  // An end a little behind the samples, within the array: what was not simulated is zero, also
  // where an earlier run was longer.
  for (const double end : {15000.0, 43000.0, 43950.0}) {
    members.back().second = end;
    graph.GenerateFrom(kIgniting);
    EXPECT_EQ(compare(members).fault, "");
  }
}

TEST_F(TimeDomainFailures, CancelAtAnyTick) {
  const plain::Outcome full = compare(kIgniting);
  said();
  const int ticks = (full.n + 41969 - full.repeat_end) / 4096;
  for (int tick = 1; tick <= ticks; tick += tick < 12 ? 1 : 7) {  // each one of the preheat
    SCOPED_TRACE(tick);
    const plain::Outcome want = compare(kIgniting, tick);
    EXPECT_EQ(want.n % 4096, 0);  // ends with the sample of the tick
    std::vector<std::string> texts{"Operation Cancelled"};
    if (!want.run_stage) texts.push_back(kNoRun);
    EXPECT_EQ(said(), texts);
    EXPECT_FALSE(wait.visible());
    ASSERT_FALSE(HasFailure());
  }
  compare(kIgniting);
  EXPECT_TRUE(said().empty());
}

TEST_F(TimeDomainFailures, CancelButtonWorksInTheTicks) {
  int chances = 0;
  pump.events = [&] {
    clock.now += 1;
    if (++chances == 3) wait.Cancel();
  };
  clock.now = 1;
  // The wait window lets events in only every 0.6 s, so the clock must go on at each tick.
  graph.onTick = [&](int) { clock.now += 1; };
  EXPECT_EQ(graph.GenerateFrom({}), -1.0);
  EXPECT_EQ(graph.report().n, 3 * 4096);
  EXPECT_EQ(graph.members().CancelRequested, true);
  // A cancelled wait of somebody else's is no order for the next run, and none for a generator that
  // is gone.
  {
    GraphTD gone{{design, calculator, [] { return ""; }, state, missing, messages, wait}};
  }
  wait.Start("other", -1);
  wait.Cancel();
  EXPECT_EQ(graph.GenerateFrom({}), 1009998.5);
}

TEST_F(TimeDomainFailures, FaultsInEventsAreNotTheRuns) {
  volatile double zero = 0;
  graph.onTick = [&](int) { zero = 0 * (1 / zero); };
  EXPECT_EQ(graph.GenerateFrom({}), 1009998.5);
}

/// Resident memory of the process in bytes.
double resident() {
  double total = 0;
  double pages = 0;
  std::ifstream("/proc/self/statm") >> total >> pages;
  return pages * static_cast<double>(sysconf(_SC_PAGESIZE));
}

TEST_F(TimeDomainFailures, MemoryIsThatOfTheSamples) {
#if defined(__SANITIZE_ADDRESS__)
  GTEST_SKIP() << "the sanitizer's own memory would count";
#endif
  const auto grown = [&](const TimeDomainOverrides& members, int cancel_at_tick) {
    GraphTD fresh{{design, calculator, [] { return ""; }, state, missing, messages, wait}};
    const double before = resident();
    fresh.GenerateFrom(kIgniting);  // what a longer run leaves
    fresh.onTick = [&](int tick) {
      if (tick == cancel_at_tick) wait.Cancel();
    };
    fresh.GenerateFrom(members);
    const double samples = static_cast<double>(fresh.Samples().size() * sizeof(TimeDomainSample));
    return std::pair(resident() - before, samples);
  };
  constexpr double kSlack = 1e6;  // messages, and pages that the allocator keeps
  for (const TimeDomainOverrides& members :
       {kIgniting, TimeDomainOverrides{{"LValue", 0.002}, {"IgnitionRampTime", 300}}}) {
    const auto [bytes, samples] = grown(members, 0);
    EXPECT_LE(bytes, 1.1 * samples + kSlack);
    EXPECT_GE(bytes, samples - kSlack);
  }
  const auto [cancelled, kept] = grown(kIgniting, 2);
  EXPECT_EQ(kept, 8193.0 * sizeof(TimeDomainSample));
  EXPECT_LE(cancelled, 1.1 * kept + kSlack);
  const auto [failed, nothing] = grown({{"LValue", 1000}}, 0);
  EXPECT_EQ(nothing, 0);
  EXPECT_LE(failed, kSlack);
}

}  // namespace
}  // namespace vantrel::test
