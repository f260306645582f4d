#include "database_builder/source_table.h"

#include <cctype>
#include <fstream>
#include <iterator>

#include "core/fault.h"
#include "core/number_text.h"
#include "core/text_parsing.h"
#include "database_builder/csv_reader.h"

namespace vantrel::builder {

namespace {

std::optional<std::string> file_text(const std::filesystem::path& file) {
  std::ifstream stream(file, std::ios::binary);
  if (!stream) return std::nullopt;
  return std::string(std::istreambuf_iterator<char>(stream), {});
}

std::optional<int> whole_number(std::string_view text) {
  const std::optional<double> number = parse_number(text);
  if (!number) return std::nullopt;
  try {
    const std::int32_t rounded = round_to_int32(*number);
    if (static_cast<double>(rounded) == *number) return rounded;
  } catch (const Fault&) {
    return std::nullopt;  // beyond 32 bits
  }
  return std::nullopt;
}

/// What is wrong with a cell of the type; empty when nothing is.
std::string type_fault(ColumnType type, const std::string& cell) {
  switch (type) {
    case ColumnType::Integer:
      return whole_number(cell) ? "" : "is no whole number";
    case ColumnType::Real:
      return parse_number(cell) ? "" : "is no number";
    case ColumnType::Boolean:
      return parse_yes_no(cell) ? "" : "is neither Yes nor No";
    case ColumnType::Text:
      break;
  }
  return "";
}

/// Loads one file; keeps what its steps share.
class RowLoader {
 public:
  RowLoader(SourceTable& table, Problems& problems) : table_(table), problems_(problems) {}

  void load() {
    const std::optional<std::string> text = file_text(table_.file);
    if (!text) {
      problems_.add(table_.file, 0, "could not be read; table [" + table_.name + "] has no rows");
      return;
    }
    const CsvDocument document = read_csv(*text);
    for (const CsvFault& fault : document.faults) report(fault.line, fault.text);
    if (document.records.empty()) {
      report(1, "the line of column names is missing");
      return;
    }
    readHeader(document.records.front());
    for (std::size_t i = 1; i < document.records.size(); ++i) readRow(document.records[i]);
  }

 private:
  void report(int line, const std::string& text) { problems_.add(table_.file, line, text); }

  void readHeader(const CsvRecord& header) {
    std::vector<bool> named(table_.columns.size(), false);
    for (const std::string& name : header.cells) {
      const int column = table_.columnIndex(name);
      positions_.push_back(column);
      if (column < 0) {
        report(header.line, "unknown column '" + name + "' of table [" + table_.name + "]");
      } else if (named[static_cast<std::size_t>(column)]) {
        report(header.line, "column '" + name + "' stands twice");
      } else {
        named[static_cast<std::size_t>(column)] = true;
      }
    }
    for (std::size_t i = 0; i < named.size(); ++i) {
      const Column& column = table_.columns[i];
      if (!named[i] && column.required && !column.default_text) {
        report(header.line, "column '" + column.name + "' is missing");
      }
    }
  }

  void readRow(const CsvRecord& record) {
    if (record.cells.size() != positions_.size()) {
      report(record.line, std::to_string(record.cells.size()) + " cells instead of " +
                              std::to_string(positions_.size()));
      return;
    }
    SourceRow row{record.line, {}};
    for (const Column& column : table_.columns) row.cells.push_back(column.default_text);
    for (std::size_t i = 0; i < record.cells.size(); ++i) {
      if (positions_[i] < 0) continue;
      const auto column = static_cast<std::size_t>(positions_[i]);
      row.cells[column] = checkedCell(table_.columns[column], record.cells[i], record.line);
    }
    table_.rows.push_back(std::move(row));
  }

  std::optional<std::string> checkedCell(const Column& column, const std::string& cell, int line) {
    if (trimmed(cell).empty()) {
      if (column.default_text) return column.default_text;
      if (column.required) report(line, "column '" + column.name + "' must not be blank");
      return std::nullopt;
    }
    const std::string fault = type_fault(column.type, cell);
    if (fault.empty()) return cell;
    report(line, "'" + cell + "' in column '" + column.name + "' " + fault);
    return std::nullopt;
  }

  SourceTable& table_;
  Problems& problems_;
  std::vector<int> positions_;  ///< Table column of each file column, -1 for an unknown one.
};

}  // namespace

int SourceTable::columnIndex(std::string_view column) const {
  for (std::size_t i = 0; i < columns.size(); ++i) {
    if (equal_ignoring_case(columns[i].name, column)) return static_cast<int>(i);
  }
  return -1;
}

std::string SourceTable::text(const SourceRow& row, std::string_view column) const {
  const int index = columnIndex(column);
  if (index < 0) return "";
  return trimmed(row.cells[static_cast<std::size_t>(index)].value_or(""));
}

std::optional<int> SourceTable::number(const SourceRow& row, std::string_view column) const {
  return whole_number(text(row, column));
}

bool SourceTable::yes(const SourceRow& row, std::string_view column) const {
  return parse_yes_no(text(row, column)).value_or(false);
}

const SourceTable* SourceTables::find(std::string_view name) const {
  for (const SourceTable& table : tables) {
    if (equal_ignoring_case(table.name, name)) return &table;
  }
  return nullptr;
}

std::string file_name(std::string_view table) {
  std::string name(table);
  for (char& character : name) {
    if (std::isalnum(static_cast<unsigned char>(character)) == 0) character = '_';
  }
  return name + ".csv";
}

std::optional<bool> parse_yes_no(std::string_view text) {
  const std::string word = lower(trimmed(text));
  if (word == "yes" || word == "true" || word == "1") return true;
  if (word == "no" || word == "false" || word == "0") return false;
  return std::nullopt;
}

void load_rows(SourceTable& table, Problems& problems) { RowLoader(table, problems).load(); }

}  // namespace vantrel::builder
