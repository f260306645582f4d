#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <map>
#include <string>
#include <string_view>
#include <vector>

#include "core/text_parsing.h"
#include "database/adoaccess.h"
#include "services/messages/sysmsg.h"
#include "services/sql_table_edit_values.h"

namespace vantrel {

/// What the user may do besides changing records.
struct EditSwitches {
  bool allow_new = true;
  bool allow_delete = true;
  bool allow_search = true;
};

/// A way to choose a record: a list in the order of a column, and a search box when it has a column
/// to search in.
struct SelectorDefinition {
  std::string Caption;
  std::string Column;
  std::string SearchColumn;  ///< Empty for a mere list.
};

/// What the owner of an editor is told; each may be empty.
struct EditEvents {
  std::function<void()> recordAdded;  ///< A new record begins: hidden columns may be set.
  std::function<void()> recordSaved;  ///< Also after an undone change.
  std::function<void()> recordDeleted;
  std::function<void()> changed;  ///< Something that a view shows has changed.
};

/// Editor of the records of one table or query: the records in the order of a selector, the fields
/// of the present one, and what has been typed and not saved yet. It stands without widgets. Values
/// reach the database as bound parameters only, and each change is one statement, so that a record
/// is stored as a whole or not at all.
class SQLTableEdit {
 public:
  static constexpr const char* kDateHint = "Select new date";

  /// `owner` is the screen that messages are shown for, `database_name` what they call the
  /// database. All must outlive the editor.
  SQLTableEdit(adoaccess_class& database, SysMsg& messages, std::string owner,
               std::string database_name);
  SQLTableEdit(const SQLTableEdit&) = delete;
  SQLTableEdit& operator=(const SQLTableEdit&) = delete;

  EditEvents events;

  /// Forgets selectors, fields and records.
  void initialise();
  /// Colours of the host for the widgets of the editor, as 0xRRGGBB.
  void SetColours(std::uint32_t text, std::uint32_t background);
  std::uint32_t TextColour() const { return text_colour_; }
  std::uint32_t BackgroundColour() const { return background_colour_; }
  void AddSelector(std::string_view caption, std::string_view column);
  void AddSearchSelector(std::string_view caption, std::string_view column,
                         std::string_view search_column);
  /// Makes the selector of that number, from 0, the one in use and reads the records anew. False
  /// when there is none, or the user keeps unsaved changes.
  bool SetSelector(std::size_t number);
  /// `column` empty stands for a column named as the caption.
  FieldDefinition& AddField(std::string_view caption, std::string_view column,
                            std::int32_t field_type, std::int32_t flags);
  /// An entry of the pull-down field of that number, from 0. Raises a Fault for a number that no
  /// field has.
  void AddPulldown(std::string_view caption, std::string_view value, std::size_t field);
  /// Opens a table, or a table with a condition, for editing. `single_name` is what one record is
  /// called. False, with a message, when it cannot be edited; the editor is empty then.
  bool EditDatabase(std::string_view table, std::string_view single_name,
                    EditSwitches switches = {});
  /// Reads the records anew and stays at the present one if it is still there.
  bool ReQuery();
  /// Lists only records whose search column holds the value; all of them for an empty one.
  bool Search(std::string_view value);

  /// Gives a column a value for the next save; fields show it. Columns need not be fields.
  void SetFieldValue(std::string_view column, const Variant& value);
  /// The column's value as a save would store it; Empty for an unknown column.
  Variant GetFieldValue(std::string_view column) const;
  bool RecordSetHasChanged() const { return changed_; }
  void RecordSetResetChanged();
  /// Asks what to do with unsaved changes. True when they are saved, dropped or never were.
  bool RecordSetOKToProceed();
  /// Looks for the first field that must have a value and has none, and shows which it is.
  bool ValidateAllFields();

  /// The field of that number takes a text that the user has typed or chosen.
  void TypeField(std::size_t field, std::string_view text);
  /// What a typed character becomes in a field: itself, or 0 when the field refuses it.
  char32_t KeyPress(std::size_t field, char32_t character) const;

