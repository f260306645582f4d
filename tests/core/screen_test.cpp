#include "core/screen.h"

#include <gtest/gtest.h>

#include "core/fault.h"
#include "support/fixtures.h"

namespace vantrel {
namespace {

constexpr FieldSpec kSpecs[] = {
    {"LValue", "L", "mH", "2", kLocked, true, "Inductor", "frame_tank"},
    {"CValue", "C", "nF", "2", kLocked, true, "Capacitor", "frame_tank"},
    {"PhiMaxValue", "PhiMax", "Deg", "1", kLocked, false, "", "Frame_Phase"},
    {"ind_inductance", "Inductance", "mH", "2", kInput, false, "", "frame_core", kNumeric, true, 0},
    {"ind_inductance", "Inductance", "mH", "2", kInput, false, "", "frame_core", kNumeric, true, 1},
    {"lonely", "", "", ""},
};

class ScreenTest : public ::testing::Test {
 protected:
  void SetUp() override { screen.addFields(kSpecs); }

  test::FieldFixture fixture;
  Screen screen{"Advanced", "Operating Points", fixture.context};
};

TEST_F(ScreenTest, FieldsAreFoundInAnyCaseAndByIndex) {
  EXPECT_EQ(screen.findField("lvalue"), &screen.field("LVALUE"));
  EXPECT_EQ(screen.field("phimaxvalue").Name(), "PhiMaxValue");
  EXPECT_EQ(screen.field("IND_inductance", 1).Index(), 1);
  EXPECT_EQ(screen.field("ind_inductance").Index(), 0);
  EXPECT_EQ(screen.findField("ind_inductance", 2), nullptr);
  EXPECT_EQ(screen.findField("LValue", 0), nullptr);
  EXPECT_EQ(screen.findField("nothing"), nullptr);
  EXPECT_THROW(screen.field("nothing"), Fault);
  EXPECT_EQ(&screen.field("LValue").GetOwnerForm(), &screen);
}

TEST_F(ScreenTest, IterationFollowsTheDeclaration) {
  std::vector<std::string> names;
  for (const auto& field : screen.fields()) names.push_back(field->Name());
  EXPECT_EQ(names, (std::vector<std::string>{"LValue", "CValue", "PhiMaxValue", "ind_inductance",
                                             "ind_inductance", "lonely"}));
  names.clear();
  for (const Frame& frame : screen.frames()) names.push_back(frame.name);
  EXPECT_EQ(names, (std::vector<std::string>{"frame_tank", "Frame_Phase", "frame_core"}));
}

TEST_F(ScreenTest, AFieldDeclaredTwiceIsAFault) {
  EXPECT_THROW(screen.addField({"LVALUE", "", "", ""}), Fault);
  EXPECT_NO_THROW(screen.addField({"ind_inductance", "", "", "", 0, false, "", "", 0, true, 2}));
}

TEST_F(ScreenTest, FramesClearAndHideTheirOwnFieldsOnly) {
  for (const auto& field : screen.fields()) field->SetValue(3.0);
  ClearFrameValues(screen, "FRAME_TANK");
  EXPECT_TRUE(screen.field("LValue").IsItEmpty());
  EXPECT_TRUE(screen.field("CValue").IsItEmpty());
  EXPECT_FALSE(screen.field("PhiMaxValue").IsItEmpty());
  EXPECT_FALSE(screen.field("lonely").IsItEmpty());
  SetFrameChildrenVisible(screen, "frame_phase", false);
  EXPECT_FALSE(screen.field("PhiMaxValue").Visible());
  EXPECT_TRUE(screen.field("LValue").Visible());
}

TEST_F(ScreenTest, AFieldIsShownWhenItAndItsFrameAre) {
  int drawn = 0;
  screen.layoutChanged.connect([&] { ++drawn; });
  VTLValue& field = screen.field("LValue");
  EXPECT_TRUE(screen.isFieldShown(field));
  screen.setFrameVisible("Frame_Tank", false);
  EXPECT_FALSE(screen.isFieldShown(field));
  EXPECT_TRUE(field.Visible());
  screen.setFrameVisible("frame_tank", true);
  field.Visible(false);
  EXPECT_FALSE(screen.isFieldShown(field));
  EXPECT_TRUE(screen.isFieldShown(screen.field("lonely")));
  EXPECT_EQ(drawn, 2);
  screen.setFrameVisible("unknown", false);
  EXPECT_EQ(drawn, 2);
}

TEST_F(ScreenTest, OtherControlsByNameAndButtonsByIndex) {
  screen.addPullDown("core_size").items = {"EF16", "EF20"};
  screen.addTickBox("nosounds", "No sounds", true);
  screen.addButton("MainButton", "IC", 0);
  screen.addButton("MainButton", "Calculate", 4);
  screen.addInfoLine("InputInfo").text = "Line";
  EXPECT_EQ(screen.findPullDown("CORE_SIZE")->items.size(), 2u);
  EXPECT_TRUE(screen.findTickBox("NoSounds")->checked);
  EXPECT_EQ(screen.findButton("mainbutton", 4)->caption, "Calculate");
  EXPECT_EQ(screen.findButton("mainbutton")->caption, "IC");
  EXPECT_EQ(screen.findButton("mainbutton", 3), nullptr);
  EXPECT_EQ(screen.findInfoLine("inputinfo")->text, "Line");
  EXPECT_EQ(screen.findTickBox("core_size"), nullptr);
}

TEST_F(ScreenTest, TheRegistryKeepsTheOrderOfCreation) {
  Screen other("Inductor", "Inductor", fixture.context);
  ScreenRegistry registry;
  registry.add(screen);
  registry.add(other);
  EXPECT_EQ(registry.find("INDUCTOR"), &other);
  EXPECT_EQ(registry.indexOf("inductor"), 1);
  EXPECT_EQ(registry.find("Transformer"), nullptr);
  EXPECT_EQ(registry.indexOf("Transformer"), -1);
}

}  // namespace
}  // namespace vantrel
