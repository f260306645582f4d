#include "database_builder/calculation_rules.h"

#include <algorithm>
#include <set>

#include "core/number_text.h"
#include "core/text_parsing.h"

namespace vantrel::builder {

namespace {

/// Parameters of an interpolation: variable, both parts of the curve's name, factor and divisor.
constexpr std::size_t kInterpolationParameters = 5;
/// Points that a curve needs at least.
constexpr std::size_t kCurvePoints = 2;

CalculationRule read_rule(const SourceTable& table, const SourceRow& row) {
  CalculationRule rule;
  rule.line = row.line;
  rule.variables = list_entries(table.text(row, "Calculate"));
  rule.inputs = list_entries(table.text(row, "Input"));
  rule.targets = list_entries(table.text(row, "Target"));
  rule.configs = list_entries(table.text(row, "Config"));
  rule.function = table.text(row, "Function");
  rule.copies = table.yes(row, "functionisvar");
  rule.sets_value = table.yes(row, "SetValueDirectly");
  for (int n = 0;; ++n) {
    std::string parameter = table.text(row, "V" + std::to_string(n));
    if (parameter.empty()) break;
    rule.parameters.push_back(std::move(parameter));
  }
  return rule;
}

bool holds(const std::vector<std::string>& list, const std::string& item) {
  return std::ranges::find(list, item) != list.end();
}

/// Score of a rule, or -1 where it does not fit.
int score(const CalculationRule& rule, const Combination& combination) {
  int points = 0;
  const auto ask = [&](const std::vector<std::string>& list, const std::string& item) {
    if (list.empty()) return true;
    ++points;
    return holds(list, item);
  };
  const bool fits = ask(rule.inputs, combination.input) && ask(rule.targets, combination.ic) &&
                    ask(rule.configs, combination.config);
  return fits ? points : -1;
}

class CalculationRowChecker {
 public:
  CalculationRowChecker(const CalculationRules& rules, const SourceTables& tables,
                        const std::vector<Combination>& combinations, Problems& problems)
      : rules_(rules), tables_(tables), problems_(problems) {
    for (const Combination& combination : combinations) {
      inputs_.insert(combination.input);
      targets_.insert(combination.ic);
      configs_.insert(combination.config);
    }
  }

  void check(const SourceRow& row, const CalculationRule& rule) {
    line_ = rule.line;
    if (rule.variables.size() > 1 && !rules_.table().yes(row, "Multiple")) {
      report("a list of variables needs 'Multiple'");
    }
    checkPlaces("Input", rule.inputs, inputs_);
    checkPlaces("Target", rule.targets, targets_);
    checkPlaces("Config", rule.configs, configs_);
    if (rule.sets_value) {
      if (rule.parameters.size() < 3) report("a value set directly needs V0, V1 and V2");
    } else if (rule.function.empty()) {
      report("has no function");
    } else if (rule.interpolates()) {
      checkInterpolation(rule);
    }
  }

 private:
  void report(const std::string& text) { problems_.add(rules_.table().file, line_, text); }

  void checkPlaces(const std::string& column, const std::vector<std::string>& list,
                   const std::set<std::string>& known) {
    for (const std::string& entry : list) {
      if (!known.contains(entry)) report(column + " '" + entry + "' is in no combination");
    }
  }

  void checkInterpolation(const CalculationRule& rule) {
    if (rule.parameters.size() != kInterpolationParameters) {
      return report("an interpolation takes 5 parameters, not " +
                    std::to_string(rule.parameters.size()));
    }
    const std::string curve = "Lookup:" + rule.parameters[1] + ":" + rule.parameters[2];
    const SourceTable* table = tables_.find(curve);
    if (table == nullptr) {
      report("there is no curve [" + curve + "]");
    } else if (table->rows.size() < kCurvePoints) {
      report("curve [" + curve + "] has fewer than 2 points");
    }
    for (std::size_t i = 3; i < kInterpolationParameters; ++i) {
      const auto factor = parse_number(rule.parameters[i]);
      if (!factor) report("'" + rule.parameters[i] + "' is no number");
      if (i == 4 && factor && *factor == 0) report("divides by zero");
    }
  }

  const CalculationRules& rules_;
  const SourceTables& tables_;
  Problems& problems_;
  std::set<std::string> inputs_;
  std::set<std::string> targets_;
  std::set<std::string> configs_;
  int line_ = 0;
};

}  // namespace

bool CalculationRule::interpolates() const {
  return !copies && !sets_value && equal_ignoring_case(function, "interpolatevalue");
}

CalculationRules::CalculationRules(const SourceTable& table) : table_(table) {
  for (const SourceRow& row : table.rows) {
    for (const std::string& variable : rows_.emplace_back(read_rule(table, row)).variables) {
      by_variable_[variable].push_back(rows_.size() - 1);
    }
  }
}

std::vector<const CalculationRule*> CalculationRules::best(std::string_view variable,
                                                           const Combination& combination) const {
  std::vector<const CalculationRule*> best;
  int best_score = -1;
  const auto found = by_variable_.find(variable);
  if (found == by_variable_.end()) return best;
  for (const std::size_t place : found->second) {
    const int points = score(rows_[place], combination);
    if (points < 0 || points < best_score) continue;
    if (points > best_score) best.clear();
    best_score = points;
    best.push_back(&rows_[place]);
  }
  return best;
}

void check_rule_rows(const CalculationRules& rules, const SourceTables& tables,
                     const std::vector<Combination>& combinations, Problems& problems) {
  CalculationRowChecker checker(rules, tables, combinations, problems);
  for (std::size_t i = 0; i < rules.rows().size(); ++i) {
    checker.check(rules.table().rows[i], rules.rows()[i]);
  }
}

}  // namespace vantrel::builder
