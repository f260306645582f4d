#pragma once

#include <QWidget>

#include "screens/design_window.h"
#include "services/debug_utils.h"

class QLabel;
class QListWidget;
class QPushButton;

namespace vantrel {

/// Runs the checks of the design database and shows their report.
class CheckPage : public QWidget {
  Q_OBJECT

 public:
  explicit CheckPage(Workbench bench, QWidget* parent = nullptr);

  /// Reads the pick-list of references anew; the chosen one stays where there is one.
  void refresh();
  /// Runs the selected test.
  void start();

 private:
  QWidget* makeChoices();
  QWidget* makeReport();
  void addLine(const QString& line);
  void showTotals();
  QString reportText() const;
  void copy();
  void save();

  Workbench bench_;
  DebugUtils checks_;
  int findings_ = 0;  ///< Those whose lines the report shows.
  QListWidget* tests_;
  QListWidget* components_;
  QListWidget* report_;
  QLabel* totals_;
  QPushButton* copy_ = nullptr;
  QPushButton* save_ = nullptr;
};

}  // namespace vantrel
