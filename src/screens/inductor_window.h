#pragma once

#include <array>

#include "screens/design_window.h"

class QLabel;

namespace vantrel {

class CoreRow;
class FramePanel;
class Notice;

/// One of the two inductors: inputs, core and gap, results, and the buttons that act on it.
class InductorColumn : public QWidget {
  Q_OBJECT

 public:
  InductorColumn(Workbench bench, int index, QWidget* parent = nullptr);

  /// Designs this inductor; a failure stays on view.
  void design();

 signals:
  /// Asks for the drawing of the inductor.
  void drawingRequested();

 private:
  void makePanels();
  QWidget* makeButtons();
  void refresh();
  void edited();

  Workbench bench_;
  int index_;
  QLabel* note_;
  std::array<FramePanel*, 3> panels_{};
  CoreRow* core_ = nullptr;
  Notice* notice_;
  bool edited_ = false;
};

/// The inductor designer: the resonant inductor at the left, the PFC inductor at the right.
class InductorWindow : public DesignWindow {
  Q_OBJECT

 public:
  explicit InductorWindow(Workbench bench);

 private:
  void designFocused();

  std::array<InductorColumn*, 2> columns_;
};

}  // namespace vantrel
