#pragma once

#include <array>

#include "app/result_summary.h"
#include "screens/design_window.h"
#include "selection/slots.h"

class QPushButton;
class QStackedWidget;
class QTimer;

namespace vantrel {

class Banner;
class KeyNumbersPanel;
class OutputPanel;
class SelectionTile;

/// The main window for the occasional user: four choices, one button, and what came of it.
class SimpleWindow : public DesignWindow {
  Q_OBJECT

 public:
  explicit SimpleWindow(Workbench bench);

 private:
  QWidget* makeChoices();
  QWidget* makeStart();
  QWidget* makeResults();
  void press(int button);
  void showWarningAgain();
  void openProject(const QString& path);
  void refresh();

  ResultSummary summary_;
  std::array<SelectionTile*, kSlotCount> tiles_{};
  QPushButton* calculate_ = nullptr;
  QStackedWidget* pages_ = nullptr;
  KeyNumbersPanel* numbers_ = nullptr;
  OutputPanel* outputs_ = nullptr;
  QTimer* refresh_timer_;
};

}  // namespace vantrel
