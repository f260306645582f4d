#include "screens/chooser_dialog.h"

#include <QApplication>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QShortcut>
#include <QSignalBlocker>
#include <array>

#include "screens/frame_panel.h"
#include "screens/group_strip.h"
#include "screens/number_rows.h"
#include "screens/theme_style.h"
#include "selection/item_search.h"

namespace vantrel {

namespace {

constexpr QSize kSize(900, 560);
constexpr int kMargin = 12;
constexpr int kGap = 8;
constexpr int kRowPadding = 8;
constexpr std::array<const char*, kSlotCount> kSearched{"target ICs", "line inputs", "lamps",
                                                        "lamp configurations"};
constexpr const char* kNothingOnOffer = "Nothing on offer with the present selections";
constexpr const char* kNothingFound = "Nothing found";
constexpr const char* kNothingToLoad = "No values to load";

QLabel* muted_label(const QString& text, QWidget* parent) {
  auto* label = new QLabel(text, parent);
  label->setForegroundRole(QPalette::PlaceholderText);
  return label;
}

QLabel* bold_label(const QString& text, QWidget* parent) {
  auto* label = new QLabel(text, parent);
  QFont bold = label->font();
  bold.setBold(true);
  label->setFont(bold);
  return label;
}

/// A list under its heading.
QWidget* headed(QLabel* heading, QWidget* body, QWidget* parent) {
  auto* column = new QWidget(parent);
  auto* box = new QVBoxLayout(column);
  box->setContentsMargins(0, 0, 0, 0);
  box->setSpacing(kGap / 2);
  heading->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
  box->addWidget(heading);
  box->addWidget(body, 1);
  return column;
}

QListWidgetItem* add_row(QListWidget& list, const QString& text) {
  auto* row = new QListWidgetItem(text, &list);
  row->setSizeHint({0, list.fontMetrics().height() + kRowPadding});
  return row;
}

}  // namespace

ChooserDialog::ChooserDialog(Workbench bench, int slot, const QString& title, QWidget* parent)
    : QDialog(parent),
      bench_(bench),
      browser_(bench.session.browser()),
      slot_(slot),
      preview_(bench.session.database(), bench.session.details(), bench.session.advanced(),
               [&advanced = bench.session.advanced()](const VTLValue& field) {
                 return field.Visible() && advanced.isFrameInLayout(field.FrameName());
               }),
      search_(new QLineEdit(this)),
      strip_(new GroupStrip(browser_, bench.look, bench.session.folder(), this)) {
  setObjectName("browser_form");
  setWindowTitle(title);
  auto* box = new QVBoxLayout(this);
  box->setContentsMargins(kMargin, kMargin, kMargin, kMargin);
  box->setSpacing(kGap);

  auto* top = new QHBoxLayout;
  top->addWidget(bold_label(to_qstring(AvailableCaption(slot)), this), 1);
  const QString searched = QString("Search all ") + kSearched[static_cast<std::size_t>(slot)];
  search_->setObjectName("search");
  search_->setAccessibleName(searched);
  search_->setPlaceholderText(searched + " (Ctrl+F)");
  search_->setClearButtonEnabled(true);
  search_->addAction(bench.look.icon("search", Role::Muted), QLineEdit::LeadingPosition);
  search_->setMinimumWidth(search_->fontMetrics().averageCharWidth() * 46);
  search_->installEventFilter(this);
  top->addWidget(search_);
  box->addLayout(top);
  box->addWidget(strip_);

  auto* lists = new QHBoxLayout;
  lists->setSpacing(kMargin);
  lists->addWidget(makeGroups(), 3);
  lists->addWidget(makeItems(), 5);
  lists->addWidget(makePreview(), 4);
  box->addLayout(lists, 1);
  box->addWidget(makeButtons());

  connect(search_, &QLineEdit::textChanged, this, [this] { fillItems(); });
  connect(strip_, &GroupStrip::groupPressed, this, &ChooserDialog::listGroup);
  auto* find = new QShortcut(QKeySequence::Find, this);
  connect(find, &QShortcut::activated, this, [this] {
    search_->setFocus(Qt::ShortcutFocusReason);
    search_->selectAll();
  });
  refresh();
  items_->setFocus();
  resize(kSize.expandedTo(sizeHint()));
}

ChooserDialog::~ChooserDialog() = default;

QWidget* ChooserDialog::makeGroups() {
  groups_ = new QListWidget(this);
  groups_->setObjectName("groups");
  groups_->setAccessibleName("Groups");
  groups_->installEventFilter(this);
  connect(groups_, &QListWidget::currentRowChanged, this, &ChooserDialog::listGroup);
  return headed(muted_label("Groups", this), groups_, this);
}

QWidget* ChooserDialog::makeItems() {
  items_ = new QListWidget(this);
  items_->setObjectName("items");
  items_->setAccessibleName("Items");
  items_->installEventFilter(this);
  items_title_ = bold_label({}, this);
  items_title_->setObjectName("items.title");
  connect(items_, &QListWidget::currentRowChanged, this, [this] { itemChanged(); });
  connect(
      items_, &QListWidget::itemDoubleClicked, this, [this] { accept(); }, Qt::QueuedConnection);
  return headed(items_title_, items_, this);
}

QWidget* ChooserDialog::makePreview() {
  auto* panel = new Panel({}, bench_.look, this);
  panel->setObjectName("preview");
  panel->captionLabel().hide();
  panel->grid().setColumnStretch(0, 1);
  preview_rows_ = std::make_unique<NumberRows>(panel->grid(), 0, 0,
                                               static_cast<int>(kMostPreviewRows), false, *panel);
  panel->grid().setRowStretch(static_cast<int>(kMostPreviewRows), 1);
  preview_title_ = muted_label({}, this);
  preview_title_->setObjectName("preview.title");
  return headed(preview_title_, panel, this);
}

QWidget* ChooserDialog::makeButtons() {
  auto* buttons = new QWidget(this);
  auto* row = new QHBoxLayout(buttons);
  row->setContentsMargins(0, 0, 0, 0);
  row->setSpacing(kGap);
  edit_ = new QPushButton(bench_.look.icon("edit"), "&Edit User Lamps...", buttons);
  edit_->setObjectName("cmd_edit");
  edit_->setAutoDefault(false);
  ok_ = new QPushButton("OK", buttons);
  ok_->setObjectName("ok");
  ThemeStyle::setMainAction(*ok_);
  auto* cancel = new QPushButton("Cancel", buttons);
  cancel->setObjectName("cancel");
  const int width = ok_->fontMetrics().averageCharWidth() * 15;
  ok_->setMinimumWidth(width);
  cancel->setMinimumWidth(width);
  row->addWidget(edit_);
  row->addStretch(1);
  row->addWidget(ok_);
  row->addWidget(cancel);
  connect(edit_, &QPushButton::clicked, this, &ChooserDialog::editUserData, Qt::QueuedConnection);
  connect(
      ok_, &QPushButton::clicked, this, [this] { accept(); }, Qt::QueuedConnection);
  connect(cancel, &QPushButton::clicked, this, &QDialog::reject);
  return buttons;
}

bool ChooserDialog::isSearching() const { return !search_->text().trimmed().isEmpty(); }

void ChooserDialog::refresh() {
  fillGroups();
  fillItems();
}

void ChooserDialog::fillGroups() {
  const QSignalBlocker quiet(groups_);
  groups_->clear();
  for (const std::string& title : GroupLines(browser_)) add_row(*groups_, to_qstring(title));
  groups_->setCurrentRow(browser_.ListedGroup());
  strip_->refresh();
}

void ChooserDialog::listGroup(int group_index) {
  if (group_index < 0) return;
  browser_.ListGroup(group_index);
  {
    const QSignalBlocker quiet(groups_);
    groups_->setCurrentRow(browser_.ListedGroup());
  }
  strip_->refresh();
  if (isSearching()) {
    const QSignalBlocker quiet(search_);
    search_->clear();
  }
  fillItems();
}

void ChooserDialog::stepGroup(int step) {
  const int wanted = browser_.ListedGroup() + step;
  if (wanted >= 0 && wanted < groups_->count()) listGroup(wanted);
}

void ChooserDialog::addLine(Line line, const QString& text) {
  add_row(*items_, text);
  lines_.push_back(std::move(line));
}

void ChooserDialog::addNote(const QString& text) {
  add_row(*items_, text)->setFlags(Qt::NoItemFlags);
}

void ChooserDialog::fillItems() {
  const QSignalBlocker quiet(items_);
  items_->clear();
  lines_.clear();
  if (isSearching()) {
    fillHits();
  } else {
    items_title_->setText(to_qstring(SelectionTitle(browser_)));
    const int group = browser_.ListedGroup();
    const auto items = browser_.ItemsOfGroup(group);
    for (std::size_t i = 0; i < items.size(); ++i) {
      addLine({group, i, items[i]->ID, to_qstring(items[i]->Name).trimmed()},
              to_qstring(items[i]->ListText()));
    }
  }
  int present = 0;
  for (std::size_t i = 0; i < lines_.size(); ++i) {
    if (lines_[i].id == browser_.GetInfo(slot_)) present = static_cast<int>(i);
  }
  if (lines_.empty()) {
    addNote(isSearching() ? kNothingFound : kNothingOnOffer);
  } else {
    items_->setCurrentRow(present);
  }
  itemChanged();
}

void ChooserDialog::fillHits() {
  const std::vector<ItemHit> hits = SearchItems(browser_, search_->text().toStdString());
  for (const ItemHit& hit : hits) {
    const QString text = to_qstring(hit.text);
    addLine({hit.groupIndex, hit.position, hit.id, text},
            text + "  \u2013  " + to_qstring(hit.group));
  }
  items_title_->setText(QString::number(hits.size()) + " found");
}

void ChooserDialog::itemChanged() {
  const int row = items_->currentRow();
  const bool any = row >= 0 && static_cast<std::size_t>(row) < lines_.size();
  ok_->setEnabled(any);
  std::vector<NumberRow> rows;
  QString title;
  if (any) {
    const Line& line = lines_[static_cast<std::size_t>(row)];
    for (const PreviewRow& value : preview_.rows(slot_, line.id)) {
      rows.push_back(
          {to_qstring(value.label).simplified(), to_qstring(value.value), to_qstring(value.unit)});
    }
    title = rows.empty() ? QString(kNothingToLoad) : line.name + " will load";
    if (line.group != browser_.ListedGroup()) {
      const QSignalBlocker quiet(groups_);
      browser_.ListGroup(line.group);
      groups_->setCurrentRow(line.group);
      strip_->refresh();
    }
  }
  preview_title_->setText(title);
  preview_title_->setToolTip(title);
  preview_rows_->show(rows);
  edit_->setVisible(IsEditShown(browser_));
  edit_->setEnabled(IsEditEnabled(browser_));
}

void ChooserDialog::clearSearch() {
  search_->clear();
  items_->setFocus();
}

void ChooserDialog::editUserData() {
  bench_.session.editUserData(UserDataKind::Lamps);
  // Lamps may have come or gone; the browser may have listed another slot meanwhile.
  const int listed = browser_.ListedGroup();
  browser_.StartBrowser(slot_, browser_.GetInfo(slot_));
  browser_.ListGroup(listed);
  refresh();
}

void ChooserDialog::accept() {
  const int row = items_->currentRow();
  if (row < 0 || static_cast<std::size_t>(row) >= lines_.size()) return;
  const Line line = lines_[static_cast<std::size_t>(row)];
  QDialog::accept();
  browser_.ListGroup(line.group);
  browser_.SelectSelectionItem(line.position);
}

bool ChooserDialog::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() != QEvent::KeyPress) return QDialog::eventFilter(watched, event);
  const int key = static_cast<QKeyEvent*>(event)->key();
  const bool sideways = key == Qt::Key_Left || key == Qt::Key_Right;
  if (watched != search_ && sideways && !isSearching()) {
    stepGroup(key == Qt::Key_Left ? -1 : 1);
    return true;
  }
  if (watched == search_ && (key == Qt::Key_Up || key == Qt::Key_Down)) {
    QApplication::sendEvent(items_, event);
    return true;
  }
  return QDialog::eventFilter(watched, event);
}

void ChooserDialog::keyPressEvent(QKeyEvent* event) {
  if (event->key() == Qt::Key_Escape && isSearching()) {
    clearSearch();
    return;
  }
  QDialog::keyPressEvent(event);
}

}  // namespace vantrel
