#include <CLI/CLI.hpp>
#include <iostream>

#include "database_builder/build.h"

namespace {

constexpr int kWrongUse = 1;
constexpr int kBadSources = 3;

}  // namespace

int main(int argc, char** argv) {
  CLI::App app{"Builds the design database from its schema and its tables in CSV files."};
  vantrel::builder::BuildPaths paths;
  app.add_option("--schema", paths.schema, "SQL script that creates the tables")->required();
  app.add_option("--data", paths.data, "Folder with one CSV file for each table")->required();
  app.add_option("--out", paths.out, "Database file to write")->required();
  try {
    app.parse(argc, argv);
  } catch (const CLI::ParseError& error) {
    return app.exit(error) == 0 ? 0 : kWrongUse;
  }
  const vantrel::builder::Problems problems =
      build_database(paths, vantrel::builder::program_vocabulary());
  for (const vantrel::builder::Problem& problem : problems.list()) {
    std::cerr << to_string(problem) << '\n';
  }
  return problems.empty() ? 0 : kBadSources;
}
