#pragma once

#include <QDialog>
#include <functional>

#include "screens/appearance.h"
#include "services/messages/sysmsg.h"

namespace vantrel {

/// One message of the program as a dialog: picture, text that can be selected, and the buttons of
/// its type below it in the middle.
class MessageBox : public QDialog {
  Q_OBJECT

 public:
  /// Text of a line is at most this many average characters wide.
  static constexpr int kLineCharacters = 55;

  MessageBox(const Message& message, const Appearance& look, QWidget* owner);

  /// Runs the dialog; a MessageAnswer, kClosed when it was closed by the window's own button.
  int ask();

 protected:
  void keyPressEvent(QKeyEvent* event) override;

 private:
  QString plain_text_;
  int escape_answer_;
  int answer_ = kClosed;
};

/// Shows the messages of the program over the active window.
class QtMessageDialog : public MessageDialog {
 public:
  explicit QtMessageDialog(const Appearance& look) : look_(look) {}
  /// While it gives true nobody is asked: reports pass, questions are answered No.
  std::function<bool()> isQuiet;
  int show(const Message& message) override;

 private:
  const Appearance& look_;
};

}  // namespace vantrel
