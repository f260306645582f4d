#include "screens/selection_strip.h"

#include <QGridLayout>
#include <QLabel>
#include <QStandardItemModel>
#include <QToolButton>

#include "screens/appearance.h"
#include "selection/browser_view.h"
#include "selection/selection_card.h"

namespace vantrel {

namespace {

/// Room that each slot takes of the strip; configurations have the longest names.
constexpr std::array<int, kSlotCount> kStretch{2, 3, 3, 5};

}  // namespace

SlotList::SlotList(int slot, Session& session, control_bar& bar, QWidget* parent)
    : QComboBox(parent), slot_(slot), session_(session), bar_(bar) {
  const QString caption = to_qstring(SlotCaption(slot));
  setObjectName("slot." + QString::number(slot));
  setAccessibleName(caption);
  setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
  setMinimumContentsLength(8);
  setMaxVisibleItems(20);
  connect(this, &QComboBox::activated, this, &SlotList::choose, Qt::QueuedConnection);
}

void SlotList::refresh() {
  const QString name = to_qstring(bar_.GetInfoName(slot_));
  setEnabled(bar_.Pulldown(slot_).enabled);
  if (currentText() == name && count() == 1) return;
  clear();
  addItem(name, -1);
  setToolTip(name);
}

void SlotList::fill() {
  bar_.RefreshSelector(slot_);
  const browser_control& browser = session_.browser();
  const std::int32_t present = bar_.GetInfo(slot_);
  const PullDown& offered = bar_.Pulldown(slot_);
  clear();
  auto* rows = qobject_cast<QStandardItemModel*>(model());
  int position = 0;
  for (std::size_t group = 0; group < browser.GroupList().size(); ++group) {
    const auto items = browser.ItemsOfGroup(static_cast<int>(group));
    if (items.empty()) continue;
    addItem(to_qstring(GroupTitleLine(browser.GroupList()[group]->Title)), -1);
    QStandardItem* heading = rows->item(count() - 1);
    heading->setFlags(Qt::NoItemFlags);
    QFont bold = font();
    bold.setBold(true);
    heading->setFont(bold);
    for (const ValidItem* item : items) {
      if (position >= static_cast<int>(offered.items.size())) return;
      addItem("   " + to_qstring(item->ListText()), position);
      if (item->ID == present) setCurrentIndex(count() - 1);
      ++position;
    }
  }
}

void SlotList::showPopup() {
  if (session_.isBusy()) return;
  fill();
  QComboBox::showPopup();
}

void SlotList::choose(int row) {
  const int position = itemData(row).toInt();
  if (position >= 0 && bar_.DetailsSetListIndex(position, slot_)) {
    bar_.SelectItemFromPulldown(slot_);
  }
  refresh();
}

SelectionStrip::SelectionStrip(Session& session, control_bar& bar, QWidget* parent)
    : QWidget(parent), bar_(bar) {
  auto* grid = new QGridLayout(this);
  grid->setContentsMargins(12, 2, 12, 4);
  grid->setHorizontalSpacing(4);
  grid->setVerticalSpacing(1);
  for (int slot = 0; slot < kSlotCount; ++slot) {
    const auto i = static_cast<std::size_t>(slot);
    auto* caption = new QLabel(to_qstring(SlotCaption(slot)), this);
    caption->setForegroundRole(QPalette::PlaceholderText);
    lists_[i] = new SlotList(slot, session, bar, this);
    buttons_[i] = new QToolButton(this);
    buttons_[i]->setText("...");
    buttons_[i]->setObjectName("choose." + QString::number(slot));
    buttons_[i]->setToolTip("Choose the " + to_qstring(SlotCaption(slot)));
    buttons_[i]->setAccessibleName("Choose the " + to_qstring(SlotCaption(slot)));
    connect(
        buttons_[i], &QToolButton::clicked, this,
        [&session, slot] { session.simple().MainButton_Click(slot); }, Qt::QueuedConnection);
    const int column = slot * 3;
    grid->addWidget(caption, 0, column, 1, 2);
    grid->addWidget(lists_[i], 1, column);
    grid->addWidget(buttons_[i], 1, column + 1);
    grid->setColumnMinimumWidth(column + 2, 8);
    grid->setColumnStretch(column, kStretch[i]);
  }
  refresh();
}

void SelectionStrip::refresh() {
  for (int slot = 0; slot < kSlotCount; ++slot) {
    const auto i = static_cast<std::size_t>(slot);
    lists_[i]->refresh();
    buttons_[i]->setEnabled(lists_[i]->isEnabled());
  }
}

}  // namespace vantrel
