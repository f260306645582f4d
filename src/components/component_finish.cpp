#include "components/component_finish.h"

#include <string>

#include "core/number_text.h"
#include "core/si_letters.h"
#include "core/units.h"
#include "selection/record_fields.h"

namespace vantrel {

namespace {

using Search = Variant (*)(double value, std::int32_t& series, SysMsg& messages);

/// One of the two series searches and what calls for it.
struct SeriesMatch {
  MatchBits bit;
  const char* demand;  ///< Column of the description that asks for it.
  const char* words;
  Search search;
};

constexpr SeriesMatch kMatches[] = {
    {kMatchResistor, "MNR", "Match Resistor  : ", find_nearest_resistor},
    {kMatchCapacitor, "MNC", "Match Capacitor : ", find_nearest_capacitor},
};

/// Factor from base units to the prefix that a value is shown with.
float engineering_factor(const Variant& value, SysMsg& messages) {
  const std::string prefix = si_prefix(value, "", messages);
  return prefix.empty() ? 1.0F : static_cast<float>(find_si_letter(prefix.front())->inverse);
}

void round_value(EngineContext& context, std::int32_t index, const RecordSet& description) {
  const Variant places = adoaccess_class::rs_get(description, "DecPlaces");
  // Type names are compared exactly, and the type of a 32-bit number is called "Single": no value
  // is rounded here. Designs rely on it.
  if (places.is_empty() || context.variables.VType(index, "Value") != "single") return;
  const Variant value = context.entry(index).value;
  const double factor = engineering_factor(value, context.services.messages);
  const double rounded = round_to(to_double(value) * factor, to_int32(places)) / factor;
  context.variables.VSet(index, "Value", checked_single(rounded));
  context.log("Component '" + context.entry(index).reference + "' has been rounded to " +
              to_text(places) + " decimal places");
}

/// The bits that rule this match: those of the component when they ask for it, replaced by those of
/// the description when that does.
std::int32_t match_bits(const SeriesMatch& match, std::int32_t flags,
                        const RecordSet& description) {
  std::int32_t bits = (flags & match.bit) == match.bit ? flags : 0;
  if (flag_field(description, match.demand)) {
    bits = ReturnForceTypeBits(text_field(description, "OverrideSeries")) | match.bit;
  }
  return bits;
}

void match_series(EngineContext& context, std::int32_t index, const RecordSet& description) {
  const VariableEntry& entry = context.entry(index);
  std::string line =
      entry.variablename + " = " + to_text(entry.value) + " " + entry.valueunit + " Matched To : ";
  bool matched = false;
  for (const SeriesMatch& match : kMatches) {
    const std::int32_t bits = match_bits(match, entry.flags, description);
    if ((bits & match.bit) == 0) continue;
    std::int32_t series = OverrideSeriesBasedOnBitSettings(context.series, bits);
    line.insert(0, match.words);
    context.variables.VSet(index, "Value",
                           match.search(to_double(entry.value), series, context.services.messages));
    matched = true;
  }
  if (matched) context.log(line + " " + to_text(entry.value) + " " + entry.valueunit);
}

}  // namespace

RecordSet& find_description(EngineContext& context, std::string_view reference) {
  RecordSet& rows =
      context.rows.read("select * from ComponentDescriptions where RefDes = ?", reference);
  if (rows.atEnd()) {
    context.fatal("Could not find component description for RefDes '" + std::string(reference) +
                  "'");
  }
  return rows;
}

int finish_component(EngineContext& context, std::int32_t index, bool set_directly) {
  const VariableEntry& entry = context.entry(index);
  if (entry.reference.empty()) return 0;
  const RecordSet& description = find_description(context, entry.reference);
  if (description.atEnd()) return 1;
  if (entry.description.empty()) {
    context.variables.VSet(index, "Description", text_field(description, "description"));
  }
  if (set_directly || entry.value.is_empty() || entry.value.is_string()) return 0;
  round_value(context, index, description);
  match_series(context, index, description);
  return 0;
}

}  // namespace vantrel
