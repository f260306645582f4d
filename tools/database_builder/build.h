#pragma once

#include <filesystem>

#include "database_builder/problems.h"
#include "database_builder/source_table.h"
#include "database_builder/vocabulary.h"

namespace vantrel::builder {

struct BuildPaths {
  std::filesystem::path schema;  ///< SQL script that creates the tables.
  std::filesystem::path data;    ///< Folder of the CSV files.
  std::filesystem::path out;     ///< Database file to write.
};

/// Every check of the tables' contents, their cells being in order already.
void check_tables(const SourceTables& tables, const Vocabulary& vocabulary, Problems& problems);

/// Builds the design database from its sources. The file is written beside `out` and takes its
/// place only when the sources are free of problems and every row is in; otherwise `out` stays as
/// it was. Gives the problems found, none after success.
Problems build_database(const BuildPaths& paths, const Vocabulary& vocabulary);

}  // namespace vantrel::builder
