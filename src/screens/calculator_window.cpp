#include "screens/calculator_window.h"

#include <QGridLayout>
#include <QLabel>
#include <QPushButton>
#include <QRadioButton>
#include <QScrollArea>
#include <QShortcut>

#include "components/calculator_fields.h"
#include "components/preferred/preferred_values.h"
#include "screens/designer_buttons.h"
#include "screens/designer_pane.h"
#include "screens/frame_panel.h"
#include "screens/notice.h"
#include "screens/view_connection.h"

namespace vantrel {

namespace {

constexpr int kMargin = 12;
constexpr int kGap = 10;
constexpr int kLetterGap = 8;
/// Room of an output: component values are short, but names of parts stand there too.
constexpr int kOutputDigits = 12;

constexpr const char* kInputFrames[] = {"frame_operating_points", "frame_preheat",
                                        "frame_phase_angle", "frame_misc"};

}  // namespace

CalculatorWindow::CalculatorWindow(Workbench workbench)
    : DesignWindow(workbench.session.calculator(), *workbench.session.bar("Calculator"), workbench,
                   kWithStrip) {
  auto* middle = new QWidget(this);
  notice_ = new Notice(bench().look, "Missing items...", middle);
  connect(notice_, &Notice::buttonClicked, this, &CalculatorWindow::showMissing);
  auto* rows = new QVBoxLayout(middle);
  rows->setContentsMargins(kMargin, 6, kMargin, 6);
  rows->setSpacing(kGap);
  auto* sides = new QHBoxLayout;
  sides->setSpacing(kGap);
  sides->addWidget(makeInputs(), 1);
  sides->addWidget(makeOutputs(), 1);
  rows->addWidget(notice_);
  rows->addLayout(sides, 1);
  rows->addWidget(makeButtons());
  setCentralWidget(middle);
  auto* main_action = new QShortcut(QKeySequence("F5"), this);
  connect(
      main_action, &QShortcut::activated, this, [this] { session().findComponents(); },
      Qt::QueuedConnection);
  resize(860, 600);

  connect_view(screen().layoutChanged, this, [this] { refresh(); });
  connect_view(bench().status.changed, this, [this] { refresh(); });
  // A result that was set fits the inputs again.
  connect_view(screen().field(kOutputRow, 0).changed, this, [this](Variant&) {
    edited_ = false;
    refresh();
  });
  refresh();
}

QWidget* CalculatorWindow::makeInputs() {
  auto* content = new QWidget(this);
  auto* column = new QVBoxLayout(content);
  column->setContentsMargins(0, 0, 0, 0);
  column->setSpacing(kGap);
  for (const char* frame : kInputFrames) {
    auto* panel = new FramePanel(screen(), frame, bench().look, -1, content);
    connect(panel, &FramePanel::edited, this, &CalculatorWindow::edited);
    inputs_.push_back(panel);
    column->addWidget(panel);
  }
  column->addStretch();
  align_columns(inputs_);
  return scrolling_column(content);
}

QWidget* CalculatorWindow::makeOutputs() {
  auto* content = new QWidget(this);
  auto* column = new QVBoxLayout(content);
  column->setContentsMargins(0, 0, 0, 0);
  outputs_ = new FramePanel(screen(), kOutputsFrame, bench().look, -1, content);
  for (FieldRow* row : outputs_->rows()) {
    row->editor().setDigits(kOutputDigits);
    const int height = row->editor().sizeHint().height();
    for (QLabel* label : {&row->label(), &row->unit()}) {
      label->setFixedHeight(height);
      outputs_->grid().setAlignment(label, Qt::AlignBottom);
    }
    outputs_->grid().setAlignment(&row->editor(), Qt::AlignBottom);
  }
  column->addWidget(outputs_);
  column->addStretch();
  return scrolling_column(content);
}

QWidget* CalculatorWindow::makeButtons() {
  auto* row = new DesignerButtons(bench().look, this);
  QPushButton* find = row->addMain("Calculator.find_components", "Find Components");
  connect(
      find, &QPushButton::clicked, this, [this] { session().findComponents(); },
      Qt::QueuedConnection);
  connect(
      row->add("Calculator.design_ballast", "Design Ballast", "play"), &QPushButton::clicked, this,
      [this] { session().designBallast(); }, Qt::QueuedConnection);
  connect(
      row->add("Calculator.load_op_points", "Load Operating Points"), &QPushButton::clicked, this,
      [this] {
        session().loadOperatingPoints();
        edited();
      },
      Qt::QueuedConnection);
  auto* words = new QLabel("Preferred values", row);
  words->setForegroundRole(QPalette::PlaceholderText);
  row->addRight(words);
  const auto option = [&](const char* name, const char* caption, int series) {
    auto* button = new QRadioButton(caption, row);
    button->setObjectName(QString("Calculator.") + name);
    button->setAccessibleName(QString("Preferred values ") + caption);
    button->setToolTip(to_qstring(screen().findTickBox(name)->tooltip));
    connect(button, &QRadioButton::clicked, this, [this, series] {
      session().calculator().selectSeries(series);
      edited();
    });
    row->addRight(button);
    return button;
  };
  e24_ = option("component_match_e24", "E24", kSeriesE24);
  e12_ = option("component_match_e12", "E12", kSeriesE12);
  return row;
}

void CalculatorWindow::edited() {
  edited_ = true;
  bench().status.designChanged();
  refresh();
}

void CalculatorWindow::refresh() {
  const bool e12 = session().calculator().series() == kSeriesE12;
  e12_->setChecked(e12);
  e24_->setChecked(!e12);
  outputs_->setStale(edited_ || bench().status.state() == DesignStatus::State::Stale);
  notice_->tell(to_qstring(screen().findInfoLine(Calculator::kStatusLine)->text));
  spaceOutputs();
}

void CalculatorWindow::spaceOutputs() {
  QGridLayout& grid = outputs_->grid();
  const std::vector<int>& tops = session().calculator().outputs().tops();
  const int height = outputs_->rows().front()->editor().sizeHint().height();
  int pitch = 0;
  for (std::size_t i = 1; i < tops.size(); ++i) {
    const int step = tops[i] - tops[i - 1];
    pitch = pitch == 0 ? step : std::min(pitch, step);
  }
  for (std::size_t i = 0; i < outputs_->rows().size(); ++i) {
    const bool apart = i > 0 && i < tops.size() && tops[i] - tops[i - 1] > pitch;
    grid.setRowMinimumHeight(static_cast<int>(i), apart ? height + kLetterGap : 0);
  }
  FramePanel* const panels[] = {outputs_};
  align_columns(panels);
}

void CalculatorWindow::showMissing() {
  std::string text = "These components could not be calculated:¬";
  for (const std::string& name : session().calculator().missingItems()) text += "¬" + name;
  session().messages().msg(screen().name(), text);
}

}  // namespace vantrel
