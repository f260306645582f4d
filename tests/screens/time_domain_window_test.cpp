#include <QAbstractButton>
#include <QClipboard>
#include <QLabel>
#include <QMenuBar>
#include <QPushButton>
#include <QWheelEvent>

#include "screens/desktop_bench.h"
#include "screens/notice.h"
#include "screens/time_domain_plot.h"

namespace vantrel {
namespace {

class TimeDomainWindowTest : public testing::Test {
 protected:
  TimeDomainWindowTest() : session_(bench_.start().session()) {
    session_.messages().dialog(&dialog_);
  }
  GraphTimeDomain& form() { return session_.timeDomainForm(); }
  /// The window on the start of the default design.
  QWidget* open() {
    session_.simple().MainButton_Click(Simple::kCalculateButton);
    session_.bar("Simple")->execute_command("c_graph_td");
    return shown();
  }
  QWidget* shown() {
    QWidget* window = bench_.desktop->window("GraphTimeDomain");
    EXPECT_TRUE(QTest::qWaitForWindowExposed(window));
    bench_.pump();
    return window;
  }
  static QAction* action(QWidget* window, const QString& text) {
    for (QAction* each : window->findChildren<QAction*>()) {
      if (each->text().remove('&') == text) return each;
    }
    ADD_FAILURE() << "no command " << text.toStdString();
    return nullptr;
  }

  DesktopBench bench_;
  test::ScriptedDialog dialog_;
  Session& session_;
};

TEST_F(TimeDomainWindowTest, OffersToCalculateAndThenTellsTheRun) {
  session_.graphTimeDomain().visible(true);
  QWidget* window = shown();
  auto* button = window->findChild<QPushButton*>("calculate");
  ASSERT_TRUE(button->isVisible());
  QTest::mouseClick(button, Qt::LeftButton);
  bench_.pump();
  EXPECT_FALSE(button->isVisible());
  ASSERT_TRUE(form().isGenerated());
  const QString summary = window->findChild<QLabel*>("summary")->text();
  EXPECT_TRUE(summary.startsWith("preheat ") && summary.contains("ignites"))
      << summary.toStdString();
  auto* plot = window->findChild<TimeDomainPlot*>("gr");
  EXPECT_EQ(plot->accessibleDescription(), summary);
  EXPECT_FALSE(window->findChild<Notice*>()->isVisible());
  // A lamp that never ignites.
  session_.timeDomainGraph().GenerateFrom({{"MaxIgnitionVoltage", 1e9}});
  form().takeRun();
  form().RedrawGraph();
  EXPECT_EQ(window->findChild<Notice*>()->text(),
            "Ballast run stage was not triggered with these settings");
}

TEST_F(TimeDomainWindowTest, TheOutputCircuitGoesInStep) {
  QWidget* window = open();
  auto* toggle = window->findChild<QAbstractButton*>("DisplayToggles.VIN");
  action(window, "Output Circuit")->trigger();
  bench_.pump();
  QWidget* circuit = bench_.desktop->window("TimeDomainRCL");
  ASSERT_TRUE(circuit->isVisible());
  auto* source = circuit->findChild<QAbstractButton*>("RCLSelectorImage.0");
  EXPECT_EQ(source->text(), "Halfbridge Voltage");
  for (const bool on : {true, false}) {
    const QColor ground = on ? QColor(208, 255, 208) : QColor(240, 240, 240);
    QTest::mouseClick(source, Qt::LeftButton);
    EXPECT_EQ(form().GetCheckState(Trace::VIN), on);
    EXPECT_EQ(toggle->isChecked(), on);
    EXPECT_EQ(action(window, "Halfbridge Voltage")->isChecked(), on);
    EXPECT_EQ(source->isChecked(), on);
    EXPECT_EQ(source->grab().toImage().pixelColor(3, source->height() / 2), ground);
  }
  QTest::mouseClick(toggle, Qt::LeftButton);
  EXPECT_TRUE(source->isChecked());
  session_.graphTimeDomain().visible(false);
  EXPECT_FALSE(circuit->isVisible());
}

TEST_F(TimeDomainWindowTest, MouseAndKeysZoomAndCopy) {
  QWidget* window = open();
  auto* plot = window->findChild<TimeDomainPlot*>("gr");
  const Box area = session_.timeDomainView().plotArea();
  const double whole = form().TimeWindow();
  const auto at = [&](double share) {
    return QPoint(static_cast<int>(area.left + share * area.width), plot->height() / 2);
  };
  QAction* zoom = action(window, "Zoom In");
  EXPECT_FALSE(zoom->isEnabled());
  QTest::mousePress(plot, Qt::RightButton, {}, at(0.5));
  QTest::mouseMove(plot, at(0.6));
  QTest::mouseRelease(plot, Qt::RightButton, {}, at(0.75));
  ASSERT_TRUE(zoom->isEnabled());
  zoom->trigger();
  bench_.pump();
  EXPECT_NEAR(form().TimeWindow(), whole / 4, whole / 400);
  EXPECT_NEAR(form().TimePosition(), whole / 2, whole / 400);
  const double fixed = form().TimePosition() + form().TimeWindow() / 4;
  QWheelEvent wheel(at(0.25), plot->mapToGlobal(at(0.25)), {}, {0, 120}, Qt::NoButton,
                    Qt::NoModifier, Qt::NoScrollPhase, false);
  QApplication::sendEvent(plot, &wheel);
  bench_.pump();
  EXPECT_LT(form().TimeWindow(), whole / 4.5);
  EXPECT_NEAR(form().TimePosition() + form().TimeWindow() / 4, fixed, whole / 400);
  plot->setFocus();
  QTest::keyClick(plot, Qt::Key_Home);
  EXPECT_EQ(form().TimePosition(), 0);

  QTest::keyClick(window, Qt::Key_C, Qt::ControlModifier);
  bench_.pump();
  const QImage copied = QApplication::clipboard()->image();
  EXPECT_EQ(copied.size(), plot->size() * plot->devicePixelRatioF());
  EXPECT_EQ(copied.pixelColor(static_cast<int>(area.left) / 2, copied.height() - 4),
            QColor(Qt::black));
}

}  // namespace
}  // namespace vantrel
