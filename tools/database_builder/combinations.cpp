#include "database_builder/combinations.h"

#include <algorithm>
#include <array>
#include <set>

#include "core/text_parsing.h"
#include "database_builder/data_statement_check.h"
#include "database_builder/group_rule.h"
#include "database_builder/item_checks.h"

namespace vantrel::builder {

namespace {

/// Field of the design screen that names the schematic of the line input.
constexpr std::string_view kSchematicField = "line_input_schematic";

constexpr std::size_t kIc = 0;
constexpr std::size_t kInput = 1;
constexpr std::size_t kConfig = 3;

struct OfferedItem {
  int id = 0;
  const SourceRow* row = nullptr;
  Rule rule;
};

/// The items of a type that are listed at all, each with its group's rule.
std::vector<OfferedItem> listed_items(const SourceTables& tables, std::size_t type) {
  std::vector<OfferedItem> items;
  const SourceTable* groups = tables.find("groups");
  const SourceTable* table = tables.find("DATA:" + std::string(kSelectionTypes[type]));
  if (groups == nullptr || table == nullptr) return items;
  for (const SourceRow& group : groups->rows) {
    if (groups->text(group, "Group Type") != kSelectionTypes[type]) continue;
    if (!groups->yes(group, "Include")) continue;
    const Rule rule =
        read_rule(groups->text(group, "SelectionAllowed"), static_cast<int>(type), tables).rule;
    for (const SourceRow& row : table->rows) {
      const auto id = table->number(row, "ID");
      if (!id || table->number(row, "RecordType") != kItemRecord || !table->yes(row, "Include") ||
          table->number(row, "Group") != groups->number(group, "ID")) {
        continue;
      }
      items.push_back({*id, &row, rule});
    }
  }
  return items;
}

/// Position of the column that fills the schematic, or -1.
int schematic_column(const SourceTable& inputs) {
  for (const SourceRow& row : inputs.rows) {
    if (inputs.number(row, "RecordType") != kTagsRecord) continue;
    for (std::size_t i = kFixedItemColumns; i < row.cells.size(); ++i) {
      const std::vector<std::string> tags = list_entries(row.cells[i].value_or(""));
      const bool found = std::ranges::any_of(
          tags, [](const std::string& tag) { return equal_ignoring_case(tag, kSchematicField); });
      if (found) return static_cast<int>(i);
    }
  }
  return -1;
}

/// Every schematic that an input may load: one, or those of its data statement.
std::vector<std::string> schematics(const SourceRow& row, int column) {
  if (column < 0) return {""};
  const std::string cell = trimmed(row.cells[static_cast<std::size_t>(column)].value_or(""));
  if (!cell.starts_with('$')) return {cell};
  return read_statement(std::string_view(cell).substr(1)).values;
}

class Walk {
 public:
  Walk(const SourceTables& tables, const Vocabulary& vocabulary) : vocabulary_(vocabulary) {
    for (std::size_t type = 0; type < items_.size(); ++type) {
      items_[type] = listed_items(tables, type);
    }
    if (const SourceTable* inputs = tables.find("DATA:INPUT")) column_ = schematic_column(*inputs);
  }

  std::vector<Combination> run() {
    visit(0);
    return {found_.begin(), found_.end()};
  }

 private:
  void visit(std::size_t type) {
    if (type == selection_.size()) return keep();
    for (const OfferedItem& item : items_[type]) {
      if (!allows(item.rule, selection_)) continue;
      selection_[type] = item.id;
      if (type == kInput) input_ = item.row;
      visit(type + 1);
    }
    selection_[type] = -1;
  }

  void keep() {
    const auto ic = static_cast<std::size_t>(selection_[kIc]);
    const auto config = static_cast<std::size_t>(selection_[kConfig]);
    if (selection_[kIc] < 0 || ic >= vocabulary_.targets.size()) return;
    if (selection_[kConfig] < 0 || config >= vocabulary_.config_codes.size()) return;
    // Lamps multiply the selections but choose no stage and no rule.
    if (!kept_.insert({selection_[kIc], selection_[kInput], selection_[kConfig]}).second) return;
    for (const std::string& schematic : schematics(*input_, column_)) {
      found_.insert({ic, vocabulary_.targets[ic], schematic, vocabulary_.config_codes[config]});
    }
  }

  const Vocabulary& vocabulary_;
  std::array<std::vector<OfferedItem>, 4> items_;
  int column_ = -1;
  Selection selection_{-1, -1, -1, -1};
  const SourceRow* input_ = nullptr;
  std::set<std::array<int, 3>> kept_;
  std::set<Combination> found_;
};

}  // namespace

std::string to_string(const Combination& combination) {
  return combination.ic + ", " + combination.input + ", " + combination.config;
}

std::vector<Combination> reachable_combinations(const SourceTables& tables,
                                                const Vocabulary& vocabulary) {
  return Walk(tables, vocabulary).run();
}

std::vector<std::string> list_entries(std::string_view text) {
  std::vector<std::string> entries;
  if (trimmed(text).empty()) return entries;
  std::size_t begin = 0;
  while (begin <= text.size()) {
    const std::size_t end = std::min(text.find(',', begin), text.size());
    entries.push_back(trimmed(text.substr(begin, end - begin)));
    begin = end + 1;
  }
  return entries;
}

}  // namespace vantrel::builder
