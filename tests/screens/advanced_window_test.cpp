#include "screens/advanced_window.h"

#include <gtest/gtest.h>

#include <QAccessible>
#include <QCheckBox>
#include <QLabel>
#include <QListWidget>
#include <QPushButton>
#include <QTabBar>
#include <set>

#include "desktop_bench.h"
#include "screens/value_editor.h"

namespace vantrel {
namespace {

class AdvancedWindowTest : public testing::Test {
 protected:
  void SetUp() override {
    bench_.start();
    session().messages().dialog(&dialog_);
    session().simple().ShowAdvancedScreen();
    bench_.pump();
    window_ = bench_.desktop->window("Advanced");
    ASSERT_TRUE(QTest::qWaitForWindowActive(window_));
  }
  void TearDown() override { session().messages().dialog(nullptr); }

  Session& session() { return bench_.desktop->session(); }
  DesignStatus& status() { return bench_.desktop->status(); }
  template <typename Widget>
  Widget* find(const char* name) {
    return bench_.find<Widget>("Advanced", name);
  }
  void press(QWidget* target, int key, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
    QTest::keyClick(target, static_cast<Qt::Key>(key), modifiers);
    bench_.pump();
  }
  void calculate() { press(window_, Qt::Key_F5); }
  void fix(const char* field, const char* text) {
    auto* tick = find<QCheckBox>((std::string(field) + ".tick").c_str());
    if (!tick->isChecked()) tick->click();
    bench_.enter("Advanced", field, text);
  }
  std::string bannerText() {
    const bool shown = find<QWidget>("banner")->isVisible();
    return shown ? find<QLabel>("banner.text")->text().toStdString() : std::string();
  }
  std::string shown(const char* field) { return bench_.text("Advanced", field); }

