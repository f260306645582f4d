#include "screens/check_page.h"

#include <QApplication>
#include <QClipboard>
#include <QFontDatabase>
#include <QLabel>
#include <QListWidget>
#include <QPushButton>
#include <QShortcut>
#include <QSplitter>
#include <QVBoxLayout>

#include "core/file_writer.h"
#include "screens/theme_style.h"

namespace vantrel {

namespace {

constexpr int kMargin = 12;
constexpr int kGap = 8;
constexpr int kRowPadding = 8;
constexpr int kChoiceCharacters = 42;
constexpr std::string_view kSaveTitle = "Save Report";
constexpr std::string_view kSaveFilter = "Text files (*.txt)|*.txt";
constexpr std::string_view kSaveName = "\\Export\\Database Checks.txt";

QLabel* headed(const QString& text, QWidget& body, QWidget* parent) {
  auto* label = new QLabel(text, parent);
  label->setBuddy(&body);
  return label;
}

QPushButton* plain_button(const QString& text, const char* name, QWidget* parent) {
  auto* button = new QPushButton(text, parent);
  button->setObjectName(name);
  button->setAutoDefault(false);
  return button;
}

void add_row(QListWidget& list, std::string_view text) {
  auto* row = new QListWidgetItem(to_qstring(text), &list);
  row->setSizeHint({0, list.fontMetrics().height() + kRowPadding});
}

}  // namespace

CheckPage::CheckPage(Workbench bench, QWidget* parent)
    : QWidget(parent),
      bench_(std::move(bench)),
      checks_(bench_.session.database(), bench_.session.messages()),
      tests_(new QListWidget(this)),
      components_(new QListWidget(this)),
      report_(new QListWidget(this)),
      totals_(new QLabel(this)) {
  auto* parts = new QSplitter(this);
  parts->setChildrenCollapsible(false);
  parts->addWidget(makeChoices());
  parts->addWidget(makeReport());
  parts->setStretchFactor(1, 1);
  auto* box = new QVBoxLayout(this);
  box->setContentsMargins(kMargin, kMargin, kMargin, kMargin);
  box->addWidget(parts);
  checks_.onLine = [this](const std::string& line) { addLine(to_qstring(line)); };
  auto* run = new QShortcut(Qt::Key_F5, this);
  connect(run, &QShortcut::activated, this, &CheckPage::start, Qt::QueuedConnection);
  refresh();
  showTotals();
}

QWidget* CheckPage::makeChoices() {
  auto* choices = new QWidget(this);
  choices->setMinimumWidth(fontMetrics().averageCharWidth() * kChoiceCharacters);
  auto* box = new QVBoxLayout(choices);
  box->setContentsMargins(0, 0, 0, 0);
  box->setSpacing(kGap / 2);
  tests_->setObjectName("DebugUtils.tests");
  tests_->setAccessibleName("Tests");
  for (const std::string& test : DebugUtils::Tests()) add_row(*tests_, test);
  tests_->setFixedHeight(tests_->count() * (fontMetrics().height() + kRowPadding) +
                         2 * tests_->frameWidth() + kRowPadding);
  components_->setObjectName("DebugUtils.components");
  components_->setAccessibleName("Reference designators");
  auto* run = plain_button("Start (F5)", "DebugUtils.start", choices);
  run->setIcon(bench_.look.icon("play", Role::OnAccent));
  run->setMinimumHeight(fontMetrics().height() + 12);
  ThemeStyle::setMainAction(*run);
  connect(run, &QPushButton::clicked, this, &CheckPage::start, Qt::QueuedConnection);
  box->addWidget(headed("&Tests", *tests_, choices));
  box->addWidget(tests_);
  box->addSpacing(kGap);
  box->addWidget(headed("&Component for the usage check", *components_, choices));
  box->addWidget(components_, 1);
  box->addSpacing(kGap);
  box->addWidget(run);
  return choices;
}

QWidget* CheckPage::makeReport() {
  auto* right = new QWidget(this);
  auto* box = new QVBoxLayout(right);
  box->setContentsMargins(0, 0, 0, 0);
  box->setSpacing(kGap / 2);
  report_->setObjectName("DebugUtils.report");
  report_->setAccessibleName("Report");
  report_->setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
  report_->setSelectionMode(QAbstractItemView::ExtendedSelection);
  report_->setUniformItemSizes(true);
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
  row->addWidget(copy_);
  row->addWidget(save_);
  box->addWidget(headed("&Report", *report_, right));
  box->addWidget(report_, 1);
  box->addSpacing(kGap);
  box->addLayout(row);
  return right;
}

void CheckPage::refresh() {
  const int chosen = components_->currentRow();
  const QString name = chosen < 0 ? QString() : components_->currentItem()->text();
  checks_.load();
  components_->clear();
  for (const std::string& component : checks_.Components()) add_row(*components_, component);
  const auto same = components_->findItems(name, Qt::MatchExactly | Qt::MatchCaseSensitive);
  components_->setCurrentItem(same.isEmpty() ? components_->item(0) : same.front());
}

void CheckPage::start() {
  report_->clear();
  findings_ = 0;
  // A row that only has the focus is not selected.
  const auto tests = tests_->selectedItems();
  const auto components = components_->selectedItems();
  const auto text = [](const QList<QListWidgetItem*>& selected) {
    return selected.isEmpty() ? std::string() : selected.front()->text().toStdString();
  };
  QGuiApplication::setOverrideCursor(Qt::WaitCursor);
  report_->setUpdatesEnabled(false);
  checks_.Start(text(tests), text(components));
  report_->setUpdatesEnabled(true);
  QGuiApplication::restoreOverrideCursor();
  showTotals();
}

void CheckPage::addLine(const QString& line) {
  auto* row = new QListWidgetItem(line, report_);
  const bool is_finding = checks_.Findings() > findings_;
  findings_ = checks_.Findings();
  if (!is_finding) return;
  const bool is_warning = line.startsWith("WARNING");
  row->setIcon(is_warning ? bench_.look.icon("warning", Role::Warning)
                          : bench_.look.icon("error", Role::Error));
  row->setData(Qt::AccessibleTextRole, (is_warning ? "Warning: " : "Error: ") + line);
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
  for (const std::string& line : checks_.Report()) text += to_qstring(line) + '\n';
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
  const auto proposed = bench_.session.folder().writable(kSaveName);
  const auto path =
      bench_.dialogs.askSave(kSaveTitle, kSaveFilter, proposed ? proposed->string() : "");
  if (!path || path->empty()) return;
  const std::string name = std::filesystem::path(*path).filename().string();
  const auto failure = write_file(*path, reportText().toStdString());
  bench_.session.messages().msg(DebugUtils::kName,
                                failure ? "Could not save file '" + name + "' (" + *failure + ")"
                                        : "File '" + name + "' saved",
                                kMessageOk, failure ? kSeverityWarning : kSeverityInformation);
}

}  // namespace vantrel
