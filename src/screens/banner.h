#pragma once

#include <QWidget>

#include "app/design_status.h"
#include "screens/appearance.h"

class QLabel;
class QPushButton;

namespace vantrel {

/// One line above results that says what an engineer must not overlook: results that are out of
/// date, or the first warning of the last run. It takes no room while there is nothing to say.
class Banner : public QWidget {
  Q_OBJECT

 public:
  Banner(DesignStatus& status, Appearance& look, QWidget* parent = nullptr);

 signals:
  /// The user wants the results brought up to date.
  void calculateRequested();
  /// The user wants to read the whole warning again.
  void detailsRequested();

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  void refresh();

  DesignStatus& status_;
  Appearance& look_;
  QLabel* picture_;
  QLabel* text_;
  QPushButton* button_;
};

}  // namespace vantrel
