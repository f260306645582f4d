#include <gtest/gtest.h>

#include <QAccessible>
#include <QPainter>
#include <QVBoxLayout>
#include <set>

#include "desktop_bench.h"
#include "screens/c_tooltip.h"
#include "screens/selection_tile.h"
#include "screens/x_button.h"

namespace vantrel {
namespace {

QIcon plain_icon(const QColor& colour) {
  QPixmap picture(16, 16);
  picture.fill(colour);
  return QIcon(picture);
}

class CustomControls : public testing::Test {
 protected:
  void SetUp() override {
    auto* box = new QVBoxLayout(&form);
    button = new XButton(look, &form);
    other = new QLineEdit(&form);
    box->addWidget(button);
    box->addWidget(other);
    button->Style(XButtonStyle::Graphic);
    button->Caption("Step");
    button->ImageList({plain_icon(Qt::red), plain_icon(Qt::green), plain_icon(Qt::blue)});
    button->ImageEnabled(0);
    button->ImageOver(1);
    button->ImageClicked(2);
    QObject::connect(button, &XButton::clicked, &form, [this] { ++clicks; });
    form.resize(300, 200);
    form.show();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&form));
    QTest::mouseMove(&form, QPoint(1, 1));
    QApplication::processEvents();
  }
  /// Colour in the middle of the button.
  QColor middle() { return button->grab().toImage().pixelColor(button->rect().center()); }
  static CTooltip* tipOf(QWidget& host) {
    for (QObject* child : host.children()) {
      if (auto* tip = dynamic_cast<CTooltip*>(child)) return tip;
    }
    return nullptr;
  }

  ProgramFolder folder{VANTREL_PROGRAM_FOLDER};
  Appearance look{folder, Theme::Light};
  QWidget form;
  XButton* button = nullptr;
  QLineEdit* other = nullptr;
  int clicks = 0;
};

TEST_F(CustomControls, AButtonShowsTheImageOfItsState) {
  EXPECT_EQ(middle(), QColor(Qt::red));
  QTest::mouseMove(button, button->rect().center());
  QTest::mouseMove(button, button->rect().center() + QPoint(1, 0));
  EXPECT_EQ(button->state(), XButtonState::Over);
  EXPECT_EQ(middle(), QColor(Qt::green));
  QTest::mousePress(button, Qt::LeftButton);
  EXPECT_EQ(button->state(), XButtonState::Clicked);
  EXPECT_EQ(middle(), QColor(Qt::blue));
  QTest::mouseRelease(button, Qt::LeftButton);
  EXPECT_EQ(clicks, 1);
  EXPECT_EQ(button->state(), XButtonState::Over);
  QEvent left(QEvent::Leave);  // the pointer leaves the window straight from the button
  QApplication::sendEvent(&form, &left);
  EXPECT_EQ(button->state(), XButtonState::Enabled);
  EXPECT_EQ(middle(), QColor(Qt::red));
  button->EventMouseMoved();
  button->Enabled(false);
  EXPECT_EQ(button->state(), XButtonState::Disabled);
  button->EventMouseMoved();
  QTest::mouseClick(button, Qt::LeftButton);
  EXPECT_EQ(clicks, 1);
  button->Enabled(true);
  EXPECT_EQ(button->state(), XButtonState::Enabled);
}

TEST_F(CustomControls, AButtonIsPressedByKeysAndReadOut) {
  other->setFocus();
  QTest::keyClick(other, Qt::Key_Tab);
  QTest::keyClick(&form, Qt::Key_Tab);
  button->setFocus();
  for (const Qt::Key key : {Qt::Key_Return, Qt::Key_Enter, Qt::Key_Space}) {
    QTest::keyClick(button, key);
  }
  EXPECT_EQ(clicks, 3);
  QAccessibleInterface* access = QAccessible::queryAccessibleInterface(button);
  ASSERT_NE(access, nullptr);
  EXPECT_EQ(access->role(), QAccessible::Button);
  EXPECT_EQ(access->text(QAccessible::Name), "Step");
  ASSERT_NE(access->actionInterface(), nullptr);
  access->actionInterface()->doAction(QAccessibleActionInterface::pressAction());
  EXPECT_TRUE(QTest::qWaitFor([this] { return clicks == 4; }));
}

