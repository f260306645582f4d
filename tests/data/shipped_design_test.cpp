#include <gtest/gtest.h>

#include <map>
#include <set>

#include "core/number_text.h"
#include "database_builder/bill_rows.h"
#include "database_builder/build.h"
#include "database_builder/calculation_rules.h"
#include "database_builder/combinations.h"
#include "shipped_tables.h"

namespace vantrel::builder {
namespace {

/// The shipped circuits and rules, with every combination that can be selected.
class ShippedDesign : public testing::Test {
 protected:
  void SetUp() override {
    tables_ = load_shipped_tables(problems_);
    ASSERT_TRUE(problems_.empty());
    combinations_ = reachable_combinations(tables_, vocabulary_);
    const SourceTable& infos = *tables_.find("Target:Info");
    for (const SourceRow& info : infos.rows) {
      bills_.emplace(infos.text(info, "target"),
                     BillRows(infos, info, *tables_.find(infos.text(info, "BOMTable"))));
    }
  }

  /// The rules that a full bill of the combination uses.
  std::set<const CalculationRule*> usedRules(const CalculationRules& rules,
                                             const Combination& combination) {
    std::set<const CalculationRule*> used;
    std::set<std::string> settled;
    std::vector<std::string> open;
    for (const DeclaredComponent& component :
         bills_.at(combination.ic).declared(combination, false)) {
      if (component.settled) settled.insert(component.reference);
      open.push_back(component.reference);
    }
    while (!open.empty()) {
      const std::string name = open.back();
      open.pop_back();
      if (!settled.insert(name).second) continue;
      for (const CalculationRule* rule : rules.best(name, combination)) {
        used.insert(rule);
        if (rule->copies) open.push_back(rule->function);
        const std::size_t names = rule->interpolates() ? 1 : rule->parameters.size();
        open.insert(open.end(), rule->parameters.begin(),
                    rule->parameters.begin() + static_cast<std::ptrdiff_t>(names));
      }
    }
    return used;
  }

  Problems problems_;
  SourceTables tables_;
  Vocabulary vocabulary_ = program_vocabulary();
  std::vector<Combination> combinations_;
  std::map<std::string, BillRows> bills_;
};

TEST_F(ShippedDesign, BillsAreComplete) {
  constexpr std::size_t kLeast = 25;
  EXPECT_EQ(combinations_.size(), 183U);
  std::size_t standard = 0;
  for (const Combination& combination : combinations_) {
    const auto components = bills_.at(combination.ic).declared(combination, false);
    EXPECT_GE(components.size(), kLeast) << to_string(combination);
    if (to_string(combination) == "TV6103, ActivePFC2C, SLCM") standard = components.size();
  }
  EXPECT_EQ(standard, 76U);
}

TEST_F(ShippedDesign, EveryComponentFunctionIsUsed) {
  const CalculationRules rules(*tables_.find("CC:Calculations"));
  std::vector<FunctionArities> unused = vocabulary_.functions;
  FunctionArities unused_generic = vocabulary_.generic_functions;
  std::size_t curves = 0;
  for (const Combination& combination : combinations_) {
    const FunctionArities& own = vocabulary_.functions[combination.target];
    for (const CalculationRule* rule : usedRules(rules, combination)) {
      curves += rule->interpolates() ? 1 : 0;
      if (own.contains(rule->function)) {
        unused[combination.target].erase(rule->function);
      } else {
        unused_generic.erase(rule->function);
      }
    }
  }
  EXPECT_GT(curves, 0U);
  EXPECT_TRUE(unused_generic.empty()) << unused_generic.begin()->first;
  for (std::size_t i = 0; i < unused.size(); ++i) {
    EXPECT_TRUE(unused[i].empty()) << vocabulary_.targets[i] << " " << unused[i].begin()->first;
  }
}

// The curves hold what they are drawn from: more power, more volt-amperes; and a charge pump that
// moves about the same charge in each cycle at any bus voltage.
TEST_F(ShippedDesign, CurvesAreInOrder) {
  for (const char* name : {"Block:Current", "Choke:Power", "Scale:Unity", "Snub:Bus"}) {
    const SourceTable& curve = *tables_.find("Lookup:" + std::string(name));
    const bool falls = std::string(name) == "Snub:Bus";
    for (std::size_t i = 1; i < curve.rows.size(); ++i) {
      const auto cell = [&](std::size_t row, const char* column) {
        return parse_number(curve.text(curve.rows[row], column)).value();
      };
      EXPECT_LT(cell(i - 1, "Index"), cell(i, "Index")) << name;
      EXPECT_EQ(cell(i - 1, "value") > cell(i, "value"), falls) << name;
      if (!falls) continue;
      EXPECT_NEAR(cell(i, "Index") * cell(i, "value"), 382, 32);
    }
  }
}

}  // namespace
}  // namespace vantrel::builder
