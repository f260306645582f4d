#pragma once

#include <compare>
#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "database_builder/source_table.h"
#include "database_builder/vocabulary.h"

namespace vantrel::builder {

/// The names that a component calculation chooses its stages and rules by.
struct Combination {
  std::size_t target = 0;  ///< Target number of the IC.
  std::string ic;          ///< Short name of the IC.
  std::string input;       ///< Schematic of the line input.
  std::string config;      ///< Short code of the lamp configuration.

  friend auto operator<=>(const Combination&, const Combination&) = default;
};

/// "TV6103, ActivePFC2C, SLCM".
std::string to_string(const Combination& combination);

/// Every combination that some selection of the chooser leads to, sorted.
std::vector<Combination> reachable_combinations(const SourceTables& tables,
                                                const Vocabulary& vocabulary);

/// The entries of a comma list, each trimmed; a blank text has none.
std::vector<std::string> list_entries(std::string_view text);

}  // namespace vantrel::builder
