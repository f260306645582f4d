#include "selection/details.h"

#include "selection/missing_fields.h"
#include "selection_fixture.h"

namespace vantrel {
namespace {

TEST_F(SelectionTest, TargetDetailsFollowTheOrderOfTargetNumbers) {
  state.CurrentTarget = 1;
  EXPECT_EQ(details.TargetDetails(0), Variant("TV6103"));
  EXPECT_EQ(details.TargetDetails(1, 2), Variant("Dimming IC"));
  EXPECT_EQ(details.TargetDetails(2, 0), Variant("Fixed"));
  EXPECT_EQ(details.TargetDetails(3, 0), Variant("/a.pdf"));
  EXPECT_EQ(details.TargetDetails(3, 2), Variant("")) << "a NULL address";
  EXPECT_EQ(details.TargetDetails(0, 9), Variant("TV6107"));
  EXPECT_EQ(details.TargetDetails(4), Variant()) << "no such info";
  EXPECT_EQ(takeMessages(), Texts{});

  EXPECT_EQ(details.TargetDetails(0, 10), Variant());
  EXPECT_EQ(details.TargetDetails(0, -1), Variant());
  EXPECT_EQ(takeMessages(),
            (Texts{"Target not found in name list", "Target not found in name list"}));
}

TEST_F(SelectionTest, TargetDetailsTellOfAMissingTableAndReadItLater) {
  sql("ALTER TABLE [Target:Info] RENAME TO [away]");
  EXPECT_EQ(details.TargetDetails(0), Variant());
  EXPECT_EQ(takeMessages(), Texts{"Could not read Target:Info table"});
  sql("ALTER TABLE [away] RENAME TO [Target:Info]");
  EXPECT_EQ(details.TargetDetails(0), Variant("TV6101"));
}

TEST_F(SelectionTest, ConfigDetailsOfAllConfigurations) {
  const Texts codes = {"SLCM", "SLVM", "DLSCM", "DLSVM", "DLPCM", "DLPVM", "DLPVMB", "ET"};
  const Texts lamps = {"Single", "Single", "Dual", "Dual", "Dual", "Dual", "Dual", ""};
  const Texts topologies = {"", "", "Series", "Series", "Parallel", "Parallel", "Parallel", ""};
  const Texts heatings = {"Current Mode", "Voltage Mode", "Current Mode", "Voltage Mode",
                          "Current Mode", "Voltage Mode", "Voltage Mode", ""};
  for (std::int32_t config = 0; config < 8; ++config) {
    const auto at = static_cast<std::size_t>(config);
    EXPECT_EQ(details.ConfigDetails(1, config), lamps[at]);
    EXPECT_EQ(details.ConfigDetails(2, config), topologies[at]);
    EXPECT_EQ(details.ConfigDetails(3, config), heatings[at]);
    EXPECT_EQ(details.ConfigDetails(4, config), codes[at]);
  }
  state.CurrentConfig = 6;
  EXPECT_EQ(details.ConfigDetails(0), "Dual lamp parallel/voltage-mode balance transformer");
  EXPECT_EQ(takeMessages(), Texts{});

  EXPECT_EQ(details.ConfigDetails(0, 8), "Unknown cfg type");
  EXPECT_EQ(details.ConfigDetails(5, 0), "Unknown cfg info");
  EXPECT_EQ(takeMessages(), (Texts{"Unknown configuration type (8)",
                                   "Unknown info type in configuration details (5)"}));
}

TEST_F(SelectionTest, MissingFieldsAskOnlyWhenTold) {
  MissingFields missing(messages);
  int opened = 0;
  missing.showList = [&] { ++opened; };
  EXPECT_TRUE(missing.IsEmpty(true));
  missing.Add(advanced.field("max"), "Advanced screen : MAX%");
  EXPECT_FALSE(missing.IsEmpty());
  EXPECT_EQ(takeMessages(), Texts{});

  EXPECT_FALSE(missing.IsEmpty(true)) << "answered No";
  EXPECT_EQ(opened, 0);
  messages.injectAnswers({kYes});
  EXPECT_FALSE(missing.IsEmpty(true));
  EXPECT_EQ(opened, 1);
  const std::string question = "Required fields are missing, do you wish to see the list ?";
  EXPECT_EQ(takeMessages(), (Texts{question, question}));
  EXPECT_EQ(missing.PrepareToShow(), Texts{"Advanced screen : MAX%"});

  missing.GoToField(0);
  EXPECT_EQ(takeMessages(), Texts{"This field cannot be displayed"});
  const VTLValue* shown = nullptr;
  missing.displayField = [&](VTLValue& field) {
    shown = &field;
    return true;
  };
  missing.GoToField(0);
  EXPECT_EQ(shown, &advanced.field("max"));
  missing.Reset();
  EXPECT_EQ(missing.CountItems(), 0);
  EXPECT_EQ(takeMessages(), Texts{});
}

}  // namespace
}  // namespace vantrel
