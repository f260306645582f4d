#pragma once

#include <sqlite3.h>

#include <filesystem>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "core/variant.h"
#include "database/statement_cache.h"
#include "database/statement_translator.h"

namespace vantrel {

/// One connection to a database file, with its prepared statements. Nothing here throws except for
/// a lack of memory; failures leave their text in `error`.
class SqliteStore {
 public:
  /// Opens an existing file for reading and writing, or for reading when it cannot be written. The
  /// schema is read at once: a file that is missing, locked, cut short or no database is not
  /// opened.
  bool open(const std::filesystem::path& path);
  /// Makes a new, empty database file; false when the file exists or cannot be made.
  bool create(const std::filesystem::path& path);
  void close();
  bool is_open() const { return connection_ != nullptr; }
  bool is_writable() const;

  /// The kept or newly prepared statement of a text in the program's dialect; nothing on failure.
  /// The text must hold exactly one statement. A cross-database insert is no statement of the
  /// store: it fails, and goes to `cross_insert` when given.
  StatementPtr prepare(std::string_view source, std::optional<CrossInsert>* cross_insert = nullptr);
  /// As `prepare`, of a text in the store's own dialect that is not kept.
  StatementPtr prepare_native(std::string_view sql, unsigned flags = 0);
  /// Resets a used statement and keeps it by its text.
  void release(std::string_view source, StatementPtr statement);
  /// Binds the values in order. False when there are too few or too many, or one is an array.
  bool bind(sqlite3_stmt* statement, const std::vector<Variant>& parameters);
  /// Runs a statement to its end, dropping its rows.
  bool run(sqlite3_stmt* statement);
  /// Runs a text of any number of statements in the store's own dialect.
  bool run_native(const std::string& sql);

  /// Rows changed since the connection was opened.
  sqlite3_int64 total_changes() const { return sqlite3_total_changes64(connection_.get()); }
  bool in_transaction() const { return sqlite3_get_autocommit(connection_.get()) == 0; }
  const std::string& error() const { return error_; }
  void error(std::string_view text) { error_ = text; }
  /// Takes over the text of the connection's last failure. Always false.
  bool fail();

 private:
  struct Closer {
    void operator()(sqlite3* connection) const { sqlite3_close_v2(connection); }
  };

  bool connect(const std::filesystem::path& path, int flags);
  bool configure();
  bool is_whole() const;
  sqlite3_int64 number(std::string_view query) const;

  std::filesystem::path path_;
  std::unique_ptr<sqlite3, Closer> connection_;
  StatementCache statements_{256};  // declared after the connection: finalised before it closes
  std::string error_;
};

}  // namespace vantrel
