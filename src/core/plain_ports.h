#pragma once

#include <chrono>
#include <functional>
#include <map>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "core/ports.h"

// The ports of a run without windows.

namespace vantrel {

/// Settings that live as long as the object.
class MemorySettings : public SettingsStore {
 public:
  std::string get(std::string_view section, std::string_view key,
                  std::string_view fallback) override {
    const auto found = values_.find({std::string(section), std::string(key)});
    return found == values_.end() ? std::string(fallback) : found->second;
  }
  void save(std::string_view section, std::string_view key, std::string_view value) override {
    values_[{std::string(section), std::string(key)}] = value;
  }

 private:
  std::map<std::pair<std::string, std::string>, std::string> values_;
};

/// The machine's monotonic clock.
class SteadyClock : public Clock {
 public:
  double seconds() const override {
    return std::chrono::duration<double>(std::chrono::steady_clock::now().time_since_epoch())
        .count();
  }
};

/// A timer that ticks only when `fire` is called.
class ManualTimer : public Timer {
 public:
  void start(int interval_ms, std::function<void()> tick) override {
    interval_ms_ = interval_ms;
    tick_ = std::move(tick);
    running_ = true;
  }
  void stop() override { running_ = false; }
  bool running() const override { return running_; }
  int interval() const { return interval_ms_; }

  /// Ticks up to `count` times; gives how many ticks the timer was still running for.
  int fire(int count = 1) {
    int done = 0;
    for (; done < count && running_; ++done) {
      const std::function<void()> tick = tick_;  // the tick may start the timer anew
      tick();
    }
    return done;
  }

 private:
  std::function<void()> tick_;
  int interval_ms_ = 0;
  bool running_ = false;
};

/// A timer without waiting: `start` ticks until the owner stops it. An owner that never does is cut
/// off after `kMostTicks`, so that a headless run cannot hang.
class ImmediateTimer : public Timer {
 public:
  static constexpr int kMostTicks = 100000;

  void start(int interval_ms, std::function<void()> tick) override {
    const bool ticking = timer_.running();
    timer_.start(interval_ms, std::move(tick));
    if (ticking) return;  // started anew from inside a tick: the loop below goes on with it
    timer_.fire(kMostTicks);
    timer_.stop();
  }
  void stop() override { timer_.stop(); }
  bool running() const override { return timer_.running(); }

 private:
  ManualTimer timer_;
};

/// Plays nothing.
class SilentSound : public SoundPlayer {
 public:
  void play(const std::string& /*path*/) override {}
};

/// Opens nothing and keeps what it was asked for.
class RecordingShell : public ShellOpen {
 public:
  bool open(const std::string& address) override {
    opened.push_back(address);
    return succeeds;
  }

  std::vector<std::string> opened;
  bool succeeds = true;  ///< What `open` answers.
};

/// Has no events to let in.
class NoEvents : public EventPump {
 public:
  void yield() override {}
};

}  // namespace vantrel
