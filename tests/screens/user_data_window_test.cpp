#include "screens/user_data_window.h"

#include <gtest/gtest.h>

#include <QComboBox>
#include <QListWidget>
#include <QPushButton>
#include <QScrollArea>
#include <QScrollBar>
#include <algorithm>

#include "desktop_bench.h"

namespace vantrel {
namespace {

class UserDataWindowTest : public testing::Test {
 protected:
  UserDataWindowTest() {
    bench_.start();
    session().messages().dialog(&dialog_);
  }

  Session& session() { return bench_.desktop->session(); }
  SQLTableEdit& edit() { return session().userData().SQLTableEdit1; }
  /// Opens the editor as `open` does and works on it while it is modal.
  void work(const std::function<void()>& open, const std::function<void()>& steps) {
    bool done = false;
    QTimer::singleShot(100, bench_.desktop.get(), [&] {
      window_ = qobject_cast<UserDataWindow*>(QApplication::activeModalWidget());
      ASSERT_NE(window_, nullptr);
      ASSERT_TRUE(QTest::qWaitForWindowActive(window_));
      steps();
      done = true;
      edit().RecordSetResetChanged();
      if (window_->isVisible()) window_->reject();
    });
    open();
    EXPECT_TRUE(QTest::qWaitFor([&] { return done; }, 2000));
  }
  void workOnLamps(const std::function<void()>& steps) {
    work([this] { session().editUserData(UserDataKind::Lamps); }, steps);
  }
  template <typename Widget>
  Widget& part(const char* name) {
    return *window_->findChild<Widget*>(name);
  }
  void click(const char* name) {
    ASSERT_TRUE(part<QAbstractButton>(name).isEnabled()) << name;
    part<QAbstractButton>(name).click();
    bench_.pump();
  }
  void key(Qt::Key code, Qt::KeyboardModifiers with = Qt::NoModifier) {
    QTest::keyClick(window_, code, with);
    bench_.pump();
  }
  void choose(const char* field, int index) {
    auto& list = part<QComboBox>(field);
    list.setFocus();
    list.setCurrentIndex(-1);
    for (int i = 0; i <= index; ++i) QTest::keyClick(&list, Qt::Key_Down);
  }
  /// Types a new lamp; the name is typed wherever the editor has put the keyboard.
  void enterLamp(const char* name) {
    click("new");
    QTest::keyClicks(window_->focusWidget(), name);
    QTest::keyClicks(&part<QLineEdit>("PullDownName"), name);
    choose("Compact Yes/No", 1);
    choose("Has RDC", 1);
  }
  std::string count() { return part<QLabel>("count").text().toStdString(); }
  std::string lastMessage() { return session().messages().shown().back().text; }
  bool isOnOffer(const char* line) {
    session().browser().Setup(kSlotLamp);
    return std::ranges::any_of(session().browser().ValidItems(),
                               [&](const ValidItem& item) { return item.ListText() == line; });
  }

