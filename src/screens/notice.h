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
  /// With a caption the notice carries a button. The parts are named "<name>.text" and
  /// "<name>.button".
  explicit Notice(Appearance& look, const QString& button = {}, QWidget* parent = nullptr,
                  const QString& name = "notice");

  /// Shows the text, its line breaks as blanks; an empty one hides the notice.
  void tell(const QString& text);
  QString text() const;

 signals:
  void buttonClicked();

 protected:
  void paintEvent(QPaintEvent* event) override;

  /// The picture in front of the text, by its name.
  void setPicture(const char* name);
  void setButtonCaption(const QString& caption);

 private:
  void settle();

  Appearance& look_;
  const char* picture_name_ = "warning";
  QLabel* picture_;
  QLabel* text_;
  QPushButton* button_ = nullptr;
};

}  // namespace vantrel
