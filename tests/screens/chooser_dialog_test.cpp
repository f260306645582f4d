#include "screens/chooser_dialog.h"

#include <gtest/gtest.h>

#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>

#include "desktop_bench.h"

namespace vantrel {
namespace {

class ChooserTest : public testing::Test {
 protected:
  ChooserTest() { bench_.start(); }

  Session& session() { return bench_.desktop->session(); }
  void open(int slot) {
    ASSERT_TRUE(session().browser().StartBrowser(slot, session().browser().GetInfo(slot)));
    chooser_ = std::make_unique<ChooserDialog>(bench_.desktop->workbench(), slot, "Select");
    chooser_->show();
    chooser_->activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(chooser_.get()));
  }
  template <typename Widget>
  Widget& part(const char* name) {
    return *chooser_->findChild<Widget*>(name);
  }
  QListWidget& items() { return part<QListWidget>("items"); }
  std::string group() { return part<QListWidget>("groups").currentItem()->text().toStdString(); }
  std::string item() { return items().currentItem()->text().toStdString(); }
  std::string lamp() { return session().selectionFullName(kSlotLamp); }
  void key(int code) {
    QTest::keyClick(chooser_->focusWidget(), static_cast<Qt::Key>(code));
    bench_.pump();
  }

  DesktopBench bench_;
  std::unique_ptr<ChooserDialog> chooser_;
};

TEST_F(ChooserTest, ArrowsWalkGroupsAndItemsAndReturnAccepts) {
  open(kSlotLamp);
  EXPECT_EQ(group(), "T5 High Efficiency");
  EXPECT_EQ(item(), "T5 28W");
  EXPECT_EQ(part<QLabel>("items.title").text(), "Lamp : Select type of T5 High Efficiency");
  EXPECT_EQ(part<QLabel>("preview.title").text(), "T5 28W will load");
  key(Qt::Key_Right);
  key(Qt::Key_Right);
  EXPECT_EQ(group(), "T5 High Output 54-80W");
  key(Qt::Key_Left);
  EXPECT_EQ(group(), "T5 High Output");
  key(Qt::Key_Left);
  key(Qt::Key_Up);
  EXPECT_EQ(item(), "T5 21W");
  EXPECT_EQ(lamp(), "T5 28W") << "nothing is selected before it is accepted";
  key(Qt::Key_Return);
  EXPECT_EQ(chooser_->result(), QDialog::Accepted);
  EXPECT_EQ(lamp(), "T5 21W");
}

TEST_F(ChooserTest, EscClearsTheSearchFirstAndThenLeavesTheSelection) {
  open(kSlotLamp);
  part<QLineEdit>("search").setFocus();
  QTest::keyClicks(chooser_->focusWidget(), "t8 36");
  ASSERT_GE(items().count(), 1);
  EXPECT_TRUE(item().starts_with("T8 36W")) << item();
  EXPECT_EQ(group(), "T8 Linear");
  key(Qt::Key_Escape);
  EXPECT_TRUE(chooser_->isVisible());
  EXPECT_EQ(part<QLineEdit>("search").text(), "");
  EXPECT_EQ(part<QLabel>("items.title").text(), "Lamp : Select type of T8 Linear");
  key(Qt::Key_Escape);
  EXPECT_FALSE(chooser_->isVisible());
  EXPECT_EQ(lamp(), "T5 28W");

  open(kSlotLamp);
  part<QLineEdit>("search").setText("t8 36");
  key(Qt::Key_Return);
  EXPECT_EQ(lamp(), "T8 36W");

  open(kSlotLamp);
  part<QLineEdit>("search").setText("no such lamp");
  EXPECT_FALSE(part<QPushButton>("ok").isEnabled());
  key(Qt::Key_Return);
  EXPECT_TRUE(chooser_->isVisible());
}

TEST_F(ChooserTest, OnlyLampsAreEditedFromTheFourthGroupOn) {
  open(kSlotInput);
  EXPECT_FALSE(part<QPushButton>("cmd_edit").isVisible());
  open(kSlotLamp);
  auto& edit = part<QPushButton>("cmd_edit");
  for (const int row : {0, 2, 3, 8}) {
    part<QListWidget>("groups").setCurrentRow(row);
    EXPECT_TRUE(edit.isVisible());
    EXPECT_EQ(edit.isEnabled(), row >= 3) << row;
  }
  int edited = 0;
  SessionViews views;
  views.editUserData = [&](UserDataKind kind) { edited += kind == UserDataKind::Lamps ? 1 : 100; };
  session().setViews(views);
  edit.click();
  bench_.pump();
  EXPECT_EQ(edited, 1);
  EXPECT_EQ(group(), "User Lamps") << "the listed group stays";
}

TEST_F(ChooserTest, TilesShowFourGroupsAndListTheirItems) {
  open(kSlotIc);
  auto& third = part<QAbstractButton>("group.2");
  EXPECT_TRUE(part<QAbstractButton>("group.0").accessibleName().endsWith("(Currently Selected)"));
  third.click();
  EXPECT_EQ(group(), "Ballast with PFC");
  EXPECT_EQ(part<QLabel>("items.title").text(), "Target IC : Select type of Ballast with PFC");
  part<QAbstractSlider>("groups.scroll").setValue(2);
  EXPECT_EQ(part<QAbstractButton>("group.0").accessibleName(), "Ballast with PFC - 3 Types");
  EXPECT_EQ(group(), "Ballast with PFC") << "scrolling lists no other group";
}

}  // namespace
}  // namespace vantrel
