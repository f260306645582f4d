#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace vantrel::builder {

/// What a data statement says, whatever is selected.
struct StatementReading {
  struct Match {
    bool target = false;  ///< Compares with the IC, otherwise with the configuration.
    std::string text;     ///< What it compares with, trimmed.
  };
  std::vector<std::string> values;  ///< The default value, then the alternatives.
  std::vector<Match> matches;
  std::vector<std::string> faults;  ///< Empty for a statement that reads to its end.
};

/// Reads every clause of a data statement, given without its "$". The program stops at the first
/// clause that matches, so a fault behind it would show up with some selections only.
StatementReading read_statement(std::string_view statement);

}  // namespace vantrel::builder
