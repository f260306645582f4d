#pragma once

#include <array>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "database_builder/source_table.h"

namespace vantrel::builder {

/// The four types of groups and items in the order of the selections. A group's rule may name items
/// of earlier types only: then a changed selection can always be repaired by taking, type by type,
/// the first item that is still offered.
inline constexpr std::array<std::string_view, 4> kSelectionTypes{"IC", "INPUT", "LAMP", "CONFIG"};

/// Place of a type word in `kSelectionTypes`, or -1.
int selection_type(std::string_view word);

/// One item of a rule.
struct RuleItem {
  bool is_not = false;
  int type = -1;
  int id = 0;
};
using Rule = std::vector<RuleItem>;

/// IDs that are selected, by type.
using Selection = std::array<int, 4>;

/// True when a group with the rule is offered beside the selection: of each type that the rule
/// names, the selected item is among the items named, or with NOT items is not.
bool allows(const Rule& rule, const Selection& selection);

/// The row of an item by Name, or failing that by PullDownName; nothing when there is none.
const SourceRow* find_item(const SourceTable& table, std::string_view name);

/// A rule as read, and what is wrong with its text.
struct RuleReading {
  Rule rule;
  std::vector<std::string> faults;
};

/// Reads a SelectionAllowed text of a group of type `own_type` (a place in `kSelectionTypes`).
RuleReading read_rule(std::string_view text, int own_type, const SourceTables& tables);

}  // namespace vantrel::builder
