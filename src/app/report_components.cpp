// The sections of the design report on components and magnetics.

#include <algorithm>
#include <cmath>
#include <map>
#include <numbers>

#include "app/report_drawings.h"
#include "app/report_sections.h"
#include "core/number_text.h"
#include "core/text_parsing.h"
#include "core/units.h"
#include "magnetics/core_table.h"

namespace vantrel {

namespace {

constexpr const char* kNoComponents = "No components have been calculated for this design.";
constexpr const char* kFromTable = "Component table";

/// The value of each component as the bill has it, by its designator.
std::map<std::string, std::string> bill_values(Session& session) {
  std::map<std::string, std::string> values;
  for (const BillRecord& line : session.bomStore().BomComponents()) {
    for (std::size_t begin = 0; begin <= line.reference.size();) {
      const std::size_t end = std::min(line.reference.find(',', begin), line.reference.size());
      values[trimmed(line.reference.substr(begin, end - begin))] = line.value;
      begin = end + 1;
    }
  }
  return values;
}

/// A number to five digits.
double shortened(double number) {
  if (number == 0 || !std::isfinite(number)) return number;
  const double scale = std::pow(10.0, 4 - std::floor(std::log10(std::abs(number))));
  return std::isfinite(scale) ? std::round(number * scale) / scale : number;
}

/// A value of a rule, with the prefix that fits it in front of its unit.
std::string short_value(const Variant& value, const std::string& unit) {
  if (value.is_empty() || value.is_null() || value.is_array()) return "none";
  if (!value.is_numeric()) return to_text(value);
  const double number = to_double(value);
  if (unit.empty()) return general_text(shortened(number));
  SysMsg quiet;
  return general_text(shortened(static_cast<double>(si_scale_single(number, "", quiet)))) + " " +
         si_prefix(value, "", quiet) + unit;
}

/// What made the value: the rule, its function, and what that was given.
std::string maker(const Explanation& explanation) {
  std::string text = explanation.origin == ValueOrigin::Bill ? kFromTable : explanation.source;
  if (!explanation.function.empty()) text += ": " + explanation.function;
  std::string inputs;
  for (const ExplainedInput& input : explanation.inputs) {
    inputs +=
        (inputs.empty() ? "; " : ", ") + input.name + " = " + short_value(input.value, input.unit);
  }
  text += inputs;
  if (!explanation.agrees && explanation.origin == ValueOrigin::Rule) {
    text += "; the value was set otherwise, the rule gives " +
            short_value(explanation.preferred, explanation.variable.valueunit);
  }
  return text;
}

struct MagneticRow {
  const char* label;
  const char* field;
  const char* base = nullptr;  ///< The unit to print in with a prefix that fits; else the field's.
};

constexpr MagneticRow kInductorRows[] = {{"Inductance", "ind_inductance"},
                                         {"Peak current", "ind_peakignitioncurrent"},
                                         {"RMS current", "ind_runningcurrent"},
                                         {"Air gap", "ind_gapsize"},
                                         {"AL value", "ind_al"},
                                         {"Turns", "ind_numberofturns"},
                                         {"Wire diameter", "ind_primarydiameter"},
                                         {"Peak flux density", "ind_peakfluxdensity"}};

constexpr MagneticRow kTransformerRows[] = {{"Input voltage, least", "tfr_inputvoltage"},
                                            {"Output voltage", "tfr_outputvoltage"},
                                            {"Power", "tfr_totalballastpower"},
                                            {"Run frequency", "tfr_runfrequency"},
                                            {"Magnetizing current", "tfr_imag", "A"},
                                            {"AL value", "tfr_al"},
                                            {"Primary current", "tfr_primarycurrent"},
                                            {"Primary turns", "tfr_primaryturns"},
                                            {"Primary wire diameter", "tfr_primarydiameter"},
                                            {"Secondary turns", "tfr_secondaryturns"},
                                            {"Secondary wire diameter", "tfr_secondarydiameter"},
                                            {"Peak flux density", "tfr_peakfluxdensity"}};

std::string magnetic_text(const VTLValue& field, const char* base) {
  if (base == nullptr) return with_unit(field);
  SysMsg quiet;
  return short_value(si_from(to_double(field.value()), field.UnitText(), base, quiet), base);
}

/// Copper of a winding in mm2.
double copper_area(Screen& screen, const char* turns, const char* diameter, int index) {
  const double wire = to_double(screen.field(diameter, index).value());
  return to_double(screen.field(turns, index).value()) * wire * wire * std::numbers::pi / 4;
}

/// "31 % of 40.7 mm2" for that much copper on a core; empty for a core without a window.
std::string fill_text(Session& session, const std::string& size, double copper) {
  CoreTable table(session.database());
  const std::vector<CoreType>* cores = table.cores();
  if (cores == nullptr) return "";
  for (const CoreType& core : *cores) {
    if (core.size != size || !(core.winding_area > 0)) continue;
    return format_mask(100 * copper / core.winding_area, "0") + " % copper in a window of " +
           general_text(static_cast<float>(core.winding_area)) + " mm\u00b2";
  }
  return "";
}

template <std::size_t Count>
ReportPairs magnetic_pairs(Screen& screen, const MagneticRow (&rows)[Count], int index,
                           const std::string& core, const std::string& fill) {
  ReportPairs pairs;
  pairs.pairs.push_back({"Core", core});
  for (const MagneticRow& row : rows) {
    const VTLValue& field = screen.field(row.field, index);
    if (!field.IsItEmpty()) pairs.pairs.push_back({row.label, magnetic_text(field, row.base)});
  }
  if (!fill.empty()) pairs.pairs.push_back({"Winding window", fill});
  return pairs;
}

void add_inductor(ReportSection& section, Session& session, int index, const char* title,
                  ReportDrawing drawing) {
  Inductor& inductor = session.inductor();
  if (inductor.field("ind_numberofturns", index).IsItEmpty()) return;
  const std::string core = shown_core(*inductor.findPullDown("ind_comboCore", index));
  const double copper = copper_area(inductor, "ind_numberofturns", "ind_primarydiameter", index);
  section.add(ReportSubtitle{title});
  section.add(
      magnetic_pairs(inductor, kInductorRows, index, core, fill_text(session, core, copper)));
  add_drawing(section, session, drawing, std::string(title) + ": winding and core");
}

void add_transformer(ReportSection& section, Session& session) {
  Transformer& transformer = session.transformer();
  if (transformer.field("tfr_primaryturns").IsItEmpty()) return;
  const std::string core = shown_core(*transformer.findPullDown("tfr_ComboCore"));
  const double copper = copper_area(transformer, "tfr_primaryturns", "tfr_primarydiameter", -1) +
                        copper_area(transformer, "tfr_secondaryturns", "tfr_secondarydiameter", -1);
  section.add(ReportSubtitle{"Transformer"});
  section.add(
      magnetic_pairs(transformer, kTransformerRows, -1, core, fill_text(session, core, copper)));
  add_drawing(section, session, ReportDrawing::Transformer, "Transformer: windings and core");
}

}  // namespace

ReportSection components_section(Session& session) {
  ReportSection section{"Components", {}};
  if (session.bomStore().isEmpty()) {
    section.add(ReportParagraph{kNoComponents, ReportTone::Note});
    return section;
  }
  section.add(ReportParagraph{"\"" + std::string(kFromTable) +
                                  "\" marks a value that is fixed in the control IC's component "
                                  "table; any other was calculated by the rule that is named.",
                              ReportTone::Plain});
  const std::map<std::string, std::string> values = bill_values(session);
  ReportTable table{
      "Components",
      {report_columns({"Reference", "Component", "Value", "Rating", "Tolerance", "Made by"}), {}}};
  for (const Explanation& explanation : session.explain().all()) {
    const VariableEntry& variable = explanation.variable;
    const auto value = values.find(variable.reference);
    if (variable.reference.empty() || value == values.end()) continue;
    table.grid.rows.push_back({variable.reference, variable.description, value->second,
                               variable.rating, variable.tolerance, maker(explanation)});
  }
  section.add(std::move(table));
  return section;
}

ReportSection magnetics_section(Session& session) {
  ReportSection section{"Magnetics", {}};
  Advanced& advanced = session.advanced();
  if (advanced.says_yes("allow_inductor")) {
    add_inductor(section, session, kInductorLres, "Resonant inductor LRES", ReportDrawing::Lres);
    if (advanced.says_yes("line_input_pfc")) {
      add_inductor(section, session, kInductorLpfc, "PFC inductor LPFC", ReportDrawing::Lpfc);
    }
  }
  if (advanced.says_yes("allow_transformer")) add_transformer(section, session);
  if (session.details().ConfigDetails(kConfigShortCode) == "DLPVMB") {
    section.add(ReportSubtitle{"Balance transformer"});
    add_drawing(section, session, ReportDrawing::BalanceTransformer,
                "Balance transformer: windings");
  }
  if (section.blocks.empty()) {
    section.add(ReportParagraph{"No magnetic part has been designed.", ReportTone::Note});
  }
  return section;
}

ReportSection bill_section(Session& session) {
  ReportSection section{"Bill of Materials", {}};
  const std::vector<BillRecord>& lines = session.bomStore().BomComponents();
  if (lines.empty()) {
    section.add(ReportParagraph{kNoComponents, ReportTone::Note});
    return section;
  }
  ReportTable table{
      "Bill of materials",
      {report_columns({"Type", ">Qty", "Value", "Rating", "Tolerance", "Reference"}), {}}};
  for (const BillRecord& line : lines) {
    table.grid.rows.push_back({line.type, general_text(line.qty), line.value, line.rating,
                               line.tolerance, line.reference});
  }
  section.add(std::move(table));
  return section;
}

}  // namespace vantrel
