#pragma once

#include <map>
#include <string>
#include <string_view>
#include <vector>

#include "database_builder/combinations.h"
#include "database_builder/problems.h"
#include "database_builder/source_table.h"

namespace vantrel::builder {

/// One row of [CC:Calculations].
struct CalculationRule {
  int line = 0;
  std::vector<std::string> variables;  ///< The variables that it is for.
  std::vector<std::string> inputs;     ///< These three: where it fits; empty for everywhere.
  std::vector<std::string> targets;
  std::vector<std::string> configs;
  std::string function;  ///< A component function, a variable to copy, or "interpolatevalue".
  bool copies = false;   ///< `function` is the variable to copy.
  bool sets_value = false;
  std::vector<std::string> parameters;

  bool interpolates() const;
};

/// The rules as the calculation reads them.
class CalculationRules {
 public:
  explicit CalculationRules(const SourceTable& table);

  /// The rules with the highest score for a variable: none, one, or several that tie. Each of
  /// input, IC and configuration that a rule asks for and finds counts one.
  std::vector<const CalculationRule*> best(std::string_view variable,
                                           const Combination& combination) const;

  const SourceTable& table() const { return table_; }
  const std::vector<CalculationRule>& rows() const { return rows_; }

 private:
  const SourceTable& table_;
  std::vector<CalculationRule> rows_;
  std::map<std::string, std::vector<std::size_t>, std::less<>> by_variable_;
};

/// Checks what each row says by itself: a list of variables is marked as one, the places that it
/// asks for exist, a value set directly has its cells, an interpolation its curve and factors.
void check_rule_rows(const CalculationRules& rules, const SourceTables& tables,
                     const std::vector<Combination>& combinations, Problems& problems);

}  // namespace vantrel::builder
