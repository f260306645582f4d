#pragma once

#include <QDialog>

#include "selection/missing_fields.h"

class QListWidget;
class QPushButton;

namespace vantrel {

/// The list of fields that a calculation found empty, with the way to each of them.
class MissingFieldsDialog : public QDialog {
  Q_OBJECT

 public:
  MissingFieldsDialog(MissingFields& missing, QWidget* parent = nullptr);

 private:
  void goTo();

  MissingFields& missing_;
  QListWidget* list_;
  QPushButton* go_;
};

}  // namespace vantrel
