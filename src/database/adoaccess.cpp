#include "database/adoaccess.h"

#include <algorithm>
#include <exception>
#include <limits>
#include <new>
#include <optional>
#include <set>
#include <utility>

#include "core/fault.h"
#include "database/cross_insert.h"
#include "database/row_reader.h"
#include "database/sqlite_store.h"

namespace vantrel {

namespace {

// More than any design table, less than what would bring a desktop to its knees.
constexpr std::size_t kLargestSet = 256u * 1024u * 1024u;

// Gives a statement back to the store when its use is over.
class BorrowedStatement {
 public:
  BorrowedStatement(SqliteStore& store, std::string_view source, StatementPtr statement)
      : store_(store), source_(source), statement_(std::move(statement)) {}
  ~BorrowedStatement() {
    if (!statement_) return;
    try {
      store_.release(source_, std::move(statement_));
    } catch (const std::bad_alloc&) {  // it is not kept then, and prepared anew next time
    }
  }
  BorrowedStatement(const BorrowedStatement&) = delete;
  BorrowedStatement& operator=(const BorrowedStatement&) = delete;
  sqlite3_stmt* get() const { return statement_.get(); }

 private:
  SqliteStore& store_;
  std::string_view source_;
  StatementPtr statement_;
};

// Runs `action`; a lack of memory or a value of the wrong kind counts as its failure.
template <typename Action>
bool guarded(SqliteStore& store, std::string& last_error, const Action& action) {
  try {
    if (action()) return true;
    last_error = store.error();
  } catch (const std::bad_alloc&) {
    last_error = "out of memory";
  } catch (const std::exception& failure) {
    last_error = failure.what();
  }
  return false;
}

}  // namespace

std::string quoted(std::string_view text) {
  std::string result;
  result.reserve(text.size());
  for (const char c : text) result.append(c == '\'' ? 2 : 1, c);
  return result;
}

adoaccess_class::adoaccess_class(SysMsg& messages)
    : store_(std::make_unique<SqliteStore>()), messages_(messages) {}

adoaccess_class::~adoaccess_class() = default;

bool adoaccess_class::open_access(const std::filesystem::path& source) {
  return guarded(*store_, last_error_, [&] { return store_->open(source); });
}

bool adoaccess_class::create_database(const std::filesystem::path& path) {
  return guarded(*store_, last_error_, [&] { return store_->create(path); });
}

void adoaccess_class::close_access() { store_->close(); }

bool adoaccess_class::is_connected() const { return store_->is_open(); }

bool adoaccess_class::is_writable() const { return store_->is_writable(); }

void adoaccess_class::execute(std::string_view sql, std::int32_t* affected) {
  execute(sql, {}, affected);
}

void adoaccess_class::execute(std::string_view sql, const std::vector<Variant>& parameters,
                              std::int32_t* affected) {
  if (affected) *affected = 0;
  if (!is_connected()) return;
  const std::int64_t before = store_->total_changes();
  if (!guarded(*store_, last_error_, [&] { return run(sql, parameters); })) return;
  const std::int64_t changed = store_->total_changes() - before;
  constexpr std::int64_t kMost = std::numeric_limits<std::int32_t>::max();
  if (affected) *affected = static_cast<std::int32_t>(std::min(changed, kMost));
}

bool adoaccess_class::run(std::string_view sql, const std::vector<Variant>& parameters) {
  std::optional<CrossInsert> cross_insert;
  const BorrowedStatement statement(*store_, sql, store_->prepare(sql, &cross_insert));
  if (cross_insert) return run_cross_insert(*store_, *cross_insert);
  return statement.get() && store_->bind(statement.get(), parameters) &&
         store_->run(statement.get());
}

bool adoaccess_class::begin_reading() {
  return is_connected() && !store_->in_transaction() && store_->run_native("begin");
}

void adoaccess_class::end_reading() {
  if (is_connected() && store_->in_transaction()) store_->run_native("commit");
}

bool adoaccess_class::execute_script(std::string_view script) {
  if (!is_connected()) return false;
  return guarded(*store_, last_error_, [&] {
    if (!store_->run_native("begin")) return false;
    if (store_->run_native(std::string(script)) && store_->run_native("commit")) return true;
    const std::string reason = store_->error();
    if (store_->in_transaction()) store_->run_native("rollback");
    store_->error(reason);
    return false;
  });
}

bool adoaccess_class::read(std::string_view sql, RecordSet& set, bool empty_is_good) {
  return read(sql, {}, set, empty_is_good);
}

bool adoaccess_class::read(std::string_view sql, const std::vector<Variant>& parameters,
                           RecordSet& set, bool empty_is_good) {
  set.Close();
  if (!is_connected()) return false;
  if (!guarded(*store_, last_error_, [&] { return fetch(sql, parameters, set); })) {
    set.Close();
    return false;
  }
  return !set.atEnd() || empty_is_good;
}

bool adoaccess_class::fetch(std::string_view sql, const std::vector<Variant>& parameters,
                            RecordSet& set) {
  const BorrowedStatement statement(*store_, sql, store_->prepare(sql));
  sqlite3_stmt* const rows = statement.get();
  if (!rows) return false;
  if (sqlite3_column_count(rows) == 0 || sqlite3_stmt_readonly(rows) == 0) {
    store_->error("not a query");
    return false;
  }
  if (!store_->bind(rows, parameters)) return false;
  int result = sqlite3_step(rows);
  RowReader reader(rows);
  while (result == SQLITE_ROW) {
    set.rows_.push_back(reader.row());
    if (reader.bytes() > kLargestSet) throw std::bad_alloc();
    result = sqlite3_step(rows);
  }
  if (result != SQLITE_DONE) return store_->fail();
  set.names_ = reader.names();
  set.open_ = true;
  return true;
}

Variant adoaccess_class::rs_get(const RecordSet& set, std::string_view field) {
  const int position = set.fieldIndex(field);
  if (position < 0) return {};
  const Variant& value = set.at(static_cast<std::size_t>(position));
  return value.is_null() ? Variant() : value;
}

bool adoaccess_class::rs_movefirst(RecordSet& set) {
  if (!set.isOpen() || set.rowCount() == 0) return false;
  set.MoveFirst();
  return true;
}

bool adoaccess_class::rs_movelast(RecordSet& set) {
  if (!set.isOpen() || set.rowCount() == 0) return false;
  set.MoveLast();
  return true;
}

std::string adoaccess_class::ParamNullQuery(std::string_view field, const Variant& value) {
  if (value.is_null()) return std::string(field) + " IS NULL";
  return std::string(field) + " = '" + quoted(to_text(value)) + "'";
}

std::int32_t adoaccess_class::Unique_ID(std::string_view field, std::string_view table) {
  RecordSet set;
  const std::string sql =
      "Select max(" + std::string(field) + ") as MaxPage from " + std::string(table);
  try {
    if (read(sql, set)) {
      const Variant greatest = rs_get(set, "MaxPage");
      return to_double(greatest) > 0 ? to_int32(to_double(greatest) + 1) : 1;
    }
  } catch (const Fault& fault) {
    last_error_ = fault.what();
  }
  messages_.messageBox("ADOAccessClass Error", "UniqueID : Could not get max(id) from " +
                                                   std::string(table) + ", field " +
                                                   std::string(field));
  return -1;
}

std::int32_t adoaccess_class::Unique_Number(std::string_view field, std::string_view table,
                                            std::int32_t from, std::int32_t to) {
  RecordSet set;
  if (!read("Select " + std::string(field) + " from " + std::string(table), set, true)) return -1;
  std::set<std::int32_t> taken;
  for (; !set.atEnd(); set.MoveNext()) {
    const Variant& value = set.at(0);
    if (!value.is_numeric()) continue;
    const double number = to_double(value);
    if (number >= from && number <= to) taken.insert(to_int32(number));
  }
  // The marked numbers ascend, so the first one that is not next in line leaves the gap.
  std::int64_t next = from;
  for (const std::int32_t number : taken) {
    if (number != next) break;
    ++next;
  }
  return next <= to ? static_cast<std::int32_t>(next) : -1;
}

}  // namespace vantrel
