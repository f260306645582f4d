#pragma once

#include <map>
#include <string>
#include <string_view>

#include "database_builder/combinations.h"
#include "database_builder/problems.h"
#include "database_builder/source_table.h"
#include "database_builder/vocabulary.h"

namespace vantrel::builder {

/// The variables that [CC:SourceVariables] takes from screens or gives a constant.
class InputVariables {
 public:
  explicit InputVariables(const SourceTables& tables);

  bool contains(std::string_view name) const { return sources_.contains(name); }
  /// True when the variable can have a value for the combination: a field of the calculator needs a
  /// row of [LoadInputs] for the IC.
  bool filled(std::string_view name, const Combination& combination) const;

  /// Checks each row: one for a variable, a screen and a field that exist, or a constant.
  void check(const Vocabulary& vocabulary, Problems& problems) const;

 private:
  struct Source {
    std::string screen;
    std::string field;
  };
  std::string fault(const SourceRow& row, const Vocabulary& vocabulary) const;
  bool loaded(const std::string& field, const std::string& ic) const;

  const SourceTable* table_;
  const SourceTable* loads_;
  std::map<std::string, Source, std::less<>> sources_;
};

}  // namespace vantrel::builder
