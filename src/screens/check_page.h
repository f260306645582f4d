#pragma once

#include <QWidget>

#include "screens/design_window.h"
#include "services/debug_utils.h"

class QHBoxLayout;
class QLabel;
class QListWidget;
class QProgressBar;
class QPushButton;
class QTimer;

namespace vantrel {

/// Runs the checks of the design database, and the calculation of everything that can be selected,
/// and shows their report. The window stays alive meanwhile, and the user can cancel.
class CheckPage : public QWidget {
  Q_OBJECT

 public:
  explicit CheckPage(Workbench bench, QWidget* parent = nullptr);

  /// Reads the pick-list of references anew; the chosen one stays where there is one.
  void refresh();
  /// Runs the selected test.
  void start();
  /// Ends the test under way; its report keeps what there is.
  void cancel();
  /// Calculates every combination of the selections.
  void testAll();

 private:
  QWidget* makeChoices();
  QWidget* makeReport();
  void addProgress(QHBoxLayout& row);
  void begin();
  void step();
  void end(const QString& last_line = {});
  void addLine(const QString& line, const char* picture = nullptr, Role role = Role::Error);
  void addCheckLine(const QString& line);
  void addFailure();
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
  QTimer* steps_;
  QProgressBar* progress_ = nullptr;
  QPushButton* cancel_ = nullptr;
  QPushButton* start_ = nullptr;
  QPushButton* all_ = nullptr;
  QPushButton* copy_ = nullptr;
  QPushButton* save_ = nullptr;
};

}  // namespace vantrel
