#include "database_builder/database_file.h"

#include <fstream>
#include <iterator>
#include <system_error>

#include "core/number_text.h"
#include "core/text_parsing.h"

namespace vantrel::builder {

namespace {

ColumnType column_type(const std::string& declared) {
  const std::string type = upper(declared);
  if (type == "INTEGER") return ColumnType::Integer;
  if (type == "REAL") return ColumnType::Real;
  if (type == "BOOLEAN") return ColumnType::Boolean;
  return ColumnType::Text;
}

/// The value to store for a cell that has passed the checks of its column's type.
Variant stored_value(const Column& column, const std::optional<std::string>& cell) {
  if (!cell) return Null{};
  switch (column.type) {
    case ColumnType::Integer:
      return to_int32(Variant(trimmed(*cell)));
    case ColumnType::Real:
      return to_double(Variant(trimmed(*cell)));
    case ColumnType::Boolean:
      return parse_yes_no(*cell).value_or(false);
    case ColumnType::Text:
      break;
  }
  return *cell;
}

std::string insert_statement(const SourceTable& table) {
  std::string names;
  std::string marks;
  for (const Column& column : table.columns) {
    names += (names.empty() ? "[" : ",[") + column.name + "]";
    marks += marks.empty() ? "?" : ",?";
  }
  return "insert into [" + table.name + "] (" + names + ") values (" + marks + ")";
}

std::string field_text(const RecordSet& set, std::string_view field) {
  return NullToText(adoaccess_class::rs_get(set, field));
}

}  // namespace

DatabaseFile::DatabaseFile(std::filesystem::path out, Problems& problems)
    : out_(std::move(out)), temporary_(out_), problems_(problems) {
  temporary_ += ".new";
}

DatabaseFile::~DatabaseFile() {
  database_.close_access();
  std::error_code ignored;  // the file is gone after a commit
  std::filesystem::remove(temporary_, ignored);
}

bool DatabaseFile::fail(const std::filesystem::path& file, int line, const std::string& text) {
  problems_.add(file, line, text);
  return false;
}

bool DatabaseFile::create(const std::filesystem::path& schema) {
  std::ifstream stream(schema, std::ios::binary);
  if (!stream) return fail(schema, 0, "could not be read");
  const std::string script(std::istreambuf_iterator<char>(stream), {});
  std::error_code ignored;  // a folder that cannot be made, or an old file that stays, fails below
  if (out_.has_parent_path()) std::filesystem::create_directories(out_.parent_path(), ignored);
  std::filesystem::remove(temporary_, ignored);
  if (!database_.create_database(temporary_)) {
    return fail(temporary_, 0, "could not be made: " + database_.last_error());
  }
  if (!database_.execute_script(script)) return fail(schema, 0, database_.last_error());
  return true;
}

SourceTables DatabaseFile::tables() {
  SourceTables result;
  RecordSet names;
  database_.read("select name from sqlite_master where type = 'table'", names);
  for (; adoaccess_class::RSOK(names); names.MoveNext()) {
    SourceTable table;
    table.name = field_text(names, "name");
    RecordSet columns;
    database_.read("select name, type, [notnull], dflt_value from pragma_table_info(?)",
                   {Variant(table.name)}, columns);
    for (; adoaccess_class::RSOK(columns); columns.MoveNext()) {
      Column column{.name = field_text(columns, "name"),
                    .type = column_type(field_text(columns, "type")),
                    .required = field_text(columns, "notnull") == "1",
                    .default_text = std::nullopt};
      const std::string standard = field_text(columns, "dflt_value");
      if (!standard.empty()) column.default_text = standard;
      table.columns.push_back(std::move(column));
    }
    result.tables.push_back(std::move(table));
  }
  return result;
}

bool DatabaseFile::insertRows(const SourceTable& table) {
  const std::string statement = insert_statement(table);
  for (const SourceRow& row : table.rows) {
    std::vector<Variant> values;
    for (std::size_t i = 0; i < row.cells.size(); ++i) {
      values.push_back(stored_value(table.columns[i], row.cells[i]));
    }
    std::int32_t stored = 0;
    database_.execute(statement, values, &stored);
    if (stored != 1) return fail(table.file, row.line, database_.last_error());
  }
  return true;
}

bool DatabaseFile::fill(const SourceTables& tables) {
  database_.execute("BEGIN");
  for (const SourceTable& table : tables.tables) {
    if (!insertRows(table)) return false;
  }
  database_.execute("COMMIT");
  RecordSet set;
  for (const SourceTable& table : tables.tables) {
    database_.read("select count(*) as stored from [" + table.name + "]", set);
    if (field_text(set, "stored") != std::to_string(table.rows.size())) {
      return fail(temporary_, 0, "not all rows of [" + table.name + "] were stored");
    }
  }
  return true;
}

bool DatabaseFile::commit() {
  database_.close_access();
  std::error_code error;
  std::filesystem::rename(temporary_, out_, error);
  if (error) return fail(out_, 0, "could not be replaced: " + error.message());
  return true;
}

}  // namespace vantrel::builder
