#include "screens/time_domain_window.h"

#include <QAction>
#include <QActionGroup>
#include <QCheckBox>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QKeyEvent>
#include <QLabel>
#include <QMenu>
#include <QMenuBar>
#include <QPushButton>
#include <QScrollBar>
#include <QSlider>
#include <QTableWidget>
#include <QToolBar>
#include <QToolButton>

#include "core/file_writer.h"
#include "screens/theme_style.h"
#include "screens/view_connection.h"

namespace vantrel {

namespace {

constexpr const char* kNotIgnited = "Ballast run stage was not triggered with these settings";
constexpr std::string_view kCsvTitle = "Export Table";
constexpr std::string_view kCsvFilter = "CSV files (*.csv)|*.csv";
constexpr std::string_view kCsvName = "Time Domain Window.csv";

struct KeyName {
  int key;
  const char* name;
};

constexpr KeyName kKeys[] = {{Qt::Key_Left, "Left"}, {Qt::Key_Right, "Right"},
                             {Qt::Key_Plus, "+"},    {Qt::Key_Equal, "+"},
                             {Qt::Key_Minus, "-"},   {Qt::Key_Home, "Home"},
                             {Qt::Key_End, "End"},   {Qt::Key_V, "V"},
                             {Qt::Key_A, "A"},       {Qt::Key_1, "1"},
                             {Qt::Key_2, "2"},       {Qt::Key_3, "3"},
                             {Qt::Key_4, "4"},       {Qt::Key_5, "5"},
                             {Qt::Key_6, "6"},       {Qt::Key_Backspace, "Backspace"}};

std::string key_name(const QKeyEvent& event) {
  for (const KeyName& row : kKeys) {
    if (event.key() != row.key) continue;
    std::string name = row.name;
    if ((event.modifiers() & Qt::ControlModifier) == 0) return name;
    return (event.modifiers() & Qt::ShiftModifier) != 0 ? "Ctrl+Shift+" + name : "Ctrl+" + name;
  }
  return {};
}

}  // namespace

TimeDomainWindow::TimeDomainWindow(Workbench bench)
    : OutputWindow(bench.session.graphTimeDomain(), bench, kToolbarShort),
      plot_(new TimeDomainPlot(bench, this)),
      scroll_(new QScrollBar(Qt::Horizontal, this)),
      table_(new QTableWidget(this)),
      notice_(new Notice(bench.look, {}, this)),
      button_(new QPushButton(bench.look.icon("play", Role::OnAccent), "Calculate (F5)", plot_)),
      autofit_(new QCheckBox("&Autofit graph scales", this)) {
  makeCommands();
  makeMenus();
  setCentralWidget(makeMiddle());
  form().onRedraw = [this] {
    plot_->scheduleDraw();
    refresh();
  };
  connect(plot_, &TimeDomainPlot::cursorsMoved, this, [this] { refreshTable(); });
  connect(plot_, &TimeDomainPlot::spanChosen, this, [this] { refresh(); });
  connect(plot_, &TimeDomainPlot::drawn, this, [this] { refresh(); });
  connect_view(bench.status.changed, this, [this] { refresh(); });
  connect_view(bench.session.graphTimeDomain().layoutChanged, this,
               [this] { plot_->scheduleDraw(); });
  resize(1200, 740);
  setMinimumSize(900, 550);
  plot_->setFocus();
  refresh();
}

void TimeDomainWindow::makeCommands() {
  zoom_in_ = addCommand("zoom_in", "Zoom &In", QKeySequence("Ctrl++"));
  zoom_in_->setObjectName("mnuZoomIn");
  connect(zoom_in_, &QAction::triggered, this, [this] { form().zoomIn(); });
  connect(addCommand("zoom_out", "Zoom &Out", QKeySequence("Ctrl+-")), &QAction::triggered, this,
          [this] { form().zoomOut(); });
  previous_ = addCommand("back", "&Previous View", QKeySequence("Ctrl+Backspace"));
  previous_->setObjectName("MnuPrevious");
  connect(previous_, &QAction::triggered, this, [this] { form().previousView(); });
  connect(addCommand("fit", "&Whole", QKeySequence("0")), &QAction::triggered, this,
          [this] { form().wholeView(); });
  for (int i = 0; i < 4; ++i) {
    QAction* jump = addCommand("", "", {});
    jump->setObjectName("MnuJumpTo." + QString::number(i));
    connect(jump, &QAction::triggered, this,
            [this, i] { form().jumpTo(static_cast<GraphTimeDomain::Jump>(i)); });
    jumps_.push_back(jump);
  }
  cursor_info_ = addCommand("information", "", {});
  cursor_info_->setObjectName("ToggleCursorInfo");
  connect(cursor_info_, &QAction::triggered, this, [this] {
    form().ToggleCursorInfo();
    plot_->updateOverlay();
    refresh();
  });
  QAction* cursors = addCommand("cursors", "A/&B Cursors", {});
  connect(cursors, &QAction::triggered, this, [this] {
    form().toggleCursors();
    plot_->updateOverlay();
    refreshTable();
  });
  QAction* circuit = addCommand("circuit", "Output Circui&t", {});
  connect(circuit, &QAction::triggered, this, [this] { session().outputCircuit().display(); });
  connect(addCommand("copy", "&Copy", QKeySequence::Copy), &QAction::triggered, this,
          [this] { plot_->copy(); });
  connect(
      addCommand("export", "&Export Window as CSV...", {}), &QAction::triggered, this,
      [this] { exportWindow(); }, Qt::QueuedConnection);
  auto* tools = findChild<QToolBar*>();
  for (QAction* worded : {cursor_info_, cursors, circuit}) {
    auto* button = qobject_cast<QToolButton*>(tools->widgetForAction(worded));
    if (button != nullptr) button->setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
  }
}

void TimeDomainWindow::makeMenus() {
  QMenu* plots = menuBar()->addMenu("&Plot");
  for (const Trace trace : kToggleOrder) {
    QAction* entry = plots->addAction(to_qstring(trace_row(trace).caption));
    entry->setObjectName("mnuPlot." + to_qstring(trace_row(trace).label));
    entry->setCheckable(true);
    connect(entry, &QAction::triggered, this,
            [this, trace](bool on) { form().SetCheckState(trace, on); });
    plot_entries_.push_back(entry);
  }
  plots->addSeparator();
  autofit_entry_ = plots->addAction("&Autofit graph scales");
  autofit_entry_->setCheckable(true);
  connect(autofit_entry_, &QAction::triggered, this, [this](bool on) { form().autofit(on); });
  QMenu* timeline = menuBar()->addMenu("&Timeline");
  timeline->setObjectName("MnuTimelineType");
  auto* kinds = new QActionGroup(timeline);
  condensed_ = timeline->addAction("&Condensed Timeline");
  full_ = timeline->addAction("&Full Timeline");
  for (QAction* kind : {condensed_, full_}) {
    kind->setCheckable(true);
    kinds->addAction(kind);
    connect(kind, &QAction::triggered, this,
            [this] { form().shortTimeline(condensed_->isChecked()); });
  }
}

QWidget* TimeDomainWindow::makeScale(std::size_t index, const QString& caption) {
  auto* side = new QWidget(this);
  auto* box = new QVBoxLayout(side);
  box->setContentsMargins(6, 4, 6, 4);
  auto* slider = new QSlider(Qt::Vertical, side);
  slider->setObjectName("ScaleSlider." + QString::number(index));
  slider->setAccessibleName(caption + " scale");
  slider->setRange(form().slider(index).least, form().slider(index).most);
  auto* range = new QLabel(side);
  range->setMinimumWidth(QFontMetrics(font()).horizontalAdvance("±2000 V"));
  range->setAlignment(Qt::AlignHCenter);
  box->addWidget(new QLabel(caption, side), 0, Qt::AlignHCenter);
  box->addWidget(slider, 1, Qt::AlignHCenter);
  box->addWidget(range, 0, Qt::AlignHCenter);
  connect(slider, &QSlider::valueChanged, this, [this, index](int value) {
    if (!following_) form().moveSlider(index, value);
  });
  scales_[index] = {slider, range};
  return side;
}

QWidget* TimeDomainWindow::makeToggles() {
  auto* row = new QWidget(this);
  auto* box = new QHBoxLayout(row);
  box->setContentsMargins(8, 2, 8, 4);
  box->setSpacing(6);
  for (const Trace trace : kToggleOrder) {
    auto* toggle = new TraceButton(trace, bench().look, row);
    connect(toggle, &QAbstractButton::clicked, this,
            [this, trace](bool on) { form().SetCheckState(trace, on); });
    toggles_.push_back(toggle);
    box->addWidget(toggle);
  }
  box->addStretch();
  autofit_->setObjectName("MnuAutofit");
  connect(autofit_, &QCheckBox::clicked, this, [this](bool on) { form().autofit(on); });
  box->addWidget(autofit_);
  return row;
}

QWidget* TimeDomainWindow::makeMiddle() {
  auto* middle = new QWidget(this);
  auto* grid = new QGridLayout(middle);
  grid->setContentsMargins(0, 4, 0, 0);
  grid->setSpacing(0);
  grid->addWidget(notice_, 0, 0, 1, 3);
  grid->addWidget(makeScale(0, "Voltage"), 1, 0, 2, 1);
  auto* graph = new QGridLayout;
  graph->addWidget(plot_, 0, 0, 3, 1);
  graph->addWidget(button_, 2, 0, Qt::AlignHCenter | Qt::AlignTop);
  graph->setRowStretch(0, 1);
  graph->setRowStretch(2, 1);
  graph->setRowMinimumHeight(1, 2 * QFontMetrics(font()).height());
  grid->addLayout(graph, 1, 1);
  grid->addWidget(makeScale(1, "Current"), 1, 2, 2, 1);
  grid->addWidget(scroll_, 2, 1);
  grid->addWidget(table_, 3, 0, 1, 3);
  grid->addWidget(makeToggles(), 4, 0, 1, 3);
  grid->setColumnStretch(1, 1);
  grid->setRowStretch(1, 1);
  button_->setObjectName("calculate");
  button_->raise();
  ThemeStyle::setMainAction(*button_);
  connect(
      button_, &QPushButton::clicked, this, [this] { calculate(); }, Qt::QueuedConnection);
  scroll_->setObjectName("TimeScroll");
  scroll_->setAccessibleName("Time");
  scroll_->setRange(TimeScrollBar::kMin, TimeScrollBar::kMax);
  connect(scroll_, &QScrollBar::valueChanged, this, [this](int value) {
    if (!following_) form().scrollTo(value);
  });
  table_->setObjectName("cursorTable");
  table_->setAccessibleName("Values at the cursors");
  table_->setEditTriggers(QAbstractItemView::NoEditTriggers);
  table_->setSelectionMode(QAbstractItemView::ContiguousSelection);
  table_->verticalHeader()->hide();
  table_->horizontalHeader()->setSectionResizeMode(QHeaderView::Stretch);
  table_->horizontalHeader()->setHighlightSections(false);
  table_->setShowGrid(false);
  table_->setFocusPolicy(Qt::TabFocus);
  return middle;
}

void TimeDomainWindow::refresh() {
  following_ = true;
  for (std::size_t i = 0; i < scales_.size(); ++i) {
    scales_[i].slider->setValue(form().slider(i).value);
    scales_[i].slider->setEnabled(form().slider(i).enabled);
    scales_[i].range->setText(to_qstring(form().rangeText(i)));
  }
  const TimeScrollBar& bar = form().timeScroll();
  scroll_->setVisible(bar.visible);
  scroll_->setEnabled(bar.enabled);
  scroll_->setPageStep(bar.largeChange);
  scroll_->setSingleStep(std::max(1, bar.largeChange / 40));
  scroll_->setValue(bar.value);
  for (std::size_t i = 0; i < toggles_.size(); ++i) {
    const bool on = form().GetCheckState(toggles_[i]->trace());
    toggles_[i]->setChecked(on);
    plot_entries_[i]->setChecked(on);
  }
  autofit_->setChecked(form().isAutofit());
  autofit_entry_->setChecked(form().isAutofit());
  condensed_->setChecked(form().IsShortTimeline());
  full_->setChecked(!form().IsShortTimeline());
  zoom_in_->setEnabled(form().mnuZoomIn());
  previous_->setEnabled(form().mnuPrevious());
  cursor_info_->setText(to_qstring(form().cursorCaption()));
  const auto names = form().MnuJumpTo();
  for (std::size_t i = 0; i < names.size(); ++i) {
    jumps_[i]->setText(to_qstring(names[i]));
    jumps_[i]->setEnabled(form().isGenerated());
  }
  following_ = false;
  refreshTable();
  refreshStatus();
}

void TimeDomainWindow::refreshStatus() {
  button_->setVisible(!form().isGenerated());
  const bool failed = form().isGenerated() && !form().isIgnited();
  notice_->tell(failed ? kNotIgnited : "");
  QString where;
  if (form().isGenerated()) {
    where = QString("Window %1 us from %2 S")
                .arg(form().TimeWindow(), 0, 'f', 0)
                .arg(form().TimePosition() / 1e6, 0, 'f', 6);
    if (bench().status.state() == DesignStatus::State::Stale) where += "   (out of date)";
  }
  const QString summary = form().isGenerated() ? to_qstring(form().summary()) : QString();
  plot_->setAccessibleDescription(summary);
  showStatus(where, summary);
}

void TimeDomainWindow::refreshTable() {
  const CursorTable values = form().cursorTable();
  table_->setVisible(!values.rows.empty());
  if (values.rows.empty()) return;
  table_->setColumnCount(static_cast<int>(values.header.size()));
  table_->setRowCount(static_cast<int>(values.rows.size()));
  QStringList header;
  for (const std::string& title : values.header) header << to_qstring(title);
  table_->setHorizontalHeaderLabels(header);
  const int line = QFontMetrics(font()).height() + 4;
  for (int row = 0; row < table_->rowCount(); ++row) {
    table_->setRowHeight(row, line);
    const auto& cells = values.rows[static_cast<std::size_t>(row)];
    for (int column = 0; column < static_cast<int>(cells.size()); ++column) {
      auto* cell = new QTableWidgetItem(to_qstring(cells[static_cast<std::size_t>(column)]));
      cell->setTextAlignment(column == 0 ? Qt::AlignLeft | Qt::AlignVCenter
                                         : Qt::AlignRight | Qt::AlignVCenter);
      table_->setItem(row, column, cell);
    }
  }
  table_->setFixedHeight(line * table_->rowCount() +
                         table_->horizontalHeader()->sizeHint().height() +
                         2 * table_->frameWidth());
}

void TimeDomainWindow::command(const std::string& key) {
  if (key == "c_print") {
    session().printScreen(screen().name());
  } else if (key == "c_export_schematic") {
    session().timeDomainView().ExportGraph(form().picture(), bench().dialogs, session().folder(),
                                           [this](const auto& file, const Picture& picture) {
                                             return session().writePicture(file, picture);
                                           });
  }
}

void TimeDomainWindow::exportWindow() {
  if (!form().isGenerated()) return;
  const std::string path = session().printing().select_savefile(kCsvTitle, kCsvName, kCsvFilter);
  if (path.empty()) return;
  const std::string name = name_without_path(path);
  const auto failure = write_file(path, form().visibleCsv());
  session().messages().msg(screen().name(),
                           failure ? "Could not export file '" + name + "' (" + *failure + ")"
                                   : "File '" + name + "' Exported OK",
                           kMessageOk, failure ? kSeverityWarning : kSeverityInformation);
}

void TimeDomainWindow::calculate() {
  const bool current = bench().status.state() == DesignStatus::State::Current;
  if (!current) session().simple().MainButton_Click(Simple::kCalculateButton);
  session().bar("Simple")->execute_command("c_graph_td");
}

void TimeDomainWindow::keyPressEvent(QKeyEvent* event) {
  const std::string name = key_name(*event);
  if (!name.empty() && form().isGenerated() && form().pressKey(name)) {
    plot_->updateOverlay();
    refresh();
    return;
  }
  OutputWindow::keyPressEvent(event);
}

}  // namespace vantrel
