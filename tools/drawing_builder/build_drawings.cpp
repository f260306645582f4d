#include <CLI/CLI.hpp>
#include <iostream>

#include "drawing_builder/build.h"

namespace {

constexpr int kWrongUse = 1;
constexpr int kBadSources = 3;

}  // namespace

int main(int argc, char** argv) {
  CLI::App app{"Builds the drawings from their descriptions and the tables of the components."};
  vantrel::drawing::BuildPaths paths;
  app.add_option("--schema", paths.schema, "SQL script of the design database")->required();
  app.add_option("--data", paths.data, "Folder with one CSV file for each table")->required();
  app.add_option("--drawings", paths.drawings, "Folder of symbols, blocks and pictures")
      ->required();
  app.add_option("--out", paths.out, "The program's folder to write to")->required();
  try {
    app.parse(argc, argv);
  } catch (const CLI::ParseError& error) {
    return app.exit(error) == 0 ? 0 : kWrongUse;
  }
  const vantrel::drawing::Problems problems = vantrel::drawing::build_drawings(paths);
  for (const vantrel::drawing::Problem& problem : problems.list()) {
    std::cerr << to_string(problem) << '\n';
  }
  return problems.empty() ? 0 : kBadSources;
}
