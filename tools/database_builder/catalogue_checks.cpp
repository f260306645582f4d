#include "database_builder/catalogue_checks.h"

#include <algorithm>
#include <map>

#include "core/text_parsing.h"
#include "database_builder/group_rule.h"
#include "database_builder/item_checks.h"

namespace vantrel::builder {

namespace {

/// Group of the lamps that users enter.
constexpr int kUserLampGroup = 9;

/// The items that the program selects at its start, by type.
constexpr std::array<std::string_view, 4> kDefaultSelection{
    "TV6103", "90 to 265VAC/500VDC", "T5 28W", "Single lamp/current-mode heating"};

const SourceRow* group_of(const SourceTable& groups, const SourceTable& items,
                          const SourceRow& item) {
  const auto id = items.number(item, "Group");
  const auto group = std::ranges::find_if(
      groups.rows, [&](const SourceRow& row) { return id && groups.number(row, "ID") == id; });
  return group == groups.rows.end() ? nullptr : &*group;
}

/// True when the item is listed beside the selection. A rule that cannot be read hides nothing
/// here: it has been reported as such.
bool is_offered(const SourceTable& groups, const SourceTable& items, const SourceRow& item,
                int type, const Selection& selection, const SourceTables& tables) {
  const SourceRow* group = group_of(groups, items, item);
  if (group == nullptr || !groups.yes(*group, "Include") || !items.yes(item, "Include")) {
    return false;
  }
  const RuleReading reading = read_rule(groups.text(*group, "SelectionAllowed"), type, tables);
  return !reading.faults.empty() || allows(reading.rule, selection);
}

const SourceTable* items_of(const SourceTables& tables, std::size_t type) {
  return tables.find("DATA:" + std::string(kSelectionTypes[type]));
}

}  // namespace

void check_groups(const SourceTables& tables, Problems& problems) {
  const SourceTable* groups = tables.find("groups");
  if (groups == nullptr) return;
  std::map<int, int> ids;
  bool user_lamps = false;
  for (const SourceRow& row : groups->rows) {
    const std::string word = groups->text(row, "Group Type");
    const int type = selection_type(word);
    if (type < 0) problems.add(groups->file, row.line, "unknown Group Type '" + word + "'");
    const std::string rule = groups->text(row, "SelectionAllowed");
    const RuleReading reading = read_rule(rule, type, tables);
    for (const std::string& fault : reading.faults) problems.add(groups->file, row.line, fault);
    const auto id = groups->number(row, "ID");
    if (!id) continue;
    if (const auto [earlier, is_new] = ids.emplace(*id, row.line); !is_new) {
      problems.add(
          groups->file, row.line,
          "ID " + std::to_string(*id) + " is taken by line " + std::to_string(earlier->second));
    }
    user_lamps =
        user_lamps || (*id == kUserLampGroup && word == "LAMP" && groups->yes(row, "Include"));
  }
  if (!user_lamps) {
    problems.add(groups->file, 0,
                 "the LAMP group " + std::to_string(kUserLampGroup) +
                     " that takes the user's lamps is missing or not included");
  }
}

namespace {

/// Items whose ID is the position of something in a list of the program.
void check_numbered_items(const SourceTable& items, const std::vector<std::string>& names,
                          bool compare_names, Problems& problems) {
  std::vector<bool> present(names.size(), false);
  for (const SourceRow& row : items.rows) {
    if (items.number(row, "RecordType") != kItemRecord) continue;
    const int id = items.number(row, "ID").value_or(-1);
    if (id < 0 || static_cast<std::size_t>(id) >= names.size()) {
      problems.add(
          items.file, row.line,
          "ID " + std::to_string(id) + " is none of 0 to " + std::to_string(names.size() - 1));
      continue;
    }
    const auto place = static_cast<std::size_t>(id);
    present[place] = true;
    const std::string name = items.text(row, "Name");
    if (compare_names && name != names[place]) {
      problems.add(items.file, row.line,
                   "ID " + std::to_string(id) + " is '" + names[place] + "', not '" + name + "'");
    }
  }
  for (std::size_t i = 0; i < names.size(); ++i) {
    if (!present[i]) {
      problems.add(items.file, 0, "no item has ID " + std::to_string(i) + " (" + names[i] + ")");
    }
  }
}

std::vector<const SourceRow*> sorted_targets(const SourceTable& info, Problems& problems) {
  std::vector<const SourceRow*> rows;
  for (const SourceRow& row : info.rows) {
    if (info.number(row, "TargetNo")) rows.push_back(&row);
  }
  std::ranges::stable_sort(rows, {},
                           [&](const SourceRow* row) { return info.number(*row, "TargetNo"); });
  for (std::size_t i = 1; i < rows.size(); ++i) {
    if (info.number(*rows[i], "TargetNo") == info.number(*rows[i - 1], "TargetNo")) {
      problems.add(info.file, rows[i]->line,
                   "TargetNo is taken by line " + std::to_string(rows[i - 1]->line));
    }
  }
  return rows;
}

void check_target(const SourceTable& info, const SourceRow& row, const std::string& expected,
                  const SourceTables& tables, Problems& problems) {
  const std::string name = info.text(row, "target");
  if (name != expected) {
    problems.add(info.file, row.line,
                 "target '" + name + "' stands where the program has " +
                     (expected.empty() ? "none" : "'" + expected + "'"));
  }
  const std::string components = info.text(row, "BOMTable");
  if (tables.find(components) == nullptr) {
    problems.add(info.file, row.line, "BOMTable '" + components + "' is no table of the schema");
  }
}

}  // namespace

void check_targets(const SourceTables& tables, const Vocabulary& vocabulary, Problems& problems) {
  if (const SourceTable* info = tables.find("Target:Info")) {
    const std::vector<const SourceRow*> rows = sorted_targets(*info, problems);
    for (std::size_t i = 0; i < rows.size(); ++i) {
      const bool known = i < vocabulary.targets.size();
      check_target(*info, *rows[i], known ? vocabulary.targets[i] : "", tables, problems);
    }
    for (std::size_t i = rows.size(); i < vocabulary.targets.size(); ++i) {
      problems.add(info->file, 0, "target '" + vocabulary.targets[i] + "' is missing");
    }
  }
  if (const SourceTable* ics = tables.find("DATA:IC")) {
    check_numbered_items(*ics, vocabulary.targets, true, problems);
  }
  if (const SourceTable* configs = tables.find("DATA:CONFIG")) {
    check_numbered_items(*configs, vocabulary.config_codes, false, problems);
  }
}

void check_default_selection(const SourceTables& tables, Problems& problems) {
  const SourceTable* groups = tables.find("groups");
  Selection selection{-1, -1, -1, -1};
  for (std::size_t type = 0; type < kSelectionTypes.size(); ++type) {
    const SourceTable* items = items_of(tables, type);
    if (items == nullptr || groups == nullptr) return;
    const std::string name(kDefaultSelection[type]);
    const SourceRow* item = find_item(*items, name);
    if (item == nullptr) {
      problems.add(items->file, 0, "the default item '" + name + "' is missing");
      continue;
    }
    if (!is_offered(*groups, *items, *item, static_cast<int>(type), selection, tables)) {
      problems.add(items->file, item->line,
                   "the default item '" + name + "' is not offered beside the other defaults");
    }
    selection[type] = items->number(*item, "ID").value_or(-1);
  }
}

}  // namespace vantrel::builder
