#pragma once

#include "screens/image_sheet.h"
#include "screens/output_window.h"

namespace vantrel {

/// The circuit diagram and the drawings of the magnetic parts.
class ImageWindow : public OutputWindow {
  Q_OBJECT

 public:
  explicit ImageWindow(Workbench bench);

 protected:
  void command(const std::string& key) override;
  void calculate() override;
  void changeEvent(QEvent* event) override;

 private:
  void refresh();

  ImageSheet* sheet_;
  QString pointed_;  ///< The component under the pointer with its value.
  QAction* gerber_ = nullptr;
  QAction* check_;
  QAction* balance_;
};

}  // namespace vantrel
