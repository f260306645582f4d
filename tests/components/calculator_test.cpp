#include "components/calculator.h"

#include "calculator_fixture.h"

namespace vantrel::test {
namespace {

class CalculatorScreenTest : public CalculatorTest {
 protected:
  void loadRow(const std::string& field, Row row) {
    row.insert(row.end(), {{"LoadID", "Calculator"},
                           {"Destination", "Calculator"},
                           {"DestinationField", field},
                           {"target", "*"}});
    insert("LoadInputs", row);
  }
  double number(const char* field) { return to_double(calculator.field(field).value()); }
  void type(const char* field, const char* text) {
    calculator.field(field).Edit(text);
    EXPECT_TRUE(calculator.field(field).Commit());
  }
  /// "label = value unit" of every row on show.
  Texts rows() {
    Texts result;
    for (const auto& field : calculator.fields()) {
      if (field->Name() != "CC_ShowOutputs" || !field->Visible()) continue;
      result.push_back(field->ValueLabel() + " = " + field->DisplayText() + " " +
                       field->UnitText());
    }
    return result;
  }
};

TEST_F(CalculatorScreenTest, ResetPreparesForTheSelectedIc) {
  loadRow("cc_deadtime", {{"ValueUnit", "uSec"}, {"DefaultValue", "1.5"}});
  loadRow("cc_run_frequency", {{"ValueUnit", "KHz"}, {"Source", "Advanced,run_frequency"}});
  component("R1", {{"CCOutput", true}, {"ValueUnit", "KOhm/Ohm"}});
  calculator.field("cc_run_frequency").SetValue(1);
  EXPECT_TRUE(calculator.Reset(false));
  EXPECT_EQ(calculator.caption(), "TV6103 Component Calculator");
  EXPECT_EQ(calculator.findFrame("outputs_frame")->caption, "TV6103 Components");
  EXPECT_EQ(rows(), Texts{"R1 =  KOhm"});
  EXPECT_EQ(number("cc_deadtime"), 1.5);
  EXPECT_TRUE(calculator.field("cc_run_frequency").IsItEmpty());
  EXPECT_EQ(calculator.engine().target()->name(), "tv6103");
  EXPECT_EQ(calculator.engine().generic()->name(), "tvGenericTarget");
  EXPECT_TRUE(takeMessages().empty());

  advanced.field("run_frequency").SetValue(43000);
  EXPECT_TRUE(calculator.command_click("load_op_points"));
  EXPECT_EQ(number("cc_run_frequency"), 43);
}

TEST_F(CalculatorScreenTest, ResetWithAnEmptySourceKeepsTheTargets) {
  loadRow("cc_run_frequency", {{"ValueUnit", "KHz"}, {"Source", "Advanced,run_frequency"}});
  EXPECT_FALSE(calculator.Reset(true));
  EXPECT_EQ(takeMessages(), Texts{"Required fields are missing, do you wish to see the list ?"});
  EXPECT_EQ(calculator.engine().target(), &chip);
}

TEST_F(CalculatorScreenTest, TakesItselfAwayWhereThereIsNothingToCalculate) {
  loadRow("cc_deadtime", {{"ValueUnit", "uSec"}});
  calculator.visible(true);
  advanced.field("allow_cc").SetValue("YES");
  EXPECT_TRUE(calculator.Reset(false));
  EXPECT_TRUE(calculator.visible());
  advanced.field("allow_cc").SetValue("no");
  EXPECT_TRUE(calculator.Reset(false));
  EXPECT_FALSE(calculator.visible());
}

TEST_F(CalculatorScreenTest, TiesPreheatAndIgnitionTimesOnTwoTargets) {
  for (const std::int32_t target : {7, 8}) {
    state.CurrentTarget = target;
    type("cc_ignition_time", "0.5");
    EXPECT_EQ(number("cc_preheat_time"), 1.25);
    type("cc_preheat_time", "0.99");  // 0.396
    EXPECT_EQ(number("cc_ignition_time"), 0.4);
    EXPECT_EQ(number("cc_preheat_time"), 0.99);
    type("cc_preheat_time", "");
    EXPECT_TRUE(calculator.field("cc_ignition_time").IsItEmpty());
  }
  calculator.field("cc_preheat_time").SetValue(1);
  calculator.field("cc_ignition_time").SetFixed(true);
  type("cc_ignition_time", "0.8");
  EXPECT_EQ(number("cc_preheat_time"), 1);
  calculator.linkTimes(false);
  type("cc_preheat_time", "3");
  EXPECT_EQ(number("cc_ignition_time"), 0.8);
  calculator.linkTimes(true);
  state.CurrentTarget = 1;
  type("cc_preheat_time", "2");
  EXPECT_EQ(number("cc_ignition_time"), 0.8);
}

TEST_F(CalculatorScreenTest, LoadsDoNotStartTheLink) {
  for (int number = 2; number <= 7; ++number) {
    insert("Target:Info", {{"TargetNo", number}, {"target", "T" + std::to_string(number)}});
  }
  state.CurrentTarget = 7;
  loadRow("cc_preheat_time", {{"ValueUnit", "Sec"}, {"DefaultValue", "0.99"}});
  loadRow("cc_ignition_time", {{"ValueUnit", "Sec"}, {"DefaultValue", "5"}});
  EXPECT_TRUE(calculator.Reset(false));
  EXPECT_EQ(number("cc_preheat_time"), 0.99);
  EXPECT_EQ(number("cc_ignition_time"), 0.4 * 0.99);
}

TEST_F(CalculatorScreenTest, ListsOutputsByNameInGroupsOfALetter) {
  component("R2,C1,R10", {{"CCOutput", true}, {"ValueUnit", "uF/F"}});
  component("A1", {{"CCOutputDependancy", true}});
  component("L1", {{"CCOutput", true}, {"ValueUnit", "H"}});
  calculator.CalculateComponents(false, true);
  EXPECT_EQ(rows(), (Texts{"C1 =  uF", "L1 =  H", "R10 =  uF", "R2 =  uF"}));
  // The unlisted A1 comes first, so that C1 already begins a new letter.
  EXPECT_EQ(calculator.outputs().tops(), (std::vector<int>{720, 1170, 1620, 1920}));

  database.execute("delete from [TV6103 BOM] where RefDes <> 'L1'");
  calculator.CalculateComponents(false, true);
  EXPECT_EQ(rows(), Texts{"L1 =  H"});
  EXPECT_EQ(calculator.outputs().tops(), std::vector<int>{570});
}

TEST_F(CalculatorScreenTest, ShowsResultsInTheRows) {
  component("R1", {{"CCOutput", true}, {"value", "3.3"}, {"ValueUnit", "nF/F"}, {"Fixed", true}});
  component("Q1", {{"CCOutput", true}, {"value", "TVF110"}, {"Fixed", true}});
  component("X1", {{"CCOutput", true}, {"ValueUnit", "Ohm"}, {"RemoveIfNoMatch", true}});
  component("R9", {{"value", "1"}, {"ValueUnit", "Ohm"}, {"Fixed", true}});
  callRule("R9", "full", {}, {{"Multiple", true}});
  for (const char* name : {"R1", "Q1", "X1", "R9"}) describe(name);
  calculator.CalculateComponents(false, true);
  calculator.field("CC_ShowOutputs", 2).value(7);
  EXPECT_TRUE(calculator.command_click("find_components"));
  EXPECT_EQ(rows(), (Texts{"Q1 = TVF110 ", "R1 = 3.3 nF", "X1 =  Ohm"}));
  EXPECT_EQ(bill.lines.size(), 2U);
  calculator.CalculateComponents(false, true);
  EXPECT_EQ(rows(), (Texts{"Q1 =  ", "R1 =  nF", "X1 =  Ohm"}));
}

TEST_F(CalculatorScreenTest, DesignsTheBallastWhenTheMagneticsAreDesigned) {
  component("R9", {{"value", "1"}, {"ValueUnit", "Ohm"}, {"Fixed", true}});
  describe("R9");
  inductors_designed = false;
  EXPECT_TRUE(calculator.command_click("design_ballast"));
  EXPECT_TRUE(bill.lines.empty());
  inductors_designed = true;
  EXPECT_TRUE(calculator.command_click("design_ballast"));
  EXPECT_EQ(bill.lines.size(), 1U);
  EXPECT_EQ(designs, 4);
  EXPECT_FALSE(calculator.command_click("no_such_button"));
}

TEST_F(CalculatorScreenTest, CalculatesApartOnATableOfItsOwn) {
  component("R1", {{"CCOutput", true}, {"value", "1"}, {"ValueUnit", "Ohm"}});
  describe("R1", {{"MNR", true}});
  constant("g", "1280");
  callRule("R1", "g", {}, {{"functionisvar", true}});
  calculator.CalculateComponents(false, true);
  calculator.selectSeries(kSeriesE12);
  EXPECT_TRUE(calculator.CalculateApart());
  EXPECT_EQ(bill.lines, Texts{"Resistor | 1.2 KOhm |  |  | R1"});
  EXPECT_EQ(rows(), Texts{"R1 =  Ohm"});
  EXPECT_EQ(value("R1"), "Empty");
}

}  // namespace
}  // namespace vantrel::test
