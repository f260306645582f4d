#include "screens/log_page.h"

#include <QAction>
#include <QHBoxLayout>
#include <QInputDialog>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QShortcut>
#include <QVBoxLayout>

#include "screens/line_view.h"
#include "screens/page_parts.h"

namespace vantrel {

namespace {

constexpr int kMargin = 12;
constexpr int kGap = 8;
constexpr const char* kOpenTitle = "View Text File";
constexpr const char* kOpenFilter = "Text files (*.txt;*.log)|*.txt;*.log|All files (*.*)|*.*";
constexpr const char* kNothingKept =
    "Lines are kept while \"Show Calculation Debug Output\" is ticked in the options";

}  // namespace

LogPage::LogPage(Workbench bench, QWidget* parent)
    : QWidget(parent),
      bench_(std::move(bench)),
      viewer_(bench_.session.messages(), bench_.session.log(), viewerHooks()),
      caption_(new QLabel(this)),
      text_(new LineView(bench_.look, this)),
      marks_(new QLabel(this)) {
  text_->setObjectName("TextfileViewer");
  text_->setAccessibleName("Lines of the log");
  // A text without lines still has one to paint.
  const auto mark = [this](bool (TextfileViewer::*is_marked)(std::size_t) const) {
    return [this, is_marked](int line) {
      const auto row = static_cast<std::size_t>(line);
      return row < viewer_.lines().size() && (viewer_.*is_marked)(row);
    };
  };
  text_->setMarks({mark(&TextfileViewer::isBreakLine), mark(&TextfileViewer::isWatchedLine)});
  marks_->setObjectName("marks");
  marks_->setTextFormat(Qt::PlainText);
  // A long line must not widen the window.
  marks_->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
  caption_->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
  auto* box = new QVBoxLayout(this);
  box->setContentsMargins(kMargin, kMargin, kMargin, kMargin);
  box->setSpacing(kGap);
  box->addWidget(makeFindBar());
  box->addWidget(caption_);
  box->addWidget(text_, 1);
  box->addWidget(marks_);
  box->addWidget(makeButtons());
  addActions();
  connect(text_, &QPlainTextEdit::cursorPositionChanged, this, [this] {
    // The line of a hit is selected already; selecting it again would find it again.
    const auto line = static_cast<std::size_t>(text_->currentLine());
    if (line != viewer_.currentLine()) viewer_.selectLine(line);
  });
  showLog();
}

TextfileViewerHooks LogPage::viewerHooks() {
  return {
      .changed = [this] { showMarks(); },
      .displayFindWindow = [this] { displayFindBar(); },
      .askText = [this](std::string_view title, std::string_view prompt,
                        const std::string& present) { return askText(title, prompt, present); }};
}

QWidget* LogPage::makeFindBar() {
  find_bar_ = new QWidget(this);
  find_bar_->setObjectName("TextfileFind");
  auto* row = new QHBoxLayout(find_bar_);
  row->setContentsMargins(0, 0, 0, 0);
  row->setSpacing(kGap);
  auto* label = new QLabel("&Find:", find_bar_);
  find_ = new QLineEdit(find_bar_);
  find_->setObjectName("TextfileFind.text");
  find_->setAccessibleName("Text to find");
  label->setBuddy(find_);
  auto* next = plain_button("Find &Next", "TextfileFind.next", find_bar_);
  auto* done = plain_button("Hide", "TextfileFind.hide", find_bar_);
  row->addWidget(label);
  row->addWidget(find_, 1);
  row->addWidget(next);
  row->addWidget(done);
  const auto hide = [this] {
    find_bar_->hide();
    text_->setFocus();
  };
  connect(find_, &QLineEdit::returnPressed, this, &LogPage::findNext, Qt::QueuedConnection);
  connect(next, &QPushButton::clicked, this, &LogPage::findNext, Qt::QueuedConnection);
  connect(done, &QPushButton::clicked, this, hide);
  auto* escape = new QShortcut(Qt::Key_Escape, find_bar_);
  escape->setContext(Qt::WidgetWithChildrenShortcut);
  connect(escape, &QShortcut::activated, this, hide);
  find_bar_->hide();
  return find_bar_;
}

QWidget* LogPage::makeButtons() {
  auto* buttons = new QWidget(this);
  auto* row = new QHBoxLayout(buttons);
  row->setContentsMargins(0, 0, 0, 0);
  row->setSpacing(kGap);
  auto* log = plain_button("&Last Calculation", "showLog", buttons);
  auto* file = plain_button("&Open File...", "openFile", buttons);
  connect(log, &QPushButton::clicked, this, &LogPage::showLog, Qt::QueuedConnection);
  connect(file, &QPushButton::clicked, this, &LogPage::openFile, Qt::QueuedConnection);
  row->addWidget(log);
  row->addWidget(file);
  row->addStretch(1);
  return buttons;
}

void LogPage::addEntry(const QString& text, const QKeySequence& key, void (LogPage::*routine)()) {
  auto* action = new QAction(text, this);
  action->setShortcut(key);
  action->setShortcutContext(Qt::WidgetWithChildrenShortcut);
  connect(action, &QAction::triggered, this, routine, Qt::QueuedConnection);
  text_->addAction(action);
  // The keys hold on the whole page, not only in the text.
  if (!key.isEmpty()) addAction(action);
}

void LogPage::addActions() {
  const auto separate = [this] {
    auto* line = new QAction(this);
    line->setSeparator(true);
    text_->addAction(line);
  };
  text_->setContextMenuPolicy(Qt::ActionsContextMenu);
  auto* copy = new QAction("&Copy", text_);
  connect(copy, &QAction::triggered, text_, &QPlainTextEdit::copy);
  text_->addAction(copy);
  separate();
  addEntry("&Find...", QKeySequence::Find, &LogPage::displayFindBar);
  addEntry("Find &Next", Qt::Key_F3, &LogPage::findNext);
  separate();
  addEntry("Set &Break", {}, &LogPage::setBreak);
  addEntry("C&lear Break", {}, &LogPage::clearBreak);
  separate();
  addEntry("&Watch Variable...", {}, &LogPage::setWatch);
  addEntry("Clear Variable Wa&tch", {}, &LogPage::clearWatch);
}

void LogPage::refresh() {
  if (shows_log_) showLog();
}

void LogPage::showLog() {
  shows_log_ = true;
  viewer_.ShowLog();
  showText();
}

void LogPage::openFile() {
  const auto file = bench_.dialogs.askOpen(kOpenTitle, kOpenFilter, "");
  if (!file || !viewer_.ShowFile(*file)) return;
  shows_log_ = false;
  showText();
}

void LogPage::showText() {
  const bool unkept = shows_log_ && viewer_.lines().empty() && !bench_.session.log().keepsLines();
  caption_->setText(to_qstring(viewer_.caption()));
  text_->setPlaceholderText(unkept ? kNothingKept : "No lines");
  QStringList lines;
  for (const std::string& line : viewer_.lines()) {
    // A break within a line would number the lines behind it wrong.
    lines += to_qstring(line).replace('\n', ' ').replace('\r', ' ');
  }
  text_->setPlainText(lines.join('\n'));
  showMarks();
}

void LogPage::showMarks() {
  if (viewer_.currentLine() < static_cast<std::size_t>(text_->blockCount())) {
    text_->selectLine(static_cast<int>(viewer_.currentLine()));
  }
  text_->refreshMarks();
  const CalculationLog& log = bench_.session.log();
  const auto shown = [](const std::string& text) {
    return text.empty() ? QString("none") : "'" + to_qstring(text) + "'";
  };
  marks_->setText("Break: " + shown(log.breakText()) + "    Watch: " + shown(log.watchText()));
}

void LogPage::displayFindBar() {
  find_bar_->show();
  find_->setFocus();
  find_->selectAll();
}

void LogPage::findNext() { viewer_.FindNext(find_->text().toStdString()); }

std::optional<std::string> LogPage::askText(std::string_view title, std::string_view prompt,
                                            const std::string& present) {
  bool accepted = false;
  const QString text = QInputDialog::getText(this, to_qstring(title), to_qstring(prompt),
                                             QLineEdit::Normal, to_qstring(present), &accepted);
  if (!accepted) return std::nullopt;
  return text.toStdString();
}

}  // namespace vantrel
