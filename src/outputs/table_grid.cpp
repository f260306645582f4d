#include "outputs/table_grid.h"

#include "core/text_parsing.h"

namespace vantrel {
namespace {

TableColumn column_of(std::string_view text) {
  TableColumn column;
  const std::size_t mark =
      text.empty() ? std::string_view::npos : std::string_view("<^>").find(text[0]);
  if (mark != std::string_view::npos) {
    column.alignment = static_cast<ColumnAlignment>(mark);
    text.remove_prefix(1);
  }
  column.title = trimmed(text);
  column.width = static_cast<int>(text.size());
  return column;
}

}  // namespace

std::vector<TableColumn> table_columns(std::string_view format) {
  std::vector<TableColumn> columns;
  std::size_t start = 0;
  for (std::size_t bar = 0; bar != std::string_view::npos; start = bar + 1) {
    bar = format.find('|', start);
    columns.push_back(column_of(format.substr(start, bar - start)));
  }
  return columns;
}

}  // namespace vantrel
