#include "outputs/table_export.h"

#include <filesystem>
#include <utility>
#include <vector>

#include "core/save_dialog.h"
#include "core/text_parsing.h"

namespace vantrel {
namespace {

namespace fs = std::filesystem;

std::string quoted(std::string_view cell) {
  std::string result = "\"";
  for (const char c : cell) {
    if (c == '"') result += '"';
    result += c;
  }
  return result + '"';
}

std::string cell_text(std::string_view cell, char separator) {
  const bool plain = cell.find(separator) == std::string_view::npos &&
                     cell.find_first_of("\"\r\n") == std::string_view::npos;
  return plain ? std::string(cell) : quoted(cell);
}

std::string name_of(const std::string& path) { return fs::path(path).filename().string(); }

}  // namespace

TableFileType table_file_type(std::string_view path) {
  const std::string extension = fs::path(path).extension().string();
  return equal_ignoring_case(extension, ".txt") ? TableFileType::Text : TableFileType::Csv;
}

std::string table_row_text(std::span<const std::string> cells, TableFileType type) {
  const char separator = type == TableFileType::Csv ? ',' : ' ';
  std::string row;
  for (std::size_t i = 0; i < cells.size(); ++i) {
    if (i > 0) row += separator;
    row += cell_text(cells[i], separator);
  }
  return row + "\r\n";
}

std::string table_text(const TableGrid& grid, TableFileType type) {
  TableRow titles;
  for (const TableColumn& column : grid.columns) titles.push_back(column.title);
  std::string text = table_row_text(titles, type);
  for (const TableRow& row : grid.rows) text += table_row_text(row, type);
  return text;
}

TableExport::TableExport(SysMsg& messages, FileDialogs* dialogs, const ProgramFolder& folder,
                         FileCalls calls)
    : messages_(messages), dialogs_(dialogs), folder_(folder), calls_(std::move(calls)) {}

bool TableExport::exportGrid(std::string_view caller, const TableGrid& grid,
                             std::string_view name) {
  const std::string path = select_savefile(dialogs_, folder_, kTitle, name, kFilter);
  return !path.empty() && exportGridTo(caller, grid, path);
}

bool TableExport::exportGridTo(std::string_view caller, const TableGrid& grid,
                               const std::string& path) {
  const auto failure = write_file(path, table_text(grid, table_file_type(path)), calls_);
  if (failure) {
    messages_.msg(caller, "Could not export file '" + name_of(path) + "' (" + *failure + ")",
                  kMessageOk, kSeverityWarning);
    return false;
  }
  messages_.msg(caller, "File '" + name_of(path) + "' Exported OK", kMessageOk,
                kSeverityInformation);
  return true;
}

}  // namespace vantrel
