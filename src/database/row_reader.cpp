#include "database/row_reader.h"

#include <cstdint>
#include <limits>
#include <new>
#include <string_view>

#include "core/number_text.h"
#include "core/text_parsing.h"

namespace vantrel {

namespace {

Variant whole_number(sqlite3_int64 number) {
  const bool fits = number >= std::numeric_limits<std::int32_t>::min() &&
                    number <= std::numeric_limits<std::int32_t>::max();
  if (fits) return Variant(static_cast<std::int32_t>(number));
  return Variant(static_cast<double>(number));
}

std::string text(sqlite3_stmt* statement, int column) {
  const auto* characters = reinterpret_cast<const char*>(sqlite3_column_text(statement, column));
  if (!characters) throw std::bad_alloc();  // the value is not NULL: the store lacks memory
  return {characters, static_cast<std::size_t>(sqlite3_column_bytes(statement, column))};
}

bool truth_of_text(std::string_view word) {
  return equal_ignoring_case(word, "yes") || equal_ignoring_case(word, "true") || Val(word) != 0;
}

}  // namespace

RowReader::RowReader(sqlite3_stmt* statement) : statement_(statement) {
  const int count = sqlite3_column_count(statement);
  for (int i = 0; i < count; ++i) {
    const char* name = sqlite3_column_name(statement, i);
    if (!name) throw std::bad_alloc();
    names_.emplace_back(name);
    const char* declared = sqlite3_column_decltype(statement, i);
    truth_.push_back(declared && equal_ignoring_case(declared, "BOOLEAN"));
  }
}

std::vector<Variant> RowReader::row() {
  std::vector<Variant> values;
  values.reserve(names_.size());
  bytes_ += sizeof(values) + names_.size() * sizeof(Variant);
  for (std::size_t i = 0; i < names_.size(); ++i) {
    values.push_back(value(static_cast<int>(i)));
    if (values.back().is_string()) bytes_ += values.back().get<std::string>().capacity();
  }
  return values;
}

Variant RowReader::value(int column) const {
  const bool truth = truth_[static_cast<std::size_t>(column)];
  switch (sqlite3_column_type(statement_, column)) {
    case SQLITE_NULL:
      return Null{};
    case SQLITE_INTEGER: {
      const sqlite3_int64 number = sqlite3_column_int64(statement_, column);
      return truth ? Variant(number != 0) : whole_number(number);
    }
    case SQLITE_FLOAT: {
      const double number = sqlite3_column_double(statement_, column);
      return truth ? Variant(number != 0) : Variant(number);
    }
    case SQLITE_TEXT: {
      std::string characters = text(statement_, column);
      return truth ? Variant(truth_of_text(trimmed(characters))) : Variant(std::move(characters));
    }
    default: {
      const auto* bytes = static_cast<const char*>(sqlite3_column_blob(statement_, column));
      const auto length = static_cast<std::size_t>(sqlite3_column_bytes(statement_, column));
      return bytes ? Variant(std::string(bytes, length)) : Variant(std::string());
    }
  }
}

}  // namespace vantrel
