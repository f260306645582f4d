#include "components/stage_reader.h"

#include <utility>

#include "components/component_finish.h"
#include "core/number_text.h"
#include "core/text_parsing.h"
#include "selection/record_fields.h"

namespace vantrel {

namespace {

bool is_output_row(const RecordSet& row) {
  return flag_field(row, "CCOutput") || flag_field(row, "CCOutputDependancy");
}

std::int32_t forced_matches(const RecordSet& row) {
  std::int32_t bits = 0;
  if (says_true(adoaccess_class::rs_get(row, "ForceMNR"))) bits |= kMatchResistor;
  if (says_true(adoaccess_class::rs_get(row, "ForceMNC"))) bits |= kMatchCapacitor;
  return bits;
}

std::string nothing_found(const std::string& part, const std::string& table) {
  return "[" + part + " table " + table + "] no matching records found";
}

}  // namespace

void StageReader::ComponentAddStage(const std::string& table, const std::string& stage_list,
                                    const std::string& stage_value, bool full_bom,
                                    bool outputs_only) {
  if (context_.abort) return;
  std::string query = "select * from [" + table + "]";
  if (outputs_only) query += " where (CCOutput = true or CCOutputDependancy = true)";
  Stage stage{.table = table, .entry = {}, .full_bom = full_bom, .outputs_only = outputs_only};
  for (const std::string& part : entries_of(stage_list, '/')) {
    RecordSet& rows = context_.rows.read(query);
    if (rows.atEnd()) {
      context_.log(nothing_found(part, table));
      continue;
    }
    context_.log("[" + part + " Variables]");
    stage.entry = part + stage_value;
    for (; !rows.atEnd(); rows.MoveNext()) takeRow(stage, rows);
  }
  if (stage.created == 0) {
    context_.log("Warning: No BOM components for stage '" + stage_list + "' in BOM table '" +
                 table + "' found");
  }
}

void StageReader::takeRow(Stage& stage, const RecordSet& row) {
  const std::vector<std::string> entries = entries_of(text_field(row, "Stage"), ',');
  if (entries.empty()) {
    context_.box("Empty entry in stage field (" + stage.table + ")");
    return;
  }
  for (const std::string& entry : entries) {
    if (entry != stage.entry || !(stage.full_bom || is_output_row(row))) continue;
    if (isDisallowed(stage, row)) continue;
    context_.services.progress.Progress(1, true);
    for (const std::string& reference : entries_of(text_field(row, "RefDes"), ',')) {
      declare(stage, row, upper(reference));
    }
  }
}

/// Looks at every entry, also behind one that rules the row out, so that each bad one is told.
bool StageReader::isDisallowed(const Stage& stage, const RecordSet& row) {
  const PresentSelection& selection = context_.selection;
  const std::pair<std::string_view, const std::string&> kinds[] = {
      {"IC:", selection.ic}, {"INPUT:", selection.input}, {"CONFIG:", selection.config}};
  bool disallowed = false;
  for (const std::string& entry : entries_of(text_field(row, "Disallow"), ',')) {
    bool recognised = false;
    for (const auto& [prefix, present] : kinds) {
      if (!entry.starts_with(prefix)) continue;
      recognised = true;
      if (equal_ignoring_case(std::string_view(entry).substr(prefix.size()), present)) {
        disallowed = true;
      }
    }
    if (!recognised) {
      context_.box("Invalid entry in disallow field (" + stage.table + ") - '" + entry +
                   "' not recognised");
    }
  }
  return disallowed;
}

void StageReader::declare(Stage& stage, const RecordSet& row, const std::string& reference) {
  VariableClass& variables = context_.variables;
  if (variables.GetVariableEntryNumber(reference) >= 0) {
    context_.log("ERROR : Duplicate variable declaration '" + reference + "'");
    context_.box("Component '" + reference + "' has already been listed in this BOM");
    return;
  }
  const auto created = context_.create(reference);
  if (!created) {
    context_.log("ERROR : Could not create variable '" + reference + "' ");
    return;
  }
  ++stage.created;
  const std::string unit = text_field(row, "ValueUnit");
  variables.VSet(*created, "ValueUnit", unit.substr(0, unit.find('/')));
  variables.VSet(*created, "CCOutput", flag_field(row, "CCOutput"));
  if (!stage.outputs_only) fill(*created, row, reference);
}

void StageReader::fill(std::int32_t index, const RecordSet& row, const std::string& reference) {
  VariableClass& variables = context_.variables;
  const bool fixed = flag_field(row, "Fixed");
  context_.log("Created variable '" + reference + "' (index " + general_text(index) +
               ")  Type = " + (fixed ? "Fixed" : "Variable"));
  variables.VSet(index, "Reference", reference);
  variables.VSet(index, "Description", text_field(row, "Desc"));
  variables.VSet(index, "RemoveIfNoMatch", flag_field(row, "RemoveIfNoMatch"));
  variables.VSet(index, "Fixed", fixed);
  variables.VSet(index, "Flags", forced_matches(row));
  fixed_values_.CalculateVariableFromFixed(
      index, text_field(row, "value"), text_field(row, "ValueUnit"), text_field(row, "Rating"),
      text_field(row, "Tolerance"), text_field(row, "GeneratorCode"));
}

}  // namespace vantrel
