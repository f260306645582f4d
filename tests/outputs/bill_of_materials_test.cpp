#include "outputs/bill_of_materials.h"

#include <gtest/gtest.h>

#include "outputs/outputs_fixture.h"

namespace vantrel {
namespace {

using Texts = std::vector<std::string>;

const char* const kQuestion =
    "The bill of materials cannot be shown until components have been calculated.\r\n\r\n"
    "Do you wish to calculate now ?";

struct BillTest : ::testing::Test {
  test::FieldFixture fields;
  BomStore store;
  test::TemporaryFolder home;
  ProgramFolder folder{home.path()};
  test::AnsweredSave dialog;
  TableExport exporter{fields.messages, &dialog, folder};
  int calculations = 0;
  bool calculationSucceeds = true;
  bool calculationFills = true;
  Texts highlighted;
  std::size_t printedRows = 0;
  bill_of_materials bill{fields.context, store, exporter, hooks()};

  BillHooks hooks() {
    return {[] { return "TV6103"; },
            [this] {
              ++calculations;
              if (calculationFills) addParts();
              return calculationSucceeds;
            },
            [this](const Texts& references) { highlighted = references; },
            [this](const TableGrid& grid) { printedRows = grid.rows.size(); }};
  }

  void addParts() {
    store.add("Resistor", "1.3 KOhm", "0.25 W", "1%", "R1");
    store.add("Capacitor", "4.7 nF", "0.4 KV", "2.5%", "C1.1");
    store.add("Resistor", "1.3 KOhm", "1 W", "1%", "R2");
    store.add("Resistor", "N/C", "", "", "RT");
  }
};

TEST_F(BillTest, ShowsTheCalculatedComponents) {
  addParts();
  EXPECT_TRUE(bill.setup_bom());
  EXPECT_TRUE(fields.takeMessages().empty());
  EXPECT_EQ(calculations, 0);
  EXPECT_TRUE(bill.visible());
  EXPECT_EQ(bill.caption(), "TV6103 Bill Of Materials (3 items)");
  EXPECT_EQ(bill.shownRow(0), "2\tResistor\t1.3 KOhm\t\t1%\tR1,R2");
  EXPECT_EQ(bill.shownRow(1), "1\tCapacitor\t4.7 nF\t0.4 KV\t2.5%\tC1.1");
  EXPECT_EQ(bill.shownRow(2), "1\tResistor\tN/C\t\t\tRT");
}

TEST_F(BillTest, HasSixLeftAlignedColumns) {
  const std::vector<std::pair<std::string, int>> expected = {{"Qty", 10},       {"Type", 51},
                                                             {"Value", 25},     {"Rating", 24},
                                                             {"Tolerance", 13}, {"Reference", 67}};
  ASSERT_EQ(bill.grid().columns.size(), expected.size());
  for (std::size_t i = 0; i < expected.size(); ++i) {
    const TableColumn& column = bill.grid().columns[i];
    EXPECT_EQ(std::make_pair(column.title, column.width), expected[i]);
    EXPECT_EQ(column.alignment, ColumnAlignment::Left);
  }
}

TEST_F(BillTest, TheLocalesSeparatorIsForTheScreenOnly) {
  fields.context.decimalSeparator = ',';
  addParts();
  ASSERT_TRUE(bill.setup_bom());
  EXPECT_EQ(bill.shownRow(1), "1\tCapacitor\t4,7 nF\t0,4 KV\t2.5%\tC1.1");
  EXPECT_TRUE(bill.ExportTableTo((home.path() / "bom.csv").string()));
  EXPECT_EQ(test::contents(home.path() / "bom.csv"),
            "Qty,Type,Value,Rating,Tolerance,Reference\r\n"
            "2,Resistor,1.3 KOhm,,1%,\"R1,R2\"\r\n"
            "1,Capacitor,4.7 nF,0.4 KV,2.5%,C1.1\r\n"
            "1,Resistor,N/C,,,RT\r\n");
}

TEST_F(BillTest, AsksWhenNothingIsCalculated) {
  struct Case {
    const char* what;
    MessageAnswer answer;
    bool succeeds;
    bool fills;
    int calculations;
    bool shown;
  };
  for (const Case& test :
       {Case{"no", kNo, true, true, 0, false}, Case{"dialog closed", kClosed, true, true, 0, false},
        Case{"yes", kYes, true, true, 1, true},
        Case{"yes, and the chain ends early", kYes, false, false, 1, false},
        Case{"yes, and no stage has a part", kYes, true, false, 1, false}}) {
    store.clear();
    bill.visible(false);
    calculations = 0;
    calculationSucceeds = test.succeeds;
    calculationFills = test.fills;
    fields.messages.injectAnswers({test.answer});
    EXPECT_EQ(bill.setup_bom(), test.shown) << test.what;
    ASSERT_EQ(fields.messages.shown().size(), 1U) << test.what;
    EXPECT_EQ(fields.messages.shown()[0].type, kMessageYesNo);
    EXPECT_EQ(fields.takeMessages(), Texts{kQuestion});
    EXPECT_EQ(calculations, test.calculations) << test.what;
    EXPECT_EQ(bill.visible(), test.shown) << test.what;
    EXPECT_EQ(bill.grid().rows.size(), test.shown ? 3U : 0U) << test.what;
    EXPECT_EQ(bill.caption(),
              test.shown ? "TV6103 Bill Of Materials (3 items)" : "Bill Of Materials")
        << test.what;
  }
}

TEST_F(BillTest, KeepsWhatItShowsUntilItIsSetUpAnew) {
  addParts();
  ASSERT_TRUE(bill.setup_bom());
  store.clear();
  EXPECT_EQ(bill.grid().rows.size(), 3U);
  store.add("Fuse", "1 A", "", "", "F1");
  ASSERT_TRUE(bill.setup_bom());
  EXPECT_EQ(bill.caption(), "TV6103 Bill Of Materials (1 items)");
  EXPECT_EQ(bill.shownRow(0), "1\tFuse\t1 A\t\t\tF1");
}

TEST_F(BillTest, CarriesOutItsCommands) {
  addParts();
  ASSERT_TRUE(bill.setup_bom());
  dialog.answer = (home.path() / "out.txt").string();
  EXPECT_TRUE(bill.execute_command("c_export_bom"));
  EXPECT_EQ(fields.takeMessages(), Texts{"File 'out.txt' Exported OK"});
  EXPECT_EQ(dialog.asked.at(2), (home.path() / "Export" / "Bill Of Materials.csv").string());
  EXPECT_TRUE(bill.execute_command("c_print"));
  EXPECT_EQ(printedRows, 3U);
  EXPECT_FALSE(bill.execute_command("c_zoom_in"));

  EXPECT_TRUE(bill.HighlightComponent(0));
  EXPECT_EQ(highlighted, (Texts{"R1", "R2"}));
  EXPECT_FALSE(bill.HighlightComponent(3));
  EXPECT_EQ(highlighted, (Texts{"R1", "R2"}));
}

}  // namespace
}  // namespace vantrel
