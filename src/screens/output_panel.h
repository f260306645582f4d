#pragma once

#include <vector>

#include "app/result_summary.h"
#include "screens/frame_panel.h"

class QPushButton;

namespace vantrel {

/// The buttons to the output windows.
class OutputPanel : public Panel {
  Q_OBJECT

 public:
  explicit OutputPanel(Appearance& look, QWidget* parent = nullptr);

  void show(const std::vector<OutputEntry>& entries);
  using QWidget::show;

 signals:
  /// The user wants an output window; `command` opens it.
  void requested(const QString& command);

 private:
  struct Button {
    QPushButton* button;
    QString command;
  };
  QPushButton& buttonAt(std::size_t position);

  std::vector<Button> buttons_;
};

}  // namespace vantrel
