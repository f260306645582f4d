#include <filesystem>

#include "core/program_folder.h"
#include "selection/control_bar.h"
#include "selection/picture_list.h"
#include "selection_fixture.h"

namespace vantrel {
namespace {

using ControlBarSelectionTest = SelectionTest;

TEST_F(ControlBarSelectionTest, PullDownsListAndSelectWhatIsOnOffer) {
  browser_control* chooser = nullptr;
  const auto with_browser = [&] {
    ControlBarHooks hooks;
    hooks.listItems = [&](int slot, PullDown& list) { chooser->Setup(slot, &list); };
    hooks.selectItem = [&](int slot, std::int32_t id) {
      return chooser->ItemSelect(true, slot, id, true, false, true);
    };
    return hooks;
  };
  for (control_bar& one : bars) one = control_bar(with_browser());
  browser_control browser = makeBrowser();
  chooser = &browser;
  selectAll(browser);
  control_bar& bar = bars[2];
  bar.RefreshSelector(kSlotLamp);
  EXPECT_EQ(bar.DetailsGetListCount(kSlotLamp), 5);
  EXPECT_EQ(bar.DetailsGetListIndex(kSlotLamp), 0);
  EXPECT_TRUE(bar.DetailsMoveNext(kSlotLamp));
  EXPECT_EQ(bar.GetInfoName(kSlotLamp), "T5-28");  // nothing is selected by moving
  EXPECT_TRUE(bar.SelectItemFromPulldown(kSlotLamp));
  for (const control_bar& one : bars) {
    EXPECT_EQ(one.GetInfo(kSlotLamp), 2);
    EXPECT_EQ(one.GetInfoName(kSlotLamp), "T8 36W");
  }
  EXPECT_TRUE(bar.DetailsSetListIndex(4, kSlotLamp));
  EXPECT_FALSE(bar.DetailsMoveNext(kSlotLamp));
  EXPECT_EQ(bar.DetailsGetListIndex(kSlotLamp), 4);
  EXPECT_FALSE(bar.DetailsSetListIndex(5, kSlotLamp));
  EXPECT_FALSE(bar.SelectItemFromPulldown(kSlotConfig));  // never filled
  // An item that a later selection has ruled out is not selected from the old list.
  ASSERT_TRUE(bar.DetailsSetListIndex(1, kSlotLamp));
  ASSERT_TRUE(select(browser, kSlotIc, "TV6108"));
  EXPECT_FALSE(bar.SelectItemFromPulldown(kSlotLamp));
}

TEST(ControlBarListTest, DetailsAreTheScreensOwn) {
  control_bar bar;
  int chosen = -1;
  bar.detailSelected.connect([&](int position) { chosen = position; });
  EXPECT_EQ(bar.DetailsGetListIndex(), -1);
  EXPECT_FALSE(bar.SelectItemFromPulldown());
  EXPECT_FALSE(bar.DetailsMoveNext());
  bar.SetDetails({"Page 1", "Page 2"});
  EXPECT_EQ(bar.DetailsGetListCount(), 2);
  EXPECT_TRUE(bar.DetailsMoveNext());
  EXPECT_EQ(chosen, -1);
  EXPECT_TRUE(bar.SelectItemFromPulldown());
  EXPECT_EQ(chosen, 1);
  EXPECT_FALSE(bar.DetailsMoveNext());
  EXPECT_FALSE(bar.DetailsSetListIndex(-1));
  EXPECT_FALSE(bar.DetailsSetListIndex(0, kDetailsList + 1));
}

TEST(ControlBarListTest, ShutSelectorsStayShut) {
  control_bar bar;
  int changes = 0;
  bar.changed.connect([&] { ++changes; });
  const auto enabled = [&] {
    std::string text;
    for (int slot = 0; slot < kSlotCount; ++slot) text += bar.Pulldown(slot).enabled ? '1' : '0';
    return text;
  };
  EXPECT_EQ(enabled(), "1111");
  bar.SetAvailable(false, true, true);
  EXPECT_EQ(enabled(), "1011");
  bar.SetEnabledStateOfAllSelectors(false);
  EXPECT_EQ(enabled(), "0000");
  bar.SetAvailable(true, false, true);
  EXPECT_EQ(enabled(), "0000");
  EXPECT_TRUE(bar.IsSlotAvailable(kSlotInput));
  EXPECT_FALSE(bar.IsSlotAvailable(kSlotConfig));
  bar.SetEnabledStateOfAllSelectors(true);
  EXPECT_EQ(enabled(), "1110");
  EXPECT_GE(changes, 4);
  bar.SetInfo(kSlotLamp, 7, "T5 28W");
  bar.SetSelection(kSlotLamp, "Other words");
  EXPECT_EQ(bar.GetInfo(kSlotLamp), 7);
  EXPECT_EQ(bar.GetInfoName(kSlotLamp), "Other words");
  bar.SetInfo(4, 1, "nowhere");
  EXPECT_EQ(bar.GetInfo(4), -1);
}

TEST(PictureListTest, PicturesAreInTheirOrderAndTheirFilesExist) {
  const char* const keys[] = {"Simple",         "Advanced",    "Edt",        "Pft",
                              "Print",          "Help",        "Weblinks",   "Materials",
                              "Photoplot",      "Schematic",   "Datasheet",  "Zoom In",
                              "Zoom Out",       "Save BOM",    "Save Image", "Save Photoplot",
                              "Save Schematic", "New",         "Delete",     "Load",
                              "Save",           "Export Data", "Back",       "Forward"};
  const char* const files[] = {"display_standard-on.gif",
                               "display_advanced-on.gif",
                               "ViewEDT-on.gif",
                               "ViewPFT-on.gif",
                               "print-on.gif",
                               "help-on.gif",
                               "internet-on.gif",
                               "ViewBOM-on.gif",
                               "ViewPhotoplot-on.gif",
                               "ViewSchematic-on.gif",
                               "ViewDatasheet-on.gif",
                               "Zoom_In.gif",
                               "Zoom_Out.gif",
                               "Save_BOM.gif",
                               "Save_Image.gif",
                               "Save_Photoplot.gif",
                               "Save_Schematic.gif",
                               "Table New.gif",
                               "Table Delete.gif",
                               "Table Load.gif",
                               "Table Save.gif",
                               "Table Export.gif",
                               "Move_Prev-On.gif",
                               "Move_Next-On.gif"};
  const std::filesystem::path assets = VANTREL_ASSETS;
  const ProgramFolder folder(assets);
  ASSERT_EQ(bar_pictures().size(), 24U);
  for (std::size_t i = 0; i < 24; ++i) {
    const BarPicture& picture = bar_pictures()[i];
    EXPECT_STREQ(picture.key, keys[i]);
    EXPECT_STREQ(picture.on, files[i]);
    std::string off = files[i];
    const bool two_states = i < 11 || i > 21;
    if (two_states) off.replace(off.size() - 6, 2, i < 11 ? "off" : "Off");
    EXPECT_EQ(picture.off, off);
    EXPECT_TRUE(folder.find(bar_picture_path(picture.key, true))) << picture.on;
    EXPECT_TRUE(folder.find(bar_picture_path(picture.key, false))) << picture.off;
    const std::string drawing = name_without_path(bar_drawing_path(picture.key));
    EXPECT_TRUE(std::filesystem::exists(assets / "icons" / drawing)) << drawing;
  }
  EXPECT_EQ(bar_picture_path("Back", false), "\\graphics\\icons\\Move_Prev-Off.gif");
  EXPECT_EQ(bar_picture_path("Save Gerber", true), "\\graphics\\icons\\Save_Photoplot.gif");
  EXPECT_EQ(bar_picture_path("Nothing", true), "");
  EXPECT_EQ(bar_drawing_path("Nothing"), "");
}

}  // namespace
}  // namespace vantrel
