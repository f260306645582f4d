#include "screens/inductor_window.h"

#include <QCheckBox>
#include <QComboBox>
#include <QGridLayout>
#include <QLabel>
#include <QPushButton>
#include <QScrollArea>
#include <QShortcut>
#include <algorithm>

#include "core/number_text.h"
#include "magnetics/inductor_design.h"
#include "screens/core_row.h"
#include "screens/designer_buttons.h"
#include "screens/designer_pane.h"
#include "screens/frame_panel.h"
#include "screens/notice.h"
#include "screens/view_connection.h"

namespace vantrel {

namespace {

constexpr int kMargin = 12;
constexpr int kGap = 8;

/// What the window calls an inductor, and the bar's command for its drawing.
struct Heading {
  const char* reference;
  const char* words;
  const char* drawing;
};
constexpr Heading kHeadings[kInductorCount] = {{"LRES", "Resonant inductor", "c_lres"},
                                               {"LPFC", "PFC inductor", "c_pfc"}};
constexpr const char* kNoPfc = "The selected line input has no PFC stage";
constexpr double kMillitesla = 1000;

/// Panels of a column, in the order in which they stand.
enum PanelIndex : std::size_t { kInputs, kCore, kResults };

}  // namespace

InductorColumn::InductorColumn(Workbench bench, int index, QWidget* parent)
    : QWidget(parent),
      bench_(bench),
      index_(index),
      note_(new QLabel(this)),
      notice_(new Notice(bench.look, {}, this)) {
  const Heading& heading = kHeadings[index];
  setObjectName(heading.reference);
  auto* title = new QLabel(heading.reference, this);
  QFont large = font();
  large.setBold(true);
  large.setPointSizeF(large.pointSizeF() * 1.2);
  title->setFont(large);
  note_->setForegroundRole(QPalette::PlaceholderText);
  note_->setObjectName("heading");
  auto* head = new QHBoxLayout;
  head->setSpacing(kGap);
  head->addWidget(title);
  head->addWidget(note_, 1);
  auto* column = new QVBoxLayout(this);
  column->setContentsMargins(0, 0, 0, 0);
  column->setSpacing(kGap);
  column->addLayout(head);
  makePanels();
  for (FramePanel* panel : panels_) column->addWidget(panel);
  column->addWidget(notice_);
  column->addWidget(makeButtons());
  column->addStretch();

  Inductor& inductor = bench.session.inductor();
  connect_view(inductor.layoutChanged, this, [this] { refresh(); });
  connect_view(bench.status.changed, this, [this] { refresh(); });
  connect_view(bench.session.calculationStarted, this, [this] { notice_->tell({}); });
  // A result that was set fits the inputs again.
  connect_view(inductor.field("ind_al", index).changed, this, [this](Variant&) {
    edited_ = false;
    refresh();
  });
  refresh();
}

void InductorColumn::makePanels() {
  Inductor& inductor = bench_.session.inductor();
  const InductorTraits& traits = inductor_traits(index_);
  const char* const frames[] = {traits.input_frame, traits.core_frame, traits.result_frame};
  for (std::size_t i = 0; i < panels_.size(); ++i) {
    panels_[i] = new FramePanel(inductor, frames[i], bench_.look, index_, this);
    connect(panels_[i], &FramePanel::edited, this, &InductorColumn::edited);
  }
  core_ =
      new CoreRow(inductor, *inductor.findPullDown("ind_comboCore", index_),
                  *inductor.findTickBox("ind_checkFixCore", index_), bench_.look, *panels_[kCore]);
  connect(core_, &CoreRow::edited, this, &InductorColumn::edited);
  const int limit = static_cast<int>(kMillitesla * kFluxDensityLimit);
  auto* note = new QLabel(QString("limit %1 mT").arg(limit), panels_[kResults]);
  note->setForegroundRole(QPalette::PlaceholderText);
  const int last = panels_[kResults]->freeRow() - 1;
  panels_[kResults]->grid().addWidget(note, last, FieldRow::kTick, 1, 2);
  align_with_core(panels_, *core_);
}

QWidget* InductorColumn::makeButtons() {
  auto* row = new DesignerButtons(bench_.look, this);
  const QString index = "." + QString::number(index_);
  connect(
      row->addMain("Inductor.CalculateInductor" + index, "Design"), &QPushButton::clicked, this,
      [this] { design(); }, Qt::QueuedConnection);
  connect(
      row->add("Inductor.CommandLoadInputs" + index, "Load Inputs"), &QPushButton::clicked, this,
      [this] {
        bench_.session.loadInductorInputs(index_);
        edited();
      },
      Qt::QueuedConnection);
  connect(row->add("Inductor.ShowDatasheet" + index, "Show Drawing", "inductor"),
          &QPushButton::clicked, this, &InductorColumn::drawingRequested, Qt::QueuedConnection);
  return row;
}

void InductorColumn::edited() {
  edited_ = true;
  bench_.status.designChanged();
}

void InductorColumn::design() {
  if (!isEnabled()) return;
  design_with_notice(bench_.session, *notice_,
                     [this] { return bench_.session.designInductor(index_); });
}

void InductorColumn::refresh() {
  const bool needed =
      index_ == kInductorLres || bench_.session.advanced().says_yes("line_input_pfc");
  note_->setText(needed ? kHeadings[index_].words : kNoPfc);
  setEnabled(needed);
  const bool stale = edited_ || bench_.status.state() == DesignStatus::State::Stale;
  panels_[kCore]->setStale(stale);
  panels_[kResults]->setStale(stale);
  core_->setStale(stale);
  const VTLValue& flux = bench_.session.inductor().field("ind_peakfluxdensity", index_);
  const bool high = !flux.IsItEmpty() && to_double(flux.value()) > kMillitesla * kFluxDensityLimit;
  panels_[kResults]->rows().back()->editor().setWarning(high);
}

InductorWindow::InductorWindow(Workbench workbench)
    : DesignWindow(workbench.session.inductor(), *workbench.session.bar("Inductor"), workbench,
                   kWithStrip) {
  auto* middle = new QWidget;
  auto* rows = new QVBoxLayout(middle);
  rows->setContentsMargins(kMargin, 4, kMargin, 4);
  rows->setSpacing(kGap);
  auto* sides = new QHBoxLayout;
  sides->setSpacing(2 * kMargin);
  for (int index = 0; index < kInductorCount; ++index) {
    auto* column = new InductorColumn(bench(), index, middle);
    columns_[static_cast<std::size_t>(index)] = column;
    sides->addWidget(column, 1);
    connect(column, &InductorColumn::drawingRequested, this,
            [this, index] { run(kHeadings[index].drawing); });
  }
  rows->addLayout(sides);
  auto* shared = new DesignerButtons(bench().look, middle);
  connect(
      shared->add("Inductor.CommandEditUserData", "User Core Types...", "edit"),
      &QPushButton::clicked, this, [this] { session().inductor().CommandEditUserData(); },
      Qt::QueuedConnection);
  rows->addWidget(shared);
  rows->addStretch();
  setCentralWidget(scrolling_pane(middle, this));
  auto* main_action = new QShortcut(QKeySequence("F5"), this);
  connect(
      main_action, &QShortcut::activated, this, [this] { designFocused(); }, Qt::QueuedConnection);
  resize(920, 600);
}

void InductorWindow::designFocused() {
  const auto focused = std::find_if(columns_.begin(), columns_.end(), [](InductorColumn* column) {
    return column->isEnabled() && column->focusWidget() != nullptr &&
           column->focusWidget()->hasFocus();
  });
  (focused == columns_.end() ? columns_.front() : *focused)->design();
}

}  // namespace vantrel
