#include <QAction>
#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

#include "screens/desktop_bench.h"
#include "screens/frame_panel.h"
#include "screens/notice.h"

namespace vantrel {
namespace {

constexpr const char* kTransformerIc = "TV6108";

class DesignerWindowsTest : public testing::Test {
 protected:
  DesignerWindowsTest() {
    desktop_ = &bench_.start();
    session().messages().dialog(&dialog_);
    session().simple().MainButton_Click(4);
    bench_.pump();
  }
  Session& session() { return desktop_->session(); }
  QWidget* open(Screen& screen) {
    screen.visible(true);
    bench_.pump();
    return desktop_->window(screen.name());
  }
  void click(QWidget* window, const char* button) {
    auto* found = window->findChild<QPushButton*>(button);
    ASSERT_NE(found, nullptr) << button;
    QTest::mouseClick(found, Qt::LeftButton);
    bench_.pump();
  }

  DesktopBench bench_;
  test::ScriptedDialog dialog_;
  Desktop* desktop_;
};

TEST_F(DesignerWindowsTest, AFixedCoreIsKeptByADesignAndAFailureStaysOnView) {
  QWidget* window = open(session().inductor());
  auto* core = window->findChild<QComboBox*>("Inductor.ind_comboCore.0");
  auto* fix = window->findChild<QCheckBox*>("Inductor.ind_checkFixCore.0");
  const QString designed = core->currentText();
  ASSERT_FALSE(designed.isEmpty());
  EXPECT_FALSE(core->isEnabled());
  fix->click();
  ASSERT_TRUE(core->isEnabled());
  const int last = core->count() - 1;
  ASSERT_NE(core->itemText(last), designed);
  core->setCurrentIndex(last);
  emit core->activated(last);
  auto* turns = window->findChild<ValueEditor*>("Inductor.ind_numberofturns.0");
  EXPECT_TRUE(turns->isStale());
  int runs = 0;
  session().calculationEnded.connect([&](bool) { ++runs; });
  click(window, "Inductor.CalculateInductor.0");
  EXPECT_EQ(runs, 1);
  EXPECT_EQ(core->currentText(), core->itemText(last));
  EXPECT_FALSE(turns->isStale());
  EXPECT_EQ(turns->text().toStdString(),
            session().inductor().field("ind_numberofturns", 0).DisplayText());

  // Above the 3 mm that a user may fix.
  window->findChild<QCheckBox*>("Inductor.ind_gapsize.0.tick")->click();
  bench_.enter("Inductor", "Inductor.ind_gapsize.0", "3.1");
  QTest::keyClick(window, Qt::Key_F5);
  bench_.pump();
  auto* column = window->findChild<QWidget*>("LRES");
  EXPECT_EQ(column->findChild<Notice*>("notice")->text(), "Gap too Large !");
  EXPECT_TRUE(turns->text().isEmpty());
}

TEST_F(DesignerWindowsTest, TheSecondColumnIsShutWithoutPfc) {
  QWidget* window = open(session().inductor());
  auto* column = window->findChild<QWidget*>("LPFC");
  auto* heading = column->findChild<QLabel*>("heading");
  EXPECT_EQ(column->isEnabled(), session().advanced().says_yes("line_input_pfc"));
  session().advanced().field("line_input_pfc").SetValue("no");
  session().inductor().notifyLayoutChanged();
  EXPECT_FALSE(column->isEnabled());
  EXPECT_EQ(heading->text(), "The selected line input has no PFC stage");
  session().advanced().field("line_input_pfc").SetValue("Yes");
  session().inductor().notifyLayoutChanged();
  EXPECT_TRUE(column->isEnabled());
  EXPECT_EQ(heading->text(), "PFC inductor");
}

TEST_F(DesignerWindowsTest, TheTransformerTakesEightDigitsAndShowsTheTurnsForTheBill) {
  ASSERT_TRUE(session().selectByName(kSlotIc, kTransformerIc));
  ASSERT_TRUE(session().advanced().says_yes("allow_transformer"));
  session().simple().MainButton_Click(4);
  bench_.pump();
  QWidget* window = open(session().transformer());
  auto* current = window->findChild<ValueEditor*>("Transformer.tfr_imag");
  EXPECT_GE(current->width(), QFontMetrics(current->font()).horizontalAdvance("999999999") + 2 * 6);
  EXPECT_TRUE(current->toolTip().contains("40000000 nA = 40 mA"));
  bench_.enter("Transformer", "Transformer.tfr_imag", "40000000");
  EXPECT_EQ(bench_.text("Transformer", "Transformer.tfr_imag"), "40000000");
  QTest::keyClick(window, Qt::Key_F5);
  bench_.pump();
  // 2 Np Vin / Vout turns: the text holds the whole parts of both windings.
  Transformer& fields = session().transformer();
  const double primary = to_double(fields.field("tfr_primaryturns").value());
  const double ratio = to_double(fields.field("tfr_outputvoltage").value()) /
                       (2 * to_double(fields.field("tfr_inputvoltage").value()));
  EXPECT_EQ(bench_.text("Transformer", "Transformer.tfr_BOMValue"),
            QString("%1T, %2T").arg(primary).arg(static_cast<int>(primary * ratio)).toStdString());
  EXPECT_EQ(window->findChild<ValueEditor*>("Transformer.tfr_BOMValue")->width(), current->width());
}

TEST_F(DesignerWindowsTest, TheCalculatorListsItsOutputsWithGapsBetweenLetters) {
  QWidget* window = open(session().calculator());
  EXPECT_EQ(window->windowTitle(), "TV6103 Component Calculator");
  auto* frame = window->findChild<FramePanel*>("outputs_frame");
  EXPECT_EQ(frame->captionLabel().text(), "TV6103 Components");
  std::vector<FieldRow*> shown;
  for (FieldRow* row : frame->rows()) {
    if (row->isShown()) shown.push_back(row);
  }
  ASSERT_GT(shown.size(), 3u);
  int pitch = 0;
  int apart = 0;
  for (std::size_t i = 1; i < shown.size(); ++i) {
    const int step = shown[i]->editor().y() - shown[i - 1]->editor().y();
    const bool same = shown[i]->label().text()[0] == shown[i - 1]->label().text()[0];
    EXPECT_LT(shown[i - 1]->label().text(), shown[i]->label().text());
    EXPECT_EQ(shown[i]->editor().geometry().right(), shown[0]->editor().geometry().right());
    int& seen = same ? pitch : apart;
    if (seen == 0) seen = step;
    EXPECT_EQ(seen, step) << shown[i]->label().text().toStdString();
  }
  EXPECT_GT(apart, pitch);

  QTest::keyClick(window, Qt::Key_F5);
  bench_.pump();
  EXPECT_FALSE(session().isBusy());
  EXPECT_FALSE(shown.front()->editor().text().isEmpty());
}

TEST_F(DesignerWindowsTest, ComponentsFromOldOperatingPointsStayOutOfDate) {
  bench_.pump();
  ASSERT_EQ(desktop_->status().state(), DesignStatus::State::Current);
  desktop_->status().inputChanged();
  ASSERT_EQ(desktop_->status().state(), DesignStatus::State::Stale);
  ASSERT_TRUE(session().findComponents());
  EXPECT_EQ(desktop_->status().state(), DesignStatus::State::Stale);
  session().simple().MainButton_Click(4);
  EXPECT_EQ(desktop_->status().state(), DesignStatus::State::Current);
}

}  // namespace
}  // namespace vantrel
