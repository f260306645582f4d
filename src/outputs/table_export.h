#pragma once

#include <span>
#include <string>
#include <string_view>

#include "core/file_writer.h"
#include "core/ports.h"
#include "core/program_folder.h"
#include "outputs/table_grid.h"
#include "services/messages/sysmsg.h"

namespace vantrel {

/// How the cells of an exported row are separated: by "," or by a blank.
enum class TableFileType { Csv, Text };

/// Text for the extension ".txt" in any case, otherwise Csv.
TableFileType table_file_type(std::string_view path);

/// One row of a table file, CR LF at its end. A cell that holds the separator, a double quote or a
/// line break is quoted, its own quotes doubled (RFC 4180).
std::string table_row_text(std::span<const std::string> cells, TableFileType type);

/// A whole table file: the titles of the columns, then the rows.
std::string table_text(const TableGrid& grid, TableFileType type);

/// Writes grids to files that other programs read.
class TableExport {
 public:
  static constexpr std::string_view kTitle = "Export Table";
  static constexpr std::string_view kFilter = "CSV files (*.csv)|*.csv|Text files (*.txt)|*.txt";

  /// `dialogs` may be missing: then no name can be asked for. All arguments must outlive the
  /// object.
  TableExport(SysMsg& messages, FileDialogs* dialogs, const ProgramFolder& folder,
              FileCalls calls = system_file_calls());

  /// Asks for a file, starting with `name` in the program's folder of exports, and writes it. An
  /// empty answer ends the operation. `caller` names the screen. True when the file was written.
  bool exportGrid(std::string_view caller, const TableGrid& grid, std::string_view name);
  /// Writes to a given path, in the form that its extension tells, and says so. A failure is
  /// reported and leaves an older file as it was.
  bool exportGridTo(std::string_view caller, const TableGrid& grid, const std::string& path);

 private:
  SysMsg& messages_;
  FileDialogs* dialogs_;
  const ProgramFolder& folder_;
  FileCalls calls_;
};

}  // namespace vantrel
