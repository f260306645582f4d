#pragma once

#include <QDialog>
#include <array>

#include "screens/design_window.h"

class QLabel;
class QListWidget;

namespace vantrel {

/// What only the circuit diagram or only the bill of materials has, in two lists side by side.
class ValidateWindow : public QDialog {
  Q_OBJECT

 public:
  explicit ValidateWindow(Workbench bench);

 protected:
  void closeEvent(QCloseEvent* event) override;
  void reject() override;

 private:
  static constexpr std::size_t kLists = 2;

  void refresh();

  Workbench bench_;
  std::array<QListWidget*, kLists> lists_;
  std::array<QLabel*, kLists> headings_;
  QLabel* picture_;
  QLabel* verdict_;
};

}  // namespace vantrel
