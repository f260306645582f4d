#include <gtest/gtest.h>

#include <fstream>
#include <iterator>

#include "session_bench.h"

namespace vantrel {
namespace {

std::string bytes_of(const std::filesystem::path& file) {
  std::ifstream stream(file, std::ios::binary);
  return {std::istreambuf_iterator<char>(stream), {}};
}

/// Selects the first item on offer in each slot after the IC; the configuration when it is on
/// offer.
void select_design(Session& session, std::int32_t ic, std::int32_t config) {
  session.selectById(kSlotIc, ic);
  session.selectById(kSlotConfig, config);
}

class RoundTrip : public testing::TestWithParam<int> {};

// A design that is saved, loaded in a fresh run and saved again gives the same file, byte for byte.
TEST_P(RoundTrip, SaveLoadSaveGivesTheSameFile) {
  SessionBench bench;
  const std::string first = (bench.home.path() / "first.vtl").string();
  const std::string second = (bench.home.path() / "second.vtl").string();
  for (std::int32_t config = 0; config < 8; ++config) {
    Session& session = bench.start();
    select_design(session, GetParam(), config);
    session.simple().calculate_simple(true, true, true, true);
    ASSERT_TRUE(session.project().SaveProjectTo("Simple", first));
    Session& fresh = bench.start();
    ASSERT_TRUE(fresh.project().LoadProjectFrom("Simple", first)) << config;
    ASSERT_TRUE(fresh.project().SaveProjectTo("Simple", second));
    EXPECT_TRUE(bytes_of(first) == bytes_of(second)) << "configuration " << config;
    EXPECT_EQ(bench.texts(), std::vector<std::string>{"Project 'second.vtl' Saved OK"});
  }
}

INSTANTIATE_TEST_SUITE_P(EveryIc, RoundTrip, testing::Range(0, 10));

TEST(History, WalkingBackRestoresSelectionAndEveryField) {
  SessionBench bench;
  Session& session = bench.start();
  struct Snapshot {
    std::vector<FieldSnapshot> fields;
    std::array<std::int32_t, kSlotCount> items;
  };
  std::vector<Snapshot> taken;
  const char* lamps[] = {"T5 28W", "T8 36W", "T5 21W"};
  for (int i = 0; i < 25; ++i) {
    ASSERT_TRUE(session.selectByName(kSlotLamp, lamps[i % 3]));
    ASSERT_TRUE(session.selectById(kSlotConfig, i % 2));
    ASSERT_TRUE(session.operatingPoints().Calculate(true));
    Snapshot now{snapshot_of(session.advanced()), {}};
    for (int slot = 0; slot < kSlotCount; ++slot) {
      now.items[static_cast<std::size_t>(slot)] = session.browser().GetInfo(slot);
    }
    taken.push_back(now);
  }
  const auto& records = session.history().records();
  ASSERT_EQ(records.size(), 20U);
  EXPECT_EQ(records.back().title, "Calculation 25");
  EXPECT_EQ(records.front().title, "Calculation 6");
  for (std::int32_t index : {19, 0, 7, 8, 3, 19}) {
    std::int32_t position = index;
    session.history().ShowCalculationRecord(true, position);
    const Snapshot& wanted = taken[static_cast<std::size_t>(index) + 5];
    EXPECT_EQ(snapshot_of(session.advanced()), wanted.fields) << index;
    for (int slot = 0; slot < kSlotCount; ++slot) {
      EXPECT_EQ(session.browser().GetInfo(slot), wanted.items[static_cast<std::size_t>(slot)]);
    }
  }
}

TEST(Options, SurviveARestartAndSteerTheCalculator) {
  SessionBench bench;
  Session& session = bench.start();
  EXPECT_EQ(session.calculator().series(), kSeriesE24);
  session.options().tick("default_to_e12_series", true);
  EXPECT_EQ(session.calculator().series(), kSeriesE24) << "nothing happens before Apply";
  session.options().Apply();
  EXPECT_EQ(session.calculator().series(), kSeriesE12);
  EXPECT_EQ(bench.start().calculator().series(), kSeriesE12);
  bench.settings.save("Configure", "default_to_e12_series", "\xff garbage");
  bench.settings.save("Configure", "nosounds", "perhaps");
  bench.start();
  EXPECT_TRUE(bench.session->messages().shown().empty());
}

}  // namespace
}  // namespace vantrel
