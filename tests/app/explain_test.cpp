#include "components/explain.h"

#include <gtest/gtest.h>

#include <cmath>
#include <map>
#include <random>
#include <string>

#include "app/automation.h"
#include "core/number_text.h"
#include "core/text_parsing.h"
#include "session_bench.h"

namespace vantrel {
namespace {

/// Selects at random, slot by slot, what the rules offer.
void select_any(Session& session, std::mt19937& random) {
  for (int slot = 0; slot < kSlotCount; ++slot) {
    session.browser().Setup(slot);
    const auto& items = session.browser().ValidItems();
    ASSERT_FALSE(items.empty());
    ASSERT_TRUE(session.selectById(slot, items[random() % items.size()].ID));
  }
}

/// The value of each reference of the bill.
std::map<std::string, std::string> bill_values(const BomStore& bill) {
  std::map<std::string, std::string> values;
  for (const BillRecord& record : bill.BomComponents()) {
    for (int i = 1; i <= FieldCount(record.reference, ','); ++i) {
      SysMsg unused;
      values[trimmed(GetField(record.reference, i, ',', false, unused))] = record.value;
    }
  }
  return values;
}

/// What a value of the bill counts in its unit without prefix: "4.7 nF" with "F" is 4.7e-9.
double counted(const std::string& text, const std::string& unit) {
  const std::size_t blank = text.find(' ');
  const std::string prefix = text.substr(blank + 1, text.size() - blank - 1 - unit.size());
  static const std::map<std::string, double> kFactors{
      {"", 1}, {"p", 1e-12}, {"n", 1e-9}, {"u", 1e-6}, {"m", 1e-3}, {"K", 1e3}, {"M", 1e6}};
  return parse_number(text.substr(0, blank)).value_or(NAN) * kFactors.at(prefix);
}

// Every component of 200 designs is worked out again from its inputs, and comes to what stands in
// the bill of materials, which shows two decimals.
TEST(Explain, AgreesWithTheBillOfMaterials) {
  SessionBench bench;
  Session& session = bench.start();
  std::mt19937 random(20250314);
  int designs = 0;
  std::size_t components = 0;
  std::size_t by_rule = 0;
  for (int attempt = 0; designs < 200 && attempt < 600; ++attempt) {
    select_any(session, random);
    session.calculator().selectSeries(random() % 2 == 0 ? kSeriesE12 : kSeriesE24);
    if (!session.simple().calculate_simple(true, true, true, true)) continue;
    ++designs;
    std::map<std::string, Explanation> explained;
    for (Explanation& one : session.explain().all()) {
      const std::string reference = one.variable.reference;
      explained.emplace(reference, std::move(one));
    }
    for (const auto& [reference, text] : bill_values(session.bomStore())) {
      SCOPED_TRACE(reference + " = " + text);
      const auto explanation = explained.find(reference);
      ASSERT_NE(explanation, explained.end());
      const Explanation& one = explanation->second;
      EXPECT_TRUE(one.agrees);
      EXPECT_TRUE(one.faults.empty());
      const Variant& preferred = one.preferred;
      if (preferred.is_numeric()) {
        const double value = to_double(preferred);
        const double shown = counted(text, one.variable.valueunit);
        EXPECT_LE(std::abs(shown - value), 0.0051 * std::abs(value) + 1e-15);
      } else {
        EXPECT_EQ(text, preferred.is_empty() ? "" : to_text(preferred));
      }
      ++components;
      by_rule += one.origin == ValueOrigin::Rule ? 1U : 0U;
    }
  }
  EXPECT_EQ(designs, 200);
  EXPECT_GT(components, 4000U);
  EXPECT_GT(by_rule, 1000U);
}

TEST(Explain, AnswersTheAutomation) {
  SessionBench bench;
  Session& session = bench.start();
  Automation automation(session);
  EXPECT_FALSE(automation.runLine(R"({"op":"explain","variable":"R999"})")["ok"]);
  ASSERT_TRUE(automation.runLine(R"({"op":"calculate","what":"simple"})")["ok"]);
  const Json reply = automation.runLine(R"({"op":"explain","variable":"RT"})");
  ASSERT_TRUE(reply["ok"]) << reply.dump(2);
  EXPECT_EQ(reply["origin"], "rule");
  EXPECT_EQ(reply["rule"]["target"].get<std::string>().find("TV6103") == std::string::npos,
            reply["rule"]["target"].get<std::string>().empty());
  EXPECT_TRUE(reply["series"].get<std::string>().starts_with("Match Resistor  : RT = "));
  EXPECT_NE(reply["raw"], reply["preferred"]);
  EXPECT_EQ(reply["preferred"], reply["value"]);
  EXPECT_EQ(reply["tree"]["label"], "RT");
  EXPECT_EQ(reply["inputs"].size(), reply["rule"]["parameters"].size());
  EXPECT_TRUE(reply["messages"].empty());
}

}  // namespace
}  // namespace vantrel
