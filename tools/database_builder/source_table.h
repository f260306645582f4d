#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "database_builder/problems.h"

namespace vantrel::builder {

enum class ColumnType { Text, Integer, Real, Boolean };

/// A column as the schema declares it.
struct Column {
  std::string name;
  ColumnType type = ColumnType::Text;
  bool required = false;                    ///< Must not be Null.
  std::optional<std::string> default_text;  ///< Stands in for a blank cell.
};

/// One row of a table with the line that it comes from. A blank cell is a Null.
struct SourceRow {
  int line = 0;
  std::vector<std::optional<std::string>> cells;  ///< In the order of the table's columns.
};

/// A table of the schema and its rows as text. The cells of a loaded table fit their columns: what
/// does not is reported and replaced by a Null.
struct SourceTable {
  std::string name;
  std::filesystem::path file;
  std::vector<Column> columns;
  std::vector<SourceRow> rows;

  /// Position of a column by name regardless of case, or -1.
  int columnIndex(std::string_view column) const;
  /// Trimmed text of a cell; the empty text for a Null and for an unknown column.
  std::string text(const SourceRow& row, std::string_view column) const;
  /// The whole number in a cell, if there is one.
  std::optional<int> number(const SourceRow& row, std::string_view column) const;
  /// True for a cell that says yes.
  bool yes(const SourceRow& row, std::string_view column) const;
};

/// Every table of the schema.
struct SourceTables {
  std::vector<SourceTable> tables;

  /// The table of that name regardless of case, or nothing.
  const SourceTable* find(std::string_view name) const;
};

/// Name of the file that holds the rows of a table: the table's name with every character that is
/// no letter, digit or underscore replaced by an underscore, and ".csv".
std::string file_name(std::string_view table);

/// The meaning of yes, true and 1, or of no, false and 0, in any case; nothing for any other text.
std::optional<bool> parse_yes_no(std::string_view text);

/// Fills `table.rows` from its file. Reports a missing file, a fault of the format, an unknown or
/// double column, a missing required one, a wrong number of cells, a blank required cell and a cell
/// that does not fit its column's type. A file may leave out columns that are not required.
void load_rows(SourceTable& table, Problems& problems);

}  // namespace vantrel::builder
