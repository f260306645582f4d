#include "screens/bill_table.h"

#include <QCollator>
#include <algorithm>

#include "core/number_text.h"
#include "core/si_letters.h"
#include "core/text_parsing.h"
#include "screens/appearance.h"

namespace vantrel {

namespace {

/// A cell such as "4.7 nF" or "250V": its number in the unit without prefix, and that unit.
struct Quantity {
  bool known = false;
  double number = 0;
  std::string unit;
};

Quantity quantity_of(const std::string& cell) {
  const std::size_t end = std::min(cell.find_first_not_of("0123456789."), cell.size());
  const auto number = parse_number(std::string_view(cell).substr(0, end));
  if (!number) return {};
  const std::string unit = trimmed(std::string_view(cell).substr(end));
  const SiLetter* prefix = unit.size() > 1 ? find_si_letter(unit.front()) : nullptr;
  if (prefix == nullptr) return {true, *number, unit};
  return {true, *number * prefix->factor, unit.substr(1)};
}

}  // namespace

BillTable::BillTable(const bill_of_materials& bill, QObject* parent)
    : QAbstractTableModel(parent), bill_(bill), rows_(bill.grid().rows) {}

void BillTable::refresh() {
  if (rows_ == bill_.grid().rows) return;
  beginResetModel();
  rows_ = bill_.grid().rows;
  endResetModel();
}

int BillTable::componentCount() const {
  int count = 0;
  for (const TableRow& row : rows_) count += static_cast<int>(parse_number(row[kQty]).value_or(0));
  return count;
}

int BillTable::rowCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : static_cast<int>(rows_.size());
}

int BillTable::columnCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : static_cast<int>(bill_.grid().columns.size());
}

QVariant BillTable::data(const QModelIndex& index, int role) const {
  if (!index.isValid()) return {};
  const auto row = static_cast<std::size_t>(index.row());
  const auto column = static_cast<std::size_t>(index.column());
  switch (role) {
    case Qt::DisplayRole:
    case Qt::ToolTipRole:
      return to_qstring(bill_.shownCell(row, column));
    case kSortRole:
      return to_qstring(rows_[row][column]);
    case Qt::TextAlignmentRole:
      return static_cast<int>(Qt::AlignLeft | Qt::AlignVCenter);
    default:
      return {};
  }
}

QVariant BillTable::headerData(int section, Qt::Orientation orientation, int role) const {
  if (orientation != Qt::Horizontal) return {};
  if (role == Qt::TextAlignmentRole) return static_cast<int>(Qt::AlignLeft | Qt::AlignVCenter);
  if (role != Qt::DisplayRole) return {};
  return to_qstring(bill_.grid().columns[static_cast<std::size_t>(section)].title);
}

BillOrder::BillOrder(QObject* parent) : QSortFilterProxyModel(parent) {
  setFilterKeyColumn(-1);
  setFilterCaseSensitivity(Qt::CaseInsensitive);
  setSortRole(BillTable::kSortRole);
}

bool BillOrder::lessThan(const QModelIndex& left, const QModelIndex& right) const {
  const QString left_text = left.data(BillTable::kSortRole).toString();
  const QString right_text = right.data(BillTable::kSortRole).toString();
  const Quantity a = quantity_of(left_text.toStdString());
  const Quantity b = quantity_of(right_text.toStdString());
  if (a.known && b.known) {
    return a.unit == b.unit ? a.number < b.number : a.unit < b.unit;
  }
  // Numbered quantities stand in front of names, so that the order is the same for any pair.
  if (a.known != b.known) return a.known;
  QCollator collator(QLocale(QLocale::English));
  collator.setNumericMode(true);
  return collator.compare(left_text, right_text) < 0;
}

}  // namespace vantrel
