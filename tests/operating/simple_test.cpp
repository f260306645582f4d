#include "operating/simple.h"

#include <algorithm>
#include <utility>

#include "core/number_text.h"
#include "core/plain_ports.h"
#include "operating_fixture.h"

namespace vantrel {
namespace {

using Texts = std::vector<std::string>;

class SimpleTest : public OperatingFixture, public EventPump {
 protected:
  SimpleTest() { set("allow_cc", "Yes"); }

  void yield() override {
    ++yields;
    if (onYield) onYield();
  }
  std::function<bool()> step(const char* name) {
    return [this, name] {
      calls.push_back(name);
      return failing != name;
    };
  }
  std::function<void()> note(const char* name) {
    return [this, name] { calls.push_back(name); };
  }
  SimpleHooks simpleHooks() {
    SimpleHooks all;
    all.startBrowser = [this](int slot, std::string_view title, std::int32_t current) {
      calls.push_back(std::to_string(slot) + " " + std::string(title) + " " +
                      std::to_string(current));
    };
    all.configure_enforcesettings = note("settings");
    all.calculateOperatingPoints = step("points");
    all.calculateInductors = step("inductors");
    all.calculateTransformer = step("transformer");
    all.resetCalculator = step("reset");
    all.calculateComponents = step("components");
    all.clearComputedComponents = note("clear");
    all.loadPictures = note("pictures");
    all.refresh = note("refresh");
    all.isBusy = [this] { return busy; };
    all.setBusy = [this](bool on) { busy = on; };
    all.saveWindowPosition = note("position");
    all.closeConnection = note("close");
    all.unloadOtherScreens = note("unload");
    all.stopProcess = note("stop");
    return all;
  }
  Texts takeCalls() { return std::exchange(calls, {}); }

