#pragma once

#include <array>
#include <vector>

#include "screens/gain_graph.h"
#include "screens/output_window.h"

class QLabel;
class QPushButton;
class QScrollBar;

namespace vantrel {

class Panel;

/// The operating-points graph with a table of its points.
class OperatingPointsWindow : public OutputWindow {
  Q_OBJECT

 public:
  explicit OperatingPointsWindow(Workbench bench);

 protected:
  void command(const std::string& key) override;
  void calculate() override;

 private:
  void afterDrawing();
  void makePoints();
  void fillPoints();
  void settleScrolling();
  void placeButton();
  void tellCursor();

  GainGraph* graph_;
  QScrollBar* scroll_;
  QPushButton* button_;
  Panel* points_;
  std::vector<std::array<QLabel*, 4>> cells_;  ///< Rows of the table of points.
};

}  // namespace vantrel
