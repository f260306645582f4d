#pragma once

#include <array>

#include "screens/design_window.h"

namespace vantrel {

class CoreRow;
class FramePanel;
class Notice;

/// The transformer designer: inputs at the left, core and results at the right.
class TransformerWindow : public DesignWindow {
  Q_OBJECT

 public:
  explicit TransformerWindow(Workbench bench);

 private:
  void makePanels(QWidget& parent);
  QWidget* makeButtons();
  void design();
  void edited();
  void refresh();

  FramePanel* inputs_ = nullptr;
  FramePanel* core_panel_ = nullptr;
  FramePanel* results_ = nullptr;
  CoreRow* core_ = nullptr;
  Notice* notice_ = nullptr;
  bool edited_ = false;
};

}  // namespace vantrel
