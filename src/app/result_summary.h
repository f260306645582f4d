#pragma once

#include <array>
#include <string>
#include <vector>

#include "app/design_status.h"
#include "app/session.h"

namespace vantrel {

/// How a main window sums up the last run.
enum class RunOutcome { Complete, OutOfDate, NotComplete };

/// A button to an output window.
struct OutputEntry {
  const char* command;  ///< Command of the bar that opens it.
  const char* caption;
  const char* picture;  ///< Key of the bar's picture, or name of a picture of the windows.
  bool enabled = true;
  const char* reason = "";  ///< Why it is disabled.
};

/// The key numbers of a design: operating points, and components with the magnetics. What does not
/// apply or has no value is left out.
std::array<std::vector<KeyNumber>, 2> result_numbers(Session& session);

/// What `Simple` tells of the last run beside its choices. It reads the results and decides
/// nothing.
class ResultSummary {
 public:
  /// Both must outlive the summary.
  ResultSummary(Session& session, const DesignStatus& status)
      : session_(session), status_(status) {}

  /// True while nothing has been calculated for the present selection.
  bool isEmpty() const { return status_.state() == DesignStatus::State::Empty; }
  /// "Calculation #4", without a number for results that a project has brought.
  std::string heading() const;
  RunOutcome outcome() const;
  /// The outcome in words: "Complete: 34 components in 24 lines", "Not complete: " + the message.
  std::string outcomeText() const;
  /// What the run has done besides; empty when there is nothing to say.
  std::string note() const;
  /// The numbers on show, as two columns.
  std::array<std::vector<KeyNumber>, 2> numbers() const { return result_numbers(session_); }
  /// The output windows in order, always six.
  std::vector<OutputEntry> outputs() const;

 private:
  Session& session_;
  const DesignStatus& status_;
};

}  // namespace vantrel