  Texts calls;
  std::string failing;
  bool busy = false;
  int yields = 0;
  std::function<void()> onYield;
  control_bar bar;
  Simple simple{context, messages, advanced, bar, *this, simpleHooks()};
};

TEST_F(SimpleTest, TheChainEndsAtTheFirstFailure) {
  const Texts chain = {"settings", "points", "inductors", "transformer", "reset", "components"};
  EXPECT_TRUE(simple.calculate_simple(true, true, true, true));
  EXPECT_EQ(takeCalls(), chain);
  for (std::size_t last = 1; last < chain.size(); ++last) {
    failing = chain[last];
    EXPECT_FALSE(simple.calculate_simple(true, true, true, true)) << failing;
    EXPECT_EQ(takeCalls(), Texts(chain.begin(), chain.begin() + static_cast<long>(last) + 1));
  }
}

TEST_F(SimpleTest, FlagsAndPermissionPickTheSteps) {
  EXPECT_TRUE(simple.calculate_simple(true, false, false, false));
  EXPECT_EQ(takeCalls(), (Texts{"settings", "points"}));
  EXPECT_TRUE(simple.calculate_simple(false, true, false, true));
  EXPECT_EQ(takeCalls(), (Texts{"settings", "inductors", "reset", "components"}));
  EXPECT_TRUE(simple.calculate_simple(false, false, true, false));
  EXPECT_EQ(takeCalls(), (Texts{"settings", "transformer"}));
  set("allow_cc", "no");
  EXPECT_TRUE(simple.calculate_simple(true, true, true, true));
  EXPECT_EQ(takeCalls(), (Texts{"settings", "points", "inductors", "transformer"}));
  failing = "transformer";
  EXPECT_FALSE(simple.calculate_simple(true, true, true, true));
  // Steps that no part of the program has taken over succeed.
  set("allow_cc", "yes");
  Simple plain(context, messages, advanced, bar, *this, {});
  EXPECT_TRUE(plain.calculate_simple(true, true, true, true));
}

TEST_F(SimpleTest, ButtonsOpenTheirChoosersAndRunTheChain) {
  const Texts captions = {"Select Target IC", "Select Line Input", "Select Lamp",
                          "Select Lamp Configuration"};
  for (int slot = 0; slot < kSlotCount; ++slot) {
    bar.SetInfo(slot, 40 + slot, "item");
    simple.MainButton_Click(slot);
    const std::string number = std::to_string(slot);
    const std::string& caption = captions[static_cast<std::size_t>(slot)];
    EXPECT_EQ(takeCalls(), Texts{number + " " + caption + " 4" + number});
    EXPECT_EQ(simple.findButton("MainButton", slot)->caption, caption);
  }
  simple.MainButton_Click(4);
  EXPECT_EQ(takeCalls().size(), 6U);
  for (const int outside : {-2, -1, 5}) {
    simple.MainButton_Click(outside);
    simple.enableMainButton(outside, false);
  }
  simple.enableMainButton(1, false);
  simple.MainButton_Click(1);
  EXPECT_EQ(takeCalls(), Texts{});
  simple.enableMainButton(1, true);
  simple.MainButton_Click(1);
  EXPECT_EQ(takeCalls().size(), 1U);
  busy = true;
  simple.MainButton_Click(1);
  simple.MainButton_Click(4);
  EXPECT_EQ(takeCalls(), Texts{});
}

TEST_F(SimpleTest, MainScreensSwapAndTheRunEndsInOrder) {
  simple.ShowSimpleScreen();
  EXPECT_TRUE(simple.visible());
  EXPECT_FALSE(advanced.visible());
  simple.ShowAdvancedScreen();
  EXPECT_FALSE(simple.visible());
  EXPECT_TRUE(advanced.visible());
  AdvancedCommands commands;
  commands.showSimple = [this] { simple.ShowSimpleScreen(); };
  advanced.setCommands(commands);
  advanced.ShowSimpleScreen();
  EXPECT_TRUE(simple.visible());
  EXPECT_FALSE(advanced.visible());
  simple.emergency_quit();
  EXPECT_EQ(takeCalls(), (Texts{"position", "close", "unload", "stop"}));
  EXPECT_FALSE(simple.visible());
}

TEST_F(SimpleTest, LoadingFillsTheBar) {
  const BarLink links[] = {{"Cores", "https://cores.example"}};
  simple.load(links);
  EXPECT_EQ(takeCalls(), (Texts{"clear", "pictures"}));
  EXPECT_TRUE(bar.is_enabled("c_advanced"));
  EXPECT_FALSE(bar.is_enabled("c_previous"));
  bool listed = false;
  for (const BarMenu& menu : bar.menus()) {
    if (menu.name == "submenu_weblinks") {
      listed =
          menu.entries.size() == 1 && menu.entries[0].command() == "c_web*https://cores.example";
    }
  }
  EXPECT_TRUE(listed);
}

TEST_F(SimpleTest, DesignScreenCommandsGoWhereTheyBelong) {
  AdvancedCommands commands;
  commands.Calculate = note("calculate");
  commands.DrawGraph = note("graph");
  commands.designInductors = note("inductors");
  commands.designTransformer = note("transformer");
  commands.calculateComponents = note("components");
  commands.focusInputTabs = note("focus");
  commands.isBusy = [this] { return busy; };
  commands.PrintScreen = note("print");
  advanced.command_button_Click(0);
  advanced.setCommands(commands);
  for (int index = -1; index <= 5; ++index) advanced.command_button_Click(index);
  EXPECT_EQ(takeCalls(), (Texts{"calculate", "graph", "inductors", "transformer", "components"}));
  advanced.command_button_Click(1, true);
  EXPECT_EQ(takeCalls(), (Texts{"focus", "graph"}));
  set("allow_transformer", "no");
  advanced.set_layout();
  advanced.command_button_Click(3, true);
  busy = true;
  advanced.command_button_Click(0);
  EXPECT_EQ(takeCalls(), Texts{});
  advanced.PrintScreen();
  EXPECT_EQ(takeCalls(), Texts{"print"});
}

/// Lists that a walk goes through: IC 2 has no second lamp, lamp 20 is offered twice and cannot be
/// selected, configuration 31 goes with lamp 21 only.
class TestAllTest : public SimpleTest {
 protected:
  TestAllTest() {
    ControlBarHooks hooks;
    hooks.listItems = [this](int slot, PullDown& list) {
      list.itemData = offered(slot);
      list.items.assign(list.itemData.size(), "item");
      list.selected = -1;
    };
    hooks.selectItem = [this](int slot, std::int32_t id) {
      if (id == 20 || busy) return false;  // as the program does while something runs
      bar.SetInfo(slot, id, "item");
      return true;
    };
    bar = control_bar(hooks);
  }
  std::vector<std::int32_t> offered(int slot) const {
    switch (slot) {
      case kSlotIc:
        return {1, 2};
      case kSlotInput:
        return {10, 11};
      case kSlotLamp:
        return bar.GetInfo(kSlotIc) == 1 ? std::vector<std::int32_t>{20, 21, 20, 22}
                                         : std::vector<std::int32_t>{22};
      default:
        return bar.GetInfo(kSlotLamp) == 21 ? std::vector<std::int32_t>{30, 31}
                                            : std::vector<std::int32_t>{30};
    }
  }
  std::string selection() const {
    std::string text;
    for (int slot = 0; slot < kSlotCount; ++slot) {
      text += general_text(bar.GetInfo(slot)) + (slot < 3 ? " " : "");
    }
    return text;
  }
};

TEST_F(TestAllTest, WalksEveryCombinationLikeAnOdometer) {
  Texts walked;
  onYield = [&] {
    walked.push_back(selection());
    EXPECT_TRUE(busy);
  };
  EXPECT_TRUE(simple.TestAllCalculations());
  EXPECT_EQ(walked, (Texts{"1 10 21 30", "1 10 21 31", "1 10 22 30", "1 11 21 30", "1 11 21 31",
                           "1 11 22 30", "2 10 22 30", "2 11 22 30"}));
  ASSERT_EQ(messages.shown().size(), 1U);
  EXPECT_EQ(messages.shown()[0].text, "Finished test OK");
  EXPECT_EQ(messages.shown()[0].severity, kSeverityInformation);
  EXPECT_FALSE(busy);
}

TEST_F(TestAllTest, FailuresAreShownAndTheWalkGoesOn) {
  failing = "points";
  EXPECT_TRUE(simple.TestAllCalculations());
  EXPECT_EQ(yields, 8);
  ASSERT_EQ(messages.shown().size(), 9U);
  EXPECT_EQ(messages.shown()[0].text, "Failed calculation!");
  EXPECT_EQ(messages.shown()[0].severity, kSeverityWarning);
  EXPECT_EQ(messages.shown().back().text, "Finished test OK");
  const Texts all = takeCalls();
  EXPECT_EQ(std::count(all.begin(), all.end(), "refresh"), 8);
}

TEST_F(TestAllTest, CancelStopsTheWalk) {
  onYield = [&] {
    if (yields == 3) simple.CancelTest();
  };
  EXPECT_FALSE(simple.TestAllCalculations());
  EXPECT_EQ(yields, 3);
  EXPECT_FALSE(simple.isTesting());
  EXPECT_TRUE(messages.shown().empty());
  EXPECT_FALSE(busy);
  onYield = {};
  EXPECT_TRUE(simple.TestAllCalculations());  // a later walk starts afresh
  EXPECT_EQ(yields, 11);
}

TEST_F(TestAllTest, NothingOnOfferIsOneRun) {
  bar = control_bar();
  EXPECT_TRUE(simple.TestAllCalculations());
  EXPECT_EQ(yields, 1);
}

}  // namespace
}  // namespace vantrel
