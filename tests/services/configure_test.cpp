#include "services/configure.h"

#include <gtest/gtest.h>

#include <map>

namespace vantrel {
namespace {

/// A store that counts what is written.
class NotedSettings : public SettingsStore {
 public:
  std::string get(std::string_view section, std::string_view key,
                  std::string_view fallback) override {
    const auto found = values.find(std::string(section) + "/" + std::string(key));
    return found == values.end() ? std::string(fallback) : found->second;
  }
  void save(std::string_view section, std::string_view key, std::string_view value) override {
    values[std::string(section) + "/" + std::string(key)] = value;
    ++saves;
  }

  std::map<std::string, std::string> values;
  int saves = 0;
};

class ConfigureTest : public ::testing::Test {
 protected:
  SysMsg messages;
  FieldContext context{messages, '.', {}, {}};
  NotedSettings store;
  std::vector<CalculatorOptions> enforced;
  int quits = 0;
  int debugs = 0;
  configure sheet{
      context,
      store,
      {.enforce = [this](const CalculatorOptions& options) { enforced.push_back(options); },
       .showDebug = [this] { ++debugs; },
       .emergency_quit = [this] { ++quits; }}};
};

TEST_F(ConfigureTest, FirstRunTakesAndStoresTheDesignedDefaults) {
  sheet.load_all();
  const std::map<std::string, std::string> expected = {
      {"Configure/rememberwindowpositions", "1"},
      {"Configure/nosounds", "0"},
      {"Configure/display_graph_td_after_calculate", "0"},
      {"Configure/display_graph_op_after_calculate", "1"},
      {"Configure/display_calculation_complete_message", "1"},
      {"Configure/show_cc_debug", "0"},
      {"Configure/default_to_e24_series", "True"},
      {"Configure/default_to_e12_series", "False"},
      {"Configure/start_in_advanced_screen", "0"},
      {"Configure/display_schematic", "0"},
      {"Configure/display_bom", "1"},
      {"Configure/display_lres", "0"},
      {"Configure/display_pfc", "0"},
      {"Configure/display_transformer", "0"},
  };
  EXPECT_EQ(store.values, expected);
  ASSERT_EQ(enforced.size(), 1U);
  EXPECT_TRUE(enforced[0].e24);
  EXPECT_FALSE(enforced[0].e12);
  EXPECT_FALSE(enforced[0].debug);
  EXPECT_EQ(sheet.caption(), "Configure Vantrel");
}

TEST_F(ConfigureTest, TicksTakeEffectWhenApplied) {
  sheet.load_all();
  const auto before = store.values;
  sheet.config_show();
  EXPECT_TRUE(sheet.tick("NoSounds", true));
  EXPECT_TRUE(sheet.tick("default_to_e12_series", true));
  EXPECT_FALSE(sheet.findTickBox("default_to_e24_series")->checked) << "they exclude each other";
  EXPECT_FALSE(sheet.isChecked("nosounds"));
  EXPECT_EQ(store.values, before);

  EXPECT_TRUE(sheet.command_click("command_cancel"));
  EXPECT_FALSE(sheet.visible());
  EXPECT_FALSE(sheet.findTickBox("nosounds")->checked);
  EXPECT_TRUE(sheet.findTickBox("default_to_e24_series")->checked);
  EXPECT_EQ(store.values, before);
  EXPECT_EQ(enforced.size(), 1U);

  sheet.config_show();
  sheet.tick("nosounds", true);
  sheet.tick("default_to_e12_series", true);
  sheet.tick("show_cc_debug", true);
  EXPECT_TRUE(sheet.command_click("command_apply"));
  EXPECT_TRUE(sheet.visible()) << "Apply does not close";
  EXPECT_TRUE(sheet.isChecked("NOSOUNDS"));
  EXPECT_EQ(store.values["Configure/nosounds"], "1");
  EXPECT_EQ(store.values["Configure/default_to_e12_series"], "True");
  EXPECT_EQ(store.values["Configure/default_to_e24_series"], "False");
  ASSERT_EQ(enforced.size(), 2U);
  EXPECT_TRUE(enforced[1].e12);
  EXPECT_FALSE(enforced[1].e24);
  EXPECT_TRUE(enforced[1].debug);

  sheet.tick("nosounds", false);
  EXPECT_TRUE(sheet.command_click("command_ok"));
  EXPECT_FALSE(sheet.visible());
  EXPECT_FALSE(sheet.isChecked("nosounds"));
  EXPECT_EQ(store.values["Configure/nosounds"], "0");

  configure next_run{context, store};
  next_run.load_all();
  EXPECT_TRUE(next_run.isChecked("default_to_e12_series"));
  EXPECT_TRUE(next_run.isChecked("show_cc_debug"));
}

TEST_F(ConfigureTest, AnOptionButtonCannotBeClearedByItself) {
  sheet.load_all();
  EXPECT_TRUE(sheet.tick("default_to_e24_series", false));
  EXPECT_TRUE(sheet.findTickBox("default_to_e24_series")->checked);
  EXPECT_FALSE(sheet.tick("no_such_option", true));
  EXPECT_FALSE(sheet.isChecked("no_such_option"));
}

TEST_F(ConfigureTest, ADamagedStoreFallsBackToTheDesign) {
  struct Case {
    const char* e24;
    const char* e12;
    bool e12_in_effect;
  };
  for (const Case& test :
       {Case{"True", "True", false}, Case{"False", "False", false}, Case{"1", "\xFF", false},
        Case{"False", "True", true}, Case{"rubbish", "True", false}}) {
    store.values["Configure/nosounds"] = "True";
    store.values["Configure/display_bom"] = "";
    store.values["Configure/display_pfc"] = "1";
    store.values["Configure/default_to_e24_series"] = test.e24;
    store.values["Configure/default_to_e12_series"] = test.e12;
    configure damaged{context, store};
    damaged.load_all();
    EXPECT_FALSE(damaged.isChecked("nosounds"));
    EXPECT_TRUE(damaged.isChecked("display_bom"));
    EXPECT_TRUE(damaged.isChecked("display_pfc"));
    EXPECT_EQ(damaged.isChecked("default_to_e12_series"), test.e12_in_effect) << test.e24;
    EXPECT_EQ(damaged.isChecked("default_to_e24_series"), !test.e12_in_effect) << test.e24;
    EXPECT_EQ(store.values["Configure/nosounds"], "0") << "the store is mended";
  }
  EXPECT_TRUE(messages.shown().empty());
}

TEST_F(ConfigureTest, ShowsTheFrameOfTheChosenTab) {
  sheet.set_display(1);
  EXPECT_FALSE(sheet.findFrame("frame_general")->visible);
  EXPECT_TRUE(sheet.findFrame("frame_calculation")->visible);
  EXPECT_TRUE(sheet.findFrame("frame_buttons")->visible) << "it shows with every tab";
  const int calculation_height = sheet.height();
  sheet.set_display(9);
  EXPECT_EQ(sheet.tab(), 1);
  sheet.set_display(0);
  EXPECT_EQ(calculation_height - sheet.height(),
            option_frames()[1].height - option_frames()[0].height);
  EXPECT_EQ(sheet.height(), option_frames()[0].height + 240);
  for (const OptionSpec& option : option_specs()) {
    EXPECT_NE(sheet.findFrame(option.frame), nullptr) << option.name;
  }
}

TEST_F(ConfigureTest, ClosingItDuringTheStartEndsTheRun) {
  sheet.load_all();
  sheet.config_show();
  sheet.command_click("command_ok");
  EXPECT_EQ(quits, 0);
  sheet.config_show(true);
  sheet.command_click("command_debug");
  sheet.command_click("command_apply");
  EXPECT_EQ(quits, 0);
  EXPECT_EQ(debugs, 1);
  sheet.command_click("command_cancel");
  EXPECT_EQ(quits, 1);
  EXPECT_FALSE(sheet.command_click("command_none"));
}

}  // namespace
}  // namespace vantrel
