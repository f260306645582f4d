#include "database_builder/rule_checks.h"

#include <algorithm>
#include <iterator>
#include <vector>

#include "database_builder/bill_rows.h"
#include "database_builder/calculation_rules.h"
#include "database_builder/combinations.h"
#include "database_builder/input_variables.h"
#include "database_builder/rule_walk.h"

namespace vantrel::builder {

namespace {

std::vector<Combination> of_ic(const std::vector<Combination>& all, const std::string& ic) {
  std::vector<Combination> own;
  std::ranges::copy_if(all, std::back_inserter(own),
                       [&](const Combination& combination) { return combination.ic == ic; });
  return own;
}

}  // namespace

void check_rules(const SourceTables& tables, const Vocabulary& vocabulary, Problems& problems) {
  const SourceTable* infos = tables.find("Target:Info");
  const SourceTable* rule_rows = tables.find("CC:Calculations");
  if (infos == nullptr || rule_rows == nullptr) return;
  const std::vector<Combination> all = reachable_combinations(tables, vocabulary);
  const CalculationRules rules(*rule_rows);
  const InputVariables inputs(tables);
  check_rule_rows(rules, tables, all, problems);
  inputs.check(vocabulary, problems);
  check_descriptions(tables, problems);
  RuleWalk walk(rules, inputs, vocabulary, problems);
  for (const SourceRow& info : infos->rows) {
    const SourceTable* table = tables.find(infos->text(info, "BOMTable"));
    if (table == nullptr) continue;  // reported with the ICs
    const BillRows bill(*infos, info, *table);
    const std::vector<Combination> own = of_ic(all, infos->text(info, "target"));
    check_bill_rows(bill, tables, own, vocabulary, problems);
    for (const Combination& combination : own) {
      walk.walk(bill, combination, false);
      walk.walk(bill, combination, true);
    }
  }
  walk.reportUnused();
}

}  // namespace vantrel::builder
