#pragma once

#include <QMainWindow>
#include <array>
#include <vector>

#include "screens/design_window.h"
#include "screens/frame_panel.h"

class QPushButton;

namespace vantrel {

class HistoryList;
class TabPages;

/// The working surface of a design: inputs on the left, results on the right, the commands and the
/// history below them.
class AdvancedWindow : public DesignWindow {
  Q_OBJECT

 public:
  explicit AdvancedWindow(Workbench bench);

 protected:
  void resizeEvent(QResizeEvent* event) override;

 private:
  void addFrames();
  QWidget* makeCommands();
  void click(int command);
  void showDetails();
  void showStale();
  void refresh();
  void orderTabs();
  void nextPane(int step);

  TabPages* inputs_;
  TabPages* results_;
  HistoryList* history_;
  std::vector<FramePanel*> input_panels_;
  std::vector<FramePanel*> result_panels_;
  std::vector<QPushButton*> commands_;
};

}  // namespace vantrel
