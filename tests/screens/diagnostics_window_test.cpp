#include "screens/diagnostics_window.h"

#include <gtest/gtest.h>

#include <QAction>
#include <QClipboard>
#include <QInputDialog>
#include <QListWidget>
#include <QPushButton>
#include <QTabWidget>
#include <QTreeWidget>
#include <fstream>

#include "desktop_bench.h"
#include "screens/line_view.h"

namespace vantrel {
namespace {

class DiagnosticsWindowTest : public testing::Test {
 protected:
  void SetUp() override {
    bench_.start();
    session().messages().dialog(&dialog_);
    session().options().command_click("command_debug");
    bench_.pump();
    for (QWidget* top : QApplication::topLevelWidgets()) {
      if (top->objectName() == "Diagnostics" && top->isVisible()) window_ = top;
    }
    ASSERT_NE(window_, nullptr);
  }

  Session& session() { return bench_.desktop->session(); }
  template <typename Widget>
  Widget* find(const char* name) {
    return window_->findChild<Widget*>(name);
  }
  void showTab(int tab) {
    find<QTabWidget>("Diagnostics.tabs")->setCurrentIndex(tab);
    bench_.pump();
  }
  void click(const char* name) {
    find<QPushButton>(name)->click();
    bench_.pump();
  }
  void choose(LineView& text, const char* entry) {
    for (QAction* action : text.actions()) {
      if (action->text().remove('&') == entry) action->trigger();
    }
    bench_.pump();
  }
  std::string lastMessage() {
    const auto& shown = session().messages().shown();
    return shown.empty() ? "" : shown.back().text;
  }

