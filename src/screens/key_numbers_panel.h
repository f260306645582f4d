#pragma once

#include <memory>

#include "app/result_summary.h"
#include "screens/frame_panel.h"
#include "screens/number_rows.h"

namespace vantrel {

/// The last run at a glance: how it ended, and its numbers in two columns.
class KeyNumbersPanel : public Panel {
  Q_OBJECT

 public:
  explicit KeyNumbersPanel(Appearance& look, QWidget* parent = nullptr);

  void show(const ResultSummary& summary);
  using QWidget::show;

 private:
  void showOutcome();

  RunOutcome outcome_ = RunOutcome::Complete;
  QLabel* picture_;
  QLabel* outcome_text_;
  QLabel* note_;
  std::unique_ptr<NumberRows> left_;
  std::unique_ptr<NumberRows> right_;
};

}  // namespace vantrel
