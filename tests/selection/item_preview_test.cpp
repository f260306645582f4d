#include "selection/item_preview.h"

#include <gtest/gtest.h>

#include <set>
#include <utility>

#include "selection/item_search.h"
#include "selection/selection_card.h"
#include "selection_fixture.h"

namespace vantrel {
namespace {

class ItemPreviewTest : public SelectionTest {
 protected:
  /// "label value unit" of each row of the preview.
  Texts lines(int slot, std::int32_t id) {
    const ItemPreview preview(database, details, advanced, [this](const VTLValue& field) {
      return !hidden.contains(field.Name());
    });
    Texts result;
    for (const PreviewRow& row : preview.rows(slot, id)) {
      result.push_back(row.label + "|" + row.value + "|" + row.unit);
    }
    return result;
  }
  std::string line(const char* field, const char* shown) {
    const VTLValue& target = advanced.field(field);
    return trimmed(target.ValueLabel()) + "|" + shown + "|" + target.UnitText();
  }

  std::set<std::string> hidden;
};

TEST_F(ItemPreviewTest, ALampTellsItsInputsInTheOrderOfItsColumnsAndLeavesTheDesignAlone) {
  hidden = {"pmax", "vmax", "vmin", "min", "max", "pfc_input_power_copy"};
  advanced.field("running_lamp_power").SetValue(99.0);
  state.CurrentConfig = 2;  // doubles what is loaded, but not what is told
  EXPECT_EQ(lines(kSlotLamp, 1),
            (Texts{line("running_lamp_power", "28"), line("running_lamp_voltage", "236.1"),
                   line("max_preheat_voltage", "340"), line("max_ignition_voltage", "700"),
                   // 28.3 x 7 / 100; the column's own 999 is never loaded
                   line("pmin", "1.98")}));
  EXPECT_EQ(value("running_lamp_power"), Variant(99.0));
  EXPECT_EQ(value("running_lamp_voltage"), Variant());
  EXPECT_EQ(lines(kSlotLamp, 99), Texts{});
  EXPECT_EQ(lines(kSlotConfig, 0), Texts{});
  EXPECT_EQ(takeMessages(), Texts{});
}

TEST_F(ItemPreviewTest, DataStatementsFollowThePresentIc) {
  hidden = {"allow_input", "allow_config", "allow_advanced", "allow_inductor", "allow_transformer"};
  for (const auto& [target, shown] : {std::pair{1, "45"}, std::pair{2, "50"}}) {
    state.CurrentTarget = target;
    EXPECT_EQ(lines(kSlotIc, 1), Texts{line("ballast_run_frequency", shown)}) << target;
  }
}

TEST_F(ItemPreviewTest, CardsAndSearchReadWhatTheBrowserOffers) {
  browser_control browser = makeBrowser();
  selectAll(browser);
  browser.Setup(kSlotInput);
  const SelectionCard card = ReadSelectionCard(database, kSlotIc, 1);
  EXPECT_EQ(card.name, "TV6103");
  EXPECT_EQ(card.group, "Fixed Output Half-Bridge");
  EXPECT_EQ(card.picture, "Graphics\\Groups\\fixed.svg");
  EXPECT_EQ(ReadSelectionCard(database, kSlotIc, -1).name, "");
  EXPECT_EQ(browser.CurrentSlot(), kSlotInput);
  EXPECT_EQ(SlotCaption(kSlotConfig), "Lamp Configuration");

  browser.Setup(kSlotLamp);
  const auto found = [&](const char* text) {
    Texts names;
    for (const ItemHit& hit : SearchItems(browser, text)) {
      names.push_back(hit.text + "/" + hit.group + "/" + std::to_string(hit.position));
    }
    return names;
  };
  EXPECT_EQ(found("36w"), (Texts{"T8 36W/T8 Linear/0", "TC-L 36W/TC-L Long Compact/0"}));
  EXPECT_EQ(found(" linear 58 "), (Texts{"T8 58W/T8 Linear/1"}));
  EXPECT_EQ(found("user:"), (Texts{"User:Own Lamp/User Lamps/0"}));
  EXPECT_EQ(found("halogen"), Texts{}) << "ruled out by the IC";
  EXPECT_EQ(found("  "), Texts{});
}

}  // namespace
}  // namespace vantrel
