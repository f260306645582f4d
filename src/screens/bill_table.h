#pragma once

#include <QAbstractTableModel>
#include <QSortFilterProxyModel>

#include "outputs/bill_of_materials.h"

namespace vantrel {

/// The bill of materials as a table model, in the calculated order.
class BillTable : public QAbstractTableModel {
  Q_OBJECT

 public:
  enum { kQty, kType, kValue, kRating, kTolerance, kReference };
  /// What a column is sorted by.
  static constexpr int kSortRole = Qt::UserRole;

  explicit BillTable(const bill_of_materials& bill, QObject* parent = nullptr);

  /// Takes the lines over that the bill shows now.
  void refresh();
  /// Number of components in all lines.
  int componentCount() const;

  int rowCount(const QModelIndex& parent = {}) const override;
  int columnCount(const QModelIndex& parent = {}) const override;
  QVariant data(const QModelIndex& index, int role) const override;
  QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

 private:
  const bill_of_materials& bill_;
  std::vector<TableRow> rows_;
};

/// The table as the user has sorted and filtered it. Values of one unit stand in their true order,
/// whatever their prefixes; everything else is compared as text with its numbers in order.
class BillOrder : public QSortFilterProxyModel {
  Q_OBJECT

 public:
  explicit BillOrder(QObject* parent = nullptr);

 protected:
  bool lessThan(const QModelIndex& left, const QModelIndex& right) const override;
};

}  // namespace vantrel
