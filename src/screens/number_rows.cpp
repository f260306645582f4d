#include "screens/number_rows.h"

#include <QGridLayout>
#include <QLabel>

namespace vantrel {

NumberRows::NumberRows(QGridLayout& grid, int row, int column, int count, bool bold_values,
                       QWidget& parent) {
  for (int i = 0; i < count; ++i) {
    const Labels labels{new QLabel(&parent), new QLabel(&parent), new QLabel(&parent)};
    labels.label->setForegroundRole(QPalette::PlaceholderText);
    labels.unit->setForegroundRole(QPalette::PlaceholderText);
    labels.value->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    labels.value->setTextInteractionFlags(Qt::TextSelectableByMouse);
    QFont value_font = parent.font();
    value_font.setBold(bold_values);
    labels.value->setFont(value_font);
    grid.addWidget(labels.label, row + i, column);
    grid.addWidget(labels.value, row + i, column + 1);
    grid.addWidget(labels.unit, row + i, column + 2);
    rows_.push_back(labels);
  }
}

void NumberRows::show(const std::vector<NumberRow>& numbers) {
  for (std::size_t i = 0; i < rows_.size(); ++i) {
    const NumberRow row = i < numbers.size() ? numbers[i] : NumberRow();
    rows_[i].label->setText(row.label);
    rows_[i].value->setText(row.value);
    rows_[i].value->setAccessibleName(row.label + " " + row.unit);
    rows_[i].unit->setText(row.unit);
  }
}

void NumberRows::setOld(bool old) {
  for (const Labels& row : rows_) {
    row.value->setForegroundRole(old ? QPalette::PlaceholderText : QPalette::WindowText);
  }
}

}  // namespace vantrel