  bool CommandSave();
  bool CommandNew();
  bool CommandDelete();
  /// Takes back the last save or deletion. False when there is none, or it cannot be.
  bool UndoLastChange();
  /// There is a change to take back, and nothing unsaved would be lost with it.
  bool canUndo() const { return last_change_.kind != ChangeKind::None && !changed_; }
  // Each gives false when the user stays at the present record.
  bool first() { return mayLeave() && showAt(0); }
  bool previous() { return mayLeave() && showAt(index_ == 0 ? 0 : index_ - 1); }
  bool next() { return mayLeave() && showAt(index_ + 1); }
  bool last() { return mayLeave() && showAt(rows_.size()); }
  /// Goes to the record of that position in the selector's list, as it was shown.
  bool Select(std::size_t position);

  bool isOpen() const { return open_; }
  bool isNew() const { return new_record_; }
  /// A record is shown, stored or new.
  bool hasRecord() const { return new_record_ || !rows_.empty(); }
  bool mayAdd() const { return open_ && switches_.allow_new; }
  bool mayDelete() const { return switches_.allow_delete && hasRecord(); }
  bool maySearch() const;
  std::size_t RecordCount() const { return rows_.size(); }
  /// Position of the present record; of the one before it while a new one is entered.
  std::size_t RecordPosition() const { return index_; }
  /// "No Records", "1 Record" or "2 of 3 Records".
  std::string RecordCountText() const;
  std::string FrameCaption() const { return "Select " + single_name_ + " Details"; }
  /// The selector's caption and how many records it lists.
  std::string SelectorCaption() const;
  std::vector<std::string> SelectorList() const;
  const std::vector<SelectorDefinition>& Selectors() const { return selectors_; }
  const std::vector<FieldDefinition>& Fields() const { return fields_; }
  const std::string& FieldText(std::size_t field) const { return texts_[field]; }
  /// Number of the field that the last refused save was about, -1 for none.
  int RefusedField() const { return refused_field_; }

  /// Why a record of these texts, one for each field, cannot be stored; empty when it can.
  /// `field`, when given, takes the number of the field.
  std::string Refusal(const std::vector<std::string>& texts, int* field = nullptr) const;
  /// The table that is edited, without its condition.
  const std::string& Table() const { return table_.table; }

 private:
  enum class ChangeKind { None, Inserted, Updated, Deleted };
  /// The last stored change, and what was there before.
  struct Change {
    ChangeKind kind = ChangeKind::None;
    Variant row_id;
    std::vector<std::string> columns;
    std::vector<Variant> before;
  };
  struct Assignment {
    std::string column;
    Variant value;
  };

  bool open();
  bool readColumns();
  bool readRows();
  std::string listStatement() const;
  bool mayLeave() { return open_ && RecordSetOKToProceed(); }
  bool showAt(std::size_t position);
  void fillFields();
  void dropChanges();
  void clearRecords();
  void assignCodes();
  std::vector<Assignment> assignments() const;
  bool insert(const std::vector<Assignment>& values, Change& change);
  bool update(const std::vector<Assignment>& values, Change& change);
  bool undo();
  bool changeOneRow(const std::string& statement, const std::vector<Variant>& parameters);
  void finishChange(Change change, const Variant& shown);
  void showRow(const Variant& row_id);
  int fieldOf(std::string_view column) const;
  int columnOf(std::string_view column) const;
  int say(const std::string& text, int type = kMessageOk);
  bool fail(const std::string& what, const Variant& row_id);
  void notify();

  adoaccess_class& database_;
  SysMsg& messages_;
  std::string owner_;
  std::string database_name_;
  std::uint32_t text_colour_ = 0x000000;
  std::uint32_t background_colour_ = 0xFFFFFF;
  std::vector<SelectorDefinition> selectors_;
  std::size_t selector_ = 0;
  std::string search_;
  std::vector<FieldDefinition> fields_;
  std::string given_text_;  ///< The table text as the caller gave it.
  TableText table_;
  std::string single_name_;
  EditSwitches switches_;
  bool open_ = false;
  /// Columns of the rows; the first one is the row's number in the store.
  std::vector<std::string> columns_;
  std::vector<std::vector<Variant>> rows_;
  std::size_t index_ = 0;
  std::vector<std::string> texts_;  ///< What each field shows.
  /// Values for columns that no field shows, to be stored with the record.
  std::map<std::string, Variant> hidden_;
  bool changed_ = false;
  bool new_record_ = false;
  int refused_field_ = -1;
  Change last_change_;
};

}  // namespace vantrel
