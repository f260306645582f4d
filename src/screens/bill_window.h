#pragma once

#include <vector>

#include "screens/bill_table.h"
#include "screens/output_window.h"

class QLineEdit;
class QStackedWidget;
class QTableView;

namespace vantrel {

/// The bill of materials: a table that can be sorted, filtered, copied, exported and printed.
class BillWindow : public OutputWindow {
  Q_OBJECT

 public:
  explicit BillWindow(Workbench bench);

  /// Selects the line that holds a component; false when no line on show does.
  bool markReference(std::string_view reference);

 protected:
  void command(const std::string& key) override;
  void calculate() override;
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void makeTable();
  void makeFilter();
  void sortBy(int column);
  void refresh();
  void tellSelection();
  void highlightSelection();
  void copyRows();
  void showInCircuit();
  /// Lines of the bill that are selected, from top to bottom; all lines without a selection.
  std::vector<QModelIndex> chosenRows() const;

  bill_of_materials& bill_;
  BillTable* table_;
  BillOrder* order_;
  QTableView* view_;
  QLineEdit* filter_;
  QStackedWidget* pages_;
  QAction* in_circuit_ = nullptr;
};

}  // namespace vantrel
