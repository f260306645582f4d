#include "screens/validate_window.h"

#include <QCloseEvent>
#include <QDialogButtonBox>
#include <QGridLayout>
#include <QLabel>
#include <QListWidget>
#include <QPushButton>

#include "screens/view_connection.h"

namespace vantrel {

namespace {

constexpr int kPictureSize = 16;
constexpr std::array<const char*, 2> kHeadings{"Schematic components not found in BOM",
                                               "BOM Components not found in schematic"};

}  // namespace

ValidateWindow::ValidateWindow(Workbench bench)
    : bench_(bench), picture_(new QLabel(this)), verdict_(new QLabel(this)) {
  setObjectName("ValidateSchematic");
  auto* grid = new QGridLayout(this);
  grid->setContentsMargins(12, 12, 12, 12);
  grid->setHorizontalSpacing(10);
  for (std::size_t i = 0; i < kLists; ++i) {
    const int column = static_cast<int>(i);
    headings_[i] = new QLabel(this);
    lists_[i] = new QListWidget(this);
    lists_[i]->setAccessibleName(kHeadings[i]);
    headings_[i]->setBuddy(lists_[i]);
    grid->addWidget(headings_[i], 0, column);
    grid->addWidget(lists_[i], 1, column);
    connect(
        lists_[i], &QListWidget::itemClicked, this,
        [this, i] {
          bench_.session.schematicCheck().ValidateHighlightComponent(
              static_cast<ValidateList>(i), static_cast<std::size_t>(lists_[i]->currentRow()));
        },
        Qt::QueuedConnection);
  }
  auto* row = new QHBoxLayout;
  row->addWidget(picture_);
  row->addWidget(verdict_, 1);
  auto* buttons = new QDialogButtonBox(QDialogButtonBox::Close, this);
  QPushButton* save = buttons->addButton("&Export...", QDialogButtonBox::ActionRole);
  connect(
      save, &QPushButton::clicked, this, [this] { bench_.session.schematicCheck().ExportList(); },
      Qt::QueuedConnection);
  connect(buttons, &QDialogButtonBox::rejected, this, [this] { reject(); });
  row->addWidget(buttons);
  grid->addLayout(row, 2, 0, 1, 2);
  connect_view(bench.session.schematicCheck().layoutChanged, this, [this] { refresh(); });
  resize(620, 420);
  refresh();
}

void ValidateWindow::refresh() {
  const ValidateSchematic& check = bench_.session.schematicCheck();
  setWindowTitle(to_qstring(check.caption()));
  for (std::size_t i = 0; i < kLists; ++i) {
    const auto& items = check.items(static_cast<ValidateList>(i));
    headings_[i]->setText(QString("%1 (%2)").arg(kHeadings[i]).arg(items.size()));
    lists_[i]->clear();
    for (const ValidateItem& item : items) lists_[i]->addItem(to_qstring(item.text()));
  }
  const bool clean = !check.hasDiscrepancies();
  picture_->setPixmap(bench_.look.pixmap(clean ? "check" : "warning",
                                         clean ? Role::Ok : Role::Warning, kPictureSize,
                                         devicePixelRatioF()));
  verdict_->setText(clean ? "No discrepancies"
                          : "Click an item to see it in the diagram or in the bill");
}

void ValidateWindow::reject() { bench_.session.schematicCheck().visible(false); }

void ValidateWindow::closeEvent(QCloseEvent* event) {
  event->ignore();
  reject();
}

}  // namespace vantrel
