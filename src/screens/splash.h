#pragma once

#include <QTimer>
#include <QWidget>

#include "screens/appearance.h"

namespace vantrel {

/// The picture that fades in while the program starts, and out in front of the main screen. A click
/// or a key ends it early; "c" asks for the options.
class Splash : public QWidget {
  Q_OBJECT

 public:
  Splash(const Appearance& look, const QString& version);

  /// Shows the splash; it deletes itself at its end.
  void begin();

 signals:
  /// The fade is over and the splash is hidden.
  void finished();
  void optionsRequested();

 protected:
  void paintEvent(QPaintEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void closeEvent(QCloseEvent* event) override;

 private:
  void fadeIn();
  void fadeOut();
  void leave();
  void end();

  const Appearance& look_;
  QString version_;
  QTimer fade_timer_;
  QTimer splash_timer_;
  QTimer fade_out_timer_;
  int opacity_ = 0;
  bool ended_ = false;
};

}  // namespace vantrel
