#pragma once

#include <functional>
#include <memory>

#include "core/ports.h"
#include "core/signal.h"

namespace vantrel {

/// The progress bar of a component calculation, and what opens after it has filled up.
class ProgressScreen {
 public:
  static constexpr int kMaximum = 140;
  static constexpr int kUnload = -2;
  static constexpr int kFinished = -1;

  /// `open_follow_ups` opens the output windows that the options ask for.
  ProgressScreen(std::unique_ptr<Timer> finished_timer, std::function<void()> open_follow_ups);

  /// Empties the bar. In calculation mode the window is shown, otherwise hidden.
  void Setup(bool calculation_mode);
  /// Moves the bar to `step`, or by `step` when `additive`, up to the maximum. kUnload closes the
  /// window; kFinished lets the bar run full and then opens the follow-up windows.
  void Progress(int step, bool additive);
  /// Closes the window, and opens the follow-up windows of a finished run in calculation mode.
  void splash_terminate();

  bool loaded() const { return loaded_; }
  bool visible() const { return visible_; }
  double value() const { return value_; }

  /// Raised when the view must be drawn anew.
  Signal<> changed;

 private:
  void finishedTick();
  void unload();

  std::unique_ptr<Timer> finished_timer_;
  std::function<void()> open_follow_ups_;
  bool loaded_ = false;
  bool visible_ = false;
  bool calculation_mode_ = false;
  bool finished_ = false;
  double value_ = 0;
  int full_ticks_ = 0;
};

}  // namespace vantrel
