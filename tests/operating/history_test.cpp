#include <array>
#include <set>

#include "core/number_text.h"
#include "operating/calculation_history.h"
#include "operating_fixture.h"

namespace vantrel {
namespace {

using Texts = std::vector<std::string>;

/// A history on the design screen. Selecting an item sets its slot and wrecks the fields, as the
/// loads of a real selection do.
class HistoryTest : public OperatingFixture {
 protected:
  HistoryTest() {
    bar.initialise_toolbar(kToolbarDesign, kToolbarPlain);
    for (int slot = 0; slot < kSlotCount; ++slot) put(slot, slot);
  }

  static std::string nameOf(int slot, std::int32_t id) {
    return std::string(GroupTypeName(slot)) + general_text(id);
  }
  void put(int slot, std::int32_t id) { bar.SetInfo(slot, id, nameOf(slot, id)); }

  bool select(int slot, std::int32_t id) {
    if (removed.count({slot, id}) == 1) return false;
    put(slot, id);
    for (const auto& field : advanced.fields()) {
      field->SetFixed(id % 2 == 0);
      field->SetValue(field->ValueType() == kNumeric ? Variant(-7.5) : Variant("wrecked"));
    }
    return true;
  }

  /// Stands for a calculation: new items and values of every type, all of them told by `seed`.
  std::int32_t calculate(int seed) {
    for (int slot = 0; slot < kSlotCount; ++slot) put(slot, seed * 10 + slot);
    int place = seed;
    for (const auto& field : advanced.fields()) {
      field->SetFixed(++place % 3 == 0);
      if (field->ValueType() != kNumeric) {
        field->SetValue(place % 4 == 0 ? Variant("") : Variant("text " + std::to_string(place)));
        continue;
      }
      field->SetValue(place * 1.37);
      if (place % 5 == 0) field->Clear();
      if (place % 7 == 0) field->MultiplyValue(1.0F / 3.0F);  // 32 bits, more places than shown
    }
    advanced.relabel_brightness();
    return history.AddCalculationRecord();
  }

  struct Design {
    std::vector<FieldSnapshot> fields;
    std::array<std::int32_t, kSlotCount> items;
    std::string pmax_label;
    bool operator==(const Design&) const = default;
  };
  Design design() {
    Design now{snapshot_of(advanced), {}, advanced.field("pmax").ValueLabel()};
    for (int slot = 0; slot < kSlotCount; ++slot) {
      now.items[static_cast<std::size_t>(slot)] = bar.GetInfo(slot);
    }
    return now;
  }
  void step(std::int32_t by) { history.ShowCalculationRecord(false, by); }
  const PullDown& list() { return *advanced.findPullDown("CalculationPulldown"); }

