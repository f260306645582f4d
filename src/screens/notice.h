#pragma once

#include <QWidget>

#include "screens/appearance.h"

class QLabel;
class QPushButton;

namespace vantrel {

/// One line that keeps a message on view after its dialog has been closed. It takes no room while
/// there is nothing to say.
class Notice : public QWidget {
  Q_OBJECT

 public:
  /// With a caption the notice carries a button.
  explicit Notice(Appearance& look, const QString& button = {}, QWidget* parent = nullptr);

  /// Shows the text, its line breaks as blanks; an empty one hides the notice.
  void tell(const QString& text);
  QString text() const;

 signals:
  void buttonClicked();

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  void settle();

  Appearance& look_;
  QLabel* picture_;
  QLabel* text_;
};

}  // namespace vantrel
