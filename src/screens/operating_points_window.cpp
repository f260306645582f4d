#include "screens/operating_points_window.h"

#include <QApplication>
#include <QClipboard>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QScrollBar>

#include "screens/frame_panel.h"
#include "screens/theme_style.h"
#include "screens/view_connection.h"

namespace vantrel {

namespace {

constexpr int kMargin = 12;
constexpr int kCalculateButton = 0;
constexpr int kScrollStep = 1000;  // Hz
/// Frequency up to which the axis can be moved beyond its first end, as a part of its length.
constexpr double kScrollReach = 1.5;
/// Start, preheat, ignition, two run points and the resonance, with room to spare.
constexpr int kMostPoints = 8;
constexpr const char* kHeadings[] = {"", "KHz", "Gain", "V Lamp"};

}  // namespace

OperatingPointsWindow::OperatingPointsWindow(Workbench workbench)
    : OutputWindow(workbench.session.graphOperatingPoints(), workbench, kToolbarShort),
      graph_(new GainGraph(workbench, this)),
      scroll_(new QScrollBar(Qt::Horizontal, this)),
      button_(
          new QPushButton(workbench.look.icon("play", Role::OnAccent), "Calculate (F5)", graph_)),
      points_(new Panel("Operating points", workbench.look, this)) {
  connect(
      addCommand("copy", "&Copy", QKeySequence::Copy), &QAction::triggered, this,
      [this] { QApplication::clipboard()->setPixmap(graph_->drawing()); }, Qt::QueuedConnection);
  scroll_->setObjectName("scroll");
  scroll_->setAccessibleName("Frequency axis");
  scroll_->setSingleStep(kScrollStep);
  button_->setObjectName("calculate");
  ThemeStyle::setMainAction(*button_);
  connect(
      button_, &QPushButton::clicked, this, [this] { calculate(); }, Qt::QueuedConnection);
  connect(scroll_, &QScrollBar::valueChanged, graph_, &GainGraph::setOffset);
  connect(graph_, &GainGraph::drawn, this, &OperatingPointsWindow::afterDrawing);
  connect(graph_, &GainGraph::cursorMoved, this, &OperatingPointsWindow::tellCursor);
  connect_view(bench().status.changed, this, [this] { tellCursor(); });

  points_->setObjectName("points");
  makePoints();

  auto* middle = new QWidget(this);
  auto* row = new QHBoxLayout(middle);
  row->setContentsMargins(kMargin, 10, kMargin, 6);
  row->setSpacing(kMargin);
  auto* plot = new QVBoxLayout;
  plot->setSpacing(0);
  plot->addWidget(graph_, 1);
  plot->addWidget(scroll_);
  row->addLayout(plot, 1);
  row->addWidget(points_);
  setCentralWidget(middle);
  graph_->setFocus();
  resize(1080, 600);
  afterDrawing();
}

void OperatingPointsWindow::afterDrawing() {
  fillPoints();
  settleScrolling();
  placeButton();
  tellCursor();
}

void OperatingPointsWindow::makePoints() {
  QGridLayout& grid = points_->grid();
  grid.setHorizontalSpacing(12);
  grid.setVerticalSpacing(4);
  const auto add = [&](int row, int column) {
    auto* label = new QLabel(points_);
    grid.addWidget(label, row, column, column == 0 ? Qt::AlignLeft : Qt::AlignRight);
    return label;
  };
  for (int column = 0; column < 4; ++column) {
    QLabel* heading = add(0, column);
    heading->setText(kHeadings[column]);
    heading->setForegroundRole(QPalette::PlaceholderText);
  }
  for (int row = 1; row <= kMostPoints; ++row) {
    cells_.push_back({add(row, 0), add(row, 1), add(row, 2), add(row, 3)});
  }
  static_cast<QVBoxLayout*>(points_->layout())->addStretch();
  points_->setMinimumWidth(QFontMetrics(font()).averageCharWidth() * 36);
}

void OperatingPointsWindow::fillPoints() {
  const std::vector<OperatingPointRow> rows = operating_point_rows(session().advanced());
  for (std::size_t i = 0; i < cells_.size(); ++i) {
    const OperatingPointRow row = i < rows.size() ? rows[i] : OperatingPointRow{};
    const std::string* const texts[] = {&row.name, &row.frequency, &row.gain, &row.lamp_voltage};
    for (std::size_t column = 0; column < cells_[i].size(); ++column) {
      cells_[i][column]->setText(to_qstring(*texts[column]));
    }
  }
  points_->setVisible(!rows.empty());
}

void OperatingPointsWindow::settleScrolling() {
  const auto axes = graph_->scale();
  scroll_->setVisible(axes.has_value());
  if (!axes) return;
  const double length = axes->end - axes->start;
  const QSignalBlocker quiet(scroll_);
  scroll_->setPageStep(static_cast<int>(length));
  scroll_->setRange(0, static_cast<int>(std::max(length * kScrollReach, graph_->offset())));
  scroll_->setValue(static_cast<int>(graph_->offset()));
}

void OperatingPointsWindow::placeButton() {
  button_->setVisible(!session().operatingPointsGraph().inputsAvailable());
  button_->adjustSize();
  const int line = QFontMetrics(font()).height();
  button_->move((graph_->width() - button_->width()) / 2, graph_->height() / 2 + 2 * line);
}

void OperatingPointsWindow::tellCursor() {
  const bool stale = bench().status.state() == DesignStatus::State::Stale;
  const QString readout = graph_->readout();
  graph_->setAccessibleDescription(readout);
  showStatus(readout, stale ? "out of date" : "");
}

void OperatingPointsWindow::command(const std::string& key) {
  if (session().isBusy()) return;
  if (key == "c_print") {
    session().printScreen(screen().name());
  } else {
    session().operatingPointsGraph().ExportGraph(bench().dialogs, session().folder(),
                                                 [this](const auto& file, const Picture& picture) {
                                                   return session().writePicture(file, picture);
                                                 });
  }
}

void OperatingPointsWindow::calculate() {
  session().advanced().command_button_Click(kCalculateButton);
}

}  // namespace vantrel
