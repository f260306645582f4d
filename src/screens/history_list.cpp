#include "screens/history_list.h"

#include <QKeyEvent>

#include "screens/appearance.h"

namespace vantrel {

namespace {

constexpr int kFewestRows = 3;

}  // namespace

HistoryList::HistoryList(QWidget* parent) : QListWidget(parent) {
  setObjectName("CalculationPulldown");
  setAccessibleName("History");
  setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  setTextElideMode(Qt::ElideRight);
  setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
  connect(this, &QListWidget::itemClicked, this,
          [this](QListWidgetItem* line) { emit rowChosen(row(line)); });
}

void HistoryList::refresh(const PullDown& history) {
  const auto lines = static_cast<int>(history.items.size());
  while (count() > lines) delete takeItem(count() - 1);
  while (count() < lines) addItem(QString());
  for (int i = 0; i < lines; ++i) {
    const QString text = to_qstring(history.items[static_cast<std::size_t>(i)]);
    if (item(i)->text() == text) continue;
    item(i)->setText(text);
    item(i)->setToolTip(text);
    item(i)->setSizeHint({0, rowHeight()});
  }
  if (history.selected == currentRow()) return;
  setCurrentRow(history.selected);
}

QSize HistoryList::sizeHint() const {
  return {fontMetrics().averageCharWidth() * 40, kFewestRows * rowHeight() + 2 * frameWidth()};
}

void HistoryList::keyPressEvent(QKeyEvent* event) {
  const bool chosen = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
  if (chosen && currentRow() >= 0) {
    emit rowChosen(currentRow());
    return;
  }
  QListWidget::keyPressEvent(event);
}

}  // namespace vantrel
