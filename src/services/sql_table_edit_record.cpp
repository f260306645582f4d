// The present record: its fields, what was typed into them, and the way to another one.

#include <algorithm>

#include "core/number_text.h"
#include "services/sql_table_edit.h"

namespace vantrel {

namespace {

constexpr const char* kUnsaved =
    "This Record has been modified and changes will be lost.\r\nDo you wish to save your changes "
    "first (YES), Proceed without Save (NO), or Cancel the operation (CANCEL) ? ";

}  // namespace

void SQLTableEdit::SetFieldValue(std::string_view column, const Variant& value) {
  const int field = fieldOf(column);
  if (field < 0) {
    hidden_[lower(column)] = value;
    return;
  }
  const auto position = static_cast<std::size_t>(field);
  texts_[position] = field_text(fields_[position], value);
  notify();
}

Variant SQLTableEdit::GetFieldValue(std::string_view column) const {
  if (const int field = fieldOf(column); field >= 0) {
    const auto position = static_cast<std::size_t>(field);
    return field_value(fields_[position], canonical_text(fields_[position], texts_[position]));
  }
  if (const auto hidden = hidden_.find(lower(column)); hidden != hidden_.end()) {
    return hidden->second;
  }
  const int position = columnOf(column);
  if (position < 0 || new_record_ || rows_.empty()) return {};
  return rows_[index_][static_cast<std::size_t>(position)];
}

void SQLTableEdit::RecordSetResetChanged() {
  changed_ = false;
  notify();
}

bool SQLTableEdit::RecordSetOKToProceed() {
  if (!changed_) return true;
  const int answer = say(kUnsaved, kMessageYesNoCancel);
  if (answer == kYes) return CommandSave();
  if (answer != kNo) return false;
  dropChanges();
  notify();
  return true;
}

bool SQLTableEdit::ValidateAllFields() {
  for (std::size_t i = 0; i < fields_.size(); ++i) {
    if ((fields_[i].Flags & kFieldRequired) == 0 || !texts_[i].empty()) continue;
    refused_field_ = static_cast<int>(i);
    say(field_refusal(fields_[i], texts_[i]));
    return false;
  }
  return true;
}

std::string SQLTableEdit::Refusal(const std::vector<std::string>& texts, int* field) const {
  for (std::size_t i = 0; i < fields_.size(); ++i) {
    std::string reason = field_refusal(fields_[i], texts[i]);
    if (reason.empty()) continue;
    if (field != nullptr) *field = static_cast<int>(i);
    return reason;
  }
  return {};
}

void SQLTableEdit::TypeField(std::size_t field, std::string_view text) {
  if (!hasRecord() || texts_[field] == text) return;
  texts_[field] = text;
  changed_ = true;
  notify();
}

char32_t SQLTableEdit::KeyPress(std::size_t field, char32_t character) const {
  return IsCharValid(character, fields_[field].Flags) ? character : U'\0';
}

bool SQLTableEdit::Select(std::size_t position) {
  if (position >= rows_.size()) return false;
  const Variant row_id = rows_[position].front();  // a save may move it to another place
  if (!mayLeave()) return false;
  showRow(row_id);
  notify();
  return true;
}

bool SQLTableEdit::showAt(std::size_t position) {
  index_ = rows_.empty() ? 0 : std::min(position, rows_.size() - 1);
  dropChanges();
  notify();
  return true;
}

/// Shows the stored record as it is.
void SQLTableEdit::dropChanges() {
  new_record_ = false;
  fillFields();
}

void SQLTableEdit::fillFields() {
  hidden_.clear();
  changed_ = false;
  refused_field_ = -1;
  texts_.assign(fields_.size(), {});
  if (rows_.empty() || new_record_) return;
  for (std::size_t i = 0; i < fields_.size(); ++i) {
    const int column = columnOf(fields_[i].Column);
    if (column < 0) continue;
    texts_[i] = field_text(fields_[i], rows_[index_][static_cast<std::size_t>(column)]);
  }
}

bool SQLTableEdit::CommandNew() {
  if (!mayAdd() || !RecordSetOKToProceed()) return false;
  new_record_ = true;
  fillFields();
  assignCodes();
  changed_ = true;
  if (events.recordAdded) events.recordAdded();
  notify();
  return true;
}

void SQLTableEdit::assignCodes() {
  for (std::size_t i = 0; i < fields_.size(); ++i) {
    const FieldDefinition& field = fields_[i];
    const std::int32_t most = field.MaxNumberForUniqueCodePutInThisFieldWhenRecordAdded;
    if (most < 0) continue;
    const std::int32_t code =
        database_.Unique_Number(bracketed(field.Column), table_.table, 1, most);
    if (code < 0) {
      say("Could not find a free code for field '" + field.Column + "' in table " + table_.table);
      continue;
    }
    texts_[i] = field.Format.empty() ? general_text(code)
                                     : format_mask(static_cast<double>(code), field.Format);
  }
}

}  // namespace vantrel
