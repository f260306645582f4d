#include "database/cross_insert.h"

#include <algorithm>
#include <filesystem>
#include <string>
#include <system_error>
#include <vector>

#include "core/text_parsing.h"

namespace vantrel {

namespace {

constexpr const char* kTarget = "cross_insert_target";

// The other file, attached for as long as this lives.
class AttachedFile {
 public:
  AttachedFile(SqliteStore& store, const std::string& path) : store_(store) {
    const StatementPtr attach =
        store.prepare_native(std::string("attach database ? as ") + kTarget);
    attached_ = attach && store.bind(attach.get(), {Variant(path)}) && store.run(attach.get());
  }
  ~AttachedFile() {
    if (attached_) store_.run_native(std::string("detach database ") + kTarget);
  }
  AttachedFile(const AttachedFile&) = delete;
  AttachedFile& operator=(const AttachedFile&) = delete;
  bool attached() const { return attached_; }

 private:
  SqliteStore& store_;
  bool attached_ = false;
};

struct Column {
  std::string name;
  bool truth = false;
};

std::string text_at(sqlite3_stmt* row, int position) {
  const unsigned char* text = sqlite3_column_text(row, position);
  return text ? std::string(reinterpret_cast<const char*>(text)) : std::string();
}

std::vector<Column> columns(SqliteStore& store, const std::string& table, const char* database) {
  std::vector<Column> found;
  const StatementPtr query =
      store.prepare_native("select name, type from pragma_table_info(?, ?) order by cid");
  if (!query || !store.bind(query.get(), {Variant(table), Variant(database)})) return found;
  while (sqlite3_step(query.get()) == SQLITE_ROW) {
    found.push_back(
        {text_at(query.get(), 0), equal_ignoring_case(text_at(query.get(), 1), "BOOLEAN")});
  }
  return found;
}

std::string as_name(const std::string& name) {
  std::string text = "\"";
  for (const char c : name) text += c == '"' ? std::string("\"\"") : std::string(1, c);
  return text + "\"";
}

// An old row may hold -1 for true, which a query for "= 1" would miss.
std::string as_value(const Column& target, const std::string& source) {
  const std::string name = as_name(source);
  if (!target.truth) return name;
  return "case when typeof(" + name + ") in ('integer', 'real') then " + name + " <> 0 else " +
         name + " end";
}

// Empty when the tables have no column in common.
std::string insert_statement(SqliteStore& store, const CrossInsert& insert) {
  const std::vector<Column> source = columns(store, insert.source, "main");
  std::string names;
  std::string values;
  for (const Column& target : columns(store, insert.target, kTarget)) {
    const auto match = std::find_if(source.begin(), source.end(), [&](const Column& column) {
      return equal_ignoring_case(column.name, target.name);
    });
    if (match == source.end()) continue;
    const char* separator = names.empty() ? "" : ", ";
    names += separator + as_name(target.name);
    values += separator + as_value(target, match->name);
  }
  if (names.empty()) return {};
  std::string sql = std::string("insert into ") + kTarget + "." + as_name(insert.target) + " (" +
                    names + ") select " + values + " from main." + as_name(insert.source);
  if (!insert.where.empty()) sql += " where " + insert.where;
  return sql;
}

// The program writes its paths with backslashes; a file that is really called so comes first.
std::string file_path(const std::string& path) {
  std::error_code failure;
  if (std::filesystem::exists(path, failure)) return path;
  std::string native = path;
  std::replace(native.begin(), native.end(), '\\', '/');
  return native;
}

bool copy_rows(SqliteStore& store, const CrossInsert& insert) {
  const std::string sql = insert_statement(store, insert);
  if (sql.empty()) {
    store.error("no common columns");
    return false;
  }
  if (!store.run_native("begin")) return false;
  const StatementPtr statement = store.prepare_native(sql);
  const bool copied = statement && store.run(statement.get());
  sqlite3_reset(statement.get());
  if (copied && store.run_native("commit")) return true;
  const std::string reason = store.error();
  if (store.in_transaction()) store.run_native("rollback");
  store.error(reason);
  return false;
}

}  // namespace

bool run_cross_insert(SqliteStore& store, const CrossInsert& insert) {
  const std::string path = file_path(insert.path);
  std::error_code failure;
  if (!std::filesystem::is_regular_file(path, failure)) {
    store.error("no such file");
    return false;
  }
  const AttachedFile target(store, path);
  return target.attached() && copy_rows(store, insert);
}

}  // namespace vantrel
