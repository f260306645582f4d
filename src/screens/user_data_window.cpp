#include "screens/user_data_window.h"

#include <QApplication>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QListWidget>
#include <QPushButton>
#include <QScreen>
#include <QScrollArea>
#include <QShortcut>
#include <QSignalBlocker>

#include "screens/c_tooltip.h"
#include "screens/designer_pane.h"
#include "screens/frame_panel.h"
#include "screens/page_parts.h"
#include "screens/theme_style.h"
#include "screens/x_button.h"

namespace vantrel {

namespace {

constexpr QSize kSize(760, 640);
constexpr int kMargin = 12;
constexpr int kGap = 8;

QHBoxLayout* row_of(QWidget& row) {
  auto* box = new QHBoxLayout(&row);
  box->setContentsMargins(0, 0, 0, 0);
  box->setSpacing(kGap);
  return box;
}

}  // namespace

UserDataWindow::UserDataWindow(EditUserData& form, Appearance& look, QWidget* parent)
    : QDialog(parent), form_(form), edit_(form.SQLTableEdit1), look_(look) {
  setObjectName(to_qstring(EditUserData::kName));
  setWindowTitle(to_qstring(form.caption()) + "[*]");
  auto* grid = new QGridLayout(this);
  grid->setContentsMargins(kMargin, kMargin, kMargin, kMargin);
  grid->setHorizontalSpacing(kMargin);
  grid->setVerticalSpacing(kMargin);
  grid->addWidget(makeSelector(), 0, 0);
  grid->addWidget(makeFields(), 0, 1);
  grid->addWidget(makeSteps(), 1, 0);
  grid->addWidget(makeCommands(), 1, 1);
  grid->setRowStretch(0, 1);
  grid->setColumnStretch(1, 1);
  makeShortcuts();
  edit_.events.changed = [this] { refresh(); };
  refresh();
  search_->setFocus();
  new ToolTipUtility(*this, look_);
  resize(wantedSize());
}

UserDataWindow::~UserDataWindow() { edit_.events.changed = nullptr; }

/// Large enough for all fields, as far as the screen has room; the fields scroll otherwise.
QSize UserDataWindow::wantedSize() const {
  const QSize hidden = panel_->sizeHint() - pane_->sizeHint();
  const QSize whole = kSize.expandedTo(sizeHint() + hidden.expandedTo({0, 0}));
  const QSize frame = frameGeometry().size() - size();
  return whole.boundedTo(screen()->availableSize() - frame);
}

QWidget* UserDataWindow::makeSelector() {
  auto* column = new QWidget(this);
  auto* box = new QVBoxLayout(column);
  box->setContentsMargins(0, 0, 0, 0);
  box->setSpacing(kGap / 2);
  selector_ = new QLabel(column);
  selector_->setObjectName("Selector");
  search_ = new QLineEdit(column);
  search_->setObjectName("search");
  search_->setAccessibleName("Search");
  search_->setPlaceholderText("Search (Ctrl+F)");
  search_->setClearButtonEnabled(true);
  search_->installEventFilter(this);
  list_ = new QListWidget(column);
  list_->setObjectName("records");
  list_->setAccessibleName("Records");
  box->addWidget(selector_);
  box->addWidget(search_);
  box->addWidget(list_, 1);
  connect(search_, &QLineEdit::textChanged, this, &UserDataWindow::filterList);
  connect(list_, &QListWidget::currentRowChanged, this, &UserDataWindow::choose,
          Qt::QueuedConnection);
  return column;
}

QWidget* UserDataWindow::makeFields() {
  panel_ = new Panel({}, look_, this);
  panel_->setObjectName("DataFrame");
  const std::size_t count = edit_.Fields().size();
  for (std::size_t i = 0; i < count; ++i) {
    fields_.push_back(new RecordField(edit_, i, look_, panel_->grid(), panel_));
  }
  panel_->grid().setColumnStretch(1, 1);
  panel_->grid().setRowStretch(static_cast<int>(count), 1);
  pane_ = scrolling_column(panel_, this);
  pane_->setObjectName("fields");
  return pane_;
}

QWidget* UserDataWindow::makeSteps() {
  auto* row = new QWidget(this);
  QHBoxLayout* box = row_of(*row);
  addStep(*row, "first", "First record", &SQLTableEdit::first);
  addStep(*row, "back", "Previous record (PgUp)", &SQLTableEdit::previous);
  count_ = new QLabel(row);
  count_->setObjectName("count");
  count_->setAlignment(Qt::AlignCenter);
  count_->setMinimumWidth(count_->fontMetrics().horizontalAdvance("100 of 100 Records"));
  box->addWidget(count_);
  addStep(*row, "chevron", "Next record (PgDn)", &SQLTableEdit::next);
  addStep(*row, "last", "Last record", &SQLTableEdit::last);
  box->addStretch(1);
  return row;
}

void UserDataWindow::addStep(QWidget& row, const char* icon, const char* words, Step step) {
  auto* button = new XButton(look_, &row);
  button->setObjectName(icon);
  button->Style(XButtonStyle::Graphic);
  button->ImageList({look_.icon(icon), look_.icon(icon, Role::Accent)});
  button->ImageEnabled(0);
  button->ImageOver(1);
  button->ImageClicked(1);
  button->Caption(words);
  button->setToolTip(words);
  row.layout()->addWidget(button);
  steps_.push_back(button);
  connect(
      button, &XButton::clicked, this, [this, step] { go(step); }, Qt::QueuedConnection);
}

QWidget* UserDataWindow::makeCommands() {
  auto* row = new QWidget(this);
  row_of(*row)->addStretch(1);
  new_ = addCommand(*row, "new", "New", &UserDataWindow::addRecord);
  save_ = addCommand(*row, "save", "Save", &UserDataWindow::save);
  ThemeStyle::setMainAction(*save_);
  delete_ = addCommand(*row, "delete", "Delete", nullptr);
  import_ = addCommand(*row, "import", "Import...", nullptr);
  export_ = addCommand(*row, "export", "Export...", nullptr);
  undo_ = addCommand(*row, "undo", "Undo", nullptr);
  undo_->setToolTip("Take back the last save or deletion");
  addCommand(*row, "close", "Close", &UserDataWindow::reject);
  const auto run = [this](QPushButton* button, auto action) {
    connect(button, &QPushButton::clicked, this, action, Qt::QueuedConnection);
  };
  run(delete_, [this] { edit_.CommandDelete(); });
  run(import_, [this] { form_.ImportRows(); });
  run(export_, [this] { form_.ExportRows(); });
  run(undo_, [this] { edit_.UndoLastChange(); });
  return row;
}

QPushButton* UserDataWindow::addCommand(QWidget& row, const char* name, const char* caption,
                                        Action action) {
  QPushButton* button = plain_button(caption, name, &row);
  row.layout()->addWidget(button);
  if (action != nullptr) {
    connect(button, &QPushButton::clicked, this, action, Qt::QueuedConnection);
  }
  return button;
}

void UserDataWindow::makeShortcuts() {
  const auto add = [this](const QKeySequence& keys, auto action) {
    connect(new QShortcut(keys, this), &QShortcut::activated, this, action, Qt::QueuedConnection);
  };
  add(QKeySequence("Ctrl+N"), [this] { addRecord(); });
  add(QKeySequence("Ctrl+S"), [this] { save(); });
  add(QKeySequence("PgUp"), [this] { go(&SQLTableEdit::previous); });
  add(QKeySequence("PgDown"), [this] { go(&SQLTableEdit::next); });
  add(QKeySequence::Find, [this] {
    search_->setFocus(Qt::ShortcutFocusReason);
    search_->selectAll();
  });
}

void UserDataWindow::go(Step step) {
  if (!(edit_.*step)()) focusRefused();
}

void UserDataWindow::choose() {
  const int row = list_->currentRow();
  const int present = edit_.isNew() ? -1 : static_cast<int>(edit_.RecordPosition());
  if (row < 0 || row == present || edit_.Select(static_cast<std::size_t>(row))) return;
  refresh();
  focusRefused();
}

void UserDataWindow::addRecord() {
  if (!edit_.CommandNew()) {
    focusRefused();
  } else if (!fields_.empty()) {
    focusField(0);
  }
}

void UserDataWindow::save() {
  if (edit_.RecordSetHasChanged() && !edit_.CommandSave()) focusRefused();
}

/// Brings the user to the field that keeps the record from being saved.
void UserDataWindow::focusRefused() {
  const int refused = edit_.RefusedField();
  if (refused >= 0) focusField(static_cast<std::size_t>(refused));
}

void UserDataWindow::focusField(std::size_t field) {
  QWidget& editor = fields_[field]->editor();
  editor.setFocus();
  pane_->ensureWidgetVisible(&editor);
}

void UserDataWindow::refresh() {
  const bool any = edit_.hasRecord();
  const bool changed = edit_.RecordSetHasChanged();
  setWindowModified(changed);
  selector_->setText(to_qstring(edit_.SelectorCaption()));
  panel_->captionLabel().setText(to_qstring(edit_.FrameCaption()));
  count_->setText(to_qstring(edit_.RecordCountText()));
  for (RecordField* field : fields_) field->refresh();
  for (XButton* step : steps_) step->setEnabled(edit_.RecordCount() > 0);
  new_->setEnabled(edit_.mayAdd());
  save_->setEnabled(any && changed);
  delete_->setEnabled(edit_.mayDelete());
  import_->setEnabled(edit_.mayAdd());
  export_->setEnabled(edit_.RecordCount() > 0);
  undo_->setEnabled(edit_.canUndo());
  refreshList();
}

void UserDataWindow::refreshList() {
  const QSignalBlocker quiet(list_);
  const std::vector<std::string> records = edit_.SelectorList();
  const int count = static_cast<int>(records.size());
  while (list_->count() > count) delete list_->takeItem(list_->count() - 1);
  for (int i = 0; i < count; ++i) {
    if (i == list_->count()) list_->addItem(QString());
    QListWidgetItem& line = *list_->item(i);
    line.setText(to_qstring(records[static_cast<std::size_t>(i)]));
    line.setSizeHint({0, list_->fontMetrics().height() + kRowPadding});
  }
  const bool stored = count > 0 && !edit_.isNew();
  list_->setCurrentRow(stored ? static_cast<int>(edit_.RecordPosition()) : -1);
  filterList();
}

void UserDataWindow::filterList() {
  const QString wanted = search_->text().trimmed();
  for (int i = 0; i < list_->count(); ++i) {
    QListWidgetItem& line = *list_->item(i);
    line.setHidden(!line.text().contains(wanted, Qt::CaseInsensitive));
  }
}

bool UserDataWindow::eventFilter(QObject* watched, QEvent* event) {
  if (watched != search_ || event->type() != QEvent::KeyPress) {
    return QDialog::eventFilter(watched, event);
  }
  switch (static_cast<QKeyEvent*>(event)->key()) {
    case Qt::Key_Up:
    case Qt::Key_Down:
      QApplication::sendEvent(list_, event);
      return true;
    case Qt::Key_Return:
    case Qt::Key_Enter:  // searching saves nothing
      list_->setFocus();
      return true;
    default:
      return QDialog::eventFilter(watched, event);
  }
}

void UserDataWindow::reject() {
  if (form_.mayClose()) {
    QDialog::reject();
  } else {
    focusRefused();
  }
}

}  // namespace vantrel
