#include "components/fixed_values.h"

#include <vector>

#include "components/component_finish.h"
#include "core/fault.h"
#include "core/number_text.h"
#include "core/text_parsing.h"
#include "core/units.h"
#include "selection/record_fields.h"

namespace vantrel {

namespace {

/// Statements of a script as they stand, blanks and all.
std::vector<std::string> statements_of(std::string_view code) {
  std::vector<std::string> statements;
  while (!code.empty()) {
    const auto end = code.find(';');
    statements.emplace_back(code.substr(0, end));
    code.remove_prefix(end == std::string_view::npos ? code.size() : end + 1);
  }
  return statements;
}

std::string executable(std::string_view statement, std::int32_t index) {
  const std::string reading = ReplaceCharacter(statement, '#', "Calculator.ScriptGetVTLValue");
  return ReplaceCharacter(reading, '$',
                          "Calculator.ScriptSetComponent " + general_text(index) + ",");
}

}  // namespace

FixedValues::FixedValues(EngineContext& context) : context_(context), script_object_(context) {
  script_host_.addObject("Calculator", script_object_);
}

void FixedValues::CalculateVariableFromFixed(std::int32_t index, const std::string& value,
                                             const std::string& value_unit,
                                             const std::string& rating,
                                             const std::string& tolerance,
                                             const std::string& code) {
  try {
    context_.variables.VSet(index, "Rating", rating);
    context_.variables.VSet(index, "Tolerance", tolerance);
    setValue(index, value, value_unit);
    if (!describe(index)) return;
  } catch (const Fault& fault) {
    context_.logAndShow("CalculateComponents Error : " + std::string(fault.what()));
    return;
  }
  runCode(index, code);
}

void FixedValues::setValue(std::int32_t index, const std::string& value,
                           const std::string& value_unit) {
  if (value_unit.empty()) {
    setText(index, value);
  } else if (value_unit.find('/') == std::string::npos) {
    setNumber(index, value, value_unit);
  } else {
    setConverted(index, value, value_unit);
  }
}

void FixedValues::setConverted(std::int32_t index, const std::string& value,
                               const std::string& units) {
  const auto slash = units.find('/');
  const std::string from = trimmed(std::string_view(units).substr(0, slash));
  const std::string to = trimmed(std::string_view(units).substr(slash + 1));
  context_.variables.VSet(index, "ValueUnit", to);
  if (trimmed(value).empty()) {
    context_.log("Warning! Created (no value, but unit conversion specified) - Base Units : " +
                 units + " (" + units + ")");
    return;
  }
  const Variant converted = si_from(Val(value), from, to, context_.services.messages);
  context_.variables.VSet(index, "Value", converted);
  context_.log("Specified as " + value + " " + from + ", Set as " + to_text(converted) + " " + to +
               " (" + context_.scaledText(converted, to) + ")");
}

void FixedValues::setNumber(std::int32_t index, const std::string& value, const std::string& unit) {
  context_.variables.VSet(index, "ValueUnit", unit);
  if (trimmed(value).empty()) {
    context_.log("Created (no value) - Base Units : " + unit);
    return;
  }
  const double number = Val(value);
  context_.variables.VSet(index, "Value", number);
  context_.log("Set to base SI value of " + general_text(number) + " " + unit);
}

void FixedValues::setText(std::int32_t index, const std::string& value) {
  context_.variables.VSet(index, "Value", value);
  context_.log(value.empty() ? std::string("WARNING : String has no value")
                             : "Set to string '" + value + "'");
}

/// False when the calculation has to stop for want of a description.
bool FixedValues::describe(std::int32_t index) {
  const VariableEntry& entry = context_.entry(index);
  if (!entry.description.empty() || entry.reference.empty()) return true;
  const RecordSet& row = find_description(context_, entry.reference);
  if (row.atEnd()) return false;
  context_.variables.VSet(index, "Description", text_field(row, "description"));
  return true;
}

bool FixedValues::runCode(std::int32_t index, const std::string& code) {
  std::string line;
  try {
    for (const std::string& statement : statements_of(trimmed(code))) {
      line = executable(statement, index);
      script_host_.execute(line);
    }
    return true;
  } catch (const Fault& fault) {
    context_.logAndShow("CalculateComponents Script error : " + std::string(fault.what()) +
                        "\r\nScript line : " + line);
    return false;
  }
}

}  // namespace vantrel
