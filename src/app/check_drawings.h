#pragma once

#include <iosfwd>

#include "app/cli_session.h"
#include "app/selection_options.h"

namespace vantrel {

/// Designs every combination that the selection rules and `filters` allow, and compares its circuit
/// diagram with its bill of materials. Prints each discrepancy and a count at the end. Gives an
/// ExitStatus: kExitEndedEarly when anything was found.
int run_check(const CliPlaces& places, const SelectionOptions& filters, std::ostream& out,
              std::ostream& errors);

}  // namespace vantrel
