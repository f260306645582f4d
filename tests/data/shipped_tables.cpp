#include "shipped_tables.h"

#include <gtest/gtest.h>

#include "database_builder/database_file.h"

namespace vantrel::builder {

SourceTables load_shipped_tables(Problems& problems) {
  const testing::TestInfo& test = *testing::UnitTest::GetInstance()->current_test_info();
  const std::filesystem::path data(VANTREL_DATA);
  const std::string name = "vantrel-" + std::string(test.name()) + ".mdb";
  DatabaseFile file(std::filesystem::path(testing::TempDir()) / name, problems);
  if (!file.create(data / "schema.sql")) return {};
  SourceTables tables = file.tables();
  for (SourceTable& table : tables.tables) {
    table.file = data / file_name(table.name);
    load_rows(table, problems);
  }
  return tables;
}

}  // namespace vantrel::builder
