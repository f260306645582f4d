#include "components/input_variables.h"

#include <vector>

#include "core/text_parsing.h"
#include "core/units.h"
#include "selection/load_inputs.h"
#include "selection/record_fields.h"

namespace vantrel {

RecordSet& InputVariables::sourceRow(std::string_view name) {
  return context_.rows.read("select * from [CC:SourceVariables] where Variable = ?", trimmed(name));
}

bool InputVariables::IsVariableACCInputVariable(std::string_view name) {
  return !sourceRow(name).atEnd();
}

std::int32_t InputVariables::EnsureCCInputVariableHasAValue(std::string_view name) {
  const std::int32_t known = context_.variables.GetVariableEntryNumber(name);
  if (known >= 0 && !context_.entry(known).value.is_empty()) return known;
  const RecordSet& row = sourceRow(name);
  if (row.atEnd()) {
    context_.logAndShow("ERROR: Could not find input variable definition '" + std::string(name) +
                        "' in CC:SourceVariables");
    return -1;
  }
  const std::string source = text_field(row, "Source");
  if (source.empty() && !text_field(row, "Value").empty()) return takeConstant(name, row);
  const std::vector<std::string> parts = comma_list(source);
  if (parts.size() != 2) {
    context_.logAndShow("ERROR: RSSourceVariables record has invalid Source field (" +
                        std::string(name) + ")");
    return -1;
  }
  return fetch(name, row, parts[0], parts[1]);
}

/// An entry that exists without a value is filled; otherwise there is a new one.
std::int32_t InputVariables::createFor(std::string_view name) {
  const std::int32_t known = context_.variables.GetVariableEntryNumber(name);
  if (known >= 0) return known;
  if (const auto index = context_.create(name)) return *index;
  const std::string text =
      "ERROR: Could not create input variable '" + std::string(name) + "' in CC:SourceVariables";
  context_.log(text);
  context_.box(text);
  return -1;
}

std::int32_t InputVariables::takeConstant(std::string_view name, const RecordSet& row) {
  const std::int32_t index = createFor(name);
  if (index < 0) return -1;
  fixed_values_.setValue(index, text_field(row, "Value"), text_field(row, "ValueUnit"));
  context_.variables.VSet(index, "Fixed", true);
  return index;
}

std::int32_t InputVariables::fetch(std::string_view name, const RecordSet& row,
                                   const std::string& form, const std::string& control) {
  CalculatorServices& services = context_.services;
  const int position = GetFormIndexFromName(services.screens, form, true, services.messages);
  if (position < 0) return -1;
  VTLValue& field = services.screens.screens()[static_cast<std::size_t>(position)]->field(control);
  if (field.IsItEmpty()) {
    services.missing.Reset();
    context_.log("ERROR: Field to create variable from is empty : " + form + ", " + control);
    services.missing.Add(field, form + " screen : " + field.ValueLabel());
    return -1;
  }
  const std::int32_t index = createFor(name);
  if (index < 0) return -1;
  setFromField(index, field, row);
  context_.variables.VSet(index, "Fixed", true);
  return index;
}

void InputVariables::setFromField(std::int32_t index, const VTLValue& field, const RecordSet& row) {
  VariableClass& variables = context_.variables;
  const std::string unit = text_field(row, "SourceUnits");
  if (field.ValueType() == kTextual) {
    variables.VSet(index, "Value", field.value());
    return;
  }
  if (unit.empty()) {
    variables.VSet(index, "Value", field.value());
    variables.VSet(index, "ValueUnit", field.ValueBaseUnits());
    return;
  }
  const Variant value =
      si_from(to_double(field.value()), field.ValueBaseUnits(), unit, context_.services.messages);
  variables.VSet(index, "Value", value);
  variables.VSet(index, "ValueUnit", unit);
  context_.log("CC Input variable fetched from field '" + text_field(row, "Source") + "' as " +
               to_text(value) + " " + unit + " (" + context_.scaledText(value, unit) + ")");
}

}  // namespace vantrel
