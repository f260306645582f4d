#include "screens/value_editor.h"

#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QAccessible>
#include <QApplication>
#include <QTest>
#include <QVBoxLayout>
#include <algorithm>

#include "core/screen.h"
#include "screens/frame_panel.h"
#include "screens/theme_style.h"
#include "support/fixtures.h"

namespace vantrel {
namespace {

constexpr FieldSpec kFields[] = {
    {"preheat_current", "Preheat Current", "Arms", "2", kInput, false, "Heating current", "frame"},
    {"ballast_frequency", "Frequency", "KHz", "2", kInput, false, "", "frame"},
    {"run_frequency", "Run Frequency", "Hz", "1", kLockedPrefixed, false, "", "frame"},
    {"LValue", "L", "mH", "2", kLocked, true, "", "frame"},
};

class ValueEditorTest : public testing::Test {
 protected:
  ValueEditorTest() : screen_("Test", "Test", fixture_.context) {
    screen_.addFields(kFields);
    QApplication::setStyle(new ThemeStyle(look_));
    panel_ = std::make_unique<FramePanel>(screen_, "frame", look_);
    panel_->show();
    panel_->activateWindow();
    EXPECT_TRUE(QTest::qWaitForWindowActive(panel_.get()));
  }

  ValueEditor& editor(const char* name) {
    return *panel_->findChild<ValueEditor*>(QString("Test.") + name);
  }
  void type(ValueEditor& target, const char* text) {
    target.setFocus();
    target.selectAll();
    QTest::keyClicks(&target, text);
  }

  test::FieldFixture fixture_;
  ProgramFolder folder_{std::filesystem::temp_directory_path()};
  Appearance look_{folder_, Theme::Light};
  Screen screen_;
  std::unique_ptr<FramePanel> panel_;
};

TEST_F(ValueEditorTest, ReturnAndLeavingStoreAndEscRestores) {
  VTLValue& current = screen_.field("preheat_current");
  ValueEditor& input = editor("preheat_current");
  type(input, "0.216");
  EXPECT_TRUE(current.IsEditing());
  EXPECT_TRUE(current.IsItEmpty());
  QTest::keyClick(&input, Qt::Key_Return);
  EXPECT_EQ(to_double(current.value()), 0.22);
  EXPECT_EQ(input.text(), "0.22");

  type(input, "7");
  QTest::keyClick(&input, Qt::Key_Escape);
  EXPECT_EQ(input.text(), "0.22");
  EXPECT_FALSE(current.IsEditing());

  type(input, "0,5");
  editor("ballast_frequency").setFocus();
  EXPECT_EQ(to_double(current.value()), 0.5);

  type(editor("ballast_frequency"), "45k");
  QTest::keyClick(&editor("ballast_frequency"), Qt::Key_Return);
  EXPECT_EQ(to_double(screen_.field("ballast_frequency").value()), 45);
}

TEST_F(ValueEditorTest, TextThatIsNoNumberIsMarkedAtOnceAndNeverStored) {
  VTLValue& current = screen_.field("preheat_current");
  current.SetValue(0.21);
  ValueEditor& input = editor("preheat_current");
  type(input, "0.2.1");
  EXPECT_TRUE(input.isInvalid());
  EXPECT_TRUE(input.toolTip().contains("is not a number"));
  QTest::keyClick(&input, Qt::Key_Return);
  EXPECT_EQ(to_double(current.value()), 0.21);
  EXPECT_EQ(input.text(), "0.2.1");
  editor("ballast_frequency").setFocus();  // focus may leave
  EXPECT_EQ(to_double(current.value()), 0.21);
  input.setFocus();
  QTest::keyClick(&input, Qt::Key_Escape);
  EXPECT_EQ(input.text(), "0.21");
  EXPECT_FALSE(input.isInvalid());
}

TEST_F(ValueEditorTest, OutputsAreReadOnlyUntilTheirTickIsSet) {
  ValueEditor& output = editor("LValue");
  EXPECT_TRUE(output.isReadOnly());
  auto* tick = panel_->findChild<QAbstractButton*>("Test.LValue.tick");
  ASSERT_NE(tick, nullptr);
  tick->click();
  EXPECT_TRUE(screen_.field("LValue").IsFixed());
  EXPECT_FALSE(output.isReadOnly());
  type(output, "4700u");
  QTest::keyClick(&output, Qt::Key_Return);
  EXPECT_EQ(to_double(screen_.field("LValue").value()), 4.7);
  tick->click();
  EXPECT_TRUE(output.isReadOnly());
}

TEST_F(ValueEditorTest, UnitFollowsTheValueAndToolTipTellsAllDigits) {
  screen_.field("run_frequency").value(Variant(40123.46));
  EXPECT_EQ(editor("run_frequency").text(), "40.1");
  auto* unit = panel_->findChild<QWidget*>("Test.run_frequency.unit");
  ASSERT_NE(unit, nullptr);
  EXPECT_EQ(unit->property("text").toString(), "KHz");
  QAccessibleInterface* access = QAccessible::queryAccessibleInterface(&editor("run_frequency"));
  ASSERT_NE(access, nullptr);
  EXPECT_EQ(access->text(QAccessible::Name), "Run Frequency KHz");
}

TEST_F(ValueEditorTest, FlashEndsByItself) {
  ValueEditor& input = editor("preheat_current");
  screen_.field("preheat_current").StartFlash();
  EXPECT_TRUE(input.isFlashing());
  EXPECT_TRUE(QTest::qWaitFor([&] { return !input.isFlashing(); }, 3000));
}

TEST_F(ValueEditorTest, HiddenRowsLeaveNoGapAndEmptyFramesHide) {
  EXPECT_TRUE(panel_->isVisible());
  const int full = panel_->sizeHint().height();
  screen_.field("preheat_current").Visible(false);
  QApplication::processEvents();
  EXPECT_LT(panel_->sizeHint().height(), full);
  for (const FieldSpec& field : kFields) screen_.field(field.name).Visible(false);
  EXPECT_FALSE(panel_->isVisible());
}

}  // namespace
}  // namespace vantrel