  test::ScriptedDialog dialog_;  ///< Says OK to every report.
  DesktopBench bench_;
  UserDataWindow* window_ = nullptr;
};

TEST_F(UserDataWindowTest, ASavedLampIsOnOfferUntilItIsDeletedAndAgainWhenThatIsUndone) {
  workOnLamps([&] {
    EXPECT_EQ(count(), "No Records");
    EXPECT_FALSE(part<QLineEdit>("Name").isEnabled());
    for (const char* off : {"first", "last", "save", "delete", "export", "undo"}) {
      EXPECT_FALSE(part<QAbstractButton>(off).isEnabled()) << off;
    }
    enterLamp("Lab T5");
    EXPECT_TRUE(window_->isWindowModified());
    key(Qt::Key_S, Qt::ControlModifier);
    EXPECT_EQ(count(), "1 Record");
    EXPECT_EQ(part<QLabel>("Selector").text(), "Select Lamp (1 options available)");
    EXPECT_EQ(part<QListWidget>("records").currentItem()->text(), "Lab T5");
    EXPECT_FALSE(window_->isWindowModified());
    EXPECT_FALSE(part<QPushButton>("save").isEnabled());
    EXPECT_TRUE(isOnOffer("User:Lab T5"));

    session().messages().injectAnswers({kNo, kYes});
    click("delete");
    EXPECT_EQ(lastMessage(), "Are you sure you wish to delete this Record ?");
    EXPECT_TRUE(isOnOffer("User:Lab T5"));
    click("delete");
    EXPECT_EQ(count(), "No Records");
    EXPECT_FALSE(isOnOffer("User:Lab T5"));
    click("undo");
    EXPECT_TRUE(isOnOffer("User:Lab T5"));
    EXPECT_EQ(part<QComboBox>("Compact Yes/No").currentText(), "Linear");
  });
}

TEST_F(UserDataWindowTest, EveryWayOutAsksAndCancelStays) {
  workOnLamps([&] {
    for (const char* name : {"A", "B", "C"}) {
      enterLamp(name);
      click("save");
    }
    key(Qt::Key_PageUp);
    EXPECT_EQ(count(), "2 of 3 Records");
    auto& list = part<QListWidget>("records");
    const std::function<void()> ways[] = {
        [&] { click("first"); },
        [&] { click("back"); },
        [&] { click("chevron"); },
        [&] { click("last"); },
        [&] { click("new"); },
        [&] { click("import"); },
        [&] { click("export"); },
        [&] { click("close"); },
        [&] { key(Qt::Key_PageDown); },
        [&] { key(Qt::Key_Escape); },
        [&] { window_->close(); },
        [&] {
          list.setCurrentRow(0);
          bench_.pump();
        },
    };
    QTest::keyClicks(&part<QLineEdit>("Max (%)"), "90");
    for (const auto& leave : ways) {
      const std::size_t before = session().messages().shown().size();
      session().messages().injectAnswers({kCancel});
      leave();
      EXPECT_EQ(session().messages().shown().size(), before + 1) << &leave - ways;
      EXPECT_EQ(count(), "2 of 3 Records");
      EXPECT_EQ(list.currentRow(), 1);
      EXPECT_EQ(part<QLineEdit>("Max (%)").text(), "90");
      ASSERT_TRUE(window_->isVisible());
    }
    session().messages().injectAnswers({kYes, kNo});
    key(Qt::Key_PageDown);
    EXPECT_EQ(count(), "3 of 3 Records");
    click("back");
    EXPECT_EQ(part<QLineEdit>("Max (%)").text(), "90");
    QTest::keyClicks(&part<QLineEdit>("Max (%)"), "5");
    click("close");
    EXPECT_FALSE(window_->isVisible());
    EXPECT_EQ(edit().FieldText(8), "90");
  });
}

TEST_F(UserDataWindowTest, WorksByKeysAloneAndScrollsOnASmallScreen) {
  workOnLamps([&] {
    window_->resize(760, 400);
    bench_.pump();
    auto& pane = part<QScrollArea>("fields");
    EXPECT_GT(pane.verticalScrollBar()->maximum(), 0);
    EXPECT_EQ(pane.horizontalScrollBar()->maximum(), 0);
    key(Qt::Key_N, Qt::ControlModifier);
    EXPECT_EQ(window_->focusWidget(), &part<QLineEdit>("Name"));
    QTest::keyClicks(window_->focusWidget(), "Keys");
    // The last field is reached by Tab and comes into sight.
    QWidget& last = part<QComboBox>("Has RDC");
    for (int i = 0; i < 20 && window_->focusWidget() != &last; ++i) {
      QTest::keyClick(window_->focusWidget(), Qt::Key_Tab);
    }
    ASSERT_EQ(window_->focusWidget(), &last);
    EXPECT_TRUE(
        pane.viewport()->rect().contains(last.mapTo(pane.viewport(), last.rect().center())));
    key(Qt::Key_S, Qt::ControlModifier);  // refused: nothing is chosen there
    EXPECT_EQ(lastMessage(),
              "Field 'Compact Yes/No' Must have a value, Changes have not been saved");
    for (const char* name : {"Compact Yes/No", "Has RDC"}) choose(name, 0);
    key(Qt::Key_S, Qt::ControlModifier);
    EXPECT_EQ(count(), "1 Record");
    // Every command has a key of its own or is reached by Tab.
    for (const char* name : {"first", "back", "chevron", "last", "new", "delete", "import",
                             "export", "undo", "close"}) {
      EXPECT_NE(part<QAbstractButton>(name).focusPolicy() & Qt::TabFocus, 0) << name;
    }
    auto& remove = part<QAbstractButton>("delete");
    remove.setFocus();
    session().messages().injectAnswers({kYes});
    QTest::keyClick(&remove, Qt::Key_Space);
    bench_.pump();
    EXPECT_EQ(lastMessage(), "Are you sure you wish to delete this Record ?");
    EXPECT_EQ(count(), "No Records");
  });
}

TEST_F(UserDataWindowTest, RefusesCharactersAndAMissingValue) {
  workOnLamps([&] {
    enterLamp("L");
    auto& name = part<QLineEdit>("Name");
    QTest::keyClick(&name, Qt::Key_BracketLeft);
    EXPECT_EQ(name.text(), "L");
    EXPECT_TRUE(part<RecordLine>("Name").isRefusing());
    EXPECT_TRUE(std::ranges::any_of(QApplication::topLevelWidgets(), [](QWidget* top) {
      return top->objectName() == "tooltip" && top->isVisible();
    }));
    QTest::qWait(600);
    EXPECT_FALSE(part<RecordLine>("Name").isRefusing());
    QTest::keyClick(&name, Qt::Key_Backspace);
    part<QPushButton>("close").setFocus();
    session().messages().injectAnswers({kOk});
    click("save");
    EXPECT_EQ(lastMessage(), "Field 'Name' Must have a value, Changes have not been saved");
    EXPECT_TRUE(name.hasFocus());
  });
}

TEST_F(UserDataWindowTest, BothDesignersOpenTheCores) {
  for (const char* button : {"Inductor.CommandEditUserData", "Transformer.CommandEditUserData"}) {
    const std::string screen(button, std::string_view(button).find('.'));
    work(
        [&] {
          bench_.find<QPushButton>(screen, button)->click();
          bench_.pump();
        },
        [&] {
          EXPECT_EQ(window_->windowTitle(), "User Core Types[*]");
          EXPECT_NE(window_->findChild<QLineEdit*>("Core Description"), nullptr);
        });
  }
}

}  // namespace
}  // namespace vantrel
