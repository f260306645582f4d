#include <unistd.h>

#include "core/number_text.h"
#include "database_builder/bill_rows.h"
#include "database_builder/database_file.h"
#include "drawing_builder/build.h"

namespace vantrel::drawing {

namespace {

/// True when the IC's row says that its drawings differ by that selection.
bool allows(const builder::SourceTable& ics, const std::string& ic, std::string_view column) {
  return std::ranges::any_of(ics.rows, [&](const builder::SourceRow& row) {
    return ics.text(row, "Name") == ic && ics.text(row, column) == "yes";
  });
}

const builder::SourceRow* find_row(const builder::SourceTable& infos, const std::string& ic) {
  const auto found = std::ranges::find_if(
      infos.rows, [&](const builder::SourceRow& row) { return infos.text(row, "target") == ic; });
  return found == infos.rows.end() ? nullptr : &*found;
}

void add_long_value(const builder::SourceTable& table, int line, const std::string& reference,
                    Sheet& sheet) {
  for (const builder::SourceRow& row : table.rows) {
    if (row.line != line) continue;
    const std::string value = table.text(row, "value");
    if (!value.empty() && !parse_number(value)) sheet.long_values[reference] = value;
  }
}

}  // namespace

builder::SourceTables read_tables(const std::filesystem::path& schema,
                                  const std::filesystem::path& data, Problems& problems) {
  const std::filesystem::path unused = std::filesystem::temp_directory_path() /
                                       ("vantrel-drawings-" + std::to_string(::getpid()) + ".mdb");
  builder::DatabaseFile file(unused, problems);
  if (!file.create(schema)) return {};
  builder::SourceTables tables = file.tables();
  for (builder::SourceTable& table : tables.tables) {
    table.file = data / builder::file_name(table.name);
    load_rows(table, problems);
  }
  return tables;
}

std::vector<Sheet> required_sheets(const builder::SourceTables& tables, Problems& problems) {
  std::vector<Sheet> sheets;
  const builder::SourceTable* infos = tables.find("Target:Info");
  const builder::SourceTable* ics = tables.find("DATA:IC");
  if (infos == nullptr || ics == nullptr) return sheets;
  for (const Combination& combination :
       reachable_combinations(tables, builder::program_vocabulary())) {
    const builder::SourceRow* info = find_row(*infos, combination.ic);
    const builder::SourceTable* table =
        info == nullptr ? nullptr : tables.find(infos->text(*info, "BOMTable"));
    if (table == nullptr) {
      problems.add(infos->file, 0, "there is no component table for " + combination.ic);
      continue;
    }
    Sheet sheet{combination,
                sheet_name(combination, allows(*ics, combination.ic, "Allow Input"),
                           allows(*ics, combination.ic, "Allow Config")),
                {},
                {}};
    const builder::BillRows rows(*infos, *info, *table);
    for (const builder::DeclaredComponent& component : rows.declared(combination, false)) {
      sheet.bill.insert(component.reference);
      add_long_value(*table, component.line, component.reference, sheet);
    }
    sheets.push_back(sheet);
  }
  return sheets;
}

std::vector<CoreData> read_cores(const builder::SourceTables& tables) {
  std::vector<CoreData> cores;
  const builder::SourceTable* table = tables.find("INDUCTOR:Core Types");
  if (table == nullptr) return cores;
  for (const builder::SourceRow& row : table->rows) {
    const auto number = [&](std::string_view column) {
      return parse_number(table->text(row, column)).value_or(0);
    };
    cores.push_back({table->text(row, "Core Size"), number("Le Value"), number("Ae Value"),
                     number("Winding Area"), number("Maximum Allowable Gap"),
                     static_cast<int>(number("Number of Pins on Former"))});
  }
  return cores;
}

}  // namespace vantrel::drawing
