#pragma once

#include <array>
#include <vector>

#include "screens/design_window.h"

class QRadioButton;

namespace vantrel {

class FramePanel;
class Notice;

/// The component calculator: its inputs at the left, the calculated components at the right.
class CalculatorWindow : public DesignWindow {
  Q_OBJECT

 public:
  explicit CalculatorWindow(Workbench bench);

 private:
  QWidget* makeInputs();
  QWidget* makeOutputs();
  QWidget* makeButtons();
  void edited();
  void refresh();
  /// Sets the rows of the outputs apart where the first letter changes.
  void spaceOutputs();
  void showMissing();

  std::vector<FramePanel*> inputs_;
  FramePanel* outputs_ = nullptr;
  Notice* notice_ = nullptr;
  QRadioButton* e24_ = nullptr;
  QRadioButton* e12_ = nullptr;
  bool edited_ = false;
};

}  // namespace vantrel
