#include "screens/advanced_window.h"

#include <QCheckBox>
#include <QLabel>
#include <QPushButton>
#include <QShortcut>
#include <QTabBar>
#include <QVBoxLayout>
#include <algorithm>
#include <span>

#include "operating/advanced_fields.h"
#include "screens/banner.h"
#include "screens/history_list.h"
#include "screens/margins_panel.h"
#include "screens/tab_pages.h"
#include "screens/theme_style.h"
#include "screens/view_connection.h"

namespace vantrel {

namespace {

constexpr int kMargin = 12;
/// From this width on the inputs stand in two columns; pixels at 100 %.
constexpr int kWide = 1500;

// Rows of a frame where they do not follow each other as the fields of the screen do.
constexpr const char* kLineRows[] = {"min_input_voltage", "max_input_voltage"};
constexpr const char* kBusRows[] = {"preheat_dc_bus_voltage", "ignition_dc_bus_voltage",
                                    "running_dc_bus_voltage", "max_dc_bus_voltage",
                                    "min_dc_bus_voltage"};
constexpr const char* kPreheatRows[] = {"max_preheat_voltage", "preheat_current",
                                        "preheat_frequency_vm"};
constexpr const char* kPointRows[] = {
    "start_frequency",  "preheat_frequency", "ignition_frequency",  "run_frequency",
    "max_frequency",    "min_frequency",     "resonance_frequency", "preheat_voltage",
    "ignition_current", "lamp_resistance",   "lamp_resistance_max", "lamp_resistance_min"};

/// Where a frame stands on its page: its column when there are two, and the order of its rows.
struct Place {
  const char* frame;
  int column;
  std::span<const char* const> rows;
};

constexpr Place kPlaces[] = {
    {"frame_line_voltage", 0, kLineRows},
    {"frame_bus_voltage", 0, kBusRows},
    {"frame_frequency", 1, {}},
    {"frame_preheat", 0, kPreheatRows},
    {"frame_ignition", 0, {}},
    {"frame_run", 1, {}},
    {"frame_dimming", 1, {}},
    {"frame_operating_points", 0, kPointRows},
    {"frame_tank_components", 1, {}},
    {"frame_phase_angle", 1, {}},
    {"frame_pfc_input_power", 0, {}},
    {"frame_pfc_components", 1, {}},
    {"frame_pfc_ontime", 1, {}},
};

constexpr int kCalculate = 0;

QIcon command_icon(const Appearance& look, int command) {
  switch (command) {
    case kCalculate:
      return look.icon("play", Role::OnAccent);
    case 1:
      return look.barIcon("Edt");
    case 2:
      return look.icon("inductor");
    case 3:
      return look.icon("transformer");
    default:
      return look.icon("components");
  }
}

}  // namespace

AdvancedWindow::AdvancedWindow(Workbench workbench)
    : DesignWindow(workbench.session.advanced(), *workbench.session.bar("Advanced"), workbench,
                   kWithStrip) {
  Advanced& advanced = session().advanced();
  auto* middle = new QWidget(this);
  inputs_ =
      new TabPages("Inputs", advanced.input_tabstrip, TabPages::kAsContent, bench().look, middle);
  results_ =
      new TabPages("Results", advanced.output_tabstrip, TabPages::kTakesRest, bench().look, middle);
  auto* banner = new Banner(bench().status, bench().look);
  results_->setNotice(banner);
  results_->setTwoColumns(true);
  addFrames();

  auto* box = new QVBoxLayout(middle);
  box->setContentsMargins(kMargin, 8, kMargin, 4);
  box->setSpacing(8);
  auto* panes = new QHBoxLayout;
  panes->setSpacing(kMargin);
  panes->addWidget(inputs_);
  panes->addWidget(results_, 1);
  box->addLayout(panes);
  box->addWidget(makeCommands());
  history_ = new HistoryList(middle);
  auto* heading = new QLabel("History", middle);
  heading->setForegroundRole(QPalette::PlaceholderText);
  heading->setBuddy(history_);
  auto* lines = new QVBoxLayout;
  lines->setSpacing(2);
  lines->addWidget(heading);
  lines->addWidget(history_, 1);
  box->addLayout(lines, 1);
  setCentralWidget(middle);

  connect(
      banner, &Banner::calculateRequested, this, [this] { click(kCalculate); },
      Qt::QueuedConnection);
  connect(
      banner, &Banner::detailsRequested, this, [this] { showDetails(); }, Qt::QueuedConnection);
  connect(
      history_, &HistoryList::rowChosen, this,
      [this](int row) {
        run("c_browsecalc*" + std::to_string(row + 1));
        refresh();
      },
      Qt::QueuedConnection);
  for (TabPages* pages : {inputs_, results_}) {
    connect(pages, &TabPages::tabChosen, this,
            [this] { session().advanced().set_frames_from_tabstrips(); });
  }
  const auto shortcut = [this](const char* keys, auto slot) {
    connect(new QShortcut(QKeySequence(keys), this), &QShortcut::activated, this, slot,
            Qt::QueuedConnection);
  };
  shortcut("F5", [this] { click(kCalculate); });
  shortcut("F6", [this] { nextPane(1); });
  shortcut("Shift+F6", [this] { nextPane(-1); });
  connect_view(advanced.layoutChanged, this, [this] { refresh(); });
  connect_view(bench().status.changed, this, [this] { showStale(); });
  refresh();
  showStale();
  orderTabs();
  resize(1140, 730);
}

void AdvancedWindow::addFrames() {
  // Panels of a page and column share the widths of their grid; inputs of one page all do, because
  // they may stand in a single column.
  for (TabPages* pages : {inputs_, results_}) {
    const bool input = pages == inputs_;
    for (std::size_t tab = 0; tab < pages->pages().size(); ++tab) {
      std::array<std::vector<FramePanel*>, 2> aligned;
      FramePage& page = *pages->pages()[tab];
      for (const AdvancedFrame& frame : advanced_frames()) {
        if (frame.input != input || frame.tab != static_cast<int>(tab)) continue;
        const auto* place =
            std::find_if(std::begin(kPlaces), std::end(kPlaces),
                         [&](const auto& p) { return std::string_view(p.frame) == frame.name; });
        auto* panel = new FramePanel(screen(), frame.name, bench().look, -1, &page, place->rows);
        connect(panel, &FramePanel::edited, this, [this] { bench().status.inputChanged(); });
        page.add(panel, place->column);
        aligned[input ? 0 : static_cast<std::size_t>(place->column)].push_back(panel);
        (input ? input_panels_ : result_panels_).push_back(panel);
      }
      for (const auto& column : aligned) align_columns(column);
    }
  }
  results_->pages().front()->add(new MarginsPanel(bench().status, bench().look), 1);
}

QWidget* AdvancedWindow::makeCommands() {
  auto* strip = new QWidget(this);
  auto* row = new QHBoxLayout(strip);
  row->setContentsMargins(0, 0, 0, 0);
  row->setSpacing(8);
  for (const CommandButton& command : screen().buttons()) {
    auto* button = new QPushButton(to_qstring(command.caption), strip);
    button->setObjectName("command_button." + QString::number(command.index));
    button->setAccessibleName(to_qstring(command.caption));
    button->setIcon(command_icon(bench().look, command.index));
    button->setMinimumHeight(fontMetrics().height() + 12);
    if (command.index == kCalculate) {
      ThemeStyle::setMainAction(*button);
      QFont bold = button->font();
      bold.setBold(true);
      button->setFont(bold);
      button->setMinimumWidth(fontMetrics().averageCharWidth() * 20);
      button->setToolTip("Calculate (F5)");
    }
    connect(
        button, &QPushButton::clicked, this, [this, index = command.index] { click(index); },
        Qt::QueuedConnection);
    row->addWidget(button);
    if (command.index == kCalculate) row->addSpacing(8);
    commands_.push_back(button);
  }
  row->addStretch(1);
  return strip;
}

void AdvancedWindow::click(int command) {
  commitTyping();
  session().advanced().command_button_Click(command);
}

void AdvancedWindow::showDetails() {
  const DesignStatus& status = bench().status;
  const std::string text = status.warning().empty() ? status.lastMessage() : status.warning();
  if (text.empty() || session().isBusy()) return;
  session().messages().msg(screen().name(), text, kMessageOk, kSeverityWarning);
}

void AdvancedWindow::showStale() {
  const DesignStatus::State state = bench().status.state();
  const bool stale = state == DesignStatus::State::Stale || state == DesignStatus::State::Failed;
  for (FramePanel* panel : result_panels_) panel->setStale(stale);
}

void AdvancedWindow::refresh() {
  Advanced& advanced = session().advanced();
  inputs_->refresh();
  results_->refresh();
  const auto line = [&](const char* name, const TabStrip& strip) {
    return to_qstring(advanced.findInfoLine(name + std::to_string(strip.selected))->text);
  };
  inputs_->setInformation(line("InputInfo", advanced.input_tabstrip));
  results_->setInformation(line("OutputInfo", advanced.output_tabstrip));
  for (std::size_t i = 0; i < commands_.size(); ++i) {
    commands_[i]->setEnabled(advanced.buttons()[i].enabled);
  }
  history_->refresh(*advanced.findPullDown("CalculationPulldown"));
}

void AdvancedWindow::orderTabs() {
  QWidget* last = &inputs_->tabs();
  const auto follow = [&last](QWidget* next) {
    setTabOrder(last, next);
    last = next;
  };
  const auto rows = [&](const std::vector<FramePanel*>& panels) {
    for (FramePanel* panel : panels) {
      for (FieldRow* row : panel->rows()) {
        follow(&row->editor());
        if (row->tick() != nullptr) follow(row->tick());
      }
    }
  };
  rows(input_panels_);
  follow(&results_->tabs());
  if (auto* notice = findChild<QPushButton*>("banner.button")) follow(notice);
  rows(result_panels_);
  for (QPushButton* button : commands_) follow(button);
  follow(history_);
}

void AdvancedWindow::nextPane(int step) {
  QWidget* const panes[] = {&inputs_->tabs(), &results_->tabs(), commands_.front(), history_};
  QWidget* const focused = focusWidget();
  int at = 0;
  if (focused == history_) {
    at = 3;
  } else if (std::find(commands_.begin(), commands_.end(), focused) != commands_.end()) {
    at = 2;
  } else if (results_->isAncestorOf(focused)) {
    at = 1;
  } else if (!inputs_->isAncestorOf(focused)) {
    at = step > 0 ? -1 : 0;
  }
  panes[(at + step + 4) % 4]->setFocus(Qt::TabFocusReason);
}

void AdvancedWindow::resizeEvent(QResizeEvent* event) {
  DesignWindow::resizeEvent(event);
  inputs_->setTwoColumns(width() > kWide);
}

}  // namespace vantrel
