#pragma once

#include <QString>
#include <vector>

class QGridLayout;
class QLabel;
class QWidget;

namespace vantrel {

/// A number with its label and unit, ready to be shown.
struct NumberRow {
  QString label;
  QString value;
  QString unit;
};

/// Rows of numbers in three columns of a grid. The rows are made once, so that nothing moves when
/// other numbers come; those without a number are blank.
class NumberRows {
 public:
  /// Makes `count` rows in `grid` from `row` and `column` on; `parent` owns the labels.
  NumberRows(QGridLayout& grid, int row, int column, int count, bool bold_values, QWidget& parent);

  void show(const std::vector<NumberRow>& numbers);
  /// Old numbers are muted.
  void setOld(bool old);

 private:
  struct Labels {
    QLabel* label;
    QLabel* value;
    QLabel* unit;
  };
  std::vector<Labels> rows_;
};

}  // namespace vantrel
