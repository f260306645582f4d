#include "database/sqlite_store.h"

#include <fcntl.h>
#include <unistd.h>

#include <system_error>
#include <utility>

#include "core/number_text.h"

namespace vantrel {

namespace {

// Long enough for another program's short write, short enough that nobody thinks it hangs.
constexpr int kBusyTimeoutMs = 150;
// Longest single value or row, in bytes. Design data are short texts and numbers.
constexpr int kLongestValue = 64 * 1024 * 1024;

bool folder_is_writable(const std::filesystem::path& file) {
  const std::filesystem::path folder = std::filesystem::absolute(file).parent_path();
  return ::faccessat(AT_FDCWD, folder.c_str(), W_OK, AT_EACCESS) == 0;
}

bool is_blank_tail(std::string_view tail) {
  return tail.find_first_not_of(" \t\r\n\f;") == std::string_view::npos;
}

// A 32-bit number is written as the 64-bit one of the same text, so that 0.1 stays 0.1.
double widened_by_text(float value) {
  return parse_number(general_text(value)).value_or(static_cast<double>(value));
}

int bind_value(sqlite3_stmt* statement, int position, const Variant& value) {
  switch (value.type()) {
    case Variant::Type::Empty:
    case Variant::Type::Null:
      return sqlite3_bind_null(statement, position);
    case Variant::Type::Boolean:
      return sqlite3_bind_int(statement, position, value.get<bool>() ? 1 : 0);
    case Variant::Type::Integer:
      return sqlite3_bind_int(statement, position, value.get<std::int16_t>());
    case Variant::Type::Long:
      return sqlite3_bind_int(statement, position, value.get<std::int32_t>());
    case Variant::Type::Single:
      return sqlite3_bind_double(statement, position, widened_by_text(value.get<float>()));
    case Variant::Type::Double:
      return sqlite3_bind_double(statement, position, value.get<double>());
    case Variant::Type::String: {
      const std::string& text = value.get<std::string>();
      return sqlite3_bind_text64(statement, position, text.data(), text.size(), SQLITE_TRANSIENT,
                                 SQLITE_UTF8);
    }
    case Variant::Type::Array:
      break;
  }
  return SQLITE_MISMATCH;
}

}  // namespace

bool SqliteStore::open(const std::filesystem::path& path) {
  close();
  std::error_code failure;
  if (!std::filesystem::is_regular_file(path, failure)) {
    error_ = "no such file";
    return false;
  }
  for (const int flags : {SQLITE_OPEN_READWRITE, SQLITE_OPEN_READONLY}) {
    if (connect(path, flags) && is_whole()) return true;
    close();
  }
  return false;
}

bool SqliteStore::create(const std::filesystem::path& path) {
  close();
  std::error_code failure;
  if (std::filesystem::exists(path, failure) || failure) {
    error_ = "the file exists or its folder cannot be read";
    return false;
  }
  if (connect(path, SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE)) return true;
  close();
  return false;
}

void SqliteStore::close() {
  statements_.clear();
  connection_.reset();
}

bool SqliteStore::is_writable() const {
  return is_open() && sqlite3_db_readonly(connection_.get(), "main") == 0 &&
         folder_is_writable(path_);  // a change needs a journal beside the file
}

bool SqliteStore::connect(const std::filesystem::path& path, int flags) {
  sqlite3* connection = nullptr;
  const int result = sqlite3_open_v2(path.c_str(), &connection, flags, nullptr);
  connection_.reset(connection);
  path_ = path;
  if (result != SQLITE_OK) return fail();
  return configure();
}

bool SqliteStore::configure() {
  sqlite3* connection = connection_.get();
  sqlite3_busy_timeout(connection, kBusyTimeoutMs);
  sqlite3_limit(connection, SQLITE_LIMIT_LENGTH, kLongestValue);
  const std::pair<int, int> switches[] = {
      {SQLITE_DBCONFIG_DQS_DML, 0},  // a text in double quotes is a name, never a string
      {SQLITE_DBCONFIG_DQS_DDL, 0},
      {SQLITE_DBCONFIG_TRUSTED_SCHEMA, 0},  // a foreign file runs no code of its own
      {SQLITE_DBCONFIG_DEFENSIVE, 1},       // and no statement breaks the file
  };
  for (const auto& [option, value] : switches) {
    sqlite3_db_config(connection, option, value, nullptr);
  }
  if (!run_native("pragma cell_size_check = on; select count(*) from sqlite_master")) return false;
  // A file that another tool left with a write-ahead log goes back to one file. Where it cannot be
  // written it is read as it is, so the outcome does not matter here.
  sqlite3_exec(connection, "pragma journal_mode = delete", nullptr, nullptr, nullptr);
  return true;
}

bool SqliteStore::is_whole() const {
  const sqlite3_int64 bytes = number("pragma page_count") * number("pragma page_size");
  std::error_code failure;
  const std::uintmax_t size = std::filesystem::file_size(path_, failure);
  return !failure && bytes > 0 && size >= static_cast<std::uintmax_t>(bytes);
}

sqlite3_int64 SqliteStore::number(std::string_view query) const {
  sqlite3_stmt* raw = nullptr;
  sqlite3_prepare_v2(connection_.get(), query.data(), static_cast<int>(query.size()), &raw,
                     nullptr);
  const StatementPtr statement(raw);
  return sqlite3_step(raw) == SQLITE_ROW ? sqlite3_column_int64(raw, 0) : 0;
}

bool SqliteStore::fail() {
  error_ = connection_ ? sqlite3_errmsg(connection_.get()) : "not connected";
  return false;
}

StatementPtr SqliteStore::prepare(std::string_view source,
                                  std::optional<CrossInsert>* cross_insert) {
  if (StatementPtr kept = statements_.take(source)) return kept;
  Translation translation = translate_statement(source);
  if (translation.cross_insert) {
    error_ = "a cross-database insert returns no rows";
    if (cross_insert) *cross_insert = std::move(translation.cross_insert);
    return nullptr;
  }
  return prepare_native(translation.sql, SQLITE_PREPARE_PERSISTENT);
}

StatementPtr SqliteStore::prepare_native(std::string_view sql, unsigned flags) {
  if (sql.size() > static_cast<std::size_t>(kLongestValue)) {
    error_ = "statement too long";
    return nullptr;
  }
  sqlite3_stmt* raw = nullptr;
  const char* tail = sql.data();
  const int result = sqlite3_prepare_v3(connection_.get(), sql.data(), static_cast<int>(sql.size()),
                                        flags, &raw, &tail);
  StatementPtr statement(raw);
  if (result != SQLITE_OK) {
    fail();
    return nullptr;
  }
  if (!statement || !is_blank_tail(sql.substr(static_cast<std::size_t>(tail - sql.data())))) {
    error_ = "not one statement";
    return nullptr;
  }
  return statement;
}

void SqliteStore::release(std::string_view source, StatementPtr statement) {
  sqlite3_reset(statement.get());
  sqlite3_clear_bindings(statement.get());
  statements_.keep(source, std::move(statement));
}

bool SqliteStore::bind(sqlite3_stmt* statement, const std::vector<Variant>& parameters) {
  if (static_cast<std::size_t>(sqlite3_bind_parameter_count(statement)) != parameters.size()) {
    error_ = "wrong number of parameters";
    return false;
  }
  for (std::size_t i = 0; i < parameters.size(); ++i) {
    const int result = bind_value(statement, static_cast<int>(i) + 1, parameters[i]);
    if (result != SQLITE_OK) {
      error_ = sqlite3_errstr(result);
      return false;
    }
  }
  return true;
}

bool SqliteStore::run(sqlite3_stmt* statement) {
  int result = sqlite3_step(statement);
  while (result == SQLITE_ROW) result = sqlite3_step(statement);
  return result == SQLITE_DONE || fail();
}

bool SqliteStore::run_native(const std::string& sql) {
  return sqlite3_exec(connection_.get(), sql.c_str(), nullptr, nullptr, nullptr) == SQLITE_OK ||
         fail();
}

}  // namespace vantrel
