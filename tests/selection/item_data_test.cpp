#include "selection/item_data.h"

#include <utility>

#include "selection_fixture.h"

namespace vantrel {
namespace {

TEST_F(SelectionTest, ALampFillsItsTaggedFields) {
  items.LoadItemData(kSlotLamp, 1);
  const std::vector<std::pair<const char*, double>> expected = {
      {"running_lamp_power", 28},
      {"pfc_input_power", 28},
      {"pfc_input_power_copy", 28},
      {"pmax", 28.3},
      {"running_lamp_voltage", 236.1},
      {"max_ignition_voltage", 700},
      {"pmin", 1.98},  // 28.3 x 7 / 100 = 1.981; the column's own 999 is not used
      {"vmin", 317.7}};
  for (const auto& [field, number] : expected) EXPECT_EQ(value(field), Variant(number)) << field;
  EXPECT_EQ(log, Texts{});
  EXPECT_EQ(takeMessages(), Texts{});
}

TEST_F(SelectionTest, EmptyColumnsEmptyTheirFieldsAndPminBecomesZero) {
  items.LoadItemData(kSlotLamp, 1);
  items.LoadItemData(kSlotLamp, 4);
  EXPECT_EQ(value("running_lamp_voltage"), Variant());
  EXPECT_EQ(value("max"), Variant());
  EXPECT_EQ(value("pmin"), Variant(0.0)) << "nothing to divide by";
  EXPECT_EQ(value("running_lamp_power"), Variant(50.0));

  items.LoadItemData(kSlotLamp, -1);
  for (const char* field :
       {"running_lamp_power", "pfc_input_power", "pfc_input_power_copy", "pmin"}) {
    EXPECT_EQ(value(field), Variant()) << field;
  }
  EXPECT_EQ(takeMessages(), Texts{});
}

TEST_F(SelectionTest, MissingRowsAreReported) {
  items.LoadItemData(kSlotLamp, 99);
  items.LoadItemData(kSlotLamp, 7);  // a row of another kind
  sql("DELETE FROM [DATA:INPUT] WHERE RecordType = 0; DROP TABLE [DATA:CONFIG]");
  items.LoadItemData(kSlotInput, 1);
  items.LoadItemData(kSlotConfig, 0);
  EXPECT_EQ(takeMessages(), (Texts{"Could not find [DATA:LAMP] table entry for ID 99",
                                   "Could not find [DATA:LAMP] table entry for ID 7",
                                   "Could not find FieldTags in table DATA:INPUT] table",
                                   "Could not find FieldTags in table DATA:CONFIG] table"}));
}

TEST_F(SelectionTest, AStarTagSetsTheUnitOnly) {
  sql("UPDATE [DATA:INPUT] SET [Bus] = 'max,running_dc_bus_voltage *' WHERE RecordType = 0;"
      "UPDATE [DATA:INPUT] SET [Bus] = '$45' WHERE ID = 1");
  advanced.field("running_dc_bus_voltage").SetValue(310.0);
  items.LoadItemData(kSlotInput, 1);
  EXPECT_EQ(value("max"), Variant(45.0));
  EXPECT_EQ(unit("max"), "V");
  EXPECT_EQ(value("running_dc_bus_voltage"), Variant(310.0));
  EXPECT_EQ(unit("running_dc_bus_voltage"), "45");
  EXPECT_EQ(value("running_dc_bus_voltage_mode"), Variant()) << "a unit is not copied";
}

TEST_F(SelectionTest, UnknownTagsAreSkippedAndNotedOnce) {
  sql("UPDATE [DATA:INPUT] SET [Bus] = 'nosuch,,#pmean,gone*,running_dc_bus_voltage' "
      "WHERE RecordType = 0");
  items.LoadItemData(kSlotInput, 2);
  items.LoadItemData(kSlotInput, 1);
  EXPECT_EQ(value("running_dc_bus_voltage"), Variant(500.0));
  EXPECT_EQ(value("running_dc_bus_voltage_mode"), Variant(500.0));
  EXPECT_EQ(log, (Texts{"Tag 'nosuch' of table DATA:INPUT names no field",
                        "Tag '' of table DATA:INPUT names no field",
                        "Tag '#pmean' of table DATA:INPUT names no field",
                        "Tag 'gone' of table DATA:INPUT names no field"}));
  EXPECT_EQ(takeMessages(), Texts{});
}

TEST_F(SelectionTest, AFixedInputPowerIsKeptAndItsCopyTakesTheTagBefore) {
  VTLValue& power = advanced.field("pfc_input_power");
  power.SetValue(31.5);
  power.SetFixed(true);
  sql("UPDATE [DATA:LAMP] SET [Power] = 'pfc_input_power,running_lamp_power', "
      "[Voltage] = 'running_lamp_voltage,pfc_input_power' WHERE RecordType = 0");
  advanced.field("pfc_input_power_copy").SetValue(5.0);
  std::vector<Variant> copies;
  advanced.field("pfc_input_power_copy").changed.connect([&](Variant& v) { copies.push_back(v); });
  items.LoadItemData(kSlotLamp, 1);
  EXPECT_EQ(value("pfc_input_power"), Variant(31.5));
  EXPECT_EQ(copies, (std::vector<Variant>{Variant(), Variant(236.1)}))
      << "no tag, then the voltage";
  EXPECT_EQ(value("running_lamp_power"), Variant(28.0));

  items.ScaleForConfiguration(6, true, 7);
  EXPECT_EQ(value("pfc_input_power"), Variant(31.5));
  EXPECT_EQ(value("running_lamp_power"), Variant(56.0F));
}

TEST_F(SelectionTest, TextThatIsNoNumberEmptiesTheFieldAndIsReported) {
  sql("UPDATE [DATA:INPUT] SET [Bus] = '$45n' WHERE ID = 1");
  items.LoadItemData(kSlotInput, 2);
  items.LoadItemData(kSlotInput, 1);
  EXPECT_EQ(value("running_dc_bus_voltage"), Variant());
  EXPECT_FALSE(takeMessages().empty());
}

/// Fields: preheat, ignition, running voltage, vmax, vmin, power, pmax, pmin, PFC input power.
TEST_F(SelectionTest, EveryConfigurationScalesForthAndBack) {
  const Texts fields = {"max_preheat_voltage",
                        "max_ignition_voltage",
                        "running_lamp_voltage",
                        "vmax",
                        "vmin",
                        "running_lamp_power",
                        "pmax",
                        "pmin",
                        "pfc_input_power"};
  const std::vector<float> one = {1, 1, 1, 1, 1, 1, 1, 1, 1};
  const std::vector<float> series = {1.5F, 1.5F, 2, 2, 2, 2, 2, 2, 2};
  const std::vector<float> parallel = {1, 1, 1, 1, 1, 1, 1, 1, 2};
  const std::vector<float> balanced = {1, 1, 1, 1, 1, 2, 2, 2, 2};
  const std::vector<std::vector<float>> factors = {one,      one,      series,   series,
                                                   parallel, parallel, balanced, one};
  for (std::int32_t config = 0; config < 8; ++config) {
    const std::vector<float>& factor = factors[static_cast<std::size_t>(config)];
    items.LoadItemData(kSlotLamp, 1);
    std::vector<float> before;
    for (const std::string& field : fields) before.push_back(to_single(value(field)));
    items.ScaleForConfiguration(config, true, 7);
    for (std::size_t i = 0; i < fields.size(); ++i) {
      EXPECT_EQ(value(fields[i]), Variant(before[i] * factor[i])) << config << " " << fields[i];
    }
    items.ScaleForConfiguration(config, false, 7);
    for (std::size_t i = 0; i < fields.size(); ++i) {
      EXPECT_FLOAT_EQ(to_single(value(fields[i])), before[i]) << config << " " << fields[i];
    }
    EXPECT_EQ(items.PfcPowerFactor(config), factor.back());
  }
}

TEST_F(SelectionTest, TheMaskCoversTheLampButNotTheInputPower) {
  items.LoadItemData(kSlotLamp, 1);
  advanced.field("vmin").Clear();
  items.ScaleForConfiguration(2, true, 6);
  EXPECT_EQ(value("running_lamp_power"), Variant(28.0)) << "not even its type changes";
  EXPECT_EQ(value("pfc_input_power"), Variant(56.0F));
  items.ScaleForConfiguration(2, true, 1);
  EXPECT_EQ(value("vmin"), Variant()) << "an empty field stays empty";
  EXPECT_EQ(value("pfc_input_power"), Variant(112.0F));
  items.ScaleForConfiguration(8, true, 7);
  EXPECT_EQ(value("pfc_input_power"), Variant(112.0F)) << "an unknown configuration scales by 1";
}

}  // namespace
}  // namespace vantrel