  DesktopBench bench_;
  test::ScriptedDialog dialog_;
  QWidget* window_ = nullptr;
};

TEST_F(AdvancedWindowTest, FixedInductorMakesResultsOutOfDateUntilTheNextRun) {
  calculate();
  EXPECT_EQ(bannerText(), "");
  EXPECT_EQ(shown("Advanced.LValue"), "5.3");
  const std::string run_before = shown("Advanced.run_frequency");
  auto* run = find<ValueEditor>("Advanced.run_frequency");
  EXPECT_FALSE(run->isStale());

  fix("Advanced.LValue", "4,2");
  EXPECT_EQ(bannerText(),
            "Inputs have changed since calculation #1: these results are out of date.");
  EXPECT_TRUE(run->isStale());
  EXPECT_EQ(run->text().toStdString(), run_before) << "old numbers stay to be compared with";

  find<QPushButton>("banner.button")->click();
  bench_.pump();
  EXPECT_EQ(bannerText(), "");
  EXPECT_FALSE(run->isStale());
  EXPECT_EQ(shown("Advanced.LValue"), "4.2");
  EXPECT_NE(run->text().toStdString(), run_before);
  EXPECT_TRUE(session().advanced().field("LValue").IsFixed());
  EXPECT_EQ(find<QListWidget>("CalculationPulldown")->count(), 2);
}

TEST_F(AdvancedWindowTest, F5TakesWhatIsBeingTyped) {
  auto* power = find<QLineEdit>("Advanced.running_lamp_power");
  session().advanced().showFrame("frame_run");
  bench_.pump();
  power->setFocus();
  power->selectAll();
  QTest::keyClicks(power, "24");
  calculate();
  EXPECT_EQ(to_double(session().advanced().field("running_lamp_power").value()), 24);
  EXPECT_EQ(status().state(), DesignStatus::State::Current);
}

TEST_F(AdvancedWindowTest, VoltageModeQuestion) {
  // A low L with a high C ignites below the run frequency, which the selected IC cannot do.
  for (const bool yes : {false, true}) {
    SCOPED_TRACE(yes ? "Yes" : "No");
    dialog_.shown.clear();
    fix("Advanced.LValue", "3");
    fix("Advanced.CValue", "8");
    dialog_.answers = {yes ? kYes : kNo};
    calculate();
    ASSERT_FALSE(dialog_.shown.empty());
    EXPECT_TRUE(dialog_.shown.front().text.ends_with(
        "Do you wish to retry the calculation in voltage mode ?"));
    EXPECT_EQ(session().advanced().heatingMode(), yes ? kVoltageMode : kCurrentMode);
    session().advanced().showFrame("frame_preheat");
    bench_.pump();
    EXPECT_EQ(find<QWidget>("Advanced.preheat_current")->isVisible(), !yes);
    EXPECT_EQ(find<QWidget>("Advanced.preheat_frequency_vm")->isVisible(), yes);
    if (yes) continue;
    EXPECT_EQ(bannerText(),
              "Calculation #1: The running frequency is significantly higher than the ignition "
              "frequency.");
    find<QPushButton>("banner.button")->click();
    bench_.pump();
    EXPECT_EQ(dialog_.shown.back().text, dialog_.shown.front().text) << "the whole message again";
  }
}

TEST_F(AdvancedWindowTest, RunWithoutSolutionLeavesOldResultsOutOfDate) {
  calculate();
  const std::string run_before = shown("Advanced.run_frequency");
  fix("Advanced.LValue", "9");
  calculate();
  EXPECT_EQ(bannerText(), "No solution found. Try the following:");
  EXPECT_EQ(shown("Advanced.run_frequency"), run_before);
  EXPECT_TRUE(find<ValueEditor>("Advanced.run_frequency")->isStale());
}

TEST_F(AdvancedWindowTest, KeyboardAloneDesignsAndWalksTheHistory) {
  auto* tabs = find<QTabBar>("input_tabstrip");
  tabs->setFocus(Qt::TabFocusReason);
  press(tabs, Qt::Key_Left);
  EXPECT_EQ(session().advanced().input_tabstrip.selected, 0);
  calculate();
  const std::string first = shown("Advanced.run_frequency");
  window_->activateWindow();
  tabs->setFocus(Qt::TabFocusReason);
  for (int i = 0; i < 30; ++i) {
    if (QApplication::focusWidget()->objectName() == "Advanced.ballast_run_frequency") break;
    press(QApplication::focusWidget(), Qt::Key_Tab);
  }
  QTest::keyClicks(QApplication::focusWidget(), "45k");
  calculate();
  EXPECT_EQ(shown("Advanced.ballast_run_frequency"), "45");
  const std::string second = shown("Advanced.run_frequency");
  EXPECT_NE(second, first);

  auto* history = find<QListWidget>("CalculationPulldown");
  EXPECT_EQ(history->currentRow(), 1);
  press(window_, Qt::Key_Left, Qt::AltModifier);
  EXPECT_EQ(history->currentRow(), 0);
  EXPECT_EQ(shown("Advanced.run_frequency"), first);
  EXPECT_EQ(shown("Advanced.ballast_run_frequency"), "40");

  press(window_, Qt::Key_F6, Qt::ShiftModifier);
  for (int i = 0; i < 10 && !history->hasFocus(); ++i) press(window_, Qt::Key_F6);
  press(history, Qt::Key_Down);
  EXPECT_EQ(shown("Advanced.run_frequency"), first) << "walking shows nothing yet";
  press(history, Qt::Key_Return);
  EXPECT_EQ(shown("Advanced.run_frequency"), second);
}

TEST_F(AdvancedWindowTest, TabVisitsWhatCanBeTypedInReadingOrder) {
  auto* tabs = find<QTabBar>("input_tabstrip");
  tabs->setFocus(Qt::TabFocusReason);
  tabs->setCurrentIndex(0);
  bench_.pump();
  const QStringList expected{"Advanced.min_input_voltage",
                             "Advanced.max_input_voltage",
                             "Advanced.preheat_dc_bus_voltage",
                             "Advanced.ignition_dc_bus_voltage",
                             "Advanced.running_dc_bus_voltage",
                             "Advanced.ballast_run_frequency",
                             "Advanced.pfc_frequency",
                             "output_tabstrip",
                             "Advanced.LValue.tick",
                             "Advanced.CValue.tick",
                             "command_button.0"};
  QStringList visited;
  while (visited.size() < expected.size()) {
    press(QApplication::focusWidget(), Qt::Key_Tab);
    visited << QApplication::focusWidget()->objectName();
  }
  EXPECT_EQ(visited.join("\n").toStdString(), expected.join("\n").toStdString());
}

TEST_F(AdvancedWindowTest, NothingIsClippedOrMovesWhateverIsSelected) {
  calculate();
  auto* strip = find<QWidget>("output_tabstrip");
  const QPoint place = strip->mapTo(window_, QPoint());
  const int top = find<QWidget>("command_button.0")->mapTo(window_, QPoint()).y();
  for (const char* ic : {"TV6101", "TV6102", "TV6103", "TV6104", "TV6105", "TV6106", "TV6107",
                         "TV6108", "TV6109", "TV6110"}) {
    SCOPED_TRACE(ic);
    ASSERT_TRUE(session().selectByName(kSlotIc, ic));
    session().advanced().command_button_Click(0);
    for (const int tab : {0, 1}) {
      find<QTabBar>("input_tabstrip")->setCurrentIndex(tab);
      bench_.pump();
      for (QLabel* label : window_->findChildren<QLabel*>()) {
        if (!label->objectName().endsWith(".label") || !label->isVisible()) continue;
        EXPECT_GE(label->width(), label->sizeHint().width()) << label->text().toStdString();
      }
    }
    EXPECT_EQ(strip->mapTo(window_, QPoint()), place);
    EXPECT_EQ(find<QWidget>("command_button.0")->mapTo(window_, QPoint()).y(), top);
  }
}

TEST_F(AdvancedWindowTest, AssistiveToolsAreToldTheNameOfEveryControl) {
  int fields = 0;
  for (QWidget* control : window_->findChildren<QWidget*>()) {
    const bool operated = qobject_cast<QLineEdit*>(control) != nullptr ||
                          qobject_cast<QAbstractButton*>(control) != nullptr ||
                          qobject_cast<QTabBar*>(control) != nullptr ||
                          qobject_cast<QListWidget*>(control) != nullptr;
    if (!operated || control->objectName().isEmpty() || control->objectName().startsWith("qt_")) {
      continue;
    }
    QAccessibleInterface* reached = QAccessible::queryAccessibleInterface(control);
    ASSERT_NE(reached, nullptr);
    EXPECT_FALSE(reached->text(QAccessible::Name).trimmed().isEmpty())
        << control->objectName().toStdString();
    if (qobject_cast<ValueEditor*>(control) != nullptr) ++fields;
  }
  EXPECT_EQ(fields, 43) << "23 inputs and 20 results";
}

}  // namespace
}  // namespace vantrel
