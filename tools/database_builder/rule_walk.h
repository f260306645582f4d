#pragma once

#include <map>
#include <optional>
#include <set>
#include <string>
#include <tuple>

#include "database_builder/bill_rows.h"
#include "database_builder/calculation_rules.h"
#include "database_builder/combinations.h"
#include "database_builder/input_variables.h"
#include "database_builder/problems.h"
#include "database_builder/vocabulary.h"

namespace vantrel::builder {

/// Follows the rules of every component of a combination to the screens and constants that they
/// start from, as a calculation would, without numbers. A problem that many combinations share is
/// reported with the first of them.
class RuleWalk {
 public:
  RuleWalk(const CalculationRules& rules, const InputVariables& inputs,
           const Vocabulary& vocabulary, Problems& problems)
      : rules_(rules), inputs_(inputs), vocabulary_(vocabulary), problems_(problems) {}

  /// Walks a full bill, or with `outputs_only` the outputs and what they need.
  void walk(const BillRows& bill, const Combination& combination, bool outputs_only);
  /// Reports the rules that no walk has chosen.
  void reportUnused() const;

 private:
  struct Place {
    const SourceTable& table;
    int line;
  };

  void report(const Place& place, const std::string& text);
  void declare(const BillRows& bill, bool outputs_only);
  void visit(const std::string& name, const Place& asked);
  void visitInput(const std::string& name, const Place& asked);
  const CalculationRule* choose(const std::string& name, const Place& asked);
  void follow(const std::string& name, const CalculationRule& rule);
  void checkFunction(const CalculationRule& rule);
  std::string functionFault(const std::string& function, int count) const;

  const CalculationRules& rules_;
  const InputVariables& inputs_;
  const Vocabulary& vocabulary_;
  Problems& problems_;
  std::set<std::tuple<std::string, int, std::string>> reported_;
  std::set<const CalculationRule*> used_;

  const Combination* combination_ = nullptr;
  std::map<std::string, DeclaredComponent> components_;
  std::map<std::string, bool> visited_;  ///< True behind the visit, false during it.
};

}  // namespace vantrel::builder
