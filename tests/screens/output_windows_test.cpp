#include <QAction>
#include <QClipboard>
#include <QComboBox>
#include <QDialog>
#include <QDoubleSpinBox>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTableView>
#include <QWindow>
#include <fstream>
#include <iterator>
#include <memory>

#include "app/print_jobs.h"
#include "screens/bill_table.h"
#include "screens/desktop_bench.h"
#include "screens/gain_graph.h"
#include "screens/print_preview.h"

namespace vantrel {
namespace {

class OutputWindowsTest : public testing::Test {
 protected:
  OutputWindowsTest() {
    desktop_ = &bench_.start();
    session().messages().dialog(&dialog_);
  }
  Session& session() { return desktop_->session(); }
  void calculate() {
    session().simple().MainButton_Click(4);
    bench_.pump();
  }
  QWidget* openBill() {
    EXPECT_TRUE(session().billOfMaterials().setup_bom());
    bench_.pump();
    return desktop_->window("bill_of_materials");
  }
  QWidget* openGraph() {
    session().graphOperatingPoints().visible(true);
    QWidget* window = desktop_->window("GraphOperatingPoints");
    EXPECT_TRUE(QTest::qWaitForWindowExposed(window));
    bench_.pump();
    return window;
  }
  static std::vector<std::string> column(const QTableView& view, int column) {
    std::vector<std::string> cells;
    for (int row = 0; row < view.model()->rowCount(); ++row) {
      cells.push_back(view.model()->index(row, column).data().toString().toStdString());
    }
    return cells;
  }
  static void clickHeader(QTableView& view, int column) {
    QHeaderView* header = view.horizontalHeader();
    const int x = header->sectionViewportPosition(column) + 10;
    QTest::mouseClick(header->viewport(), Qt::LeftButton, {}, QPoint(x, header->height() / 2));
  }

