#pragma once

#include <cstddef>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "core/screen.h"
#include "outputs/bom_store.h"
#include "outputs/table_export.h"
#include "outputs/table_grid.h"

namespace vantrel {

/// What the bill needs of other parts of the program. A callable may be empty.
struct BillHooks {
  std::function<std::string()> targetName;  ///< Short name of the selected control IC.
  /// Runs the whole chain with all its flags set; false when it ended early.
  std::function<bool()> calculate_simple;
  /// Marks components on the circuit diagram.
  std::function<void(const std::vector<std::string>& references)> highlight;
  std::function<void(const TableGrid& grid)> print;
};

/// The window of the bill of materials. It shows the components as they were when `setup_bom` was
/// last run, also after a new selection has emptied the store.
class bill_of_materials : public Screen {
 public:
  /// Name of the file that an export starts with.
  static constexpr std::string_view kExportName = "Bill Of Materials.csv";

  bill_of_materials(FieldContext& context, const BomStore& store, TableExport& exporter,
                    BillHooks hooks = {});

  /// Fills the grid with the calculated components and shows the screen. Without any it empties the
  /// grid, asks whether to calculate now, and on yes does so first. False when there is nothing to
  /// show in the end.
  bool setup_bom();

  /// True while the grid shows the components that were calculated last.
  bool isCurrent() const { return grid_.rows == storedRows(); }

  /// The grid as files take it: "." in all numbers.
  const TableGrid& grid() const { return grid_; }
  /// A cell as the screen shows it: values and ratings with the decimal separator of the locale.
  std::string shownCell(std::size_t row, std::size_t column) const;
  /// A row as the screen shows it, its cells joined by tab characters.
  std::string shownRow(std::size_t row) const;

  /// Marks the components of a row on the circuit diagram; false when there is no such row.
  bool HighlightComponent(std::size_t row);
  void PrintScreen();
  /// Asks for a file and writes the grid to it. True when it was written.
  bool ExportTable() { return exporter_.exportGrid(name(), grid_, kExportName); }
  /// Writes the grid to a given file.
  bool ExportTableTo(const std::string& path) {
    return exporter_.exportGridTo(name(), grid_, path);
  }
  /// Carries out a command of the screen's own bar; false for one that it leaves to the bar.
  bool execute_command(std::string_view key);

 private:
  std::vector<TableRow> storedRows() const;
  bool calculateNow();
  void fill();
  void clear();

  FieldContext& context_;
  const BomStore& store_;
  TableExport& exporter_;
  BillHooks hooks_;
  TableGrid grid_;
};

}  // namespace vantrel
