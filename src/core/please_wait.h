#pragma once

#include <memory>
#include <string>
#include <string_view>

#include "core/ports.h"
#include "core/signal.h"
#include "services/messages/sysmsg.h"

namespace vantrel {

/// The wait indicator of long actions: a message with a clock, and either a bar that runs for a
/// given time or a Cancel button.
class PleaseWait {
 public:
  /// First and last symbol of the clock picture.
  static constexpr int kFirstClockSymbol = 183;
  static constexpr int kLastClockSymbol = 194;

  PleaseWait(SysMsg& messages, Clock& clock, EventPump& pump, std::unique_ptr<Timer> auto_timeout);

  /// Shows `message`. A timeout of 0 ms or more closes the window by itself after that time and
  /// fills a bar of that length; a negative one offers Cancel instead.
  void Start(std::string_view message, int timeout_ms);
  /// Called from calculation loops: at most every 0.6 s it moves the clock on, repaints and lets
  /// pending events run.
  void StillCalculating();
  /// Hides the window.
  void Finish();
  /// The user's Cancel: tells the owner, closes the window and reports "Operation Cancelled".
  void Cancel();

  bool visible() const { return visible_; }
  bool cancelVisible() const { return visible_ && timeout_ms_ < 0; }
  const std::string& message() const { return message_; }
  /// Length of the bar in milliseconds; negative when there is none.
  int barMaximum() const { return timeout_ms_; }
  int clockSymbol() const { return clock_symbol_; }

  /// Raised when the user cancels, before the window closes.
  Signal<> cancelled;
  /// Raised when the view must be drawn anew.
  Signal<> changed;

 private:
  SysMsg& messages_;
  Clock& clock_;
  EventPump& pump_;
  std::unique_ptr<Timer> auto_timeout_;
  bool visible_ = false;
  int timeout_ms_ = -1;
  int clock_symbol_ = kFirstClockSymbol;
  double last_worked_;
  std::string message_;
};

}  // namespace vantrel
