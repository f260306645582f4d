#pragma once

#include <filesystem>
#include <map>
#include <set>
#include <string>
#include <vector>

#include "database_builder/source_table.h"
#include "drawing_builder/core_drawing.h"
#include "drawing_builder/diagram.h"
#include "drawing_builder/net_list.h"

namespace vantrel::drawing {

struct BuildPaths {
  std::filesystem::path schema;    ///< SQL script of the design database.
  std::filesystem::path data;      ///< Folder of its CSV files.
  std::filesystem::path drawings;  ///< Folder of the symbols, blocks, plan and pictures.
  std::filesystem::path out;       ///< The program's folder.
};

/// What the circuit diagrams are made of.
struct CircuitSources {
  SymbolLibrary symbols;
  Blocks blocks;
  Plan plan;
};

CircuitSources read_circuits(const std::filesystem::path& folder, Problems& problems);

/// One circuit diagram that the selection rules lead to, with the components of its bill.
struct Sheet {
  Combination combination;
  std::string name;  ///< Below the folder of the ICs, without extension.
  std::set<std::string> bill;
  std::map<std::string, std::string> long_values;  ///< Fixed texts in place of a number.
};

/// Reads the tables of the design database without storing them.
builder::SourceTables read_tables(const std::filesystem::path& schema,
                                  const std::filesystem::path& data, Problems& problems);

/// Every circuit diagram that some selection leads to.
std::vector<Sheet> required_sheets(const builder::SourceTables& tables, Problems& problems);

/// The cores of the table.
std::vector<CoreData> read_cores(const builder::SourceTables& tables);

/// Puts a diagram together and checks it against its bill.
Diagram checked_diagram(const CircuitSources& sources, const Sheet& sheet, NetList& nets,
                        Problems& problems);

/// Builds all drawings. Gives the problems found; files are written when there is none.
Problems build_drawings(const BuildPaths& paths);

}  // namespace vantrel::drawing
