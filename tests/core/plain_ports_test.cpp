#include "core/plain_ports.h"

#include <gtest/gtest.h>

namespace vantrel {
namespace {

TEST(MemorySettingsTest, TheFallbackServesUntilAKeyIsWritten) {
  MemorySettings settings;
  EXPECT_EQ(settings.get("Configure", "AppVersion", "none"), "none");
  settings.save("Configure", "AppVersion", "");
  EXPECT_EQ(settings.get("Configure", "AppVersion", "none"), "");
  EXPECT_EQ(settings.get("Other", "AppVersion", "none"), "none");
}

TEST(ManualTimerTest, TicksOnlyWhileItRuns) {
  ManualTimer timer;
  int ticks = 0;
  EXPECT_EQ(timer.fire(), 0);
  timer.start(20, [&] {
    if (++ticks == 3) timer.stop();
  });
  EXPECT_EQ(timer.interval(), 20);
  EXPECT_EQ(timer.fire(10), 3);
  EXPECT_FALSE(timer.running());
  EXPECT_EQ(ticks, 3);
}

TEST(ImmediateTimerTest, TicksUntilTheOwnerStopsIt) {
  ImmediateTimer timer;
  int ticks = 0;
  timer.start(1000, [&] {
    if (++ticks == 20) timer.stop();
  });
  EXPECT_EQ(ticks, 20);
  EXPECT_FALSE(timer.running());
}

TEST(ImmediateTimerTest, StartedAnewFromATickItGoesOnWithTheNewOne) {
  ImmediateTimer timer;
  int first = 0;
  int second = 0;
  timer.start(1, [&] {
    ++first;
    timer.start(1, [&] {
      if (++second == 2) timer.stop();
    });
  });
  EXPECT_EQ(first, 1);
  EXPECT_EQ(second, 2);
}

TEST(ImmediateTimerTest, AnOwnerThatNeverStopsItCannotHangTheRun) {
  ImmediateTimer timer;
  int ticks = 0;
  timer.start(1, [&] { ++ticks; });
  EXPECT_EQ(ticks, ImmediateTimer::kMostTicks);
  EXPECT_FALSE(timer.running());
}

}  // namespace
}  // namespace vantrel
