#include "app/sweep_row.h"

#include <gtest/gtest.h>
#include <sqlite3.h>

#include <algorithm>
#include <functional>
#include <random>

#include "app/sweep_plan.h"
#include "core/number_text.h"
#include "session_bench.h"

namespace vantrel {
namespace {

std::vector<Combination> plan_of(Session& session, const SelectionOptions& filters = {}) {
  std::string why;
  return sweep_plan(session, filters, why).combinations;
}

std::vector<std::int32_t> offered(Session& session, int slot) {
  session.browser().Setup(slot);
  std::vector<std::int32_t> ids;
  for (const ValidItem& item : session.browser().ValidItems()) ids.push_back(item.ID);
  return ids;
}

TEST(SweepPlan, IsSortedAndHoldsEveryItemOnOffer) {
  SessionBench bench;
  const std::vector<Combination> plan = plan_of(bench.start());
  EXPECT_GT(plan.size(), 15000U);
  EXPECT_EQ(std::adjacent_find(plan.begin(), plan.end(), std::greater_equal<>()), plan.end());
}

TEST(SweepPlan, IsWhatSelectingItemByItemLeadsTo) {
  for (const char* ic : {"TV6107", "TV6108"}) {
    SessionBench bench;
    Session& session = bench.start();
    std::vector<Combination> selected;
    ASSERT_TRUE(session.selectByName(kSlotIc, ic));
    for (const std::int32_t input : offered(session, kSlotInput)) {
      ASSERT_TRUE(session.selectById(kSlotInput, input));
      for (const std::int32_t lamp : offered(session, kSlotLamp)) {
        ASSERT_TRUE(session.selectById(kSlotLamp, lamp));
        for (const std::int32_t config : offered(session, kSlotConfig)) {
          selected.push_back({session.browser().GetInfo(kSlotIc), input, lamp, config});
        }
      }
    }
    std::ranges::sort(selected);
    SelectionOptions filters;
    filters.ic = ic;
    EXPECT_EQ(plan_of(session, filters), selected) << ic;
  }
}

TEST(SweepPlan, ShardsAreDisjointAndComplete) {
  SessionBench bench;
  SelectionOptions filters;
  filters.ic = "TV6106";
  const std::vector<Combination> all = plan_of(bench.start(), filters);
  std::vector<Combination> joined;
  for (std::size_t index = 1; index <= 7; ++index) {
    const auto part = shard_of(all, {index, 7});
    EXPECT_LE(part.size(), all.size() / 7 + 1);
    EXPECT_EQ(part.front(), all[index - 1]);
    joined.insert(joined.end(), part.begin(), part.end());
  }
  std::ranges::sort(joined);
  EXPECT_EQ(joined, all);
}

TEST(SweepRow, DependsOnNothingThatWasDesignedBefore) {
  SessionBench bench;
  std::string why;
  const SweepPlan plan = sweep_plan(bench.start(), {}, why);
  std::mt19937 random(7);
  std::vector<Combination> sample;
  std::ranges::sample(plan.combinations, std::back_inserter(sample), 60, random);
  SweepDesigner first(bench.start(), plan, false);
  std::vector<std::string> rows;
  for (const Combination& combination : sample) rows.push_back(first.row(combination));

  SweepDesigner again(bench.start(), plan, false);
  std::vector<std::size_t> order(sample.size());
  for (std::size_t i = 0; i < order.size(); ++i) order[i] = i;
  std::ranges::shuffle(order, random);
  for (const std::size_t i : order) EXPECT_EQ(again.row(sample[i]), rows[i]);
}

/// Leaves one line input a bus that drives no lamp.
void spoil_input(SessionBench& bench) {
  sqlite3* database = nullptr;
  ASSERT_EQ(sqlite3_open(bench.database().c_str(), &database), SQLITE_OK);
  const char* const statement =
      "update \"DATA:INPUT\" set \"Running Bus (VDC)\" = '20' where Name = '90 to 265VAC/500VDC'";
  EXPECT_EQ(sqlite3_exec(database, statement, nullptr, nullptr, nullptr), SQLITE_OK);
  EXPECT_EQ(sqlite3_changes(database), 1);
  sqlite3_close(database);
}

// A session of its own for each design, driven as the command `design` does it.
TEST(SweepRow, SaysWhatADesignOfItsOwnSays) {
  SessionBench bench;
  spoil_input(bench);
  std::string why;
  const SweepPlan plan = sweep_plan(bench.start(), {}, why);
  std::vector<Combination> sample;
  std::ranges::sample(plan.combinations, std::back_inserter(sample), 25, std::mt19937(11));
  SessionBench other;
  spoil_input(other);
  SweepDesigner designer(other.start(), plan, false);
  int failures = 0;
  for (const Combination& combination : sample) {
    Session& session = bench.start();
    for (int slot = 0; slot < kSlotCount; ++slot) {
      ASSERT_TRUE(session.selectById(slot, combination[static_cast<std::size_t>(slot)]));
    }
    const bool done = session.simple().calculate_simple(true, true, true, true);
    if (!done) ++failures;
    const std::string row = designer.row(combination);
    const auto has = [&row](const std::string& text) {
      return row.find(text) != std::string::npos;
    };
    EXPECT_TRUE(row.starts_with(combination_key(combination) + ",")) << row;
    EXPECT_TRUE(has(done ? ",yes," : ",no,")) << row;
    EXPECT_TRUE(row.ends_with("," + std::to_string(session.bomStore().BomStages().size()) + "\r\n"))
        << row;
    EXPECT_EQ(std::ranges::count(row, '\n'), 1) << row;
    for (const std::string& text : bench.texts()) {
      EXPECT_TRUE(has(text.substr(0, text.find_first_of("\n\xC2")))) << text << "\n" << row;
    }
    std::string numbers;
    for (const char* name : {"LValue", "CValue", "run_frequency", "preheat_frequency",
                             "ignition_frequency", "pfc_inductor", "max_pfc_current"}) {
      const Variant& value = session.advanced().field(name).value();
      numbers += "," + (value.is_empty() ? "" : general_text(to_double(value)));
    }
    for (int index = 0; index < 2; ++index) {
      numbers += "," + shown_core(*session.inductor().findPullDown("ind_comboCore", index));
    }
    EXPECT_TRUE(has(numbers + ",")) << numbers << "\n" << row;
  }
  EXPECT_GT(failures, 0);
}

TEST(SweepRow, KeepsNoMessagesBetweenDesigns) {
  SessionBench bench;
  spoil_input(bench);
  std::string why;
  SelectionOptions filters;
  filters.lamp = "T5 14W";
  const SweepPlan plan = sweep_plan(bench.start(), filters, why);
  Session& session = bench.start();
  SweepDesigner designer(session, plan, true);
  const std::string once = designer.row(plan.combinations.front());
  for (int i = 0; i < 50; ++i) designer.row(plan.combinations.front());
  EXPECT_EQ(bench.texts().size(), 1U);
  EXPECT_EQ(once.substr(0, once.rfind(',')),
            "0-1-1-0,TV6101,90 to 265VAC/500VDC,T5 14W,Single lamp/current-mode heating,no,No "
            "solution found. Try the following:  1) Increase DC Bus Voltage 2) Decrease ballast "
            "run frequency 3) Decrease preheat current,,,,,,,,,,,0");
}

}  // namespace
}  // namespace vantrel
