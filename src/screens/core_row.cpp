#include "screens/core_row.h"

#include <QCheckBox>
#include <QComboBox>
#include <QGridLayout>
#include <QLabel>
#include <algorithm>
#include <utility>
#include <vector>

#include "screens/frame_panel.h"
#include "screens/view_connection.h"

namespace vantrel {

namespace {

constexpr int kLockSize = 12;

/// Moves everything in a grid one row down.
void free_first_row(QGridLayout& grid) {
  struct Place {
    int row, column, rows, columns;
  };
  std::vector<std::pair<QLayoutItem*, Place>> items;
  while (grid.count() > 0) {
    Place at{};
    grid.getItemPosition(0, &at.row, &at.column, &at.rows, &at.columns);
    items.emplace_back(grid.takeAt(0), at);
  }
  for (const auto& [item, at] : items) {
    grid.addItem(item, at.row + 1, at.column, at.rows, at.columns, item->alignment());
  }
}

}  // namespace

CoreRow::CoreRow(Screen& screen, PullDown& list, TickBox& tick, Appearance& look, FramePanel& panel)
    : QObject(&panel),
      screen_(screen),
      list_(list),
      tick_(tick),
      look_(look),
      combo_(new QComboBox(&panel)),
      box_(new QCheckBox("Fix", &panel)) {
  const QString index = list.index < 0 ? QString() : "." + QString::number(list.index);
  const QString prefix = to_qstring(screen.name()) + ".";
  combo_->setObjectName(prefix + to_qstring(list.name) + index);
  combo_->setAccessibleName("Core Size");
  combo_->setSizeAdjustPolicy(QComboBox::AdjustToContents);
  combo_->setIconSize({kLockSize, kLockSize});
  combo_->setMaxVisibleItems(20);
  box_->setObjectName(prefix + to_qstring(tick.name) + index);
  box_->setAccessibleName("Fix, Core Size");
  box_->setToolTip(to_qstring(tick.tooltip.empty() ? tick.caption : tick.tooltip));
  auto* label = new QLabel("Core Size", &panel);
  label->setBuddy(combo_);
  QGridLayout& grid = panel.grid();
  free_first_row(grid);
  grid.addWidget(label, 0, FieldRow::kLabel);
  grid.addWidget(combo_, 0, FieldRow::kValue, 1, 2);
  grid.addWidget(box_, 0, FieldRow::kTick);
  if (!panel.rows().empty()) {
    QWidget::setTabOrder(box_, &panel.rows().front()->editor());
    QWidget::setTabOrder(&panel.rows().front()->editor(), panel.rows().front()->tick());
  }
  connect(combo_, &QComboBox::activated, this, [this](int chosen) {
    list_.selected = chosen;
    screen_.notifyLayoutChanged();
    emit edited();
  });
  connect(box_, &QCheckBox::clicked, this, [this](bool on) {
    tick_.checked = on;
    screen_.notifyLayoutChanged();
    emit edited();
  });
  connect_view(screen.layoutChanged, this, [this] { refresh(); });
  connect_view(look.changed, this, [this] { refresh(); });
  refresh();
}

void CoreRow::setStale(bool stale) {
  if (stale == stale_) return;
  stale_ = stale;
  refresh();
}

void CoreRow::refresh() {
  QStringList sizes;
  for (const std::string& size : list_.items) sizes << to_qstring(size);
  if (sizes != sizes_) {
    sizes_ = sizes;
    combo_->clear();
    combo_->addItems(sizes);
  }
  combo_->setCurrentIndex(list_.selected);
  box_->setChecked(tick_.checked);
  // A core that is a result cannot be chosen, but stays readable.
  combo_->setEnabled(tick_.checked);
  const Role text = stale_ && !tick_.checked ? Role::Muted : Role::Text;
  const Role back = tick_.checked ? Role::Fixed : Role::Locked;
  QPalette colours = look_.palette();
  for (const auto group : {QPalette::Active, QPalette::Inactive, QPalette::Disabled}) {
    colours.setColor(group, QPalette::Button, look_.colour(back));
    colours.setColor(group, QPalette::ButtonText, look_.colour(text));
    colours.setColor(group, QPalette::Text, look_.colour(text));
  }
  combo_->setPalette(colours);
  for (int i = 0; i < combo_->count(); ++i) {
    const bool locked = tick_.checked && i == list_.selected;
    combo_->setItemIcon(i, locked ? look_.icon("lock", Role::FixedBorder) : QIcon());
  }
}

void align_with_core(std::span<FramePanel* const> panels, CoreRow& core) {
  align_columns(panels);
  QComboBox& list = core.list();
  const QFontMetrics metrics(list.font());
  int name = 0;
  for (int i = 0; i < list.count(); ++i) {
    name = std::max(name, metrics.horizontalAdvance(list.itemText(i)));
  }
  const int wanted = name + kLockSize + metrics.averageCharWidth() * 8;
  list.setMinimumWidth(wanted);
  for (FramePanel* panel : panels) {
    QGridLayout& grid = panel->grid();
    const int value = grid.columnMinimumWidth(FieldRow::kValue) + grid.horizontalSpacing();
    grid.setColumnMinimumWidth(FieldRow::kUnit,
                               std::max(grid.columnMinimumWidth(FieldRow::kUnit), wanted - value));
  }
}

}  // namespace vantrel
