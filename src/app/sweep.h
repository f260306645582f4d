#pragma once

#include <cstddef>
#include <iosfwd>
#include <string>

#include "app/cli_session.h"
#include "app/selection_options.h"

namespace vantrel {

/// The options of `vantrel-cli sweep`.
struct SweepOptions {
  SelectionOptions filters;  ///< Of these only the four items.
  std::string shard = "1/1";
  std::size_t jobs = 1;
  bool resume = false;
  bool noTime = false;
  std::string out;
};

/// Adds the options to the command; a wrong one is refused while the command line is read.
void add_sweep_options(CLI::App& command, SweepOptions& options);

/// Designs every combination of the shard and writes one row for each to `out`, in the order of the
/// plan whatever the number of jobs. Gives an ExitStatus: kExitDone when every row stands, however
/// the designs went, kExitEndedEarly when a worker process was lost.
int run_sweep(const CliPlaces& places, const SweepOptions& options, std::ostream& errors);

}  // namespace vantrel
