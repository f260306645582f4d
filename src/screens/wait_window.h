#pragma once

#include <QWidget>

#include "core/please_wait.h"
#include "screens/appearance.h"

class QLabel;
class QProgressBar;
class QPushButton;
class QTimer;

namespace vantrel {

/// The wait indicator: a clock that moves on while work goes on, the message, and a Cancel button
/// or a bar that fills up.
class WaitWindow : public QWidget {
  Q_OBJECT

 public:
  WaitWindow(PleaseWait& wait, Appearance& look);

 protected:
  void closeEvent(QCloseEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;

 private:
  void refresh();
  void cancel();
  QPixmap clockFace() const;

  PleaseWait& wait_;
  Appearance& look_;
  QLabel* clock_;
  QLabel* message_;
  QPushButton* cancel_;
  QProgressBar* bar_;
  QTimer* fill_;
};

}  // namespace vantrel
