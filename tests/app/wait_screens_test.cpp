#include <gtest/gtest.h>

#include "core/click_sound.h"
#include "core/plain_ports.h"
#include "core/please_wait.h"
#include "core/progress_screen.h"

namespace vantrel {
namespace {

class SteppedClock : public Clock {
 public:
  double seconds() const override { return now; }
  double now = 100;
};

class CountingPump : public EventPump {
 public:
  void yield() override { ++count; }
  int count = 0;
};

struct WaitBench {
  SysMsg messages;
  SteppedClock clock;
  CountingPump pump;
  ManualTimer* timer = nullptr;
  PleaseWait wait{messages, clock, pump, [this] {
                    auto owned = std::make_unique<ManualTimer>();
                    timer = owned.get();
                    return owned;
                  }()};
};

TEST(PleaseWait, CancelIsOfferedOnlyWithoutATimer) {
  WaitBench bench;
  bench.wait.Start("Calculating", -1);
  EXPECT_TRUE(bench.wait.cancelVisible());
  EXPECT_FALSE(bench.timer->running());

  bool cancelled = false;
  bench.wait.cancelled.connect([&] { cancelled = bench.wait.visible(); });
  bench.wait.Cancel();
  EXPECT_TRUE(cancelled) << "the owner hears of it before the window closes";
  EXPECT_FALSE(bench.wait.visible());
  ASSERT_EQ(bench.messages.shown().size(), 1U);
  EXPECT_EQ(bench.messages.shown()[0].text, "Operation Cancelled");

  bench.wait.Start("Printing", 2500);
  EXPECT_FALSE(bench.wait.cancelVisible());
  EXPECT_EQ(bench.wait.barMaximum(), 2500);
  EXPECT_EQ(bench.timer->interval(), 2500);
  bench.timer->fire();
  EXPECT_FALSE(bench.wait.visible());
  EXPECT_FALSE(bench.timer->running());
  EXPECT_EQ(bench.messages.shown().size(), 1U);
}

TEST(PleaseWait, ClockMovesAtMostEverySixTenthsOfASecond) {
  WaitBench bench;
  bench.wait.Start("Calculating", -1);
  for (int i = 0; i < 10; ++i) {
    bench.wait.StillCalculating();
    bench.clock.now += 0.25;
  }
  // Calls at 0, 0.25 ... 2.25 s: those at 0, 0.75, 1.5 and 2.25 work.
  EXPECT_EQ(bench.pump.count, 4);
  EXPECT_EQ(bench.wait.clockSymbol(), 187);
  for (int i = 0; i < 8; ++i) {
    bench.clock.now += 1;
    bench.wait.StillCalculating();
  }
  EXPECT_EQ(bench.wait.clockSymbol(), 183);
}

struct ProgressBench {
  ManualTimer* timer = nullptr;
  int opened = 0;
  ProgressScreen screen{[this] {
                          auto owned = std::make_unique<ManualTimer>();
                          timer = owned.get();
                          return owned;
                        }(),
                        [this] { ++opened; }};
};

TEST(ProgressScreen, OpensTheFollowUpsTwentyTicksAfterTheBarIsFull) {
  ProgressBench bench;
  bench.screen.Setup(true);
  EXPECT_TRUE(bench.screen.visible());
  bench.screen.Progress(100, true);
  bench.screen.Progress(100, true);
  EXPECT_EQ(bench.screen.value(), 140);
  bench.screen.Progress(12, false);
  EXPECT_EQ(bench.screen.value(), 12);
  bench.screen.Progress(-1, false);
  // 128 left: 64, 32, ... 1, 0.5 left after 8 ticks; then 20 more.
  EXPECT_EQ(bench.timer->fire(27), 27);
  EXPECT_EQ(bench.opened, 0);
  bench.timer->fire();
  EXPECT_EQ(bench.opened, 1);
  EXPECT_FALSE(bench.screen.loaded());
  EXPECT_FALSE(bench.timer->running());
}

TEST(ProgressScreen, HiddenOrUnfinishedRunsOpenNothing) {
  ProgressBench bench;
  bench.screen.Setup(false);
  EXPECT_FALSE(bench.screen.visible());
  bench.screen.Progress(-1, false);
  bench.timer->fire(1000);
  EXPECT_EQ(bench.opened, 0);
  bench.screen.Setup(true);
  bench.screen.splash_terminate();
  EXPECT_EQ(bench.opened, 0);
  bench.screen.Setup(true);
  bench.screen.Progress(-2, false);
  EXPECT_FALSE(bench.screen.loaded());
}

class RecordingSound : public SoundPlayer {
 public:
  void play(const std::string& path) override {
    played = path;
    ++count;
  }
  std::string played;
  int count = 0;
};

TEST(ClickSound, IsSilentDuringStartUpWhenMutedAndWhenTooSoon) {
  RunState state;
  SteppedClock clock;
  RecordingSound player;
  const std::filesystem::path home = std::filesystem::temp_directory_path() / "vantrel-click";
  std::filesystem::create_directories(home / "Sounds");
  {
    std::FILE* file = std::fopen((home / "Sounds" / "Click1.wav").c_str(), "w");
    std::fclose(file);
  }
  const ProgramFolder folder(home);
  bool muted = false;
  ClickSound sound(state, clock, player, folder, [&] { return muted; });

  sound.PlayClickSound();
  EXPECT_EQ(player.count, 0);
  state.SoundsReady = true;
  muted = true;
  sound.PlayClickSound();
  EXPECT_EQ(player.count, 0);
  muted = false;
  sound.PlayClickSound();
  sound.PlayClickSound();
  EXPECT_EQ(player.count, 1);
  clock.now += 0.4;
  sound.PlayClickSound();
  EXPECT_EQ(player.count, 2);
  EXPECT_EQ(player.played, (home / "Sounds" / "Click1.wav").string());
  std::filesystem::remove_all(home);
}

}  // namespace
}  // namespace vantrel
