#include "screens/check_page.h"

#include <QApplication>
#include <QClipboard>
#include <QFontDatabase>
#include <QLabel>
#include <QListWidget>
#include <QProgressBar>
#include <QPushButton>
#include <QShortcut>
#include <QSplitter>
#include <QTimer>
#include <QVBoxLayout>
#include <algorithm>

#include "core/file_writer.h"
#include "screens/page_parts.h"
#include "screens/theme_style.h"

namespace vantrel {

namespace {

constexpr int kMargin = 12;
constexpr int kGap = 8;
constexpr std::string_view kSaveTitle = "Save Report";
constexpr std::string_view kSaveFilter = "Text files (*.txt)|*.txt";
constexpr std::string_view kSaveName = "Database Checks.txt";

QLabel* headed(const QString& text, QWidget& body, QWidget* parent) {
  auto* label = new QLabel(text, parent);
  label->setBuddy(&body);
  return label;
}

}  // namespace

CheckPage::CheckPage(Workbench bench, QWidget* parent)
    : QWidget(parent),
      bench_(std::move(bench)),
      checks_(bench_.session.database(), bench_.session.messages()),
      tests_(new QListWidget(this)),
      components_(new QListWidget(this)),
      report_(new QListWidget(this)),
      totals_(new QLabel(this)),
      steps_(new QTimer(this)) {
  auto* parts = new QSplitter(this);
  parts->setChildrenCollapsible(false);
  parts->addWidget(makeChoices());
  parts->addWidget(makeReport());
  parts->setStretchFactor(1, 1);
  auto* box = new QVBoxLayout(this);
  box->setContentsMargins(kMargin, kMargin, kMargin, kMargin);
  box->addWidget(parts);
  checks_.onLine = [this](const std::string& line) { addCheckLine(to_qstring(line)); };
  connect(steps_, &QTimer::timeout, this, &CheckPage::step);
  auto* run = new QShortcut(Qt::Key_F5, this);
  connect(run, &QShortcut::activated, this, &CheckPage::start, Qt::QueuedConnection);
  refresh();
  showTotals();
}

QWidget* CheckPage::makeChoices() {
  auto* choices = new QWidget(this);
  auto* box = new QVBoxLayout(choices);
  box->setContentsMargins(0, 0, 0, 0);
  box->setSpacing(kGap / 2);
  tests_->setObjectName("DebugUtils.tests");
  tests_->setAccessibleName("Tests");
  for (const std::string& test : DebugUtils::Tests()) add_row(*tests_, to_qstring(test));
  tests_->setMinimumWidth(tests_->sizeHintForColumn(0) + 2 * tests_->frameWidth() + kGap);
  tests_->setFixedHeight(tests_->count() * (fontMetrics().height() + kRowPadding) +
                         2 * tests_->frameWidth() + kRowPadding);
  components_->setObjectName("DebugUtils.components");
  components_->setAccessibleName("Reference designators");
  start_ = plain_button("Start (F5)", "DebugUtils.start", choices);
  start_->setIcon(bench_.look.icon("play", Role::OnAccent));
  ThemeStyle::setMainAction(*start_);
  all_ = plain_button("Test &All Calculations", "TestAllCalculations", choices);
  all_->setToolTip("Calculates every combination of what can be selected");
  connect(start_, &QPushButton::clicked, this, &CheckPage::start, Qt::QueuedConnection);
  connect(all_, &QPushButton::clicked, this, &CheckPage::testAll, Qt::QueuedConnection);
  box->addWidget(headed("&Tests", *tests_, choices));
  box->addWidget(tests_);
  box->addSpacing(kGap);
  box->addWidget(headed("&Component for the usage check", *components_, choices));
  box->addWidget(components_, 1);
  box->addSpacing(kGap);
  for (QPushButton* button : {start_, all_}) {
    button->setMinimumHeight(fontMetrics().height() + 12);
    box->addWidget(button);
  }
  return choices;
}

QWidget* CheckPage::makeReport() {
  auto* right = new QWidget(this);
  auto* box = new QVBoxLayout(right);
  box->setContentsMargins(0, 0, 0, 0);
  box->setSpacing(kGap / 2);
  report_->setObjectName("DebugUtils.report");
  report_->setAccessibleName("Report");
  QFont fixed = QFontDatabase::systemFont(QFontDatabase::FixedFont);
  fixed.setPointSizeF(font().pointSizeF());
  report_->setFont(fixed);
  report_->setSelectionMode(QAbstractItemView::ExtendedSelection);
  report_->setTextElideMode(Qt::ElideNone);
  totals_->setObjectName("DebugUtils.totals");
  copy_ = plain_button("C&opy", "DebugUtils.copy", right);
  copy_->setIcon(bench_.look.icon("copy"));
  save_ = plain_button("&Save...", "DebugUtils.save", right);
  save_->setIcon(bench_.look.icon("export"));
  connect(copy_, &QPushButton::clicked, this, &CheckPage::copy);
  connect(save_, &QPushButton::clicked, this, &CheckPage::save, Qt::QueuedConnection);
  auto* keys = new QShortcut(QKeySequence::Copy, report_);
  keys->setContext(Qt::WidgetShortcut);
  connect(keys, &QShortcut::activated, this, &CheckPage::copy);
  auto* row = new QHBoxLayout;
  row->setSpacing(kGap);
  row->addWidget(totals_, 1);
  addProgress(*row);
  row->addWidget(copy_);
  row->addWidget(save_);
  box->addWidget(headed("&Report", *report_, right));
  box->addWidget(report_, 1);
  box->addSpacing(kGap);
  box->addLayout(row);
  return right;
}

void CheckPage::addProgress(QHBoxLayout& row) {
  progress_ = new QProgressBar(this);
  progress_->setObjectName("DebugUtils.progress");
  progress_->setAccessibleName("Progress");
  cancel_ = plain_button("&Cancel", "DebugUtils.cancel", this);
  connect(cancel_, &QPushButton::clicked, this, &CheckPage::cancel);
  for (QWidget* part : std::initializer_list<QWidget*>{progress_, cancel_}) {
    part->hide();
    row.addWidget(part);
  }
}

void CheckPage::refresh() {
  const int chosen = components_->currentRow();
  const QString name = chosen < 0 ? QString() : components_->currentItem()->text();
  checks_.load();
  components_->clear();
  for (const std::string& component : checks_.Components())
    add_row(*components_, to_qstring(component));
  const auto same = components_->findItems(name, Qt::MatchExactly | Qt::MatchCaseSensitive);
  components_->setCurrentItem(same.isEmpty() ? components_->item(0) : same.front());
}

/// Clears the report; until `end` nothing else begins.
void CheckPage::begin() {
  report_->clear();
  findings_ = 0;
  start_->setEnabled(false);
  all_->setEnabled(false);
  showTotals();
}

void CheckPage::end(const QString& last_line) {
  steps_->stop();
  if (!last_line.isEmpty()) addLine(last_line);
  progress_->hide();
  cancel_->hide();
  start_->setEnabled(true);
  all_->setEnabled(true);
  showTotals();
}

void CheckPage::start() {
  if (!start_->isEnabled()) return;
  // A row that only has the focus is not selected.
  const auto tests = tests_->selectedItems();
  const auto components = components_->selectedItems();
  const auto text = [](const QList<QListWidgetItem*>& selected) {
    return selected.isEmpty() ? std::string() : selected.front()->text().toStdString();
  };
  begin();
  if (!checks_.Begin(text(tests), text(components))) {
    end();
    return;
  }
  progress_->setRange(0, std::max(1, static_cast<int>(checks_.StepCount())));
  progress_->setValue(0);
  progress_->show();
  cancel_->show();
  steps_->start(0);
}

/// One part of the test for each round of the event loop.
void CheckPage::step() {
  const bool more = checks_.Step();
  progress_->setValue(static_cast<int>(checks_.StepsDone()));
  showTotals();
  if (!more) end();
}

void CheckPage::cancel() {
  if (!steps_->isActive()) return;
  checks_.Cancel();
  end("Cancelled");
}

void CheckPage::testAll() {
  Session& session = bench_.session;
  if (!all_->isEnabled() || session.isBusy()) return;
  if (session.messages().msg(DebugUtils::kName,
                             "The test replaces the present design. Do you wish to go on ?",
                             kMessageYesNo) != kYes) {
    return;
  }
  begin();
  int tested = 0;
  session.simple().onTested = [&](bool succeeded) {
    ++tested;
    if (!succeeded) addFailure();
    showTotals();
  };
  const bool finished = session.simple().TestAllCalculations();
  session.simple().onTested = nullptr;
  end(QString("%1 combinations calculated%2").arg(tested).arg(finished ? "" : ", then cancelled"));
}

/// A line for the combination whose calculation has just failed.
void CheckPage::addFailure() {
  Session& session = bench_.session;
  QStringList names;
  for (int slot = 0; slot < kSlotCount; ++slot) {
    names += to_qstring(session.selectionFullName(slot));
  }
  const auto& shown = session.messages().shown();
  const std::string reason = shown.empty() ? std::string() : with_line_breaks(shown.back().text);
  ++findings_;
  addLine("Failed : " + names.join(", ") + " : " + to_qstring(reason).simplified(), "error");
}

void CheckPage::addCheckLine(const QString& line) {
  const bool is_finding = checks_.Findings() > findings_;
  findings_ = checks_.Findings();
  if (!is_finding) {
    addLine(line);
  } else if (line.startsWith("WARNING")) {
    addLine(line, "warning", Role::Warning);
  } else {
    addLine(line, "error");
  }
}

void CheckPage::addLine(const QString& line, const char* picture, Role role) {
  auto* row = new QListWidgetItem(line, report_);
  if (picture == nullptr) return;
  row->setIcon(bench_.look.icon(picture, role));
  row->setData(Qt::AccessibleTextRole, (role == Role::Warning ? "Warning: " : "Error: ") + line);
}

void CheckPage::showTotals() {
  const int lines = report_->count();
  totals_->setText(lines == 0 ? QString()
                              : QString("%1 lines, %2 findings").arg(lines).arg(findings_));
  copy_->setEnabled(lines > 0);
  save_->setEnabled(lines > 0);
}

QString CheckPage::reportText() const {
  QString text;
  for (int row = 0; row < report_->count(); ++row) text += report_->item(row)->text() + '\n';
  return text;
}

void CheckPage::copy() {
  QStringList lines;
  for (int row = 0; row < report_->count(); ++row) {
    if (report_->item(row)->isSelected()) lines += report_->item(row)->text() + '\n';
  }
  QGuiApplication::clipboard()->setText(lines.isEmpty() ? reportText() : lines.join(""));
}

void CheckPage::save() {
  const std::string path =
      bench_.session.printing().select_savefile(kSaveTitle, kSaveName, kSaveFilter);
  if (path.empty()) return;
  const std::string name = name_without_path(path);
  const auto failure = write_file(path, reportText().toStdString());
  bench_.session.messages().msg(DebugUtils::kName,
                                failure ? "Could not save file '" + name + "' (" + *failure + ")"
                                        : "File '" + name + "' saved",
                                kMessageOk, failure ? kSeverityWarning : kSeverityInformation);
}

}  // namespace vantrel