TEST_F(CustomControls, TheNormalStyleFollowsBorderAndFont) {
  button->Style(XButtonStyle::Normal);
  button->Caption("A caption that is longer than the least width of a button");
  other->setFocus();
  std::set<QByteArray> looks;
  const auto take = [&] {
    const QImage image = button->grab().toImage();
    looks.insert(QByteArray(reinterpret_cast<const char*>(image.constBits()), image.sizeInBytes()));
  };
  for (const XButtonBorder border :
       {XButtonBorder::None, XButtonBorder::Line, XButtonBorder::Platform}) {
    button->BorderStyle(border);
    take();
  }
  button->BorderStyle(XButtonBorder::Line);
  button->BorderWidth(3);
  take();
  const int narrow = button->sizeHint().width();
  button->FontBold(true);
  button->FontSize(button->FontSize() * 1.5);
  take();
  EXPECT_GT(button->sizeHint().width(), narrow);
  button->setFocus();
  take();
  EXPECT_EQ(looks.size(), 6U) << "each change is seen";
}

TEST_F(CustomControls, ATipComesByPointerAndKeyboard) {
  CTooltip tip(look);
  EXPECT_FALSE(tip.Create(*button)) << "nothing to say";
  tip.TipText = "Goes one step on";
  tip.Title = "Step";
  tip.Icon = TooltipIcon::Information;
  tip.Centre = true;
  tip.BackColor = QColor(1, 2, 3);
  ASSERT_TRUE(tip.Create(*button));
  EXPECT_EQ(QAccessible::queryAccessibleInterface(button)->text(QAccessible::Description),
            "Goes one step on");
  button->setFocus();
  QTest::keyClick(button, Qt::Key_F1, Qt::ShiftModifier);
  ASSERT_NE(tip.shown(), nullptr);
  QStringList words;
  for (const QLabel* label : tip.shown()->findChildren<QLabel*>()) words << label->text();
  EXPECT_TRUE(words.contains("Step") && words.contains("Goes one step on"));
  const QPoint below = button->mapToGlobal(QPoint(button->width() / 2, button->height()));
  EXPECT_EQ(tip.shown()->y(), below.y());
  EXPECT_NEAR(tip.shown()->geometry().center().x(), below.x(), 1);
  const QImage image = const_cast<QWidget*>(tip.shown())->grab().toImage();
  EXPECT_EQ(image.pixelColor(image.width() / 2, image.height() - 4), QColor(1, 2, 3));
  QTest::keyClick(button, Qt::Key_Escape);
  EXPECT_EQ(tip.shown(), nullptr);
  tip.Destroy();
  QTest::keyClick(button, Qt::Key_F1, Qt::ShiftModifier);
  EXPECT_EQ(tip.shown(), nullptr);
}

TEST_F(CustomControls, AFormsTipsFollowItsControls) {
  new ToolTipUtility(form, look);
  auto* late = new QLineEdit(&form);  // comes after the tips were attached
  late->show();
  QApplication::processEvents();
  for (QWidget* host : std::initializer_list<QWidget*>{other, late}) {
    host->setFocus();
    QTest::keyClick(host, Qt::Key_F1, Qt::ShiftModifier);
    EXPECT_EQ(tipOf(*host), nullptr);
    for (const char* words : {"one", "two"}) {
      host->setToolTip(words);
      QHelpEvent rest(QEvent::ToolTip, QPoint(2, 2), host->mapToGlobal(QPoint(2, 2)));
      QApplication::sendEvent(host, &rest);
      ASSERT_NE(tipOf(*host), nullptr);
      ASSERT_NE(tipOf(*host)->shown(), nullptr);
      EXPECT_EQ(tipOf(*host)->words(), words);
    }
    other->setFocus();
    button->setFocus();
    EXPECT_EQ(tipOf(*host)->shown(), nullptr);
  }
}

TEST(CustomControlsInWindows, CarryTheNamesOfTheirScreens) {
  DesktopBench bench;
  bench.start();
  auto* tile = bench.find<SelectionTile>("Simple", "MainButton.2");
  ASSERT_NE(tile, nullptr);
  EXPECT_NE(qobject_cast<XButton*>(tile), nullptr);
  tile->setFocus();
  QTest::keyClick(tile, Qt::Key_F1, Qt::ShiftModifier);
  EXPECT_NE(tile->findChild<QObject*>(), nullptr) << "its tip";
}

}  // namespace
}  // namespace vantrel
