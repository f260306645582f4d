#pragma once

#include <string_view>

#include "components/engine_context.h"
#include "components/rule_table.h"

namespace vantrel {

/// True when the item is the whole list, or one of the fields of a comma list. The fields are
/// compared with the item as it is given, blanks and all.
bool IsThisInTheList(std::string_view item, std::string_view list);

/// Moves on, from the current rule, to one that is for `variable`; false when there is none. A
/// variable that is called as the field itself, "Calculate", takes any rule.
bool FindNextValidRecord(RuleCursor& rules, std::string_view variable);

/// The rule that fits a selection best.
struct RuleChoice {
  int best_score = -1;  ///< How many of its lists hold the selection; -1 when no rule fits.
  int best_row = -1;    ///< Its number among the rules for the variable, from 1.
  int ties = 0;         ///< How many other rules fit as well.
};

RuleChoice choose_rule(RuleCursor& rules, std::string_view variable,
                       const PresentSelection& selection);

/// Moves to the rule of that number; false when it is not there any more.
bool refetch_rule(RuleCursor& rules, std::string_view variable, int row);

}  // namespace vantrel
