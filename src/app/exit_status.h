#pragma once

namespace vantrel {

/// Exit status of the command-line program.
enum ExitStatus {
  kExitDone = 0,        ///< The chain ran to its end.
  kExitWrongUse = 1,    ///< The command line itself is wrong.
  kExitBadInput = 3,    ///< An unknown name or an unreadable file.
  kExitEndedEarly = 5,  ///< The chain ended early, a check found faults, or a sweep lost a worker.
};

}  // namespace vantrel
