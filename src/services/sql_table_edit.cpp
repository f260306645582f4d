#include "services/sql_table_edit.h"

#include <algorithm>
#include <iterator>
#include <utility>

#include "core/fault.h"
#include "core/number_text.h"

namespace vantrel {

namespace {

/// Name under which the store's own number of a row is read.
constexpr const char* kRowId = "edited_row";

std::string count_text(std::size_t count) { return general_text(static_cast<std::int32_t>(count)); }

bool is_numeric_type(const std::string& declared) {
  const std::string type = upper(declared);
  return type.find("REAL") != std::string::npos || type.find("INT") != std::string::npos;
}

}  // namespace

SQLTableEdit::SQLTableEdit(adoaccess_class& database, SysMsg& messages, std::string owner,
                           std::string database_name)
    : database_(database),
      messages_(messages),
      owner_(std::move(owner)),
      database_name_(std::move(database_name)) {}

void SQLTableEdit::initialise() {
  selectors_.clear();
  selector_ = 0;
  search_.clear();
  fields_.clear();
  given_text_.clear();
  table_ = {};
  single_name_.clear();
  switches_ = {};
  last_change_ = {};
  clearRecords();
  notify();
}

void SQLTableEdit::SetColours(std::uint32_t text, std::uint32_t background) {
  text_colour_ = text;
  background_colour_ = background;
  notify();
}

void SQLTableEdit::AddSelector(std::string_view caption, std::string_view column) {
  AddSearchSelector(caption, column, {});
}

void SQLTableEdit::AddSearchSelector(std::string_view caption, std::string_view column,
                                     std::string_view search_column) {
  selectors_.push_back({std::string(caption), std::string(column), std::string(search_column)});
}

bool SQLTableEdit::SetSelector(std::size_t number) {
  if (number >= selectors_.size() || !RecordSetOKToProceed()) return false;
  selector_ = number;
  search_.clear();
  return !open_ || ReQuery();
}

FieldDefinition& SQLTableEdit::AddField(std::string_view caption, std::string_view column,
                                        std::int32_t field_type, std::int32_t flags) {
  FieldDefinition field;
  field.Caption = caption;
  field.Column = column.empty() ? caption : column;
  field.FieldType = field_type;
  field.Flags = flags;
  fields_.push_back(std::move(field));
  texts_.resize(fields_.size());
  return fields_.back();
}

void SQLTableEdit::AddPulldown(std::string_view caption, std::string_view value,
                               std::size_t field) {
  if (field >= fields_.size()) throw Fault(fault_text::kSubscript);
  fields_[field].Choices.push_back({std::string(caption), std::string(value)});
}

bool SQLTableEdit::EditDatabase(std::string_view table, std::string_view single_name,
                                EditSwitches switches) {
  clearRecords();
  given_text_ = table;
  table_ = split_table_text(table);
  single_name_ = single_name;
  switches_ = switches;
  last_change_ = {};
  search_.clear();
  const bool opened = open();
  if (!opened) clearRecords();
  open_ = opened;
  notify();
  return opened;
}

bool SQLTableEdit::open() {
  if (selectors_.empty()) {
    say("No selectors have been entered. Cannot edit database");
    return false;
  }
  if (!database_.is_connected()) {
    say("Cannot connect to database '" + database_name_ + "'");
    return false;
  }
  if (!readColumns()) {
    say("Could not open table '" + given_text_ + "'");
    return false;
  }
  if (!readRows()) return false;
  fillFields();
  return true;
}

/// Sees whether the table can be read, and which fields lie in columns of numbers.
bool SQLTableEdit::readColumns() {
  RecordSet any;
  const std::string condition = table_.filter.empty() ? "" : " where (" + table_.filter + ")";
  if (!database_.read("select * from " + table_.table + condition + " limit 1", any, true)) {
    return false;
  }
  for (const FieldDefinition& field : fields_) {
    if (any.fieldIndex(field.Column) < 0) return false;
  }
  std::string name = table_.table;
  if (name.starts_with('[') && name.ends_with(']')) name = name.substr(1, name.size() - 2);
  RecordSet types;
  database_.read("select name, type from pragma_table_info(?)", {Variant(name)}, types, true);
  for (; adoaccess_class::RSOK(types); types.MoveNext()) {
    const int field = fieldOf(to_text(types.at(0)));
    if (field >= 0 && is_numeric_type(to_text(types.at(1)))) {
      fields_[static_cast<std::size_t>(field)].Numeric = true;
    }
  }
  return true;
}

std::string SQLTableEdit::listStatement() const {
  const SelectorDefinition& selector = selectors_[selector_];
  std::string condition = table_.filter.empty() ? "" : "(" + table_.filter + ")";
  if (!search_.empty() && !selector.SearchColumn.empty()) {
    if (!condition.empty()) condition += " and ";
    condition += bracketed(selector.SearchColumn) + " = ?";
  }
  return table_.table + (condition.empty() ? "" : " where " + condition) + " order by " +
         bracketed(selector.Column);
}

bool SQLTableEdit::readRows() {
  const std::string list = listStatement();
  std::vector<Variant> parameters;
  if (list.find('?') != std::string::npos && !search_.empty()) parameters.emplace_back(search_);
  RecordSet set;
  if (!database_.read("select * from " + list, parameters, set, true)) {
    say("Could not open query '" + given_text_ + "'");
    return false;
  }
  const std::string numbered = "select rowid as " + std::string(kRowId) + ", * from " + list;
  if (!database_.read(numbered, parameters, set, true) ||
      set.fieldIndex(selectors_[selector_].Column) < 0) {
    say("Could not prepare the records list");
    return false;
  }
  columns_.clear();
  for (std::size_t i = 0; i < set.fieldCount(); ++i) columns_.push_back(set.fieldName(i));
  rows_.clear();
  for (; adoaccess_class::RSOK(set); set.MoveNext()) {
    std::vector<Variant>& row = rows_.emplace_back();
    for (std::size_t i = 0; i < set.fieldCount(); ++i) row.push_back(set.at(i));
  }
  index_ = rows_.empty() ? 0 : std::min(index_, rows_.size() - 1);
  return true;
}

bool SQLTableEdit::ReQuery() {
  if (selectors_.empty() || table_.table.empty()) return false;
  const Variant row_id = rows_.empty() ? Variant() : rows_[index_].front();
  open_ = readRows();
  if (open_) {
    showRow(row_id);
  } else {
    clearRecords();
  }
  notify();
  return open_;
}

void SQLTableEdit::showRow(const Variant& row_id) {
  const auto found = std::ranges::find(rows_, row_id, [](const auto& row) { return row.front(); });
  if (found != rows_.end()) index_ = static_cast<std::size_t>(found - rows_.begin());
  dropChanges();
}

bool SQLTableEdit::Search(std::string_view value) {
  if (!maySearch() || !RecordSetOKToProceed()) return false;
  search_ = value;
  return ReQuery();
}

bool SQLTableEdit::maySearch() const {
  return open_ && switches_.allow_search && !selectors_[selector_].SearchColumn.empty();
}

void SQLTableEdit::clearRecords() {
  open_ = false;
  columns_.clear();
  rows_.clear();
  index_ = 0;
  texts_.assign(fields_.size(), {});
  hidden_.clear();
  changed_ = false;
  new_record_ = false;
  refused_field_ = -1;
}

std::string SQLTableEdit::RecordCountText() const {
  if (rows_.empty()) return "No Records";
  if (rows_.size() == 1) return "1 Record";
  return count_text(index_ + 1) + " of " + count_text(rows_.size()) + " Records";
}

std::string SQLTableEdit::SelectorCaption() const {
  const std::string caption = selectors_.empty() ? std::string() : selectors_[selector_].Caption;
  return caption + " (" + count_text(rows_.size()) + " options available)";
}

std::vector<std::string> SQLTableEdit::SelectorList() const {
  std::vector<std::string> list;
  if (!open_) return list;
  const auto column = static_cast<std::size_t>(columnOf(selectors_[selector_].Column));
  for (const std::vector<Variant>& row : rows_) {
    const Variant& value = row[column];
    list.push_back(value.is_null() ? std::string() : to_text(value));
  }
  return list;
}

int SQLTableEdit::fieldOf(std::string_view column) const {
  const auto found = std::ranges::find_if(fields_, [&](const FieldDefinition& field) {
    return equal_ignoring_case(field.Column, column);
  });
  return found == fields_.end() ? -1 : static_cast<int>(found - fields_.begin());
}

int SQLTableEdit::columnOf(std::string_view column) const {
  // The row's own number stands first and is none of the table's columns.
  for (std::size_t i = 1; i < columns_.size(); ++i) {
    if (equal_ignoring_case(columns_[i], column)) return static_cast<int>(i);
  }
  return -1;
}

int SQLTableEdit::say(const std::string& text, int type) {
  return messages_.msg(owner_, text, type);
}

void SQLTableEdit::notify() {
  if (events.changed) events.changed();
}

}  // namespace vantrel
