#include "screens/transformer_window.h"

#include <QCheckBox>
#include <QComboBox>
#include <QGridLayout>
#include <QPushButton>
#include <QScrollArea>
#include <QShortcut>

#include "screens/core_row.h"
#include "screens/designer_buttons.h"
#include "screens/designer_pane.h"
#include "screens/frame_panel.h"
#include "screens/notice.h"
#include "screens/view_connection.h"

namespace vantrel {

namespace {

constexpr int kMargin = 12;
constexpr int kGap = 10;

}  // namespace

TransformerWindow::TransformerWindow(Workbench workbench)
    : DesignWindow(workbench.session.transformer(), *workbench.session.bar("Transformer"),
                   workbench, kWithStrip) {
  auto* middle = new QWidget;
  notice_ = new Notice(bench().look, {}, middle);
  makePanels(*middle);
  auto* rows = new QVBoxLayout(middle);
  rows->setContentsMargins(kMargin, 6, kMargin, 6);
  rows->setSpacing(kGap);
  auto* sides = new QHBoxLayout;
  sides->setSpacing(kGap);
  auto* right = new QVBoxLayout;
  right->setSpacing(kGap);
  right->addWidget(core_panel_);
  right->addWidget(results_);
  right->addWidget(notice_);
  right->addStretch();
  sides->addWidget(inputs_, 1, Qt::AlignTop);
  sides->addLayout(right, 1);
  rows->addLayout(sides, 1);
  rows->addWidget(makeButtons());
  setCentralWidget(scrolling_pane(middle, this));
  auto* main_action = new QShortcut(QKeySequence("F5"), this);
  connect(
      main_action, &QShortcut::activated, this, [this] { design(); }, Qt::QueuedConnection);
  resize(860, 540);

  connect_view(screen().layoutChanged, this, [this] { refresh(); });
  connect_view(bench().status.changed, this, [this] { refresh(); });
  connect_view(session().calculationStarted, this, [this] { notice_->tell({}); });
  // A result that was set fits the inputs again.
  connect_view(screen().field("tfr_al").changed, this, [this](Variant&) {
    edited_ = false;
    refresh();
  });
  refresh();
}

void TransformerWindow::makePanels(QWidget& parent) {
  Transformer& transformer = session().transformer();
  const auto panel = [&](const char* frame) {
    auto* made = new FramePanel(transformer, frame, bench().look, -1, &parent);
    connect(made, &FramePanel::edited, this, &TransformerWindow::edited);
    return made;
  };
  inputs_ = panel("frame_inputs");
  core_panel_ = panel("frame_core");
  core_ = new CoreRow(transformer, *transformer.findPullDown("tfr_ComboCore"),
                      *transformer.findTickBox("tfr_fixcoresize"), bench().look, *core_panel_);
  connect(core_, &CoreRow::edited, this, &TransformerWindow::edited);
  results_ = panel("frame_results");
  results_->rows().back()->editor().setDigits(ValueEditor::kDigits);
  FramePanel* const left[] = {inputs_};
  align_columns(left);
  FramePanel* const right[] = {core_panel_, results_};
  align_with_core(right, *core_);
}

QWidget* TransformerWindow::makeButtons() {
  auto* row = new DesignerButtons(bench().look, this);
  connect(
      row->addMain("Transformer.CalculateTransformer", "Design"), &QPushButton::clicked, this,
      [this] { design(); }, Qt::QueuedConnection);
  connect(
      row->add("Transformer.CommandLoadTheInputs", "Load Inputs"), &QPushButton::clicked, this,
      [this] {
        session().loadTransformerInputs();
        edited();
      },
      Qt::QueuedConnection);
  connect(
      row->add("Transformer.ShowDatasheet", "Show Drawing", "transformer"), &QPushButton::clicked,
      this, [this] { run("c_transformer"); }, Qt::QueuedConnection);
  connect(
      row->add("Transformer.CommandEditUserData", "User Core Types...", "edit"),
      &QPushButton::clicked, this, [this] { session().transformer().CommandEditUserData(); },
      Qt::QueuedConnection);
  return row;
}

void TransformerWindow::design() {
  design_with_notice(session(), *notice_, [this] { return session().designTransformer(); });
}

void TransformerWindow::edited() {
  edited_ = true;
  bench().status.designChanged();
}

void TransformerWindow::refresh() {
  const bool stale = edited_ || bench().status.state() == DesignStatus::State::Stale;
  results_->setStale(stale);
  core_->setStale(stale);
}

}  // namespace vantrel
