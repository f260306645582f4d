#include "outputs/bill_of_materials.h"

#include <utility>

#include "core/number_text.h"
#include "core/text_parsing.h"

namespace vantrel {
namespace {

constexpr std::string_view kFormat =
    "<Qty       |"
    "<Type                                               |"
    "<Value                    |"
    "<Rating                  |"
    "<Tolerance    |"
    "<Reference                                                          ";

/// Columns whose texts carry decimal points.
constexpr std::size_t kValueColumn = 2;
constexpr std::size_t kRatingColumn = 3;

constexpr const char* kBillCaption = "Bill Of Materials";

constexpr std::string_view kAskForComponents =
    "The bill of materials cannot be shown until components have been calculated.\r\n\r\n"
    "Do you wish to calculate now ?";

/// The reference designators of a line.
std::vector<std::string> references_of(const TableRow& row, SysMsg& messages) {
  std::vector<std::string> references;
  const int count = FieldCount(row.back(), ',');
  for (int i = 1; i <= count; ++i) {
    references.push_back(GetField(row.back(), i, ',', false, messages));
  }
  return references;
}

}  // namespace

bill_of_materials::bill_of_materials(FieldContext& context, const BomStore& store,
                                     TableExport& exporter, BillHooks hooks)
    : Screen("bill_of_materials", kBillCaption, context),
      context_(context),
      store_(store),
      exporter_(exporter),
      hooks_(std::move(hooks)) {
  grid_.columns = table_columns(kFormat);
}

bool bill_of_materials::setup_bom() {
  if (store_.isEmpty()) {
    clear();
    if (!calculateNow()) return false;
  }
  fill();
  visible(true);
  return true;
}

bool bill_of_materials::calculateNow() {
  if (context_.messages.msg(name(), kAskForComponents, kMessageYesNo) != kYes) return false;
  return hooks_.calculate_simple && hooks_.calculate_simple() && !store_.isEmpty();
}

void bill_of_materials::clear() {
  grid_.rows.clear();
  caption(kBillCaption);
}

std::vector<TableRow> bill_of_materials::storedRows() const {
  std::vector<TableRow> rows;
  for (const BillRecord& line : store_.BomComponents()) {
    rows.push_back({general_text(line.qty), line.type, line.value, line.rating, line.tolerance,
                    line.reference});
  }
  return rows;
}

void bill_of_materials::fill() {
  grid_.rows = storedRows();
  const std::string target = hooks_.targetName ? hooks_.targetName() : "";
  caption(target + " Bill Of Materials (" + std::to_string(grid_.rows.size()) + " items)");
}

std::string bill_of_materials::shownCell(std::size_t row, std::size_t column) const {
  const std::string& cell = grid_.rows.at(row).at(column);
  if (column != kValueColumn && column != kRatingColumn) return cell;
  return local_decimal(cell, '.', context_.decimalSeparator);
}

std::string bill_of_materials::shownRow(std::size_t row) const {
  std::string text = shownCell(row, 0);
  for (std::size_t column = 1; column < grid_.columns.size(); ++column) {
    text += '\t' + shownCell(row, column);
  }
  return text;
}

bool bill_of_materials::HighlightComponent(std::size_t row) {
  if (row >= grid_.rows.size()) return false;
  if (hooks_.highlight) hooks_.highlight(references_of(grid_.rows[row], context_.messages));
  return true;
}

void bill_of_materials::PrintScreen() {
  if (hooks_.print) hooks_.print(grid_);
}

bool bill_of_materials::execute_command(std::string_view key) {
  if (key == "c_export_bom") {
    ExportTable();
  } else if (key == "c_print") {
    PrintScreen();
  } else {
    return false;
  }
  return true;
}

}  // namespace vantrel
