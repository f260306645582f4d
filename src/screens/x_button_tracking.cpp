#include "screens/x_button_tracking.h"

#include <QEvent>
#include <utility>

#include "screens/x_button.h"

namespace vantrel {

namespace {

bool ends_hover(QEvent::Type type) {
  return type == QEvent::Leave || type == QEvent::Hide || type == QEvent::WindowDeactivate;
}

}  // namespace

XButtonTracking::XButtonTracking(QWidget& window) : QObject(&window) {
  window.installEventFilter(this);
}

XButtonTracking& XButtonTracking::of(QWidget& window) {
  for (QObject* child : window.children()) {
    if (auto* known = dynamic_cast<XButtonTracking*>(child)) return *known;
  }
  return *new XButtonTracking(window);
}

void XButtonTracking::track(XButton& button) {
  button.installEventFilter(this);
  tracked_.emplace_back(&button);
}

bool XButtonTracking::eventFilter(QObject* watched, QEvent* event) {
  if (ends_hover(event->type())) release(watched);
  return false;
}

/// The button has been left, or all of them when it is the window.
void XButtonTracking::release(const QObject* left) {
  const auto all = std::exchange(tracked_, {});
  for (const QPointer<XButton>& button : all) {
    if (button.isNull()) continue;
    if (left != parent() && left != button) {
      tracked_.push_back(button);
      continue;
    }
    button->removeEventFilter(this);
    button->EventMouseLeft();
  }
}

}  // namespace vantrel
