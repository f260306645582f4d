#include "screens/bill_window.h"

#include <QApplication>
#include <QClipboard>
#include <QHeaderView>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QStackedWidget>
#include <QTableView>
#include <QVBoxLayout>
#include <algorithm>

#include "screens/theme_style.h"
#include "screens/view_connection.h"

namespace vantrel {

namespace {

constexpr int kMargin = 12;
constexpr int kCellPadding = 14;
constexpr int kCalculateButton = 4;
constexpr const char* kSchematic = "c_schematic";

}  // namespace

BillWindow::BillWindow(Workbench workbench)
    : OutputWindow(workbench.session.billOfMaterials(), workbench, kToolbarShort | kToolbarBill),
      bill_(session().billOfMaterials()),
      table_(new BillTable(bill_, this)),
      order_(new BillOrder(this)),
      view_(new QTableView(this)),
      filter_(new QLineEdit(this)),
      pages_(new QStackedWidget(this)) {
  order_->setSourceModel(table_);
  makeTable();
  connect(
      addCommand("copy", "&Copy", QKeySequence::Copy), &QAction::triggered, this,
      [this] { copyRows(); }, Qt::QueuedConnection);
  in_circuit_ = addCommand("components", "Show in &circuit", QKeySequence("Ctrl+Return"));
  connect(
      in_circuit_, &QAction::triggered, this, [this] { showInCircuit(); }, Qt::QueuedConnection);
  makeFilter();

  auto* empty = new QWidget(this);
  auto* column = new QVBoxLayout(empty);
  auto* words = new QLabel("No components calculated", empty);
  words->setForegroundRole(QPalette::PlaceholderText);
  auto* button =
      new QPushButton(bench().look.icon("play", Role::OnAccent), "Calculate (F5)", empty);
  button->setObjectName("calculate");
  ThemeStyle::setMainAction(*button);
  connect(
      button, &QPushButton::clicked, this, [this] { calculate(); }, Qt::QueuedConnection);
  column->addStretch();
  column->addWidget(words, 0, Qt::AlignHCenter);
  column->addWidget(button, 0, Qt::AlignHCenter);
  column->addStretch();

  pages_->addWidget(view_);
  pages_->addWidget(empty);
  auto* middle = new QWidget(this);
  auto* frame = new QVBoxLayout(middle);
  frame->setContentsMargins(kMargin, kMargin, kMargin, 4);
  frame->addWidget(pages_);
  setCentralWidget(middle);
  connect_view(bill_.layoutChanged, this, [this] { refresh(); });
  connect_view(bench().status.changed, this, [this] { refresh(); });
  resize(860, 660);
  refresh();
}

void BillWindow::makeTable() {
  view_->setObjectName("bill");
  view_->setAccessibleName("Bill of materials");
  view_->setModel(order_);
  view_->setShowGrid(false);
  view_->setAlternatingRowColors(true);
  view_->setSelectionBehavior(QAbstractItemView::SelectRows);
  view_->setEditTriggers(QAbstractItemView::NoEditTriggers);
  view_->setWordWrap(false);
  view_->setTabKeyNavigation(false);
  const QFontMetrics metrics(font());
  view_->verticalHeader()->hide();
  view_->verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
  view_->verticalHeader()->setDefaultSectionSize(metrics.height() + 7);
  QHeaderView* header = view_->horizontalHeader();
  header->setHighlightSections(false);
  header->setStretchLastSection(true);
  header->setSectionsClickable(true);
  const auto& columns = bill_.grid().columns;
  for (std::size_t i = 0; i + 1 < columns.size(); ++i) {
    // The blanks of a title are narrower than letters.
    const int blanks = metrics.horizontalAdvance(QString(columns[i].width, ' '));
    header->resizeSection(static_cast<int>(i), blanks + 2 * kCellPadding);
  }
  connect(header, &QHeaderView::sectionClicked, this, &BillWindow::sortBy);
  connect(view_->selectionModel(), &QItemSelectionModel::selectionChanged, this,
          &BillWindow::highlightSelection, Qt::QueuedConnection);
  connect(view_, &QTableView::doubleClicked, this, &BillWindow::showInCircuit,
          Qt::QueuedConnection);
}

void BillWindow::makeFilter() {
  filter_->setObjectName("filter");
  filter_->setPlaceholderText("Filter (Ctrl+F)");
  filter_->setAccessibleName("Filter the lines");
  filter_->addAction(bench().look.icon("search", Role::Muted), QLineEdit::LeadingPosition);
  filter_->setClearButtonEnabled(true);
  filter_->setFixedWidth(QFontMetrics(font()).averageCharWidth() * 30);
  filter_->installEventFilter(this);
  connect(filter_, &QLineEdit::textChanged, this, [this](const QString& text) {
    order_->setFilterFixedString(text);
    refresh();
  });
  auto* find = new QAction("&Filter", this);
  find->setShortcut(QKeySequence::Find);
  connect(find, &QAction::triggered, this, [this] {
    filter_->setFocus(Qt::ShortcutFocusReason);
    filter_->selectAll();
  });
  addAction(find);
  addRight(filter_);
}

bool BillWindow::eventFilter(QObject* watched, QEvent* event) {
  if (watched == filter_ && event->type() == QEvent::KeyPress) {
    const int key = static_cast<QKeyEvent*>(event)->key();
    if (key == Qt::Key_Escape && !filter_->text().isEmpty()) {
      filter_->clear();
      return true;
    }
    if (key == Qt::Key_Return || key == Qt::Key_Down) {
      view_->setFocus(Qt::TabFocusReason);
      return true;
    }
  }
  return OutputWindow::eventFilter(watched, event);
}

void BillWindow::sortBy(int column) {
  QHeaderView* header = view_->horizontalHeader();
  const bool same = order_->sortColumn() == column;
  if (same && order_->sortOrder() == Qt::DescendingOrder) {
    header->setSortIndicatorShown(false);
    order_->sort(-1);
    return;
  }
  const Qt::SortOrder direction = same ? Qt::DescendingOrder : Qt::AscendingOrder;
  header->setSortIndicator(column, direction);
  header->setSortIndicatorShown(true);
  order_->sort(column, direction);
}

void BillWindow::refresh() {
  table_->refresh();
  const int lines = table_->rowCount();
  pages_->setCurrentIndex(lines == 0 ? 1 : 0);
  in_circuit_->setEnabled(lines > 0);
  tellSelection();
}

std::vector<QModelIndex> BillWindow::chosenRows() const {
  std::vector<QModelIndex> rows;
  const QItemSelectionModel& selection = *view_->selectionModel();
  for (int row = 0; row < order_->rowCount(); ++row) {
    const QModelIndex index = order_->index(row, BillTable::kReference);
    if (!selection.hasSelection() || selection.isRowSelected(row)) rows.push_back(index);
  }
  return rows;
}

void BillWindow::tellSelection() {
  const int lines = table_->rowCount();
  const bool out_of_date =
      lines > 0 && (!bill_.isCurrent() || bench().status.state() == DesignStatus::State::Stale);
  QString summary;
  if (lines > 0) {
    summary = QString("%1 components in %2 lines").arg(table_->componentCount()).arg(lines);
    if (order_->rowCount() < lines) {
      summary = QString("%1 lines shown of ").arg(order_->rowCount()) + summary;
    }
  }
  if (out_of_date) summary += ", out of date";
  QStringList references;
  if (view_->selectionModel()->hasSelection()) {
    for (const QModelIndex& row : chosenRows()) references << row.data().toString();
  }
  showStatus(references.isEmpty() ? QString() : references.join(", ") + " selected", summary);
}

void BillWindow::copyRows() {
  QStringList lines;
  for (const QModelIndex& row : chosenRows()) {
    const QModelIndex source = order_->mapToSource(row);
    lines << to_qstring(bill_.shownRow(static_cast<std::size_t>(source.row())));
  }
  if (!lines.isEmpty()) QApplication::clipboard()->setText(lines.join('\n') + '\n');
}

void BillWindow::showInCircuit() {
  if (session().isBusy()) return;
  if (control_bar* main_bar = session().bar("Simple")) main_bar->execute_command(kSchematic);
  highlightSelection();
}

bool BillWindow::markReference(std::string_view reference) {
  const int column = table_->columnCount() - 1;
  for (int row = 0; row < order_->rowCount(); ++row) {
    const QString references = order_->index(row, column).data().toString();
    if (!references.split(',').contains(to_qstring(reference))) continue;
    view_->selectRow(row);
    view_->scrollTo(order_->index(row, column));
    return true;
  }
  return false;
}

void BillWindow::highlightSelection() {
  tellSelection();
  if (view_->selectionModel()->selectedRows().size() != 1) return;
  const QModelIndex source = order_->mapToSource(chosenRows().front());
  bill_.HighlightComponent(static_cast<std::size_t>(source.row()));
}

void BillWindow::command(const std::string& key) {
  if (session().isBusy() || table_->rowCount() == 0) return;
  bill_.execute_command(key);
}

void BillWindow::calculate() {
  session().simple().MainButton_Click(kCalculateButton);
  if (!session().bomStore().isEmpty()) bill_.setup_bom();
}

}  // namespace vantrel
