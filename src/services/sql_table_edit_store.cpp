// What changes the database: saving, deleting, and taking the last of them back.

#include <utility>

#include "services/sql_table_edit.h"

namespace vantrel {

namespace {

std::string joined(const std::vector<std::string>& columns, const char* behind_each) {
  std::string result;
  for (const std::string& column : columns) {
    result += (result.empty() ? "" : ", ") + bracketed(column) + behind_each;
  }
  return result;
}

/// Statement that gives the columns of one row new values; without columns it only finds the row.
std::string update_statement(const std::string& table, const std::vector<std::string>& columns) {
  return "update " + table + " set " +
         (columns.empty() ? "rowid = rowid" : joined(columns, " = ?")) + " where rowid = ?";
}

std::string marks(std::size_t count) {
  std::string result;
  for (std::size_t i = 0; i < count; ++i) result += i == 0 ? "?" : ", ?";
  return result;
}

}  // namespace

/// The columns to store: those of the fields, and the hidden ones.
std::vector<SQLTableEdit::Assignment> SQLTableEdit::assignments() const {
  std::vector<Assignment> values;
  for (std::size_t i = 0; i < fields_.size(); ++i) {
    values.push_back(
        {fields_[i].Column, field_value(fields_[i], canonical_text(fields_[i], texts_[i]))});
  }
  for (const auto& [column, value] : hidden_) {
    // The owner may set columns that only some of its tables have.
    if (fieldOf(column) < 0 && columnOf(column) >= 0) values.push_back({column, value});
  }
  return values;
}

bool SQLTableEdit::changeOneRow(const std::string& statement,
                                const std::vector<Variant>& parameters) {
  std::int32_t affected = 0;
  database_.execute(statement, parameters, &affected);
  return affected == 1;
}

bool SQLTableEdit::fail(const std::string& what, const Variant& row_id) {
  std::string reason = database_.last_error();
  RecordSet row;
  // A table that cannot be read just now says nothing of the record.
  const bool looked_up =
      row_id.is_numeric() &&
      database_.read("select rowid from " + table_.table + " where rowid = ?", {row_id}, row, true);
  if (!database_.is_writable()) {
    reason = "the database cannot be written";
  } else if (looked_up && row.atEnd()) {
    reason = "it is not in the table any more";
  }
  say(what + " (" + reason + ")");
  return false;
}

bool SQLTableEdit::CommandSave() {
  refused_field_ = -1;
  if (!open_ || !hasRecord() || !ValidateAllFields()) return false;
  if (const std::string reason = Refusal(texts_, &refused_field_); !reason.empty()) {
    say(reason);
    return false;
  }
  Change change;
  const std::vector<Assignment> values = assignments();
  if (!(new_record_ ? insert(values, change) : update(values, change))) {
    return fail("The record could not be saved", change.row_id);
  }
  const Variant row_id = change.row_id;
  finishChange(std::move(change), row_id);
  if (events.recordSaved) events.recordSaved();
  return true;
}

bool SQLTableEdit::insert(const std::vector<Assignment>& values, Change& change) {
  change.kind = ChangeKind::Inserted;
  std::vector<Variant> parameters;
  for (const Assignment& assignment : values) {
    change.columns.push_back(assignment.column);
    parameters.push_back(assignment.value);
  }
  if (!changeOneRow("insert into " + table_.table + " (" + joined(change.columns, "") +
                        ") values (" + marks(parameters.size()) + ")",
                    parameters)) {
    return false;
  }
  RecordSet row;
  database_.read("select last_insert_rowid()", row);
  change.row_id = row.at(0);
  return true;
}

bool SQLTableEdit::update(const std::vector<Assignment>& values, Change& change) {
  change.kind = ChangeKind::Updated;
  const std::vector<Variant>& row = rows_[index_];
  change.row_id = row.front();
  std::vector<Variant> parameters;
  for (const Assignment& assignment : values) {
    const int column = columnOf(assignment.column);
    if (column < 0) continue;
    const Variant& before = row[static_cast<std::size_t>(column)];
    // A field that nobody has touched may have been changed by another program since.
    if (const int field = fieldOf(assignment.column); field >= 0) {
      const auto position = static_cast<std::size_t>(field);
      if (texts_[position] == field_text(fields_[position], before)) continue;
    }
    change.columns.push_back(assignment.column);
    change.before.push_back(before);
    parameters.push_back(assignment.value);
  }
  parameters.push_back(change.row_id);
  return changeOneRow(update_statement(table_.table, change.columns), parameters);
}

bool SQLTableEdit::CommandDelete() {
  if (!mayDelete()) return false;
  if (say("Are you sure you wish to delete this Record ?", kMessageYesNo) != kYes) return false;
  if (new_record_) {
    dropChanges();
    notify();
    return true;
  }
  const std::vector<Variant>& row = rows_[index_];
  Change change{.kind = ChangeKind::Deleted,
                .row_id = row.front(),
                .columns = {columns_.begin() + 1, columns_.end()},
                .before = {row.begin() + 1, row.end()}};
  if (!changeOneRow("delete from " + table_.table + " where rowid = ?", {change.row_id})) {
    return fail("The record could not be deleted", change.row_id);
  }
  finishChange(std::move(change), {});
  if (events.recordDeleted) events.recordDeleted();
  return true;
}

/// Keeps the change for the case that it is taken back, and lists the records as they are now.
void SQLTableEdit::finishChange(Change change, const Variant& shown) {
  last_change_ = std::move(change);
  new_record_ = false;
  changed_ = false;
  if (!readRows()) {
    clearRecords();
  } else {
    showRow(shown);
  }
  notify();
}

bool SQLTableEdit::UndoLastChange() {
  if (!canUndo()) return false;
  const bool returns = last_change_.kind == ChangeKind::Deleted;
  if (!undo()) {
    return fail("The last change could not be undone", returns ? Variant() : last_change_.row_id);
  }
  const bool removed = last_change_.kind == ChangeKind::Inserted;
  const Variant row_id = last_change_.row_id;
  finishChange({}, row_id);
  const auto& tell = removed ? events.recordDeleted : events.recordSaved;
  if (tell) tell();
  return true;
}

bool SQLTableEdit::undo() {
  std::vector<Variant> parameters = last_change_.before;
  parameters.push_back(last_change_.row_id);
  switch (last_change_.kind) {
    case ChangeKind::Inserted:
      return changeOneRow("delete from " + table_.table + " where rowid = ?", parameters);
    case ChangeKind::Updated:
      return changeOneRow(update_statement(table_.table, last_change_.columns), parameters);
    case ChangeKind::Deleted:
      return changeOneRow("insert into " + table_.table + " (" + joined(last_change_.columns, "") +
                              ", rowid) values (" + marks(parameters.size()) + ")",
                          parameters);
    case ChangeKind::None:
      break;
  }
  return false;
}

}  // namespace vantrel