  DesktopBench bench_;
  test::ScriptedDialog dialog_;
  Desktop* desktop_;
};

TEST_F(OutputWindowsTest, TheThirdClickBringsTheCalculatedOrderBack) {
  calculate();
  auto* view = openBill()->findChild<QTableView*>("bill");
  const std::vector<std::string> calculated = column(*view, BillTable::kReference);
  clickHeader(*view, BillTable::kQty);
  std::vector<std::string> sorted = column(*view, BillTable::kQty);
  const auto smaller = [](const std::string& a, const std::string& b) {
    return std::stoi(a) < std::stoi(b);
  };
  EXPECT_TRUE(std::is_sorted(sorted.begin(), sorted.end(), smaller));
  clickHeader(*view, BillTable::kQty);
  sorted = column(*view, BillTable::kQty);
  EXPECT_TRUE(std::is_sorted(sorted.rbegin(), sorted.rend(), smaller));
  EXPECT_NE(column(*view, BillTable::kReference), calculated);
  clickHeader(*view, BillTable::kQty);
  EXPECT_EQ(column(*view, BillTable::kReference), calculated);
}

TEST_F(OutputWindowsTest, ValuesAreSortedAcrossTheirPrefixes) {
  test::FieldFixture fixture;
  ProgramFolder folder(bench_.home.path());
  TableExport exporter(fixture.messages, nullptr, folder);
  BomStore store;
  for (const char* value :
       {"22 uF", "470 pF", "TVF170", "3.3 nF", "51 KOhm", "1.8 Ohm", "220 nF"}) {
    store.add("part", value, "", "", value);
  }
  bill_of_materials bill(fixture.context, store, exporter);
  bill.setup_bom();
  BillTable table(bill);
  BillOrder order;
  order.setSourceModel(&table);
  order.sort(BillTable::kValue);
  std::vector<std::string> values;
  for (int row = 0; row < order.rowCount(); ++row) {
    values.push_back(order.index(row, BillTable::kValue).data().toString().toStdString());
  }
  EXPECT_EQ(values, (std::vector<std::string>{"470 pF", "3.3 nF", "220 nF", "22 uF", "1.8 Ohm",
                                              "51 KOhm", "TVF170"}));
}

TEST_F(OutputWindowsTest, FilteredRowsAreCopiedAsATable) {
  calculate();
  QWidget* window = openBill();
  auto* view = window->findChild<QTableView*>("bill");
  auto* filter = window->findChild<QLineEdit*>("filter");
  filter->setFocus();
  QTest::keyClicks(filter, "lres");
  ASSERT_EQ(view->model()->rowCount(), 1);
  view->setFocus();
  view->selectAll();
  QTest::keyClick(window, Qt::Key_C, Qt::ControlModifier);
  bench_.pump();
  std::string wanted;
  for (int i = 0; i < view->model()->columnCount(); ++i) {
    wanted += (i == 0 ? "" : "\t") + view->model()->index(0, i).data().toString().toStdString();
  }
  EXPECT_EQ(QApplication::clipboard()->text().toStdString(), wanted + "\n");
  EXPECT_NE(wanted.find("LRES"), std::string::npos);
  // Esc empties the filter first and only then puts the window away.
  filter->setFocus();
  QTest::keyClick(filter, Qt::Key_Escape);
  EXPECT_GT(view->model()->rowCount(), 1);
  QTest::keyClick(filter, Qt::Key_Escape);
  EXPECT_FALSE(session().billOfMaterials().visible());
}

TEST_F(OutputWindowsTest, ABillOfAnotherSelectionIsOutOfDate) {
  calculate();
  auto* summary = openBill()->findChild<QLabel*>("summary");
  EXPECT_FALSE(summary->text().contains("out of date"));
  ASSERT_TRUE(session().selectByName(kSlotLamp, "T5 14W"));
  bench_.pump();
  EXPECT_TRUE(summary->text().endsWith("out of date")) << summary->text().toStdString();
}

TEST_F(OutputWindowsTest, TheGraphIsDrawnOnDemandOnly) {
  calculate();
  QWidget* window = openGraph();
  auto* graph = window->findChild<GainGraph*>("graph");
  bench_.pump();
  const int drawn = graph->drawCount();
  graph->repaint();
  QTest::mouseMove(graph, graph->rect().center());
  bench_.pump();
  EXPECT_EQ(graph->drawCount(), drawn);
  session().graphOperatingPoints().notifyLayoutChanged();
  bench_.pump();
  EXPECT_EQ(graph->drawCount(), drawn + 1);
  window->resize(window->width() + 40, window->height());
  bench_.pump();
  EXPECT_EQ(graph->drawCount(), drawn + 2);
  ASSERT_TRUE(session().selectByName(kSlotLamp, "T5 35W"));
  bench_.pump();
  EXPECT_GT(graph->drawCount(), drawn + 2) << "a selection has taken the curves away";
  EXPECT_FALSE(graph->scale());
}

TEST_F(OutputWindowsTest, TheCursorIsMovedByKeysAndScrollsTheAxis) {
  calculate();
  QWidget* window = openGraph();
  auto* graph = window->findChild<GainGraph*>("graph");
  auto* status = window->findChild<QLabel*>("status");
  const auto kilohertz = [&] { return status->text().section(' ', 0, 0).toDouble(); };
  graph->setFocus();
  QTest::keyClick(graph, Qt::Key_Right);
  const double middle = kilohertz();
  EXPECT_NEAR(middle, (graph->scale()->start + graph->scale()->end) / 2000, 0.06);
  QTest::keyClick(graph, Qt::Key_Right);
  EXPECT_NEAR(kilohertz(), middle + 0.1, 0.06);
  QTest::keyClick(graph, Qt::Key_Left, Qt::ShiftModifier);
  EXPECT_NEAR(kilohertz(), middle - 0.9, 0.11);
  const double end = graph->scale()->end;
  for (int i = 0; i < 60; ++i) QTest::keyClick(graph, Qt::Key_Right, Qt::ShiftModifier);
  bench_.pump();
  EXPECT_GT(graph->scale()->end, end);
  EXPECT_NEAR(graph->scale()->end - graph->scale()->start, end - 5000, 1);
}

TEST_F(OutputWindowsTest, MissingInputsLeaveOnlyTheWayToCalculate) {
  QWidget* window = openGraph();
  auto* button = window->findChild<QPushButton*>("calculate");
  EXPECT_TRUE(button->isVisible());
  QTest::mouseClick(button, Qt::LeftButton);
  bench_.pump();
  EXPECT_FALSE(button->isVisible());
  EXPECT_TRUE(session().operatingPointsGraph().inputsAvailable());
}

TEST_F(OutputWindowsTest, WorkThatAModalDialogHasStartedCanBeCancelled) {
  QDialog preview;
  preview.setModal(true);
  preview.show();
  const auto cancelled = std::make_shared<bool>(false);
  session().pleaseWait().cancelled.connect([cancelled] { *cancelled = true; });
  session().pleaseWait().Start("Printing", -1);
  bench_.pump();
  QWidget* wait = nullptr;
  for (QWidget* each : QApplication::topLevelWidgets()) {
    if (each->objectName() == "PleaseWait") wait = each;
  }
  ASSERT_NE(wait, nullptr);
  const auto* cancel = wait->findChild<QPushButton*>("Cancel");
  // Through the window system, which drops clicks on what a dialog covers.
  QTest::mouseClick(wait->windowHandle(), Qt::LeftButton, {},
                    cancel->mapTo(wait, cancel->rect().center()));
  bench_.pump();
  EXPECT_TRUE(*cancelled);
  session().pleaseWait().Finish();
}

TEST_F(OutputWindowsTest, ThePreviewSavesWhatItShowsAndFollowsThePageSetup) {
  calculate();
  openBill();
  const auto job = print_job(session(), session().billOfMaterials().name());
  ASSERT_TRUE(job);
  PrintPreview preview(session(), *job, nullptr);
  preview.show();
  bench_.pump();
  EXPECT_EQ(preview.findChild<QLabel*>("page")->text(), "Page 1 of 2");
  bench_.files.answer = (bench_.home.path() / "bill.pdf").string();
  preview.findChild<QAction*>("savePdf")->trigger();
  bench_.pump();
  std::ifstream stream(*bench_.files.answer, std::ios::binary);
  const std::string bytes((std::istreambuf_iterator<char>(stream)), {});
  EXPECT_EQ(bytes.rfind("%PDF", 0), 0u);
  EXPECT_NE(bytes.find("/Count 2"), std::string::npos);

  PaperSetup wide = session().paperSetup();
  wide.top = wide.bottom = PaperSetup::kMostMargin;
  wide.orientation = PaperOrientation::Landscape;
  QTimer answer;
  QObject::connect(&answer, &QTimer::timeout, &answer, [&] {
    auto* setup = qobject_cast<QDialog*>(QApplication::activeModalWidget());
    if (setup == nullptr) return;
    setup->findChild<QComboBox*>("orientation")->setCurrentIndex(2);
    setup->findChild<QDoubleSpinBox*>("top")->setValue(wide.top);
    setup->findChild<QDoubleSpinBox*>("bottom")->setValue(wide.bottom);
    setup->accept();
  });
  answer.start(1);
  preview.findChild<QAction*>("pageSetup")->trigger();
  bench_.pump();
  EXPECT_EQ(session().paperSetup(), wide);
  EXPECT_NE(preview.findChild<QLabel*>("page")->text(), "Page 1 of 2");
}

}  // namespace
}  // namespace vantrel
