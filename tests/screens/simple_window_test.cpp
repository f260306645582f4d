#include <gtest/gtest.h>

#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QStackedWidget>

#include "desktop_bench.h"

namespace vantrel {
namespace {

class SimpleWindowTest : public testing::Test {
 protected:
  SimpleWindowTest() { bench_.start().session().messages().dialog(&answers_); }

  Session& session() { return bench_.desktop->session(); }
  QWidget& window() { return *bench_.desktop->window("Simple"); }
  QAbstractButton& button(int index) {
    const QByteArray name = "MainButton." + QByteArray::number(index);
    return *bench_.find<QAbstractButton>("Simple", name.constData());
  }
  std::string label(const char* name) {
    return bench_.find<QLabel>("Simple", name)->text().toStdString();
  }
  bool showsResults() {
    return bench_.find<QStackedWidget>("Simple", "pages")->currentIndex() == 1;
  }
  /// F5 on the window, which a window that a run has opened may cover.
  void calculate() {
    window().activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&window()));
    QTest::keyClick(&window(), Qt::Key_F5);
    bench_.pump();
  }

  test::ScriptedDialog answers_;
  DesktopBench bench_;
};

TEST_F(SimpleWindowTest, ReturnDesignsTheDefaultBallast) {
  EXPECT_FALSE(showsResults());
  EXPECT_EQ(button(0).accessibleName(), "Target IC: TV6103");
  EXPECT_EQ(button(2).accessibleDescription(), "T5 High Efficiency");
  window().activateWindow();
  EXPECT_EQ(window().focusWidget(), &button(4));
  QTest::keyClick(window().focusWidget(), Qt::Key_Return);
  bench_.pump();
  ASSERT_TRUE(showsResults());
  EXPECT_EQ(label("results.heading"), "Calculation #1");
  EXPECT_TRUE(label("results.outcome").starts_with("Complete: ")) << label("results.outcome");
  EXPECT_EQ(label("results.note"), "");

  bench_.desktop->status().inputChanged();
  bench_.pump();
  EXPECT_EQ(label("results.outcome"), "Out of date");

  session().selectByName(kSlotLamp, "T5 21W");
  bench_.pump();
  EXPECT_FALSE(showsResults());
  EXPECT_EQ(button(2).accessibleName(), "Lamp: T5 21W");
}

TEST_F(SimpleWindowTest, ARunThatReleasesFixedValuesSaysSo) {
  session().advanced().field("LValue").SetFixValue(true);
  session().advanced().field("LValue").SetValue(4.0);
  calculate();
  EXPECT_FALSE(session().advanced().field("LValue").IsFixed());
  EXPECT_EQ(label("results.note"), "Fixed values of L, C or Lamp Power were released");
  calculate();
  EXPECT_EQ(label("results.note"), "");
}

TEST_F(SimpleWindowTest, AFailedRunKeepsItsLastMessageOnView) {
  session().advanced().field("max_preheat_voltage").Clear();
  calculate();
  ASSERT_FALSE(session().messages().shown().empty());
  EXPECT_EQ(bench_.desktop->status().state(), DesignStatus::State::Failed);
  EXPECT_TRUE(label("results.outcome").starts_with("Not complete: ")) << label("results.outcome");
  EXPECT_FALSE(bench_.find<QWidget>("Simple", "banner")->isVisible()) << "told once is enough";
}

TEST_F(SimpleWindowTest, GatesDisableTilesAndOutputWindows) {
  calculate();
  EXPECT_TRUE(bench_.find<QPushButton>("Simple", "c_pfc")->isEnabled());
  ASSERT_TRUE(session().selectByName(kSlotInput, "310VDC"));
  calculate();
  auto* pfc = bench_.find<QPushButton>("Simple", "c_pfc");
  EXPECT_FALSE(pfc->isEnabled());
  EXPECT_EQ(pfc->toolTip(), "The selected line input has no PFC stage");

  ASSERT_TRUE(session().selectByName(kSlotIc, "TV6108"));
  bench_.pump();
  EXPECT_TRUE(button(1).isEnabled());
  EXPECT_FALSE(button(3).isEnabled());
  EXPECT_EQ(button(3).accessibleDescription(), "given by the target IC");
}

TEST_F(SimpleWindowTest, RecentProjectsOpenFromTheList) {
  const std::string path = (bench_.home.path() / "stored.vtl").string();
  session().selectByName(kSlotLamp, "T5 21W");
  ASSERT_TRUE(session().saveProjectTo("Simple", path));
  session().selectByName(kSlotLamp, "T5 35W");
  bench_.desktop->status().stored();
  bench_.pump();
  auto* list = bench_.find<QListWidget>("Simple", "recent");
  ASSERT_EQ(list->count(), 1);
  EXPECT_EQ(list->item(0)->text(), "stored");
  list->setCurrentRow(0);
  QTest::keyClick(list, Qt::Key_Return);
  bench_.pump();
  EXPECT_EQ(session().selectionFullName(kSlotLamp), "T5 21W");
  EXPECT_EQ(test::texts(session().messages()),
            std::vector<std::string>{"Project 'stored.vtl' Saved OK"});

  std::filesystem::remove(path);
  list->hide();
  list->show();
  EXPECT_FALSE(list->item(0)->flags().testFlag(Qt::ItemIsEnabled));
}

}  // namespace
}  // namespace vantrel
