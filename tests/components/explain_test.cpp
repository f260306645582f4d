#include "components/explain.h"

#include "calculator_fixture.h"

namespace vantrel::test {
namespace {

class ExplainTest : public CalculatorTest {
 protected:
  Explain explainer{
      {database, messages, log, details, state, screens, missing, advanced, targets, progress},
      calculator};

  /// The tree as lines "label: text", indented by its depth.
  static void list(const ExplainNode& node, const std::string& indent, std::string& text) {
    text += indent + node.label + ": " + node.text + "\n";
    for (const ExplainNode& child : node.children) list(child, indent + " ", text);
  }
  std::string tree(const std::string& name) {
    std::string text;
    if (const auto root = explainer.tree(name)) list(*root, "", text);
    return text;
  }
};

TEST_F(ExplainTest, ShowsTheWayFromTheRuleToThePreferredValue) {
  component("R1", {{"ValueUnit", "Ohm"}});
  describe("R1", {{"MNR", true}, {"OverrideSeries", "e12"}});
  constant("fixed_part", "1000");
  insert("CC:SourceVariables",
         {{"Variable", "from_field"}, {"Source", "Advanced,max_input_voltage"}});
  advanced.field("max_input_voltage").SetValue(280);
  callRule("R1", "chip_sum", {"fixed_part", "part_sum"}, {{"Target", "TV6103"}});
  callRule("R1", "special", {"fixed_part"});
  callRule("part_sum", "divide", {"from_field", "one"});
  constant("one", "1");
  ASSERT_TRUE(run());
  EXPECT_EQ(value("R1"), "Double 1200");
  const Texts logged_before = log.lines();
  takeMessages();

  // 280 / 1 = 280; 1000 + 280 = 1280, which E12 has at 1200.
  EXPECT_EQ(tree("r1"),
            "R1: 1.2 KOhm\n"
            " Rule: Rule 1 for R1\n"
            "  Input: any\n"
            "  Target: TV6103\n"
            "  Config: any\n"
            " Function: Chip.chip_sum(fixed_part, part_sum)\n"
            " fixed_part: 1 KV\n"
            "  Source: Constant\n"
            " part_sum: 280 \n"
            "  Rule: Rule 1 for part_sum\n"
            "   Input: any\n"
            "   Target: any\n"
            "   Config: any\n"
            "  Function: Any.divide(from_field, one)\n"
            "  from_field: 280 VAC\n"
            "   Source: Field Advanced.max_input_voltage\n"
            "  one: 1 V\n"
            "   Source: Constant\n"
            "  Raw result: 280\n"
            "  Rounding: none\n"
            "  Series: none\n"
            "  Preferred value: 280\n"
            " Raw result: 1280\n"
            " Rounding: none\n"
            " Series: Match Resistor  : R1 = 1280 Ohm Matched To :  1200 Ohm\n"
            " Preferred value: 1200\n");
  // Nothing of it is seen outside.
  EXPECT_EQ(takeMessages(), Texts{});
  EXPECT_EQ(log.lines(), logged_before);
  EXPECT_EQ(value("R1"), "Double 1200");

  advanced.field("max_input_voltage").SetValue(2000);
  const auto stale = explainer.explain("from_field");
  EXPECT_FALSE(stale->agrees);
  EXPECT_EQ(to_text(stale->preferred), "2000");
}

TEST_F(ExplainTest, TellsWhereEachKindOfValueComesFrom) {
  component("C1", {{"Fixed", true}, {"value", "4.7"}, {"ValueUnit", "nF/F"}});
  component("J1", {{"Fixed", true}, {"value", "Plug"}});
  component("L1");
  component("R9", {{"value", "10"}, {"ValueUnit", "Ohm"}});
  for (const char* reference : {"C1", "J1", "L1", "R9"}) describe(reference);
  callRule("L1", "part", {});
  rule("R9", {{"SetValueDirectly", true}, {"V0", "22"}, {"V1", "Ohm"}, {"V2", "5 W"}});
  ASSERT_TRUE(run());
  struct Case {
    const char* name;
    ValueOrigin origin;
    const char* function;
    const char* value;
  };
  for (const Case& c :
       {Case{"C1", ValueOrigin::Bill, "", "4.7 nF"}, Case{"J1", ValueOrigin::Bill, "", "Plug"},
        Case{"L1", ValueOrigin::Rule, "Any.part()", "Chip 7"},
        Case{"R9", ValueOrigin::Rule, "Set directly to 22, Ohm, 5 W", "22 Ohm"}}) {
    const auto explanation = explainer.explain(c.name);
    ASSERT_TRUE(explanation) << c.name;
    EXPECT_EQ(explanation->origin, c.origin) << c.name;
    EXPECT_EQ(explanation->function, c.function) << c.name;
    EXPECT_EQ(explanation->shown, c.value) << c.name;
    EXPECT_TRUE(explanation->agrees) << c.name;
    EXPECT_EQ(explanation->faults, Texts{}) << c.name;
  }
  EXPECT_FALSE(explainer.explain("R2"));
  EXPECT_EQ(explainer.names(), (Texts{"C1", "J1", "L1", "R9"}));
}

}  // namespace
}  // namespace vantrel::test
