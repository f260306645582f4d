#include <gtest/gtest.h>

#include <cmath>
#include <map>
#include <set>

#include "core/number_text.h"
#include "database_builder/build.h"
#include "database_builder/group_rule.h"
#include "database_builder/item_checks.h"
#include "shipped_tables.h"

namespace vantrel::builder {
namespace {

/// The project's own sources, loaded once for each test.
class ShippedData : public testing::Test {
 protected:
  void SetUp() override {
    tables_ = load_shipped_tables(problems_);
    check_tables(tables_, program_vocabulary(), problems_);
    for (const Problem& problem : problems_.list()) ADD_FAILURE() << to_string(problem);
  }

  const SourceTable& table(std::string_view name) { return *tables_.find(name); }

  std::vector<const SourceRow*> items(const SourceTable& table) {
    std::vector<const SourceRow*> rows;
    for (const SourceRow& row : table.rows) {
      if (table.number(row, "RecordType") == kItemRecord) rows.push_back(&row);
    }
    return rows;
  }

  Problems problems_;
  SourceTables tables_;
};

double value(const SourceTable& table, const SourceRow& row, std::string_view column) {
  return parse_number(table.text(row, column)).value_or(std::nan(""));
}

bool is_halogen(const SourceTable& lamps, const SourceRow& row) {
  return lamps.text(row, "Compact Yes/No") == "Halogen";
}

TEST_F(ShippedData, HoldsTheWholeRange) {
  EXPECT_EQ(items(table("DATA:IC")).size(), 10U);
  EXPECT_EQ(items(table("DATA:INPUT")).size(), 13U);
  EXPECT_EQ(items(table("DATA:LAMP")).size(), 75U);
  EXPECT_EQ(table("INDUCTOR:Core Types").rows.size(), 38U);
  EXPECT_EQ(table("groups").rows.size(), 40U);
}

TEST_F(ShippedData, ConfigurationsBearTheirNames) {
  const std::map<int, std::string> expected{
      {0, "Single lamp/current-mode heating"},
      {1, "Single lamp/voltage-mode heating"},
      {2, "Dual lamp series/current-mode heating"},
      {3, "Dual lamp series/voltage-mode heating"},
      {4, "Dual lamp parallel/current-mode heating"},
      {5, "Dual lamp parallel/voltage-mode heating"},
      {6, "Dual lamp parallel/voltage-mode balance transformer"},
      {7, "Electronic Transformer"}};
  std::map<int, std::string> found;
  const SourceTable& configs = table("DATA:CONFIG");
  for (const SourceRow* row : items(configs)) {
    found[configs.number(*row, "ID").value()] = configs.text(*row, "Name");
  }
  EXPECT_EQ(found, expected);
}

TEST_F(ShippedData, LampValuesAreConsistent) {
  const SourceTable& lamps = table("DATA:LAMP");
  for (const SourceRow* lamp : items(lamps)) {
    if (is_halogen(lamps, *lamp)) continue;
    SCOPED_TRACE(lamps.text(*lamp, "Name"));
    const auto at = [&](std::string_view column) { return value(lamps, *lamp, column); };
    // Power at the dimmed end is in proportion to brightness; the lamp's voltage, given in whole
    // volts, rises there by 20 % to 35 %.
    EXPECT_NEAR(at("Pmin% (W)"), at("Pmax% (W)") * at("Min (%)") / at("Max (%)"), 1e-9);
    EXPECT_GE(at("Vmin% (VPk)"), 1.2 * at("Vmax% (VPk)") - 0.5);
    EXPECT_LE(at("Vmin% (VPk)"), 1.35 * at("Vmax% (VPk)") + 0.5);
    // A lamp must neither ignite in preheat nor fail to ignite after it.
    EXPECT_LT(at("Run Lamp Voltage (VPk)"), at("Max Lamp Preheat Voltage (VPk)"));
    EXPECT_LT(at("Max Lamp Preheat Voltage (VPk)"), at("Max Lamp Ignition Voltage (VPk)"));
    EXPECT_GT(at("Preheat Current (A)"), 0);
    EXPECT_GT(at("Preheat Time (Sec)"), 0);
    EXPECT_DOUBLE_EQ(at("Run Lamp Power (W)"), at("Pmax% (W)"));
  }
}

TEST_F(ShippedData, InputVoltagesAreConsistent) {
  const SourceTable& inputs = table("DATA:INPUT");
  for (const SourceRow* input : items(inputs)) {
    SCOPED_TRACE(inputs.text(*input, "Name"));
    const auto at = [&](std::string_view column) { return value(inputs, *input, column); };
    EXPECT_LE(at("Min Input (VAC)"), at("Max Input (VAC)"));
    const std::string schematic = inputs.text(*input, "Schematic");
    const bool pfc = inputs.text(*input, "PFC Yes/No") == "Yes";
    EXPECT_EQ(pfc, schematic.starts_with("ActivePFC"));
    EXPECT_EQ(pfc, !inputs.text(*input, "PFC Frequency (kHz)").empty());
    if (pfc) {
      // A boost stage only works above the line's peak.
      EXPECT_GT(at("Running Bus (VDC)"), std::sqrt(2.0) * at("Max Input (VAC)"));
    }
    if (schematic == "ACMains") continue;
    EXPECT_LE(at("Running Bus (VDC)"), at("Min Bus (VDC)"));
    EXPECT_LE(at("Min Bus (VDC)"), at("Preheat Bus (VDC)"));
  }
}

TEST_F(ShippedData, CoresAscendAndTheirFactorIsLengthByArea) {
  const SourceTable& cores = table("INDUCTOR:Core Types");
  double last = 0;
  for (const SourceRow& core : cores.rows) {
    SCOPED_TRACE(cores.text(core, "Core Size"));
    const auto at = [&](std::string_view column) { return value(cores, core, column); };
    EXPECT_GT(at("Winding Area"), last);
    last = at("Winding Area");
    EXPECT_NEAR(at("Core Factor") * at("Ae Value") / at("Le Value"), 1, 0.01);
    EXPECT_GT(at("Maximum Allowable Gap"), 0);
    EXPECT_LE(at("Maximum Allowable Gap"), 3);
  }
}

TEST_F(ShippedData, GatesOfTheElectronicTransformerDiffer) {
  const SourceTable& ics = table("DATA:IC");
  for (const SourceRow* ic : items(ics)) {
    const bool transformer = ics.text(*ic, "Name") == "TV6108";
    SCOPED_TRACE(ics.text(*ic, "Name"));
    EXPECT_EQ(ics.text(*ic, "Allow Transformer"), transformer ? "yes" : "no");
    EXPECT_EQ(ics.text(*ic, "Allow Inductor"), transformer ? "no" : "yes");
    EXPECT_EQ(ics.text(*ic, "Allow CC"), "yes");
  }
}

/// Walks all selections that the rules offer.
class ShippedRules : public ShippedData {
 protected:
  void SetUp() override {
    ShippedData::SetUp();
    const SourceTable& groups = table("groups");
    for (std::size_t type = 0; type < kSelectionTypes.size(); ++type) {
      const SourceTable& list = table("DATA:" + std::string(kSelectionTypes[type]));
      for (const SourceRow* row : items(list)) {
        for (const SourceRow& group : groups.rows) {
          if (groups.number(group, "ID") != list.number(*row, "Group")) continue;
          used_.insert(groups.number(group, "ID").value());
          items_[type].push_back(
              {list.number(*row, "ID").value(), row,
               read_rule(groups.text(group, "SelectionAllowed"), static_cast<int>(type), tables_)
                   .rule});
        }
      }
    }
  }

