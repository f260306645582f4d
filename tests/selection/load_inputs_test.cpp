#include "selection/load_inputs.h"

#include "core/units.h"
#include "selection_fixture.h"

namespace vantrel {
namespace {

/// One row of the table, with the values of a plain copy.
struct Row {
  const char* destination = "Calculator";
  const char* field = "first";
  const char* target = "*";
  bool regardless = false;
  const char* unit = "V";
  const char* fallback = nullptr;
  const char* source = nullptr;
  bool locked = false;
  bool hideUnused = false;
  bool hideEmpty = false;
};

Variant text_or_null(const char* text) { return text == nullptr ? Variant(Null{}) : Variant(text); }

class LoadInputsTest : public SelectionTest {
 protected:
  LoadInputsTest() {
    state.CurrentTarget = 1;
    screens.add(advanced);
    screens.add(calculator);
    for (const char* name : {"first", "second", "cc_ignition_time"}) {
      calculator.addField(
          {.name = name, .label = name, .unit = "pfx", .places = "2", .frame = "frame_in"});
    }
    calculator.addField({.name = "cc_preheat_time",
                         .label = "Preheat",
                         .unit = "Sec",
                         .places = "2",
                         .tick = true,
                         .frame = "frame_in"});
    calculator.addField({.name = "other", .label = "", .unit = "V", .places = "", .frame = "out"});
    calculator.addField({.name = "words", .label = "", .unit = "", .places = "", .type = kTextual});
    for (const int index : {0, 1}) {
      calculator.addField(
          {.name = "turns", .label = "", .unit = "", .places = "2", .index = index});
    }
  }

  void add(const Row& row) {
    database.execute(
        "insert into LoadInputs values ('Calc', ?, ?, ?, ?, ?, ?, ?, ?, ?, ?)",
        {text_or_null(row.destination), text_or_null(row.field), text_or_null(row.target),
         row.regardless, text_or_null(row.unit), text_or_null(row.fallback),
         text_or_null(row.source), row.locked, row.hideUnused, row.hideEmpty});
  }
  bool load(bool skip_sources = false) {
    return loader.LoadInputs("Calc", calculator, skip_sources, {{&calculator, "frame_in"}});
  }
  VTLValue& field(std::string_view name, int index = -1) { return calculator.field(name, index); }

