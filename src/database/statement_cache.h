#pragma once

#include <sqlite3.h>

#include <cstddef>
#include <list>
#include <memory>
#include <string>
#include <string_view>
#include <unordered_map>

namespace vantrel {

struct StatementFinaliser {
  void operator()(sqlite3_stmt* statement) const { sqlite3_finalize(statement); }
};
using StatementPtr = std::unique_ptr<sqlite3_stmt, StatementFinaliser>;

/// Prepared statements by the text that they were made from. A statement is taken out for its use
/// and kept again after it, so the one in use is never evicted. When full, the statement whose use
/// lies furthest back goes.
class StatementCache {
 public:
  explicit StatementCache(std::size_t capacity) : capacity_(capacity) {}

  /// The kept statement of that text, now the caller's; nothing when there is none.
  StatementPtr take(std::string_view source);
  /// Keeps a reset statement. A very long text is not worth its memory and is dropped.
  void keep(std::string_view source, StatementPtr statement);
  /// Finalises all statements.
  void clear();
  std::size_t size() const { return entries_.size(); }

 private:
  struct Entry {
    std::string source;
    StatementPtr statement;
  };

  std::size_t capacity_;
  std::list<Entry> entries_;                                                    // latest use first
  std::unordered_map<std::string_view, std::list<Entry>::iterator> by_source_;  // views of entries_
};

}  // namespace vantrel
