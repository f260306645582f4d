#pragma once

#include <array>
#include <vector>

#include "screens/notice.h"
#include "screens/output_window.h"
#include "screens/time_domain_plot.h"
#include "screens/trace_button.h"

class QCheckBox;
class QPushButton;
class QScrollBar;
class QSlider;
class QTableWidget;

namespace vantrel {

/// The window of the simulated start of the lamp.
class TimeDomainWindow : public OutputWindow {
  Q_OBJECT

 public:
  explicit TimeDomainWindow(Workbench bench);

 protected:
  void command(const std::string& key) override;
  void calculate() override;
  void keyPressEvent(QKeyEvent* event) override;

 private:
  struct Scale {
    QSlider* slider;
    QLabel* range;
  };

  GraphTimeDomain& form() { return session().timeDomainForm(); }
  void makeCommands();
  void makeMenus();
  QWidget* makeMiddle();
  QWidget* makeScale(std::size_t index, const QString& caption);
  QWidget* makeToggles();
  void refresh();
  void refreshTable();
  void refreshStatus();
  void exportWindow();

  TimeDomainPlot* plot_;
  std::array<Scale, 2> scales_{};
  QScrollBar* scroll_;
  QTableWidget* table_;
  Notice* notice_;
  QPushButton* button_;
  std::vector<TraceButton*> toggles_;
  std::vector<QAction*> plot_entries_;
  std::vector<QAction*> jumps_;
  QCheckBox* autofit_;
  QAction* zoom_in_ = nullptr;
  QAction* previous_ = nullptr;
  QAction* cursor_info_ = nullptr;
  QAction* condensed_ = nullptr;
  QAction* full_ = nullptr;
  QAction* autofit_entry_ = nullptr;
  bool following_ = false;  ///< True while widgets are set from the form.
};

}  // namespace vantrel
