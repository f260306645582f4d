#include "screens/simple_window.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QShortcut>
#include <QStackedWidget>
#include <QTimer>

#include "screens/banner.h"
#include "screens/key_numbers_panel.h"
#include "screens/output_panel.h"
#include "screens/recent_list.h"
#include "screens/selection_tile.h"
#include "screens/theme_style.h"
#include "screens/view_connection.h"

namespace vantrel {

namespace {

constexpr QSize kSize(980, 510);
constexpr QSize kLeast(900, 490);
constexpr int kMargin = 12;
constexpr int kTileGap = 8;
constexpr int kPanelGap = 10;
constexpr qreal kCalculateScale = 1.2;
enum Page { kStartPage, kResultPage };

QVBoxLayout* plain_column(QWidget* owner, int gap) {
  auto* column = new QVBoxLayout(owner);
  column->setContentsMargins(0, 0, 0, 0);
  column->setSpacing(gap);
  return column;
}

}  // namespace

SimpleWindow::SimpleWindow(Workbench bench)
    : DesignWindow(bench.session.simple(), *bench.session.bar("Simple"), bench, kWithoutStrip),
      summary_(bench.session, bench.status),
      refresh_timer_(new QTimer(this)) {
  auto* middle = new QWidget(this);
  auto* row = new QHBoxLayout(middle);
  row->setContentsMargins(kMargin, kPanelGap, kMargin, kMargin);
  row->setSpacing(kMargin);
  row->addWidget(makeChoices());
  pages_ = new QStackedWidget(middle);
  pages_->setObjectName("pages");
  pages_->addWidget(makeStart());
  pages_->addWidget(makeResults());
  row->addWidget(pages_, 1);
  setCentralWidget(middle);

  auto* design = new QShortcut(QKeySequence(Qt::Key_F5), this);
  connect(
      design, &QShortcut::activated, this, [this] { press(Simple::kCalculateButton); },
      Qt::QueuedConnection);

  // One refresh for all that a selection or a run tells on its way.
  refresh_timer_->setSingleShot(true);
  refresh_timer_->setInterval(0);
  connect(refresh_timer_, &QTimer::timeout, this, &SimpleWindow::refresh);
  const auto schedule = [this] { refresh_timer_->start(); };
  connect_view(bench.status.changed, this, schedule);
  connect_view(screen().layoutChanged, this, schedule);
  connect_view(session().browser().itemSelected, this, [schedule](int) { schedule(); });
  refresh();
  setMinimumSize(kLeast.expandedTo(minimumSizeHint()));
  resize(kSize.expandedTo(sizeHint()));
  calculate_->setFocus();
}

QWidget* SimpleWindow::makeChoices() {
  auto* choices = new QWidget(this);
  QVBoxLayout* column = plain_column(choices, kTileGap);
  for (int slot = 0; slot < kSlotCount; ++slot) {
    auto* tile = new SelectionTile(slot, bench().look, session().folder(), choices);
    connect(
        tile, &QAbstractButton::clicked, this, [this, slot] { press(slot); }, Qt::QueuedConnection);
    column->addWidget(tile);
    tiles_[static_cast<std::size_t>(slot)] = tile;
  }
  calculate_ = new QPushButton("Calculate", choices);
  calculate_->setObjectName("MainButton." + QString::number(Simple::kCalculateButton));
  calculate_->setToolTip("Design the ballast (F5)");
  QFont large = font();
  large.setBold(true);
  large.setPointSizeF(large.pointSizeF() * kCalculateScale);
  calculate_->setFont(large);
  calculate_->setMinimumHeight(QFontMetrics(large).height() * 5 / 2);
  calculate_->setIcon(bench().look.icon("play", Role::OnAccent));
  ThemeStyle::setMainAction(*calculate_);
  connect(
      calculate_, &QPushButton::clicked, this, [this] { press(Simple::kCalculateButton); },
      Qt::QueuedConnection);
  column->addSpacing(kMargin - kTileGap);
  column->addWidget(calculate_);
  column->addStretch(1);
  choices->setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Preferred);
  return choices;
}

QWidget* SimpleWindow::makeStart() {
  auto* page = new QWidget(this);
  QVBoxLayout* column = plain_column(page, kPanelGap);
  auto* hint = new Panel("No calculation yet", bench().look, page);
  auto* words = new QLabel(
      "Press Calculate (F5) for the operating points, the inductors and every component of this "
      "design.",
      hint);
  words->setWordWrap(true);
  hint->grid().addWidget(words, 0, 0);
  column->addWidget(hint);

  auto* projects = new Panel("Recent projects", bench().look, page);
  auto* list = new RecentList(bench().recent, projects);
  auto* open = new QPushButton(bench().look.icon("folder"), "Open Project...", projects);
  open->setObjectName("openProject");
  connect(list, &RecentList::chosen, this, &SimpleWindow::openProject, Qt::QueuedConnection);
  connect(
      open, &QPushButton::clicked, this, [this] { run("c_load_project"); }, Qt::QueuedConnection);
  projects->grid().addWidget(list, 0, 0);
  projects->grid().addWidget(open, 1, 0, Qt::AlignLeft);
  projects->grid().setVerticalSpacing(kTileGap);
  column->addWidget(projects, 1);
  return page;
}

QWidget* SimpleWindow::makeResults() {
  auto* page = new QWidget(this);
  QVBoxLayout* column = plain_column(page, kPanelGap);
  auto* banner = new Banner(bench().status, bench().look, page, Banner::kFailureToldElsewhere);
  connect(
      banner, &Banner::calculateRequested, this, [this] { press(Simple::kCalculateButton); },
      Qt::QueuedConnection);
  connect(banner, &Banner::detailsRequested, this, &SimpleWindow::showWarningAgain,
          Qt::QueuedConnection);
  numbers_ = new KeyNumbersPanel(bench().look, page);
  outputs_ = new OutputPanel(bench().look, page);
  connect(
      outputs_, &OutputPanel::requested, this,
      [this](const QString& command) { run(command.toStdString()); }, Qt::QueuedConnection);
  column->addWidget(banner);
  column->addWidget(numbers_);
  column->addWidget(outputs_);
  column->addStretch(1);
  return page;
}

void SimpleWindow::press(int button) { session().simple().MainButton_Click(button); }

void SimpleWindow::showWarningAgain() {
  session().messages().msg(screen().name(), bench().status.warning(), kMessageOk, kSeverityWarning);
}

void SimpleWindow::openProject(const QString& path) {
  session().loadProjectFrom(screen().name(), path.toStdString());
}

void SimpleWindow::refresh() {
  for (int slot = 0; slot < kSlotCount; ++slot) {
    const SelectionCard card = ReadSelectionCard(session().database(), slot, bar().GetInfo(slot));
    const CommandButton* button = screen().findButton("MainButton", slot);
    tiles_[static_cast<std::size_t>(slot)]->show(card, button != nullptr && button->enabled);
  }
  if (!summary_.isEmpty()) {
    numbers_->show(summary_);
    outputs_->show(summary_.outputs());
  }
  pages_->setCurrentIndex(summary_.isEmpty() ? kStartPage : kResultPage);
}

}  // namespace vantrel
