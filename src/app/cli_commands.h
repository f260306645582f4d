#pragma once

#include <iosfwd>
#include <string>

#include "app/cli_session.h"
#include "app/design_document.h"
#include "app/design_report.h"
#include "app/selection_options.h"

namespace vantrel {

// The commands of vantrel-cli. Each gives its ExitStatus.

/// Applies the options, runs the whole chain, prints the design with its messages below, and writes
/// the files of the design unless the folder of `output` is empty; for these its start is
/// simulated. Reports are written of any design, also of one that has ended early.
int run_design(CliSession& cli, const SelectionOptions& options, const DesignOutput& output,
               const ReportOutput& reports, std::ostream& out, std::ostream& errors);
/// Prints the items of the slot "ic", "input", "lamp" or "config" that the selection allows.
int run_list(CliSession& cli, const std::string& slot, const SelectionOptions& options,
             std::ostream& out, std::ostream& errors);
/// Answers the JSON commands of the file, or of `in` when `file` is empty.
int run_script(CliSession& cli, const std::string& file, std::istream& in, std::ostream& out,
               std::ostream& errors);

}  // namespace vantrel
