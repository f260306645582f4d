#include "services/window_state.h"

#include <gtest/gtest.h>

#include <fstream>
#include <sstream>

#include "services/project_fixture.h"

namespace vantrel {
namespace {

using testing::TemporaryFolder;

TEST(ProfileTextTest, FindsValuesRegardlessOfCase) {
  const ProfileText profile(
      "\xEF\xBB\xBF; head\r\n[Simple]\r\nTop = 12 \r\nLeft=-5\n\n[ADVANCED ]\nTop=\"34\"\nTop=99\n"
      "Bad=12px\nHuge=99999999999\nBlank=\n[Simple]\nWidth=7");
  EXPECT_EQ(profile.getInt("simple", "TOP"), 12);
  EXPECT_EQ(profile.getInt("Simple", "Left"), -5);
  EXPECT_EQ(profile.getInt("Advanced", "top"), 34) << "the first of several counts";
  for (const char* key : {"Bad", "Huge", "Blank", "None"}) {
    EXPECT_EQ(profile.getInt("Advanced", key), std::nullopt) << key;
  }
  EXPECT_EQ(profile.get("Advanced", "Blank"), "");
  EXPECT_EQ(profile.getInt("Simple", "Width"), std::nullopt) << "a second section is not read";
  EXPECT_EQ(profile.get("Other", "Top"), std::nullopt);
}

TEST(ProfileTextTest, ReplacesOneLineAndKeepsTheRest) {
  ProfileText profile("; head\n[Simple]\ntop=1\nnonsense\n\n[Advanced]\nTop=2\n");
  profile.set("SIMPLE", "Top", "10");
  profile.set("Simple", "Left", "20");
  profile.set("New", "Top", "a\nb");
  EXPECT_EQ(profile.text(),
            "; head\n[Simple]\nTop=10\nnonsense\nLeft=20\n\n[Advanced]\nTop=2\n[New]\nTop=a b\n");
}

TEST(OntoScreensTest, NeverLeavesAWindowOffTheScreens) {
  const std::vector<WindowRect> one = {{0, 0, 1920, 1080}};
  const std::vector<WindowRect> two = {{0, 0, 1920, 1080}, {-1280, 100, 1280, 1024}};
  struct Case {
    const char* what;
    WindowRect window;
    bool resizable;
    std::vector<WindowRect> screens;
    WindowRect expected;
  };
  const std::vector<Case> cases = {
      {"inside", {100, 50, 800, 600}, true, one, {100, 50, 800, 600}},
      {"over the right edge", {1500, 50, 800, 600}, true, one, {1120, 50, 800, 600}},
      {"over the bottom", {0, 1000, 800, 600}, true, one, {0, 480, 800, 600}},
      {"over the left and top", {-30, -40, 800, 600}, true, one, {0, 0, 800, 600}},
      {"on a screen that is gone", {-1200, 200, 800, 600}, true, one, {0, 200, 800, 600}},
      {"on the second screen", {-1200, 200, 800, 600}, true, two, {-1200, 200, 800, 600}},
      {"mostly on the second", {-600, 200, 800, 600}, true, two, {-800, 200, 800, 600}},
      {"mostly on the first", {-200, 200, 800, 600}, true, two, {0, 200, 800, 600}},
      {"nearest to the second", {-9000, 9000, 800, 600}, true, two, {-1280, 524, 800, 600}},
      {"too large, resizable", {100, 100, 4000, 3000}, true, one, {0, 0, 1920, 1080}},
      {"too large, fixed", {100, 100, 4000, 3000}, false, one, {0, 0, 4000, 3000}},
      {"no screens", {5000, 5000, 10, 10}, true, {}, {5000, 5000, 10, 10}},
  };
  for (const Case& test : cases) {
    EXPECT_EQ(onto_screens(test.window, test.resizable, test.screens), test.expected) << test.what;
  }
}

TEST(WindowStateTest, RemembersWindowsFromRunToRun) {
  const TemporaryFolder folder;
  const ProfileFile file(folder / "config.ini");
  bool remember = true;
  const WindowState state(file, [&] { return remember; });
  const std::vector<WindowRect> screens = {{0, 0, 1920, 1080}};
  const WindowRect designed{10, 10, 640, 480};
  EXPECT_EQ(state.read("Simple", designed, true, screens), std::nullopt) << "nothing on record";
  EXPECT_EQ(state.write("Simple", {300, 200, 800, 600}), std::nullopt);
  EXPECT_EQ(state.write("Advanced", {1, 2, 3, 4}), std::nullopt);

  std::ifstream stream(folder / "config.ini");
  std::ostringstream text;
  text << stream.rdbuf();
  EXPECT_EQ(text.str(),
            "[Simple]\nTop=200\nLeft=300\nWidth=800\nHeight=600\n"
            "[Advanced]\nTop=2\nLeft=1\nWidth=3\nHeight=4\n");

  EXPECT_EQ(state.read("simple", designed, true, screens), (WindowRect{300, 200, 800, 600}));
  EXPECT_EQ(state.read("Simple", designed, false, screens), (WindowRect{300, 200, 640, 480}))
      << "a window of fixed size keeps it";
  EXPECT_EQ(state.read("Advanced", designed, true, screens), (WindowRect{1, 2, 640, 480}))
      << "3 x 4 pixels are absurd";
  remember = false;
  EXPECT_EQ(state.read("Simple", designed, true, screens), std::nullopt);
  EXPECT_EQ(state.write("Simple", designed), std::nullopt) << "the writer always writes";
  remember = true;
  EXPECT_EQ(state.read("Simple", designed, true, screens), designed);
}

TEST(WindowStateTest, ADamagedFileGivesTheDefaults) {
  const TemporaryFolder folder;
  std::ofstream(folder / "config.ini")
      << "[Simple]\nTop=9999999\nLeft=left\nWidth=-1\nHeight=1e3\n\x01\x02[[[\n=\n";
  const ProfileFile file(folder / "config.ini");
  const WindowState state(file, [] { return true; });
  const std::vector<WindowRect> screens = {{0, 0, 1920, 1080}};
  const WindowRect designed{10, 20, 640, 480};
  EXPECT_EQ(state.read("Simple", designed, true, screens), designed);
  EXPECT_EQ(state.write("Simple", {50, 60, 700, 500}), std::nullopt);
  EXPECT_EQ(state.read("Simple", designed, true, screens), (WindowRect{50, 60, 700, 500}));
  EXPECT_EQ(folder.count(), 1U);
}

TEST(WindowStateTest, SaysWhyItCannotWrite) {
  const TemporaryFolder folder;
  const ProfileFile file(folder / "none/config.ini");
  EXPECT_NE(WindowState(file, [] { return true; }).write("Simple", {}), std::nullopt);
}

}  // namespace
}  // namespace vantrel
