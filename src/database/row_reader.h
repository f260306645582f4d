#pragma once

#include <sqlite3.h>

#include <string>
#include <vector>

#include "core/variant.h"

namespace vantrel {

/// Turns the rows of a stepped statement into values by the declared types of its columns, and
/// keeps count of the memory that they take.
class RowReader {
 public:
  /// Reads names and declared types; the statement must have been stepped once, so that it knows
  /// the present schema.
  explicit RowReader(sqlite3_stmt* statement);

  const std::vector<std::string>& names() const { return names_; }
  /// The values of the current row.
  std::vector<Variant> row();
  /// Bytes that all rows so far take, roughly.
  std::size_t bytes() const { return bytes_; }

 private:
  Variant value(int column) const;

  sqlite3_stmt* statement_;
  std::vector<std::string> names_;
  std::vector<bool> truth_;  // columns declared BOOLEAN
  std::size_t bytes_ = 0;
};

}  // namespace vantrel
