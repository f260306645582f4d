#include "components/rule_choice.h"

#include <algorithm>
#include <string>
#include <utility>

#include "core/text_parsing.h"
#include "selection/record_fields.h"

namespace vantrel {

namespace {

/// Score of a rule for a selection, -1 when one of its lists leaves the selection out.
int score(const RuleRow& rule, const PresentSelection& selection) {
  const std::pair<const std::string*, const std::string*> criteria[] = {
      {&selection.input, &rule.input},
      {&selection.ic, &rule.target},
      {&selection.config, &rule.config}};
  int result = 0;
  for (const auto& [item, list] : criteria) {
    if (list->empty()) continue;
    if (!IsThisInTheList(*item, *list)) return -1;
    ++result;
  }
  return result;
}

}  // namespace

bool IsThisInTheList(std::string_view item, std::string_view list) {
  if (trimmed(item) == trimmed(list)) return true;
  const std::vector<std::string> fields = comma_list(list);
  return fields.size() >= 2 && std::ranges::find(fields, item) != fields.end();
}

bool FindNextValidRecord(RuleCursor& rules, std::string_view variable) {
  for (; !rules.atEnd(); rules.MoveNext()) {
    if (variable == "Calculate") return true;
    const std::vector<std::string>& names = rules.row().variables;
    if (std::ranges::find(names, variable) != names.end()) return true;
  }
  return false;
}

RuleChoice choose_rule(RuleCursor& rules, std::string_view variable,
                       const PresentSelection& selection) {
  RuleChoice choice;
  int row = 0;
  for (rules.MoveFirst(); FindNextValidRecord(rules, variable); rules.MoveNext()) {
    ++row;
    const int found = score(rules.row(), selection);
    if (found < 0 || found < choice.best_score) continue;
    if (found == choice.best_score) {
      ++choice.ties;
    } else {
      choice = {.best_score = found, .best_row = row, .ties = 0};
    }
  }
  return choice;
}

bool refetch_rule(RuleCursor& rules, std::string_view variable, int row) {
  rules.MoveFirst();
  for (int at = 1; FindNextValidRecord(rules, variable); ++at) {
    if (at == row) return true;
    rules.MoveNext();
  }
  return false;
}

}  // namespace vantrel
