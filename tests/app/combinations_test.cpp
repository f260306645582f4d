#include <gtest/gtest.h>

#include <algorithm>
#include <random>
#include <set>

#include "session_bench.h"

namespace vantrel {
namespace {

// Every text that a calculation may show, by its beginning.
constexpr const char* kKnownBeginnings[] = {
    "No solution found. Try the following:",
    "Calculation ",
    "The preheat voltage is significantly higher",
    "The run frequency is significantly lower",
    "The running frequency is lower than 40kHz",
    "The circuit may be operating too close to resonance",
    "The TV6106 maximum run frequency",
    "The TV6107 maximum run frequency",
    "The running frequency is significantly higher than the ignition frequency",
};

bool is_known(const std::string& text) {
  return std::any_of(std::begin(kKnownBeginnings), std::end(kKnownBeginnings),
                     [&](const char* beginning) { return text.starts_with(beginning); });
}

std::vector<std::int32_t> offered(browser_control& browser, int slot) {
  browser.Setup(slot);
  std::vector<std::int32_t> ids;
  for (const ValidItem& item : browser.ValidItems()) ids.push_back(item.ID);
  return ids;
}

std::int32_t picked(const std::vector<std::int32_t>& ids, std::mt19937& random) {
  return ids[std::uniform_int_distribution<std::size_t>(0, ids.size() - 1)(random)];
}

// Selects slot by slot what the rules offer and calculates, 600 times in one process.
TEST(Combinations, ASampleCanBeSelectedAndCalculated) {
  SessionBench bench;
  Session& session = bench.start();
  std::mt19937 random(20240607);
  std::set<std::int32_t> targets;
  int with_tank = 0;
  int with_solution = 0;
  for (int run = 0; run < 600; ++run) {
    std::string design;
    for (int slot = 0; slot < kSlotCount; ++slot) {
      const auto ids = offered(session.browser(), slot);
      ASSERT_FALSE(ids.empty()) << "nothing on offer in slot " << slot << " after " << design;
      ASSERT_TRUE(session.selectById(slot, picked(ids, random)));
      design += session.selectionName(slot) + ", ";
    }
    targets.insert(session.state().CurrentTarget);
    session.messages().clear();
    const bool done = session.operatingPoints().Calculate(true);
    for (const std::string& text : bench.texts()) EXPECT_TRUE(is_known(text)) << design << text;
    if (session.state().CurrentTarget == 6) continue;
    ++with_tank;
    if (!done) continue;
    ++with_solution;
    EXPECT_GT(to_double(session.advanced().field("LValue").value()), 0) << design;
    EXPECT_GT(to_double(session.advanced().field("CValue").value()), 0) << design;
  }
  EXPECT_EQ(targets.size(), 10U);
  EXPECT_GE(with_solution, with_tank * 85 / 100);
}

// The values of a lamp after any number of changes of the configuration are those of a fresh load.
TEST(Combinations, ConfigurationChangesLeaveNoTraceInAReselectedLamp) {
  SessionBench bench;
  Session& session = bench.start();
  const char* fields[] = {"running_lamp_power",
                          "running_lamp_voltage",
                          "max_preheat_voltage",
                          "max_ignition_voltage",
                          "pmax",
                          "vmax",
                          "pmin",
                          "vmin",
                          "pfc_input_power_copy"};
  std::vector<Variant> fresh;
  for (const char* name : fields) fresh.push_back(session.advanced().field(name).value());
  for (int i = 0; i < 1000; ++i) {
    ASSERT_TRUE(session.selectById(kSlotConfig, i % 7));
    if (i % 100 == 0) session.operatingPoints().Calculate(false);
  }
  ASSERT_TRUE(session.selectById(kSlotConfig, 0));
  ASSERT_TRUE(session.selectByName(kSlotLamp, "T5 28W"));
  for (std::size_t i = 0; i < fresh.size(); ++i) {
    EXPECT_EQ(to_double(session.advanced().field(fields[i]).value()), to_double(fresh[i]))
        << fields[i];
  }
}

}  // namespace
}  // namespace vantrel
