#include "selection/selection_rules.h"

#include <algorithm>
#include <cstddef>
#include <optional>

#include "core/text_parsing.h"
#include "selection/record_fields.h"

namespace vantrel {

namespace {

std::optional<std::size_t> slot_of(std::string_view type) {
  for (int slot = 0; slot < kSlotCount; ++slot) {
    if (type == GroupTypeName(slot)) return static_cast<std::size_t>(slot);
  }
  return std::nullopt;
}

/// The item of that `Name`, or else of that `PullDownName`.
std::optional<std::int32_t> item_id(std::string_view type, const std::string& name,
                                    adoaccess_class& database) {
  for (const char* column : {"Name", "PullDownName"}) {
    RecordSet rows;
    const std::string sql =
        "select ID from [DATA:" + std::string(type) + "] where " + column + " = ?";
    if (database.read(sql, {Variant(name)}, rows)) return number_value(rows.at(0));
  }
  return std::nullopt;
}

struct RuleItem {
  bool isNot = false;
  std::string type;
  std::string name;
};

RuleItem split_item(std::string_view item, std::size_t mark) {
  RuleItem result;
  result.type = upper(trimmed(item.substr(0, mark)));
  result.name = trimmed(item.substr(mark + 1));
  result.isNot = result.type.starts_with('!');
  if (result.isNot) result.type.erase(0, 1);
  return result;
}

/// Adds one item; the text of what is wrong with it, or nothing.
std::optional<std::string> add_item(const std::string& text, std::string_view row_name,
                                    SelectionRules& rules, adoaccess_class& database) {
  const std::size_t mark = text.find('#');
  if (mark == std::string::npos) {
    return "Invalid selection item in field SelectionAllowed of Groups Table : " + text;
  }
  const RuleItem item = split_item(text, mark);
  const std::optional<std::size_t> slot = slot_of(item.type);
  if (!slot) return "Could not decode type of SelectionAllowed in Groups table : " + item.type;
  const std::optional<std::int32_t> id = item_id(item.type, item.name, database);
  if (!id) {
    return "Could not find Item '" + item.name + "' In DATA:" + item.type +
           " Table (Name or PullDownName)";
  }
  SelectionList& list = rules[*slot];
  if (list.Ids.empty()) list.IsNot = item.isNot;
  if (list.IsNot != item.isNot) {
    return "There is a mixture of NOT items and OR items in the selection list, " +
           std::string(row_name) + " : " + item.name + " (" + item.type + ")";
  }
  list.Ids.push_back(*id);
  return std::nullopt;
}

}  // namespace

bool SelectionList::allows(std::int32_t id) const {
  if (Ids.empty()) return true;
  return (std::find(Ids.begin(), Ids.end(), id) != Ids.end()) != IsNot;
}

bool ParseSelectionAllowed(std::string_view text, std::string_view row_name, SelectionRules& rules,
                           adoaccess_class& database, SysMsg& messages) {
  if (trimmed(text).empty()) return true;
  for (const std::string& item : comma_list(text)) {
    if (const auto fault = add_item(item, row_name, rules, database)) {
      messages.msg("browser_form", *fault);
      return false;
    }
  }
  return true;
}

}  // namespace vantrel
