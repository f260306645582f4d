#include "core/please_wait.h"

#include <limits>

namespace vantrel {

namespace {
constexpr double kSecondsBetweenEvents = 0.6;
}

PleaseWait::PleaseWait(SysMsg& messages, Clock& clock, EventPump& pump,
                       std::unique_ptr<Timer> auto_timeout)
    : messages_(messages),
      clock_(clock),
      pump_(pump),
      auto_timeout_(std::move(auto_timeout)),
      last_worked_(-std::numeric_limits<double>::infinity()) {}

void PleaseWait::Start(std::string_view message, int timeout_ms) {
  auto_timeout_->stop();
  message_ = message;
  timeout_ms_ = timeout_ms;
  visible_ = true;
  changed.raise();
  if (timeout_ms >= 0) auto_timeout_->start(timeout_ms, [this] { Finish(); });
}

void PleaseWait::StillCalculating() {
  const double now = clock_.seconds();
  if (now - last_worked_ < kSecondsBetweenEvents) return;
  last_worked_ = now;
  clock_symbol_ = clock_symbol_ == kLastClockSymbol ? kFirstClockSymbol : clock_symbol_ + 1;
  changed.raise();
  pump_.yield();
}

void PleaseWait::Finish() {
  auto_timeout_->stop();
  if (!visible_) return;
  visible_ = false;
  changed.raise();
}

void PleaseWait::Cancel() {
  if (!cancelVisible()) return;
  cancelled.raise();
  Finish();
  messages_.msg("PleaseWait", "Operation Cancelled");
}

}  // namespace vantrel
