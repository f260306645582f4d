#include "database_builder/item_checks.h"

#include <algorithm>
#include <map>

#include "core/number_text.h"
#include "core/text_parsing.h"
#include "database_builder/data_statement_check.h"
#include "database_builder/tag_checks.h"

namespace vantrel::builder {

namespace {

class ItemChecker {
 public:
  ItemChecker(const SourceTables& tables, std::string_view type, const SourceTable& table,
              const Vocabulary& vocabulary, Problems& problems)
      : tables_(tables), type_(type), table_(table), vocabulary_(vocabulary), problems_(problems) {}

  void check() {
    findTags();
    for (const SourceRow& row : table_.rows) {
      const auto record = table_.number(row, "RecordType");
      if (record == kItemRecord) {
        checkItem(row);
      } else if (record && record != kTagsRecord) {
        report(row, "RecordType " + std::to_string(*record) + " is neither 0 (tags) nor 2 (item)");
      }
    }
  }

 private:
  void report(const SourceRow& row, const std::string& text) {
    problems_.add(table_.file, row.line, text);
  }

  void findTags() {
    const SourceRow* tags = nullptr;
    for (const SourceRow& row : table_.rows) {
      if (table_.number(row, "RecordType") != kTagsRecord) continue;
      if (tags != nullptr) report(row, "a second tags row");
      if (tags == nullptr) tags = &row;
    }
    tags_.assign(table_.columns.size(), {});
    if (tags == nullptr) {
      problems_.add(table_.file, 0, "the tags row (RecordType 0) is missing");
    } else {
      tags_ = check_tags(table_, *tags, vocabulary_, problems_);
    }
  }

  void checkItem(const SourceRow& row) {
    checkNames(row);
    checkId(row);
    checkGroup(row);
    for (std::size_t i = kFixedItemColumns; i < table_.columns.size(); ++i) {
      if (is_flag_column(table_.columns[i])) {
        if (!row.cells[i]) report(row, "column '" + table_.columns[i].name + "' is blank");
      } else if (row.cells[i]) {
        checkValue(row, i, *row.cells[i]);
      }
    }
  }

  void checkNames(const SourceRow& row) {
    const std::string name = table_.text(row, "Name");
    const std::string short_name = table_.text(row, "PullDownName");
    if (name.empty()) report(row, "an item without a Name");
    checkName(row, name);
    if (short_name != name) checkName(row, short_name);
  }

  /// Rules are comma lists of TYPE#NAME, and the first item of a name is the one that is found.
  void checkName(const SourceRow& row, const std::string& name) {
    if (name.empty()) return;
    if (name.find_first_of(",#") != std::string::npos) {
      report(row, "item name '" + name + "' holds a comma or a '#'");
    }
    const auto [earlier, is_new] = names_.emplace(name, row.line);
    if (!is_new) {
      report(row, "item name '" + name + "' is taken by line " + std::to_string(earlier->second));
    }
  }

  void checkId(const SourceRow& row) {
    const auto id = table_.number(row, "ID");
    if (!id) return;
    if (*id < 0) report(row, "ID " + std::to_string(*id) + " is negative");
    const auto [earlier, is_new] = ids_.emplace(*id, row.line);
    if (!is_new) {
      report(row,
             "ID " + std::to_string(*id) + " is taken by line " + std::to_string(earlier->second));
    }
  }

  void checkGroup(const SourceRow& row) {
    const std::string wanted = table_.text(row, "Group");
    const SourceTable* groups = tables_.find("groups");
    const bool known =
        groups != nullptr && std::ranges::any_of(groups->rows, [&](const SourceRow& group) {
          return groups->number(group, "ID") == table_.number(row, "Group") &&
                 groups->text(group, "Group Type") == type_;
        });
    if (wanted.empty()) {
      report(row, "an item without a Group");
    } else if (!known) {
      report(row, "there is no " + std::string(type_) + " group " + wanted);
    }
  }

  void checkValue(const SourceRow& row, std::size_t column, const std::string& cell) {
    std::vector<std::string> values{trimmed(cell)};
    if (values.front().starts_with('$')) values = checkStatement(row, values.front());
    if (!tags_[column].numeric) return;
    for (const std::string& value : values) {
      if (!value.empty() && !parse_number(value)) {
        report(row, "'" + value + "' in column '" + table_.columns[column].name + "' is no number");
      }
    }
  }

  std::vector<std::string> checkStatement(const SourceRow& row, const std::string& statement) {
    const StatementReading reading = read_statement(std::string_view(statement).substr(1));
    for (const std::string& fault : reading.faults) report(row, "data statement: " + fault);
    for (const StatementReading::Match& match : reading.matches) {
      const auto& known = match.target ? vocabulary_.targets : vocabulary_.config_codes;
      const bool found = std::ranges::any_of(
          known, [&](const std::string& name) { return equal_ignoring_case(name, match.text); });
      if (!found) {
        report(row, "data statement: there is no " +
                        std::string(match.target ? "target" : "config") + " '" + match.text + "'");
      }
    }
    return reading.values;
  }

  const SourceTables& tables_;
  std::string_view type_;
  const SourceTable& table_;
  const Vocabulary& vocabulary_;
  Problems& problems_;
  std::vector<ColumnTags> tags_;
  std::map<std::string, int> names_;  ///< Line of the first item of a name.
  std::map<int, int> ids_;            ///< Line of the first item of an ID.
};

}  // namespace

void check_items(const SourceTables& tables, std::string_view type, const Vocabulary& vocabulary,
                 Problems& problems) {
  const SourceTable* table = tables.find("DATA:" + std::string(type));
  if (table != nullptr) ItemChecker(tables, type, *table, vocabulary, problems).check();
}

}  // namespace vantrel::builder
