#pragma once

#include <string>
#include <vector>

#include "app/session.h"

namespace CLI {
class App;
}

namespace vantrel {

/// The options that choose a design on the command line.
struct SelectionOptions {
  std::string ic;
  std::string input;
  std::string lamp;
  std::string config;
  std::vector<std::string> sets;   ///< "Screen.field=value"
  std::vector<std::string> fixes;  ///< "Screen.field"
};

/// Adds --ic, --input, --lamp and --config.
void add_selection_options(CLI::App& command, SelectionOptions& options);
/// Adds --set and --fix.
void add_field_options(CLI::App& command, SelectionOptions& options);

/// Applies the options to the session: selections in slot order, each followed by the replacement
/// of what it rules out, then field values, then ticks. False when a name is unknown or a value is
/// no number; `why` then tells what.
bool apply_selection_options(Session& session, const SelectionOptions& options, std::string& why);

}  // namespace vantrel