  template <typename Visit>
  void walk(Selection& selection, std::size_t type, const Visit& visit) {
    if (type == selection.size()) return visit(selection);
    bool offered = false;
    for (const Item& item : items_[type]) {
      if (!allows(item.rule, selection)) continue;
      offered = true;
      selection[type] = item.id;
      walk(selection, type + 1, visit);
    }
    selection[type] = -1;
    if (!offered) {
      ADD_FAILURE() << "nothing of type " << kSelectionTypes[type] << " beside " << selection[0]
                    << ", " << selection[1] << ", " << selection[2];
    }
  }

  struct Item {
    int id;
    const SourceRow* row;
    Rule rule;
  };
  std::array<std::vector<Item>, 4> items_;
  std::set<int> used_;
};

TEST_F(ShippedRules, EveryGroupButTheUsersHasItems) {
  const SourceTable& groups = table("groups");
  for (const SourceRow& group : groups.rows) {
    const int id = groups.number(group, "ID").value();
    EXPECT_EQ(used_.contains(id), id != 9) << id;
  }
}

TEST_F(ShippedRules, EverySelectionCanBeCompleted) {
  constexpr int kTransformerIc = 6;
  constexpr int kTransformerConfig = 7;
  const std::set<int> dimming_ics{2, 8, 9};
  const SourceTable& lamps = table("DATA:LAMP");
  const SourceTable& inputs = table("DATA:INPUT");
  std::map<int, const SourceRow*> lamp_rows;
  for (const Item& item : items_[2]) lamp_rows[item.id] = item.row;
  std::map<int, const SourceRow*> input_rows;
  for (const Item& item : items_[1]) input_rows[item.id] = item.row;

  int transformers = 0;
  int ballasts = 0;
  Selection selection{-1, -1, -1, -1};
  walk(selection, 0, [&](const Selection& s) {
    const SourceRow& lamp = *lamp_rows.at(s[2]);
    const bool transformer = s[0] == kTransformerIc;
    (transformer ? transformers : ballasts) += 1;
    EXPECT_EQ(transformer, s[3] == kTransformerConfig);
    EXPECT_EQ(transformer, is_halogen(lamps, lamp));
    EXPECT_EQ(transformer, inputs.text(*input_rows.at(s[1]), "Schematic") == "ACMains");
    if (dimming_ics.contains(s[0])) {
      for (const char* column :
           {"Max (%)", "Pmax% (W)", "Vmax% (VPk)", "Min (%)", "Pmin% (W)", "Vmin% (VPk)"}) {
        EXPECT_GT(value(lamps, lamp, column), 0) << lamps.text(lamp, "Name");
      }
    }
  });
  EXPECT_EQ(transformers, 14);  // two mains, seven loads
  EXPECT_GT(ballasts, 20000);
}

TEST(GroupRule, OrListsNeedAnItemAndNotListsForbidTheirs) {
  const Rule or_list{{false, 0, 1}, {false, 0, 2}};
  const Rule not_list{{true, 0, 1}, {true, 2, 5}};
  const struct {
    Rule rule;
    Selection selection;
    bool allowed;
  } cases[] = {
      {{}, {-1, -1, -1, -1}, true},       {or_list, {1, 9, 9, 9}, true},
      {or_list, {2, 9, 9, 9}, true},      {or_list, {3, 9, 9, 9}, false},
      {or_list, {-1, -1, -1, -1}, false}, {not_list, {-1, -1, -1, -1}, true},
      {not_list, {1, 0, 4, 0}, false},    {not_list, {2, 0, 5, 0}, false},
      {not_list, {2, 1, 4, 5}, true},
  };
  for (const auto& test : cases) {
    EXPECT_EQ(allows(test.rule, test.selection), test.allowed)
        << test.selection[0] << " " << test.selection[2] << " " << test.rule.size();
  }
}

}  // namespace
}  // namespace vantrel::builder
