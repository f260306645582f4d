#pragma once

#include <string>

#include "app/session.h"
#include "app/sweep_plan.h"

namespace vantrel {

/// The first line of a sweep's file, with its line end. `timed` adds the column of the time.
std::string sweep_header(bool timed);

/// Designs combinations on one session, each as if it were the first: the selection goes back to
/// the one that the session started with, then the four items are selected in slot order, then the
/// whole chain runs. So a row says what a design of that combination alone says, whatever has been
/// designed before, and no message or log line is kept from one design to the next.
class SweepDesigner {
 public:
  /// The session must be started and as yet unused; it and `plan` must outlive the designer.
  SweepDesigner(Session& session, const SweepPlan& plan, bool timed);

  /// One row of the sweep's file, with its line end and no line break before it. Every design gives
  /// a row, also one that failed.
  std::string row(const Combination& combination);

 private:
  bool design(const Combination& combination, std::int64_t& microseconds);
  bool select(const Combination& combination);
  void clearMagnetics();
  std::string messages() const;

  Session& session_;
  const SweepPlan& plan_;
  bool timed_;
  Combination start_{};
};

}  // namespace vantrel
