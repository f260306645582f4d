// The program as a whole: projects, the end of the run, and what happens when a window is closed
// while work goes on.

#include <gtest/gtest.h>

#include <QApplication>
#include <QCloseEvent>
#include <QPushButton>
#include <QTest>
#include <QTimer>

#include "screens/desktop_bench.h"

namespace vantrel {
namespace {

class DesktopTest : public testing::Test {
 protected:
  void design() {
    bench_.find<QAbstractButton>("Simple", "MainButton.4")->click();
    bench_.pump();
  }
  Session& session() { return bench_.desktop->session(); }
  std::string field(const char* name) { return session().advanced().field(name).DisplayText(); }

  /// Starts with a dialog that answers from a list, and "OK" to every report.
  Desktop& start() {
    Desktop& desktop = bench_.start();
    session().messages().dialog(&dialog_);
    return desktop;
  }

  test::ScriptedDialog dialog_;
  DesktopBench bench_;
};

TEST_F(DesktopTest, StartsInTheScreenThatTheOptionsName) {
  Desktop& desktop = bench_.start();
  EXPECT_TRUE(desktop.window("Simple")->isVisible());
  EXPECT_FALSE(session().advanced().visible());
  session().options().tick("start_in_advanced_screen", true);
  session().options().Apply();
  Desktop& again = bench_.start();
  EXPECT_TRUE(again.window("Advanced")->isVisible());
  EXPECT_FALSE(session().simple().visible());
}

TEST_F(DesktopTest, AProjectComesBackAndTheUnsavedDesignIsAskedFor) {
  start();
  const std::string path = (bench_.home.path() / "a.vtl").string();
  bench_.files.answer = path;
  design();
  EXPECT_TRUE(bench_.desktop->status().isUnsaved());
  session().bar("Simple")->execute_command("c_save_project");
  EXPECT_FALSE(bench_.desktop->status().isUnsaved());
  const std::string run = field("run_frequency");

  EXPECT_TRUE(session().selectByName(kSlotLamp, "T8 36W"));
  EXPECT_TRUE(bench_.desktop->status().isUnsaved());
  dialog_.answers = {kCancel};
  session().bar("Simple")->execute_command("c_load_project");
  EXPECT_EQ(session().selectionName(kSlotLamp), "T8 36W");
  dialog_.answers = {kNo};
  session().bar("Simple")->execute_command("c_load_project");
  EXPECT_EQ(session().selectionName(kSlotLamp), "T5 28W");
  EXPECT_EQ(field("run_frequency"), run);
  EXPECT_EQ(bench_.desktop->status().state(), DesignStatus::State::Current);
}

TEST_F(DesktopTest, TheFileMenuWritesTheDesignReport) {
  Desktop& desktop = start();
  design();
  auto* report = desktop.window("Simple")->findChild<QAction*>("designReport");
  ASSERT_NE(report, nullptr);
  for (const char* name : {"r.pdf", "r.html"}) {
    const auto file = bench_.home.path() / name;
    bench_.files.answer = file.string();
    report->trigger();
    bench_.pump();
    EXPECT_TRUE(std::filesystem::exists(file)) << name;
  }
  const std::size_t told = dialog_.shown.size();
  bench_.files.answer = "/nowhere/r.pdf";
  report->trigger();
  bench_.pump();
  ASSERT_EQ(dialog_.shown.size(), told + 1);
  EXPECT_TRUE(dialog_.shown.back().text.starts_with("Could not export file 'r.pdf' ("));
}

TEST_F(DesktopTest, ClosingTheMainWindowAsksAndEndsTheRun) {
  Desktop& desktop = start();
  design();
  dialog_.answers = {kCancel};
  desktop.window("Simple")->close();
  bench_.pump();
  EXPECT_FALSE(desktop.hasEnded());
  EXPECT_TRUE(desktop.window("Simple")->isVisible());
  dialog_.answers = {kNo};
  desktop.window("Simple")->close();
  bench_.pump();
  EXPECT_TRUE(desktop.hasEnded());
  EXPECT_FALSE(desktop.window("Simple")->isVisible());
}

TEST_F(DesktopTest, ACloseDuringACalculationWaitsForItsEnd) {
  Desktop& desktop = start();
  bool closed_while_busy = false;
  // The chain lets events in between its steps.
  session().calculationStarted.connect([&] {
    if (closed_while_busy) return;
    closed_while_busy = true;
    QCloseEvent close;
    QApplication::sendEvent(desktop.window("Simple"), &close);
    QApplication::processEvents();
    EXPECT_FALSE(desktop.hasEnded());
  });
  dialog_.answers = {kNo};
  design();
  EXPECT_TRUE(closed_while_busy);
  EXPECT_TRUE(QTest::qWaitFor([&] { return desktop.hasEnded(); }, 5000));
  EXPECT_NE(field("run_frequency"), "");
}

TEST_F(DesktopTest, AWaitIsCancelledByItsButton) {
  start();
  bool cancelled = false;
  session().pleaseWait().cancelled.connect([&] { cancelled = true; });
  session().pleaseWait().Start("Working", -1);
  QWidget* wait = nullptr;
  for (QWidget* each : QApplication::topLevelWidgets()) {
    if (each->objectName() == "PleaseWait" && each->isVisible()) wait = each;
  }
  ASSERT_NE(wait, nullptr);
  wait->findChild<QPushButton*>("Cancel")->click();
  EXPECT_TRUE(cancelled);
  EXPECT_FALSE(wait->isVisible());
  EXPECT_EQ(session().messages().shown().back().text, "Operation Cancelled");
}

TEST_F(DesktopTest, AMissingFieldIsBroughtInSight) {
  Desktop& desktop = start();
  VTLValue& field = session().advanced().field("min_input_voltage");
  session().advanced().input_tabstrip.selected = 1;
  session().advanced().set_frames_from_tabstrips();
  EXPECT_TRUE(desktop.displayField(field));
  bench_.pump();
  EXPECT_TRUE(session().advanced().visible());
  EXPECT_TRUE(bench_.find<QLineEdit>("Advanced", "Advanced.min_input_voltage")->isVisible());
  EXPECT_FALSE(desktop.displayField(session().advanced().field("allow_input")));
}

TEST_F(DesktopTest, MessagesAnswerToKeys) {
  bench_.start();
  const auto answer_with = [&](Qt::Key key, Qt::KeyboardModifiers modifiers, int type) {
    QTimer::singleShot(50, qApp,
                       [=] { QTest::keyClick(QApplication::activeModalWidget(), key, modifiers); });
    return session().messages().msg("", "Proceed?", type);
  };
  EXPECT_EQ(answer_with(Qt::Key_Return, {}, kMessageYesNo), kYes);
  EXPECT_EQ(answer_with(Qt::Key_Escape, {}, kMessageYesNo), kNo);
  EXPECT_EQ(answer_with(Qt::Key_N, Qt::AltModifier, kMessageYesNoCancel), kNo);
  EXPECT_EQ(answer_with(Qt::Key_Escape, {}, kMessageYesNoCancel), kCancel);
  EXPECT_EQ(answer_with(Qt::Key_Escape, {}, kMessageOk), kOk);
  QTimer::singleShot(50, qApp, [] { QApplication::activeModalWidget()->close(); });
  EXPECT_EQ(session().messages().msg("", "Proceed?", kMessageYesNo), kClosed);
}

}  // namespace
}  // namespace vantrel
