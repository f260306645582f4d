#include "core/vtl_value.h"

#include <gtest/gtest.h>

#include "core/screen.h"
#include "support/fixtures.h"

namespace vantrel {
namespace {

using Lines = std::vector<std::string>;

class Field : public ::testing::Test {
 protected:
  VTLValue& add(const char* unit, const char* places, int style = kInput, bool tick = false,
                int type = kNumeric) {
    const std::string number = std::to_string(names_.size());
    names_.emplace_back("f").append(number);
    return screen.addField(
        {names_.back().c_str(), " Label ", unit, places, style, tick, "", "", type});
  }

  test::FieldFixture fixture;
  Screen screen{"Advanced", "Operating Points", fixture.context};

 private:
  std::deque<std::string> names_;
};

TEST_F(Field, SetValueGoesThroughTextAndRounds) {
  VTLValue& field = add("V", "2");
  VTLValue& exact = add("V", "");
  const struct {
    Variant given;
    Variant rounded;
    Variant exact;
  } cases[] = {
      {0.21F, 0.21, 0.21},
      {1.005, 1.0, 1.005},
      {43144.453125F, 43144.45, 43144.453},
      {"28", 28.0, 28.0},
      {" 1.5 ", 1.5, 1.5},
      {std::int32_t{7}, 7.0, 7.0},
      {21474836.48, 21474836.48, 21474836.48},
      {Variant(), 0.0, 0.0},
      {Null{}, 0.0, 0.0},
      {"", {}, {}},
      {"  ", {}, {}},
  };
  for (const auto& c : cases) {
    field.SetValue(c.given);
    exact.SetValue(c.given);
    EXPECT_EQ(field.value(), c.rounded);
    EXPECT_EQ(exact.value(), c.exact);
  }
  EXPECT_TRUE(fixture.messages.shown().empty());
  EXPECT_EQ(fixture.clicks, 2 * static_cast<int>(std::size(cases)));
}

TEST_F(Field, SettingTheValueWidensAndKeepsEmpty) {
  VTLValue& field = add("V", "2");
  VTLValue& exact = add("V", "");
  exact.value(0.21F);
  EXPECT_EQ(exact.value(), Variant(double{0.21F}));
  // Through text 0.235 is a tie and goes to the even 0.24; the 32-bit value itself lies below it.
  field.SetValue(0.235F, true);
  EXPECT_EQ(field.value(), Variant(0.24));
  field.value(0.235F);
  EXPECT_EQ(field.value(), Variant(0.23));
  field.value("3.456");
  EXPECT_EQ(field.value(), Variant(3.46));
  field.value({});
  EXPECT_EQ(field.value(), Variant());
  EXPECT_EQ(fixture.clicks, 1);  // the one SetValue
  EXPECT_TRUE(fixture.messages.shown().empty());
}

TEST_F(Field, DataThatIsNoNumberEmptiesTheFieldAndIsReportedOnce) {
  VTLValue& field = add("nF", "2");
  for (const Variant& given : {Variant("45n"), Variant("1,5"), Variant(true), Variant("nan")}) {
    field.SetValue(1.0);
    field.SetValue(given);
    EXPECT_TRUE(field.value().is_empty());
  }
  EXPECT_EQ(fixture.takeMessages(),
            (Lines{"Value '45n' for f0 : not a number", "Value '1,5' for f0 : not a number",
                   "Value 'True' for f0 : not a number", "Value 'nan' for f0 : not a number"}));
  field.SetValue(1.0);
  field.value(Null{});
  EXPECT_TRUE(field.value().is_empty());
  field.SetValue(Variant::Array{1.0});
  EXPECT_TRUE(field.value().is_empty());
  EXPECT_EQ(fixture.takeMessages(), (Lines{"Value 'Null' for f0 : Invalid use of Null",
                                           "Value 'Variant()' for f0 : Type mismatch"}));
}

TEST_F(Field, TextFieldsKeepTrimmedText) {
  VTLValue& field = add("", "2", kInput, false, kTextual);
  field.SetValue("  T5 28W ");
  EXPECT_EQ(field.value(), Variant("T5 28W"));
  field.SetValue(0.21F);
  EXPECT_EQ(field.value(), Variant("0.21"));
  field.SetValue({});
  EXPECT_EQ(field.value(), Variant(""));
  EXPECT_TRUE(field.IsItEmpty());
  field.value(" kept as it is ");
  EXPECT_EQ(field.value(), Variant(" kept as it is "));
  field.value("   ");
  EXPECT_TRUE(field.IsItEmpty());
  field.Edit("  typed ");
  EXPECT_TRUE(field.Commit());
  EXPECT_EQ(field.value(), Variant("typed"));
}

TEST_F(Field, TheEventIsRaisedByCommitsAndSetsOnly) {
  VTLValue& field = add("V", "2", kLocked, true);
  VTLValue& other = add("mV", "2");
  other.SetValue(5.0);
  int raised = 0;
  field.changed.connect([&](Variant&) { ++raised; });
  field.MultiplyValue(2);
  field.Clear();
  field.SetFixed(true);
  field.SetFixValue(true);
  field.ValueBaseUnits("A");
  field.ValueLabel("x");
  field.SetValue(1.0, true);
  EXPECT_EQ(raised, 0);
  field.SetValue(1.0);
  field.SetValue(1.0);
  EXPECT_EQ(raised, 2);
  field.value(1.0);
  EXPECT_EQ(raised, 3);
  field.CopyFrom(other);
  EXPECT_EQ(raised, 4);
  EXPECT_EQ(field.ValueBaseUnits(), "mV");
  EXPECT_EQ(field.value(), Variant(5.0));
  other.Clear();
  field.CopyFrom(other);
  EXPECT_TRUE(field.value().is_empty());
  field.Edit("4");
  EXPECT_TRUE(field.Commit());
  EXPECT_EQ(raised, 6);
}

TEST_F(Field, TheReceiverMayAlterTheValueAndNothingRoundsItAgain) {
  VTLValue& field = add("V", "2");
  field.changed.connect([](Variant& value) { value = to_double(value) / 3; });
  field.SetValue(1.0);
  EXPECT_EQ(field.value(), Variant(1.0 / 3));
}

TEST_F(Field, AHandlerMaySetItsOwnFieldOnce) {
  VTLValue& field = add("V", "2");
  int calls = 0;
  field.changed.connect([&](Variant&) {
    ++calls;
    field.SetValue(static_cast<double>(calls * 10));
  });
  field.SetValue(1.0);
  EXPECT_EQ(calls, 2);
  EXPECT_EQ(field.value(), Variant(10.0));
  field.SetValue(2.0);
  EXPECT_EQ(calls, 4);  // the guard ends with the outer set
}

TEST_F(Field, TwoLinkedFieldsComeToRest) {
  VTLValue& preheat = add("Sec", "2");
  VTLValue& ignition = add("Sec", "2");
  preheat.changed.connect([&](Variant& value) { ignition.SetValue(to_double(value) * 0.4); });
  ignition.changed.connect([&](Variant& value) { preheat.SetValue(to_double(value) / 0.4); });
  preheat.SetValue(1.0);
  EXPECT_EQ(ignition.value(), Variant(0.4));
  EXPECT_EQ(preheat.value(), Variant(1.0));
}

TEST_F(Field, MultiplyingHoldsASingle) {
  VTLValue& field = add("W", "2");
  EXPECT_EQ(field.MultiplyValue(2), 0);
  EXPECT_TRUE(field.value().is_empty());
  field.SetValue(28.0);
  // 1.1 at 32 bits is 1.10000002384, so the product is the next float above 30.8.
  EXPECT_EQ(field.MultiplyValue(1.1F), 30.800001F);
  EXPECT_EQ(field.value(), Variant(30.800001F));  // neither widened nor rounded to places
  field.SetValue(1.0);
  EXPECT_EQ(field.MultiplyValue(1.0F / 3), 1.0F / 3);
  EXPECT_EQ(field.DisplayText(), "0.33333334");
  EXPECT_TRUE(fixture.messages.shown().empty());
  VTLValue& text = add("", "", kInput, false, kTextual);
  text.SetValue("5");
  EXPECT_EQ(text.MultiplyValue(2), 0);
  EXPECT_EQ(text.value(), Variant("5"));
  EXPECT_EQ(fixture.takeMessages(), Lines{"Error : Can only multiply value for numeric fields"});
  field.SetValue(1e38);
  EXPECT_EQ(field.MultiplyValue(1000), 0);
  EXPECT_EQ(field.value(), Variant(1e38));
  EXPECT_EQ(fixture.takeMessages(), Lines{"Value '1E+38' for f0 : Overflow"});
}

TEST_F(Field, OnlyAFieldWithATickIsEverFixed) {
  VTLValue& plain = add("V", "2", kLocked);
  plain.SetFixed(true);
  plain.SetFixValue(true);
  EXPECT_FALSE(plain.IsFixed());
  EXPECT_FALSE(plain.IsEditable());
  VTLValue& ticked = add("mH", "2", kLocked, true);
  ticked.SetValue(2.1);
  EXPECT_FALSE(ticked.IsEditable());
  ticked.Edit("9");
  EXPECT_FALSE(ticked.IsEditing());
  ticked.SetFixValue(true);
  EXPECT_TRUE(ticked.IsFixed());
  EXPECT_TRUE(ticked.IsEditable());
  ticked.Edit("9");
  EXPECT_TRUE(ticked.IsEditing());
  ticked.SetFixValue(false);
  EXPECT_FALSE(ticked.IsEditing());
  EXPECT_EQ(ticked.value(), Variant(2.1));
  ticked.SetFixed(true);
  ticked.ValueFix(false);
  EXPECT_FALSE(ticked.IsFixed());
}

TEST_F(Field, MissingValuesNameScreenAndLabel) {
  VTLValue& field = add("V", "2");
  EXPECT_TRUE(field.GetValue(false).is_empty());
  EXPECT_TRUE(fixture.missing.empty());
  EXPECT_TRUE(field.GetValue(true).is_empty());
  ASSERT_EQ(fixture.missing.size(), 1u);
  EXPECT_EQ(fixture.missing[0].first, &field);
  EXPECT_EQ(fixture.missing[0].second, "Operating Points Screen :  Label ");
  field.SetValue(0.0);
  EXPECT_EQ(field.GetValue(true), Variant(0.0));
  EXPECT_EQ(fixture.missing.size(), 1u);
}

TEST_F(Field, TypedEntries) {
  const struct {
    const char* unit;
    int style;
    const char* typed;
    Variant want;
  } cases[] = {
      {"KHz", kInput, "45000", 45000.0},
      {"KHz", kInput, "45k", 45.0},
      {"nF", kInput, "4.7n", 4.7},
      {"mH", kInput, "4.7m", 4.7},
      {"V", kInput, "1,5", 1.5},
      {"V", kInput, "1.5", 1.5},
      {"V", kInput, "1.005", 1.0},
      {"V", kInput, "  ", {}},
      {"Hz", kLockedPrefixed, "45k", 45000.0},
  };
  for (const auto& c : cases) {
    VTLValue& field = add(c.unit, "2", c.style, true);
    field.SetFixValue(true);
    field.SetValue(9.0);
    field.Edit(c.typed);
    EXPECT_TRUE(field.Commit()) << c.typed;
    EXPECT_EQ(field.value(), c.want) << c.typed;
    EXPECT_FALSE(field.IsEditing());
  }
  EXPECT_TRUE(fixture.messages.shown().empty());
}

TEST_F(Field, AnEntryThatIsNoNumberIsRefusedAndChangesNothing) {
  VTLValue& field = add("V", "2");
  field.SetValue(9.0);
  int raised = 0;
  field.changed.connect([&](Variant&) { ++raised; });
  for (const char* typed : {"abc", "1.000,5", "0x10", "nan", "5 A", "1 000"}) {
    std::string why;
    field.Edit(typed);
    EXPECT_EQ(field.DisplayText(), typed);
    EXPECT_FALSE(field.Commit(&why)) << typed;
    EXPECT_EQ(why, std::string("'").append(typed).append("' is not a number"));
    EXPECT_EQ(field.value(), Variant(9.0));
    EXPECT_EQ(field.DisplayText(), "9");
  }
  EXPECT_EQ(raised, 0);
  EXPECT_TRUE(fixture.messages.shown().empty());
  field.Edit("xyz");
  EXPECT_FALSE(field.Commit());
  EXPECT_EQ(fixture.takeMessages(), Lines{"'xyz' is not a number"});
  field.Edit("10");
  EXPECT_TRUE(field.Commit());
  EXPECT_EQ(field.value(), Variant(10.0));
}

TEST_F(Field, LeavingAFieldThatWasNotEnteredDoesNothing) {
  VTLValue& field = add("V", "0");
  field.SetValue(1.0);
  field.MultiplyValue(1.5F);
  const int clicks = fixture.clicks;
  EXPECT_TRUE(field.Commit());
  field.Edit("7");
  field.CancelEdit();
  EXPECT_TRUE(field.Commit());
  EXPECT_EQ(field.value(), Variant(1.5F));
  EXPECT_EQ(fixture.clicks, clicks);
}

TEST_F(Field, TheLocalesOwnSeparatorIsUnderstood) {
  fixture.context.decimalSeparator = ';';
  VTLValue& field = add("V", "2");
  field.Edit("1;5");
  EXPECT_TRUE(field.Commit());
  EXPECT_EQ(field.value(), Variant(1.5));
}

TEST_F(Field, DisplayByStyle) {
  VTLValue& input = add("KHz", "1");
  EXPECT_EQ(input.DisplayText(), "");
  input.SetValue(45.26);
  EXPECT_EQ(input.DisplayText(), "45.3");
  EXPECT_EQ(input.UnitText(), "KHz");
  EXPECT_EQ(input.ValueDisplayUnits(), "KHz");

  VTLValue& scaled = add("Hz", "2", kLockedPrefixed);
  EXPECT_EQ(scaled.DisplayText(), "");
  EXPECT_EQ(scaled.ValueDisplayUnits(), "Hz");
  scaled.SetValue(45256.7);
  EXPECT_EQ(scaled.DisplayText(), "45.26");
  EXPECT_EQ(scaled.UnitText(), "KHz");
  scaled.SetValue(0.0);
  EXPECT_EQ(scaled.DisplayText(), "0");
  EXPECT_EQ(scaled.UnitText(), "Hz");

  VTLValue& unrounded = add("F", "", kLockedPrefixed);
  unrounded.SetValue(4.7e-9F);
  EXPECT_EQ(unrounded.DisplayText(), "4.7");
  EXPECT_EQ(unrounded.ValueDisplayUnits(), "nF");
  unrounded.MultiplyValue(1);
  EXPECT_EQ(unrounded.DisplayText(), "4.7");  // a Single keeps its own width
  unrounded.ValueBaseUnits(" F ");
  EXPECT_EQ(unrounded.ValueDisplayUnits(), "n F");
}

TEST_F(Field, WhileTypingThePlainUnitIsShown) {
  VTLValue& field = add("Hz", "2", kLockedPrefixed, true);
  field.SetFixed(true);
  field.SetValue(45000.0);
  EXPECT_EQ(field.UnitText(), "KHz");
  field.Edit("46000");
  EXPECT_EQ(field.UnitText(), "Hz");
  field.Commit();
  EXPECT_EQ(field.DisplayText(), "46");
  EXPECT_EQ(field.UnitText(), "KHz");
}

TEST_F(Field, PrintText) {
  VTLValue& field = add("V", "2");
  EXPECT_EQ(field.GetPrintText(), "Label  V");
  field.SetValue(1.5);
  EXPECT_EQ(field.GetPrintText(), "Label 1.5 V");
  field.ValueLabel(" ");
  EXPECT_EQ(field.GetPrintText(), "1.5 V");
  field.Visible(false);
  EXPECT_EQ(field.GetPrintText(), "");
}

TEST_F(Field, EveryChangeOfLooksIsDrawn) {
  VTLValue& field = add("V", "2", kLocked, true);
  int drawn = 0;
  field.displayChanged.connect([&] { ++drawn; });
  const std::vector<std::function<void()>> changes{
      [&] { field.SetValue(1.0, true); }, [&] { field.value(2.0); },
      [&] { field.MultiplyValue(2); },    [&] { field.Clear(); },
      [&] { field.SetFixed(true); },      [&] { field.SetFixValue(false); },
      [&] { field.StyleType(kInput); },   [&] { field.ValueLabel("x"); },
      [&] { field.ValueBaseUnits("A"); }, [&] { field.ValueRoundDecPlaces("1"); },
      [&] { field.Visible(false); },      [&] { field.ValueFix(false); },
      [&] { field.Tooltip("x"); },        [&] { field.ValueType(kTextual); }};
  for (std::size_t i = 0; i < changes.size(); ++i) {
    drawn = 0;
    changes[i]();
    EXPECT_GE(drawn, 1) << "change " << i;
  }
  int flashes = 0;
  field.flashRequested.connect([&] { ++flashes; });
  field.StartFlash();
  EXPECT_EQ(flashes, 1);
}

}  // namespace
}  // namespace vantrel
