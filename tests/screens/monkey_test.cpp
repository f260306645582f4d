// Random events against the windows: whatever a user presses, nothing crashes and no dialog stays
// open for ever.

#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QApplication>
#include <QCloseEvent>
#include <QTest>
#include <QTimer>
#include <cstdlib>
#include <random>
#include <vector>

#include "screens/desktop_bench.h"

namespace vantrel {
namespace {

constexpr int kEventsInCi = 400;
constexpr unsigned kSeed = 20211;

int events_wanted() {
  const char* wanted = std::getenv("VANTREL_MONKEY_EVENTS");
  return wanted == nullptr ? kEventsInCi : std::atoi(wanted);
}

class Monkey {
 public:
  explicit Monkey(int events) : left_(events) {}

  bool isDone() const { return left_ <= 0; }

  /// One event, and the next one behind it: dialogs run an event loop of their own meanwhile.
  void step() {
    if (isDone()) {
      closeDialogs();
      return;
    }
    --left_;
    QTimer::singleShot(0, &context_, [this] { step(); });
    if (QWidget* window = anyWindow()) act(*window);
  }

  /// Closes one dialog after the other until none is open.
  void closeDialogs() {
    QWidget* modal = QApplication::activeModalWidget();
    if (QApplication::activePopupWidget() != nullptr) QApplication::activePopupWidget()->close();
    if (modal == nullptr) return;
    modal->close();
    QTimer::singleShot(0, &context_, [this] { closeDialogs(); });
  }

 private:
  template <typename List>
  auto* any(const List& list) {
    using Pointer = typename List::value_type;
    if (list.empty()) return Pointer(nullptr);
    return list[static_cast<typename List::size_type>(random_() % list.size())];
  }

  QWidget* anyWindow() {
    if (QWidget* popup = QApplication::activePopupWidget()) return popup;
    if (QWidget* modal = QApplication::activeModalWidget()) return modal;
    std::vector<QWidget*> shown;
    for (QWidget* window : QApplication::topLevelWidgets()) {
      if (window->isVisible()) shown.push_back(window);
    }
    return any(shown);
  }

  void act(QWidget& window) {
    const auto dice = random_() % 100;
    if (dice < 2) {
      QCloseEvent close;
      QApplication::sendEvent(&window, &close);
      return;
    }
    std::vector<QWidget*> targets;
    for (QWidget* child : window.findChildren<QWidget*>()) {
      if (child->isVisible() && child->isEnabled()) targets.push_back(child);
    }
    QWidget* target = any(targets);
    if (target == nullptr) target = &window;
    if (dice < 55) {
      QTest::mouseClick(target, dice < 50 ? Qt::LeftButton : Qt::RightButton, {},
                        QPoint(int(random_() % 400) % std::max(1, target->width()),
                               int(random_() % 400) % std::max(1, target->height())));
    } else if (dice < 60) {
      QTest::mouseDClick(target, Qt::LeftButton);
    } else {
      key(*target);
    }
  }

  void key(QWidget& target) {
    constexpr int kKeys[] = {Qt::Key_Tab,  Qt::Key_Return, Qt::Key_Escape, Qt::Key_Up,
                             Qt::Key_Down, Qt::Key_Left,   Qt::Key_Right,  Qt::Key_F5,
                             Qt::Key_F6,   Qt::Key_1,      Qt::Key_7,      Qt::Key_Period,
                             Qt::Key_E,    Qt::Key_K,      Qt::Key_Space,  Qt::Key_Home,
                             Qt::Key_End,  Qt::Key_Delete, Qt::Key_S,      Qt::Key_Plus};
    constexpr Qt::KeyboardModifiers kModifiers[] = {Qt::NoModifier, Qt::NoModifier, Qt::NoModifier,
                                                    Qt::ControlModifier, Qt::AltModifier};
    QTest::keyClick(&target, Qt::Key(kKeys[random_() % std::size(kKeys)]),
                    kModifiers[random_() % std::size(kModifiers)]);
  }

  QObject context_;  ///< Takes the pending steps along when the monkey goes.
  std::mt19937 random_{kSeed};
  int left_;
};

TEST(MonkeyTest, RandomEventsLeaveNoCrashAndNoStuckDialog) {
  DesktopBench bench;
  bench.leaveDialogsAlone();
  Desktop& desktop = bench.start();
  Monkey monkey(events_wanted());
  monkey.step();
  EXPECT_TRUE(QTest::qWaitFor([&] { return monkey.isDone(); }, 280000));
  monkey.closeDialogs();
  EXPECT_TRUE(QTest::qWaitFor(
      [&] { return QApplication::activeModalWidget() == nullptr && !desktop.session().isBusy(); },
      20000));
}

}  // namespace
}  // namespace vantrel
