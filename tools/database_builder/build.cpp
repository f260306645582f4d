#include "database_builder/build.h"

#include <algorithm>
#include <system_error>

#include "database_builder/catalogue_checks.h"
#include "database_builder/database_file.h"
#include "database_builder/group_rule.h"
#include "database_builder/item_checks.h"
#include "database_builder/rule_checks.h"

namespace vantrel::builder {

namespace {

void check_stray_files(const std::filesystem::path& folder, const SourceTables& tables,
                       Problems& problems) {
  std::vector<std::filesystem::path> files;
  std::error_code error;
  for (std::filesystem::directory_iterator entry(folder, error), end; !error && entry != end;
       entry.increment(error)) {
    if (entry->path().extension() == ".csv") files.push_back(entry->path());
  }
  if (error) problems.add(folder, 0, "could not be read: " + error.message());
  std::ranges::sort(files);
  for (const std::filesystem::path& file : files) {
    const bool wanted = std::ranges::any_of(tables.tables, [&](const SourceTable& table) {
      return file_name(table.name) == file.filename();
    });
    if (!wanted) problems.add(file, 0, "belongs to no table of the schema");
  }
}

}  // namespace

void check_tables(const SourceTables& tables, const Vocabulary& vocabulary, Problems& problems) {
  check_groups(tables, problems);
  for (const std::string_view type : kSelectionTypes) {
    check_items(tables, type, vocabulary, problems);
  }
  check_targets(tables, vocabulary, problems);
  check_default_selection(tables, problems);
  check_rules(tables, vocabulary, problems);
}

Problems build_database(const BuildPaths& paths, const Vocabulary& vocabulary) {
  Problems problems;
  DatabaseFile file(paths.out, problems);
  if (!file.create(paths.schema)) return problems;
  SourceTables tables = file.tables();
  check_stray_files(paths.data, tables, problems);
  for (SourceTable& table : tables.tables) {
    table.file = paths.data / file_name(table.name);
    load_rows(table, problems);
  }
  check_tables(tables, vocabulary, problems);
  if (problems.empty() && file.fill(tables)) file.commit();
  return problems;
}

}  // namespace vantrel::builder