  control_bar bar;
  std::set<std::pair<int, std::int32_t>> removed;
  int drawn = 0;
  CalculationHistory history{
      advanced,
      bar,
      messages,
      {.configDescription = [] { return "Single lamp"; },
       .itemName = {},
       .selectItem = [this](int slot, std::int32_t id) { return select(slot, id); },
       .DrawGraph = [this] { ++drawn; }}};
};

TEST_F(HistoryTest, WalkingBackAndForwardRestoresEveryDesign) {
  std::vector<Design> designs;
  for (int i = 1; i <= 25; ++i) {
    calculate(i);
    designs.push_back(design());
  }
  std::set<Variant::Type> types;
  for (const FieldSnapshot& field : designs.back().fields) types.insert(field.value.type());
  ASSERT_EQ(types.size(), 4U);  // Empty, Single, Double and String are all among them
  designs.erase(designs.begin(), designs.begin() + 5);
  for (int i = 18; i >= 0; --i) {
    step(-1);
    ASSERT_EQ(design(), designs[static_cast<std::size_t>(i)]) << i;
  }
  for (std::int32_t i = 1; i < 20; ++i) {
    step(1);
    ASSERT_EQ(design(), designs[static_cast<std::size_t>(i)]) << i;
    EXPECT_EQ(history.shown(), i);
  }
  EXPECT_EQ(drawn, 38);
  EXPECT_EQ(history.records().size(), 20U);  // showing adds none
  EXPECT_EQ(advanced.CalculationNumber, 25);
}

TEST_F(HistoryTest, ARecordNamesItsCalculation) {
  EXPECT_EQ(calculate(1), 1);
  EXPECT_EQ(calculate(2), 2);
  const CalculationRecord& record = history.records().back();
  EXPECT_EQ(record.title, "Calculation 2");
  EXPECT_EQ(record.description, "#2 - Single lamp, IC20, INPUT21, LAMP22");
  EXPECT_EQ(list().items, (Texts{"Calculation #1 - Single lamp, IC10, INPUT11, LAMP12",
                                 "Calculation #2 - Single lamp, IC20, INPUT21, LAMP22"}));
  EXPECT_EQ(list().selected, 1);
  EXPECT_EQ(advanced.caption(),
            "Operating Points & Tank Components "
            "(Calculation #2 - Single lamp, IC20, INPUT21, LAMP22)");
  step(-1);
  EXPECT_EQ(list().selected, 0);
  EXPECT_EQ(advanced.caption(),
            "Operating Points & Tank Components "
            "(Calculation #1 - Single lamp, IC10, INPUT11, LAMP12)");
  calculate(3);
  EXPECT_EQ(history.shown(), 2);
}

TEST_F(HistoryTest, TheTwentyFirstDropsTheFirstAndKeepsItsNumber) {
  for (int i = 1; i <= 20; ++i) calculate(i);
  EXPECT_EQ(history.records().front().title, "Calculation 1");
  EXPECT_EQ(calculate(21), 21);
  ASSERT_EQ(history.records().size(), 20U);
  EXPECT_EQ(history.records().front().title, "Calculation 2");
  EXPECT_EQ(history.records().back().title, "Calculation 21");
  EXPECT_EQ(list().items.size(), 20U);
  EXPECT_EQ(list().items.back().substr(0, 15), "Calculation #21");
}

TEST_F(HistoryTest, StepsAndRequestsOutsideTheHistory) {
  step(1);
  step(-1);
  std::int32_t position = 0;
  history.ShowCalculationRecord(true, position);
  for (int i = 1; i <= 3; ++i) calculate(i);
  position = 2;
  history.ShowCalculationRecord(false, position);  // leaves the history
  EXPECT_EQ(history.shown(), 2);
  EXPECT_EQ(position, 2);
  position = -2;
  history.ShowCalculationRecord(false, position);
  EXPECT_EQ(position, 0);
  EXPECT_EQ(history.shown(), 0);
  EXPECT_EQ(drawn, 1);
  history.PulldownClick(-1);
  history.PulldownClick(3);
  EXPECT_EQ(texts(), (Texts{"Cannot display calculation record 0 - it is invalid",
                            "Cannot display calculation record -1 - it is invalid",
                            "Cannot display calculation record 3 - it is invalid"}));
  history.PulldownClick(1);
  EXPECT_EQ(history.shown(), 1);
  EXPECT_EQ(messages.shown().size(), 3U);
}

TEST_F(HistoryTest, ARemovedItemEndsTheShow) {
  const Texts words = {"The calculation refers to an IC type which has been removed",
                       "The calculation refers to an input type which has been removed",
                       "The calculation refers to a lamp type which has been removed",
                       "The calculation refers to a configuration which has been removed"};
  for (int slot = 0; slot < kSlotCount; ++slot) {
    calculate(1);
    calculate(2);
    messages.clear();
    drawn = 0;
    const std::int32_t shown = history.shown();
    removed = {{slot, 10 + slot}};
    step(-1);
    EXPECT_EQ(texts(), Texts{words[static_cast<std::size_t>(slot)]});
    for (int other = 0; other < kSlotCount; ++other) {
      EXPECT_EQ(bar.GetInfo(other), (other < slot ? 10 : 20) + other) << slot << other;
    }
    EXPECT_EQ(history.shown(), shown);
    EXPECT_EQ(list().selected, shown);
    EXPECT_EQ(drawn, 0);
  }
}

TEST_F(HistoryTest, CommandsOfTheBar) {
  EXPECT_FALSE(bar.is_enabled("c_previous"));
  EXPECT_FALSE(bar.is_enabled("c_next"));
  for (int i = 1; i <= 3; ++i) calculate(i);
  EXPECT_TRUE(bar.is_enabled("c_previous"));
  EXPECT_FALSE(bar.is_enabled("c_next"));
  const struct {
    const char* command;
    const char* argument;
    std::int32_t shown;
    bool back;
    bool forward;
  } cases[] = {{"c_browsecalc", "1", 0, false, true}, {"c_next", "", 1, true, true},
               {"c_next", "", 2, true, false},        {"c_next", "", 2, true, false},
               {"c_previous", "", 1, true, true},     {"c_browsecalc", "3", 2, true, false}};
  for (const auto& expected : cases) {
    EXPECT_TRUE(history.execute_command(expected.command, expected.argument));
    EXPECT_EQ(history.shown(), expected.shown);
    EXPECT_EQ(bar.is_enabled("c_previous"), expected.back);
    EXPECT_EQ(bar.is_enabled("c_next"), expected.forward);
  }
  EXPECT_FALSE(history.execute_command("c_simple", ""));
  EXPECT_TRUE(texts().empty());
  for (const char* argument : {"4", "no number", "99999999999"}) {
    EXPECT_TRUE(history.execute_command("c_browsecalc", argument));
  }
  EXPECT_EQ(texts(), (Texts{"Cannot display calculation record 3 - it is invalid",
                            "Cannot display calculation record -1 - it is invalid",
                            "Cannot display calculation record 999999999 - it is invalid"}));
}

}  // namespace
}  // namespace vantrel