  test::ScriptedDialog dialog_;  ///< Says OK to every report.
  DesktopBench bench_;
  QWidget* window_ = nullptr;
};

TEST_F(DiagnosticsWindowTest, ChecksReportAndTheReportIsCopiedAndSaved) {
  session().messages().injectAnswers({kOk, kOk, kOk});
  click("DebugUtils.start");
  EXPECT_EQ(lastMessage(), "You must select a valid test");
  find<QListWidget>("DebugUtils.tests")->setCurrentRow(1);
  click("DebugUtils.start");
  EXPECT_EQ(lastMessage(), "You must select a valid reference designator to check");

  auto* components = find<QListWidget>("DebugUtils.components");
  EXPECT_EQ(components->item(0)->text(), "Select Component");
  EXPECT_EQ(components->item(1)->text(), "All Reference Designators");
  const auto resistor = components->findItems("RFMIN", Qt::MatchExactly);
  ASSERT_EQ(resistor.size(), 1);
  components->setCurrentItem(resistor.front());
  click("DebugUtils.start");
  auto* report = find<QListWidget>("DebugUtils.report");
  ASSERT_GT(report->count(), 1);
  EXPECT_EQ(report->item(0)->text(), "Component : RFMIN");

  QString whole;
  for (int row = 0; row < report->count(); ++row) whole += report->item(row)->text() + '\n';
  click("DebugUtils.copy");
  EXPECT_EQ(QGuiApplication::clipboard()->text(), whole);
  report->setCurrentRow(0);
  click("DebugUtils.copy");
  EXPECT_EQ(QGuiApplication::clipboard()->text(), "Component : RFMIN\n");
  const auto file = bench_.home.path() / "report.txt";
  bench_.files.answer = file.string();
  click("DebugUtils.save");
  std::ifstream saved(file);
  EXPECT_EQ(std::string(std::istreambuf_iterator<char>(saved), {}), whole.toStdString());
}

TEST_F(DiagnosticsWindowTest, AnswersDuringATestAndCancelsIt) {
  find<QListWidget>("DebugUtils.tests")->setCurrentRow(1);
  auto* components = find<QListWidget>("DebugUtils.components");
  components->setCurrentRow(1);  // all of them
  auto* report = find<QListWidget>("DebugUtils.report");
  auto* cancel = find<QPushButton>("DebugUtils.cancel");
  find<QPushButton>("DebugUtils.start")->click();
  ASSERT_TRUE(QTest::qWaitFor([&] { return report->count() > 0; }));
  EXPECT_TRUE(cancel->isVisible());
  EXPECT_FALSE(find<QPushButton>("DebugUtils.start")->isEnabled());
  QTest::keyClick(cancel, Qt::Key_Space);
  EXPECT_EQ(report->item(report->count() - 1)->text(), "Cancelled");
  const int lines = report->count();
  bench_.pump();
  EXPECT_EQ(report->count(), lines);
  EXPECT_FALSE(cancel->isVisible());

  click("DebugUtils.start");
  ASSERT_TRUE(QTest::qWaitFor([&] { return !cancel->isVisible(); }));
  EXPECT_GT(report->count(), lines);
  EXPECT_TRUE(find<QLabel>("DebugUtils.totals")->text().endsWith(" 0 findings"));
}

TEST_F(DiagnosticsWindowTest, TheWalkThroughAllCombinationsCanBeCancelled) {
  QTimer cancel;
  QObject::connect(&cancel, &QTimer::timeout, [&] {
    for (QWidget* top : QApplication::topLevelWidgets()) {
      auto* button = top->findChild<QPushButton*>("Cancel");
      if (top->objectName() == "PleaseWait" && button->isVisible()) button->click();
    }
  });
  cancel.start(50);
  session().messages().injectAnswers({kNo, kYes, kOk, kOk, kOk});
  click("TestAllCalculations");
  auto* report = find<QListWidget>("DebugUtils.report");
  EXPECT_EQ(report->count(), 0);
  click("TestAllCalculations");
  EXPECT_EQ(lastMessage(), "Operation Cancelled");
  ASSERT_GT(report->count(), 0);
  EXPECT_TRUE(report->item(report->count() - 1)
                  ->text()
                  .endsWith(" combinations calculated, then cancelled"));
  EXPECT_FALSE(session().isBusy());
  EXPECT_FALSE(session().pleaseWait().visible());
  EXPECT_TRUE(find<QPushButton>("TestAllCalculations")->isEnabled());
}

TEST_F(DiagnosticsWindowTest, TheLogIsSearchedAndSetsBreakAndWatch) {
  session().log().keepLines(true);
  for (const char* line : {"start", "RFMIN = 1", "CF = 2", "rfmin again"}) {
    session().log().write(line);
  }
  showTab(1);
  auto* text = find<LineView>("TextfileViewer");
  EXPECT_EQ(text->toPlainText(), "start\nRFMIN = 1\nCF = 2\nrfmin again");

  session().messages().injectAnswers({kOk, kOk, kOk, kOk});
  text->setFocus();
  QTest::keyClick(text, Qt::Key_F, Qt::ControlModifier);
  bench_.pump();
  auto* wanted = find<QLineEdit>("TextfileFind.text");
  ASSERT_TRUE(wanted->isVisible());
  QTest::keyClick(wanted, Qt::Key_Return);
  bench_.pump();
  EXPECT_EQ(lastMessage(), "You must enter a valid search string");
  QTest::keyClicks(wanted, "rfmin");
  for (const int line : {1, 3}) {
    QTest::keyClick(wanted, Qt::Key_F3);
    bench_.pump();
    EXPECT_EQ(text->currentLine(), line);
  }
  QTest::keyClick(wanted, Qt::Key_F3);
  bench_.pump();
  EXPECT_EQ(lastMessage(), "The string 'rfmin' could not be found");
  QTest::keyClick(wanted, Qt::Key_Escape);
  EXPECT_FALSE(wanted->isVisible());
  EXPECT_TRUE(window_->isVisible());

  text->selectLine(2);
  choose(*text, "Set Break");
  EXPECT_EQ(session().log().breakText(), "CF = 2");
  choose(*text, "Clear Break");
  EXPECT_EQ(session().log().breakText(), "");
  EXPECT_EQ(lastMessage(), "Break message cleared");

  QTimer::singleShot(100, window_, [] {
    auto* dialog = qobject_cast<QInputDialog*>(QApplication::activeModalWidget());
    ASSERT_NE(dialog, nullptr);
    EXPECT_EQ(dialog->windowTitle(), "Calculation Debug");
    EXPECT_EQ(dialog->labelText(), "Enter variable to watch");
    dialog->setTextValue("RFMIN");
    dialog->accept();
  });
  choose(*text, "Watch Variable...");
  EXPECT_EQ(session().log().watchText(), "RFMIN");
  choose(*text, "Clear Variable Watch");
  EXPECT_EQ(session().log().watchText(), "");
  EXPECT_EQ(lastMessage(), "Variable watch cleared");
}

TEST_F(DiagnosticsWindowTest, ExplainsAComponentOnceItIsCalculated) {
  showTab(2);
  auto* names = find<QListWidget>("Explain.names");
  session().messages().injectAnswers(std::vector<int>(10, kOk));
  session().simple().MainButton_Click(Simple::kCalculateButton);
  bench_.pump();
  const auto found = names->findItems("RT", Qt::MatchExactly);
  ASSERT_EQ(found.size(), 1);
  names->setCurrentItem(found.front());
  bench_.pump();
  auto* tree = find<QTreeWidget>("Explain.tree");
  ASSERT_EQ(tree->topLevelItemCount(), 1);
  const QTreeWidgetItem* root = tree->topLevelItem(0);
  EXPECT_EQ(root->text(0), "RT");
  std::map<std::string, std::string> lines;
  for (int i = 0; i < root->childCount(); ++i) {
    lines[root->child(i)->text(0).toStdString()] = root->child(i)->text(1).toStdString();
  }
  for (const char* step : {"Rule", "Function", "Raw result", "Rounding", "Preferred value"}) {
    EXPECT_NE(lines[step], "") << step;
  }
}

}  // namespace
}  // namespace vantrel
