#pragma once

#include <QDialog>

#include "screens/design_window.h"

class QTabWidget;

namespace vantrel {

class CheckPage;
class ExplainPage;
class LogPage;

/// What those who write the rules of the database look at: checks of the database, the log of the
/// last calculation, and how a component came by its value.
class DiagnosticsWindow : public QDialog {
  Q_OBJECT

 public:
  explicit DiagnosticsWindow(Workbench bench, QWidget* parent = nullptr);

  /// Shows the window on top of the others.
  void open() override;

 protected:
  void showEvent(QShowEvent* event) override;

 private:
  void refreshShown();

  QTabWidget* tabs_;
  CheckPage* checks_;
  LogPage* log_;
  ExplainPage* explain_;
};

}  // namespace vantrel