  Screen calculator{"Calculator", "Component Calculator", context};
  ScreenRegistry screens;
  MissingFields missing{messages};
  InputLoader loader{
      database, messages, details, state, screens, missing, [this](const std::string& line) {
        log.push_back(line);
      }};
};

TEST_F(LoadInputsTest, ScreensAreFoundRegardlessOfCase) {
  EXPECT_EQ(GetFormIndexFromName(screens, "CALCULATOR", true, messages), 1);
  EXPECT_EQ(GetFormIndexFromName(screens, "Nowhere", false, messages), -1);
  EXPECT_EQ(takeMessages(), Texts{});
  EXPECT_EQ(GetFormIndexFromName(screens, "Nowhere", true, messages), -1);
  EXPECT_EQ(takeMessages(), Texts{"GetFormIndexFromName: Could not find form 'Nowhere'"});
}

TEST_F(LoadInputsTest, FramesAreClearedAndShownEvenWithoutRows) {
  field("first").SetValue(1.0);
  field("first").Visible(false);
  field("cc_preheat_time").SetValue(2.0);
  field("cc_preheat_time").SetFixed(true);
  field("other").SetValue(3.0);
  missing.Add(field("first"), "of an earlier load");
  EXPECT_FALSE(load());
  EXPECT_EQ(takeMessages(), Texts{"Could not find LoadInputs Records for Form 'Calc', IC 'TV6103' "
                                  "in components database"});
  EXPECT_TRUE(field("first").IsItEmpty());
  EXPECT_TRUE(field("first").Visible());
  EXPECT_TRUE(field("cc_preheat_time").IsItEmpty());
  EXPECT_TRUE(field("cc_preheat_time").IsFixed());
  EXPECT_EQ(field("other").value(), Variant(3.0));
  EXPECT_EQ(missing.CountItems(), 0);
}

TEST_F(LoadInputsTest, NumbersArriveWithTheUnitTheyCarry) {
  struct Case {
    int style;
    const char* base;
    double number;
    const char* valueUnit;
    double loaded;
    const char* label;
  };
  const std::vector<Case> cases = {
      {kLockedPrefixed, "Hz", 45000, "Hz", 45, "KHz"},
      {kLockedPrefixed, "Hz", 45000, "KHz", 45, "KHz"},
      {kLockedPrefixed, "Hz", 500, "Hz", 500, "Hz"},
      {kLockedPrefixed, "Hz", 500, "KHz", 0.5, "KHz"},
      {kLockedPrefixed, "Vpk", 1200, "Vpk", 1.2, "KVpk"},
      {kLockedPrefixed, "Vpk", 1200, "V", 1.2, "KV"},
      {kLockedPrefixed, "Apk", 0.05, "Apk", 50, "mApk"},
      {kInput, "Vpk", 236.1, "Vpk", 236.1, "Vpk"},
      {kLocked, "KHz", 45, "KHz", 45, "KHz"},
      {kLocked, "KHz", 45, "Hz", 45, "KHz"},
      {kInput, "Hz", 45000, "KHz", 45, "KHz"},
      {kInput, "Sec", 0.4, "mSec", 400, "mSec"},
      {kInput, "%", 10, "%", 10, "%"},
  };
  VTLValue& source = advanced.field("max");
  source.ValueRoundDecPlaces("");
  for (const Case& c : cases) {
    sql("DELETE FROM [LoadInputs]");
    add({.unit = c.valueUnit, .source = " advanced , MAX"});
    source.StyleType(c.style);
    source.ValueBaseUnits(c.base);
    source.SetValue(c.number);
    EXPECT_TRUE(load());
    const std::string name = std::string(c.base) + " to " + c.valueUnit;
    EXPECT_EQ(field("first").value(), Variant(c.loaded)) << name;
    EXPECT_EQ(field("first").ValueBaseUnits(), c.label) << name;
  }
  EXPECT_EQ(si_from(45, "KHz", "Hz", messages), 45000.0F) << "what a reader of the field gets";
  EXPECT_EQ(takeMessages(), Texts{});
}

TEST_F(LoadInputsTest, ForeignUnitsAreReportedAndTextsPass) {
  advanced.field("max").SetValue(5.0);
  advanced.field("allow_input").SetValue("Yes");
  add({.unit = "A", .source = "Advanced,max"});
  add({.field = "words", .unit = "-", .source = "Advanced,allow_input"});
  EXPECT_TRUE(load());
  EXPECT_EQ(takeMessages(), Texts{"Could not find type (A) in postfix V for si-to conversion"});
  EXPECT_EQ(field("first").value(), Variant(0.0));
  EXPECT_EQ(field("words").value(), Variant("Yes"));
  EXPECT_EQ(field("words").ValueBaseUnits(), "-");
}

TEST_F(LoadInputsTest, TargetsDecideWhatIsLoadedAndShown) {
  struct Case {
    const char* target;
    bool regardless, hideUnused;
    bool loaded, visible;
  };
  const std::vector<Case> cases = {
      {"*", false, true, true, true},         {"TV6101, TV6103", false, true, true, true},
      {"TV6101,*", false, false, true, true}, {"TV6101", false, false, false, true},
      {"TV6101", false, true, false, false},  {"tv6103", false, true, false, false},
      {"TV6101", true, true, true, false},    {"TV6101", true, false, true, true},
  };
  for (const Case& c : cases) {
    sql("DELETE FROM [LoadInputs]");
    add({.target = c.target,
         .regardless = c.regardless,
         .fallback = "7",
         .hideUnused = c.hideUnused});
    EXPECT_TRUE(load());
    EXPECT_EQ(!field("first").IsItEmpty(), c.loaded) << c.target;
    EXPECT_EQ(field("first").Visible(), c.visible) << c.target;
  }
  EXPECT_EQ(takeMessages(), Texts{});
}

TEST_F(LoadInputsTest, FaultyRowsAreReportedAndTheWalkGoesOn) {
  add({.field = nullptr, .hideUnused = true});
  add({.target = " "});
  add({.field = nullptr, .target = nullptr});
  add({.destination = "Nowhere", .field = nullptr, .target = nullptr, .hideUnused = true});
  add({.field = "first", .unit = nullptr, .fallback = "3", .locked = true});
  add({.field = "second", .fallback = "4", .source = "Advanced"});
  add({.field = "second", .fallback = "5", .source = "Advanced,max,1", .locked = true});
  add({.field = "cc_preheat_time", .fallback = "6", .source = "Nowhere,max"});
  add({.field = "cc_ignition_time", .fallback = "7", .source = "Advanced,nosuch"});
  add({.field = "nosuch"});
  add({.field = "turns,1", .fallback = "8"});
  add({.field = "turns,x,2"});
  add({.field = "turns,-1"});
  EXPECT_TRUE(load());
  const std::string no_field = "LoadInput record has empty Destination field";
  const std::string no_target = "LoadInput record has empty target field";
  const std::string bad_source = "LoadInput record has invalid Source field";
  EXPECT_EQ(
      takeMessages(),
      (Texts{no_field, no_field, no_target, no_target, "LoadInput record has empty ValueUnit field",
             bad_source, bad_source, "GetFormIndexFromName: Could not find form 'Nowhere'"}));
  EXPECT_TRUE(field("first").IsItEmpty()) << "without a unit nothing is loaded";
  EXPECT_EQ(field("first").StyleType(), kLocked) << "the looks are set all the same";
  EXPECT_EQ(field("second").value(), Variant(5.0));
  EXPECT_EQ(field("cc_preheat_time").value(), Variant(6.0));
  EXPECT_EQ(field("cc_ignition_time").value(), Variant(7.0));
  EXPECT_TRUE(field("turns", 0).IsItEmpty());
  EXPECT_EQ(field("turns", 1).value(), Variant(8.0));
  const std::string unknown = "LoadInputs names the unknown field '";
  EXPECT_EQ(log,
            (Texts{unknown + "nosuch' of screen Advanced", unknown + "nosuch' of screen Calculator",
                   unknown + "turns,x,2' of screen Calculator",
                   unknown + "turns,-1' of screen Calculator"}));
}

TEST_F(LoadInputsTest, EmptySourcesAreCollectedAndAskedFor) {
  advanced.field("max").ValueLabel("MAX%");
  add({.fallback = "2", .source = "Advanced,max"});
  add({.field = "second", .source = "Advanced,min", .hideEmpty = true});
  EXPECT_FALSE(load());
  EXPECT_EQ(takeMessages(), Texts{"Required fields are missing, do you wish to see the list ?"});
  ASSERT_EQ(missing.CountItems(), 2);
  EXPECT_EQ(missing.entries()[0].field, &field("first"));
  EXPECT_EQ(missing.entries()[0].text, "Operating Points screen : MAX%");
  EXPECT_EQ(field("first").value(), Variant(2.0)) << "the default stays";
  EXPECT_FALSE(field("second").Visible());

  EXPECT_TRUE(load(true)) << "sources are not looked at";
  EXPECT_EQ(takeMessages(), Texts{});
  advanced.field("min").SetValue(5.0);
  advanced.field("max").SetValue(9.0);
  EXPECT_TRUE(load());
  EXPECT_EQ(field("first").value(), Variant(9.0));
  EXPECT_TRUE(field("second").Visible());
}

TEST_F(LoadInputsTest, TheIgnitionTimeFollowsThePreheatOnTwoTargets) {
  struct Case {
    std::int32_t target;
    bool fixed;
    const char* preheat;
    Variant ignition;
  };
  const std::vector<Case> cases = {{7, false, "0.99", 0.4 * 0.99},
                                   {8, false, "1", 0.4},
                                   {7, true, "0.99", Variant()},
                                   {6, false, "1", Variant()},
                                   {8, false, nullptr, Variant()}};
  int events = 0;
  field("cc_ignition_time").changed.connect([&](Variant&) { ++events; });
  bool loading = false;
  field("cc_preheat_time").changed.connect([&](Variant&) { loading = loader.IsLoading(); });
  for (const Case& c : cases) {
    sql("DELETE FROM [LoadInputs]");
    add({.field = "cc_preheat_time", .unit = "Sec", .fallback = c.preheat});
    state.CurrentTarget = c.target;
    field("cc_preheat_time").SetFixed(c.fixed);
    EXPECT_TRUE(load());
    EXPECT_EQ(field("cc_ignition_time").value(), c.ignition) << c.target;
    EXPECT_EQ(field("cc_ignition_time").ValueRoundDecPlaces(), "2");
  }
  EXPECT_EQ(events, 0) << "the times do not set off each other";
  EXPECT_TRUE(loading);
  EXPECT_FALSE(loader.IsLoading());
}

}  // namespace
}  // namespace vantrel
