#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace vantrel {

enum class ColumnAlignment { Left, Centre, Right };

/// One column of a grid.
struct TableColumn {
  std::string title;
  ColumnAlignment alignment = ColumnAlignment::Left;
  int width = 0;  ///< In characters of average width.
};

/// Cells of one row from left to right, "." in their numbers whatever the locale.
using TableRow = std::vector<std::string>;

/// What a grid shows, without any window.
struct TableGrid {
  std::vector<TableColumn> columns;
  std::vector<TableRow> rows;
};

/// The columns that a format string sets: titles separated by "|", each behind its alignment ("<"
/// left, "^" centre, ">" right, left without one). A column is as wide as its title with the blanks
/// around it.
std::vector<TableColumn> table_columns(std::string_view format);

}  // namespace vantrel
