#pragma once

#include <QWidget>

#include "components/explain.h"
#include "screens/design_window.h"

class QLabel;
class QLineEdit;
class QListWidget;
class QTreeWidget;
class QTreeWidgetItem;

namespace vantrel {

/// Shows how a component of the last calculation came by its value.
class ExplainPage : public QWidget {
  Q_OBJECT

 public:
  explicit ExplainPage(Workbench bench, QWidget* parent = nullptr);

  /// Reads the names anew and explains the chosen one again.
  void refresh();

 private:
  QWidget* makeNames();
  void filter();
  void explain();

  Workbench bench_;
  QLineEdit* search_;
  QListWidget* names_;
  QLabel* note_;
  QTreeWidget* tree_;
};

}  // namespace vantrel
