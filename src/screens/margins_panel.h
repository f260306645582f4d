#pragma once

#include <array>

#include "app/design_status.h"
#include "screens/frame_panel.h"

namespace vantrel {

/// The conditions that a design should keep, as numbers with a check mark or a warning picture. Its
/// size does not depend on how many are known.
class MarginsPanel : public Panel {
  Q_OBJECT

 public:
  MarginsPanel(DesignStatus& status, Appearance& look, QWidget* parent = nullptr);

 private:
  struct Row {
    QLabel* picture;
    QLabel* label;
    QLabel* value;
  };
  void refresh();

  DesignStatus& status_;
  std::array<Row, 3> rows_{};
};

}  // namespace vantrel
