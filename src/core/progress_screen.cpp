#include "core/progress_screen.h"

#include <algorithm>

namespace vantrel {

namespace {
constexpr int kTickMs = 50;
constexpr int kTicksWhenFull = 20;
}  // namespace

ProgressScreen::ProgressScreen(std::unique_ptr<Timer> finished_timer,
                               std::function<void()> open_follow_ups)
    : finished_timer_(std::move(finished_timer)), open_follow_ups_(std::move(open_follow_ups)) {}

void ProgressScreen::Setup(bool calculation_mode) {
  finished_timer_->stop();
  loaded_ = true;
  calculation_mode_ = calculation_mode;
  visible_ = calculation_mode;
  finished_ = false;
  value_ = 0;
  full_ticks_ = 0;
  changed.raise();
}

void ProgressScreen::Progress(int step, bool additive) {
  if (step == kUnload) {
    unload();
    return;
  }
  if (step == kFinished) {
    finished_ = true;
    finished_timer_->start(kTickMs, [this] { finishedTick(); });
    return;
  }
  value_ = std::min<double>(additive ? value_ + step : step, kMaximum);
  changed.raise();
}

void ProgressScreen::finishedTick() {
  if (kMaximum - value_ >= 1) {
    value_ += (kMaximum - value_) / 2;
    changed.raise();
    return;
  }
  if (++full_ticks_ == kTicksWhenFull) splash_terminate();
}

void ProgressScreen::splash_terminate() {
  finished_timer_->stop();
  visible_ = false;
  const bool open_windows = finished_ && calculation_mode_;
  changed.raise();
  if (open_windows && open_follow_ups_) open_follow_ups_();
  unload();
}

void ProgressScreen::unload() {
  finished_timer_->stop();
  loaded_ = false;
  visible_ = false;
  finished_ = false;
  changed.raise();
}

}  // namespace vantrel
