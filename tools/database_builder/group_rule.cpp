#include "database_builder/group_rule.h"

#include <algorithm>

#include "core/text_parsing.h"

namespace vantrel::builder {

namespace {

class RuleReader {
 public:
  RuleReader(int own_type, const SourceTables& tables) : own_type_(own_type), tables_(tables) {}

  RuleReading read(std::string_view text) {
    std::size_t begin = 0;
    while (begin <= text.size()) {
      const std::size_t end = std::min(text.find(',', begin), text.size());
      readItem(trimmed(text.substr(begin, end - begin)));
      begin = end + 1;
    }
    return std::move(reading_);
  }

 private:
  void fault(const std::string& text) { reading_.faults.push_back("SelectionAllowed: " + text); }

  void readItem(const std::string& item) {
    const std::size_t mark = item.find('#');
    if (mark == std::string::npos) return fault("'" + item + "' is not of the form TYPE#NAME");
    std::string word = trimmed(item.substr(0, mark));
    const bool is_not = word.starts_with('!');
    if (is_not) word.erase(0, 1);
    const int type = selection_type(upper(word));
    if (type < 0) return fault("unknown type '" + word + "' in '" + item + "'");
    if (own_type_ >= 0 && type >= own_type_) {
      return fault("'" + item + "' names a type that is not selected before the group's own");
    }
    checkSense(type, is_not, item);
    addItem(type, is_not, trimmed(item.substr(mark + 1)));
  }

  void checkSense(int type, bool is_not, const std::string& item) {
    const auto other = std::ranges::find_if(reading_.rule, [&](const RuleItem& earlier) {
      return earlier.type == type && earlier.is_not != is_not;
    });
    if (other != reading_.rule.end()) fault("'" + item + "' mixes NOT items and OR items");
  }

  void addItem(int type, bool is_not, const std::string& name) {
    const std::string table_name =
        "DATA:" + std::string(kSelectionTypes[static_cast<std::size_t>(type)]);
    const SourceTable* table = tables_.find(table_name);
    const SourceRow* row = table == nullptr ? nullptr : find_item(*table, name);
    if (row == nullptr) return fault("no item '" + name + "' in [" + table_name + "]");
    if (const auto id = table->number(*row, "ID")) reading_.rule.push_back({is_not, type, *id});
  }

  int own_type_;
  const SourceTables& tables_;
  RuleReading reading_;
};

}  // namespace

int selection_type(std::string_view word) {
  const auto place = std::ranges::find(kSelectionTypes, word);
  return place == kSelectionTypes.end() ? -1 : static_cast<int>(place - kSelectionTypes.begin());
}

bool allows(const Rule& rule, const Selection& selection) {
  for (std::size_t type = 0; type < selection.size(); ++type) {
    bool named = false;
    bool is_not = true;
    for (const RuleItem& item : rule) {
      if (item.type != static_cast<int>(type)) continue;
      named = named || item.id == selection[type];
      is_not = item.is_not;
    }
    if (named == is_not) return false;
  }
  return true;
}

const SourceRow* find_item(const SourceTable& table, std::string_view name) {
  for (const char* column : {"Name", "PullDownName"}) {
    for (const SourceRow& row : table.rows) {
      if (!name.empty() && table.text(row, column) == name) return &row;
    }
  }
  return nullptr;
}

RuleReading read_rule(std::string_view text, int own_type, const SourceTables& tables) {
  if (trimmed(text).empty()) return {};
  return RuleReader(own_type, tables).read(text);
}

}  // namespace vantrel::builder
