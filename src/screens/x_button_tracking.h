#pragma once

#include <QObject>
#include <QPointer>
#include <vector>

namespace vantrel {

class XButton;

/// Tells the buttons of a window that the pointer has left them. A window has one, which is made
/// when the pointer first comes over one of its buttons.
class XButtonTracking : public QObject {
 public:
  /// The tracking of a window, which owns it.
  static XButtonTracking& of(QWidget& window);

  /// Waits for the pointer to leave the button, and tells it then.
  void track(XButton& button);

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  explicit XButtonTracking(QWidget& window);

  void release(const QObject* left);

  std::vector<QPointer<XButton>> tracked_;
};

}  // namespace vantrel
