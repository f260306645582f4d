#pragma once

#include <cstdint>
#include <filesystem>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "core/variant.h"
#include "services/messages/sysmsg.h"

namespace vantrel {

class SqliteStore;

/// The rows that a statement returned, all of them, with a current row. Positions are those of the
/// statement; for "select *" those of the table's declaration.
class RecordSet {
 public:
  bool isOpen() const { return open_; }
  bool atEnd() const { return row_ >= rows_.size(); }
  std::size_t rowCount() const { return rows_.size(); }
  std::size_t fieldCount() const { return names_.size(); }
  const std::string& fieldName(std::size_t position) const { return names_[position]; }
  /// Position of a field by name regardless of case, or -1.
  int fieldIndex(std::string_view name) const;
  /// Value of the current row, Null included; Empty at the end or outside the row.
  const Variant& at(std::size_t position) const;
  void MoveFirst() { row_ = 0; }
  void MoveNext() {
    if (row_ < rows_.size()) ++row_;
  }
  void MoveLast() { row_ = rows_.empty() ? 0 : rows_.size() - 1; }
  void Close();

 private:
  friend class adoaccess_class;
  bool open_ = false;
  std::size_t row_ = 0;
  std::vector<std::string> names_;
  std::vector<std::vector<Variant>> rows_;
};

/// `text` with every single quote doubled, for use between single quotes in a statement.
std::string quoted(std::string_view text);
// Without these, std::quoted would be the better match for a std::string.
inline std::string quoted(const std::string& text) { return quoted(std::string_view(text)); }
inline std::string quoted(std::string& text) { return quoted(std::string_view(text)); }
inline std::string quoted(const char* text) { return quoted(std::string_view(text)); }

/// The one door to the design database. Statements keep the documented dialect (bracketed names,
/// Yes and No, [table] in 'file' inserts) and are translated on the way to the store; prepared
/// statements are kept by their text. A failing operation gives its failure value and is silent:
/// reporting is the caller's.
class adoaccess_class {
 public:
  explicit adoaccess_class(SysMsg& messages);
  ~adoaccess_class();
  adoaccess_class(const adoaccess_class&) = delete;
  adoaccess_class& operator=(const adoaccess_class&) = delete;

  /// Opens an existing database file, read-only when it cannot be written; closes the one before.
  /// False when there is no such file, or it is no database, cut short or locked.
  bool open_access(const std::filesystem::path& source);
  void close_access();
  bool is_connected() const;
  /// True when the open database can be changed.
  bool is_writable() const;

  /// Runs a statement that returns no rows, or copies rows into another database file by "insert
  /// into T in 'path' select * from S [where ...]": the columns that both tables have, by name.
  /// `affected`, when given, takes the count of changed rows, 0 after a failure.
  void execute(std::string_view sql, std::int32_t* affected = nullptr);
  /// Runs a statement with its "?" parameters bound.
  void execute(std::string_view sql, const std::vector<Variant>& parameters,
               std::int32_t* affected = nullptr);

  /// For tools that build a database: makes a new, empty file and opens it. False when the file
  /// exists or cannot be made.
  bool create_database(const std::filesystem::path& path);
  /// For tools that build a database: runs a script of statements in the store's own dialect, in
  /// one transaction. False when one of them failed; nothing is changed then.
  bool execute_script(std::string_view script);

  /// Runs a query and fetches all of its rows. False when it failed (the set is then closed), and
  /// `empty_is_good` when it found no row (the set is then open, at its end). A statement that is
  /// no pure query, or whose rows would take more than 256 MB, fails. A value has the type of its
  /// column: TEXT String, INTEGER Long (Double beyond 32 bits), REAL Double, BOOLEAN Boolean with
  /// anything but 0 true, NULL Null; without a declared type that of the value found.
  bool read(std::string_view sql, RecordSet& set, bool empty_is_good = false);
  bool read(std::string_view sql, const std::vector<Variant>& parameters, RecordSet& set,
            bool empty_is_good = false);

  /// Begins one view of the database for a stretch of reads; see ReadScope. False when there is one
  /// already, or no connection.
  bool begin_reading();
  void end_reading();

  /// The field of the current row; Empty for a Null, at the end and for an unknown field.
  static Variant rs_get(const RecordSet& set, std::string_view field);
  static bool rs_movefirst(RecordSet& set);
  static bool rs_movelast(RecordSet& set);
  /// Open and not at the end.
  static bool RSOK(const RecordSet& set) { return set.isOpen() && !set.atEnd(); }
  static bool RSOPEN(const RecordSet& set) { return set.isOpen(); }

  /// "Field IS NULL" or "Field = 'value'" for the where clause of user rows. An array raises a
  /// Fault "Type mismatch".
  static std::string ParamNullQuery(std::string_view field, const Variant& value);
  /// One more than the greatest value of the field, 1 when none is above 0; -1 when the table
  /// cannot be read, which is shown in a box.
  std::int32_t Unique_ID(std::string_view field, std::string_view table);
  /// The lowest number of `from` to `to` that no row holds; -1 when all are taken or on failure.
  std::int32_t Unique_Number(std::string_view field, std::string_view table, std::int32_t from,
                             std::int32_t to);

  /// Text of the store's last failure, for diagnostics.
  const std::string& last_error() const { return last_error_; }

 private:
  bool run(std::string_view sql, const std::vector<Variant>& parameters);
  bool fetch(std::string_view sql, const std::vector<Variant>& parameters, RecordSet& set);

  std::unique_ptr<SqliteStore> store_;
  SysMsg& messages_;
  std::string last_error_;
};

/// Keeps one view of the database while it lives, so that the store locks the file and looks for a
/// journal once and not at every statement. Inside another scope it does nothing. Meant for the
/// milliseconds of a calculation: another program's change waits meanwhile.
class ReadScope {
 public:
  explicit ReadScope(adoaccess_class& database)
      : database_(database), begun_(database.begin_reading()) {}
  ~ReadScope() {
    if (begun_) database_.end_reading();
  }
  ReadScope(const ReadScope&) = delete;
  ReadScope& operator=(const ReadScope&) = delete;

 private:
  adoaccess_class& database_;
  bool begun_;
};

}  // namespace vantrel
