#include "components/explain_bench.h"

#include <algorithm>
#include <utility>

#include "components/design_rows.h"
#include "components/rule_choice.h"
#include "core/fault.h"
#include "core/number_text.h"
#include "core/text_parsing.h"
#include "selection/record_fields.h"

namespace vantrel {

namespace {

CalculatorServices quiet_services(const CalculatorServices& real, QuietPorts& quiet) {
  return {real.database, quiet.messages, quiet.log,     real.details, real.state,
          real.screens,  quiet.missing,  real.advanced, real.targets, quiet.progress};
}

const char* const kStageLists[] = {"Input", "IC", "Config"};

/// The last line that holds `mark`, empty without one.
std::string line_with(const std::vector<std::string>& lines, std::string_view mark) {
  const auto found = std::find_if(lines.rbegin(), lines.rend(), [&](const std::string& line) {
    return line.find(mark) != std::string::npos;
  });
  return found == lines.rend() ? std::string() : *found;
}

}  // namespace

ExplainBench::ExplainBench(const CalculatorServices& services, Calculator& calculator)
    : calculator_(calculator),
      context_(quiet_services(services, quiet_)),
      fixed_values_(context_),
      inputs_(context_, fixed_values_),
      functions_(context_),
      matching_(context_, inputs_, fixed_values_, functions_) {
  quiet_.log.keepLines(true);
  context_.readSelection();
  context_.series = calculator.series();
  context_.target = calculator.engine().target();
  context_.generic = calculator.engine().generic();
  declareStages();
  declared_ = context_.variables.entries();
  for (const VariableEntry& entry : calculator.engine().variables().entries()) take(entry);
  quiet_.messages.clear();
}

void ExplainBench::declareStages() {
  const RecordSet& info =
      context_.rows.read("select * from Target:Info where Target = ?", context_.selection.ic);
  if (info.atEnd()) return;
  const std::string table = text_field(info, "BOMTable");
  const std::string* const values[] = {&context_.selection.input, &context_.selection.ic,
                                       &context_.selection.config};
  std::vector<std::string> lists;
  for (const char* field : kStageLists) lists.push_back(text_field(info, field));
  StageReader stages(context_, fixed_values_);
  for (std::size_t i = 0; i < lists.size(); ++i) {
    if (!lists[i].empty()) stages.ComponentAddStage(table, lists[i], *values[i], true, false);
  }
}

/// Gives a variable all that the calculation has given it.
void ExplainBench::take(const VariableEntry& entry) {
  VariableClass& variables = context_.variables;
  const Variant name = entry.variablename;
  if (variables.GetVariableEntryNumber(entry.variablename) < 0) {
    variables.CreateVariableEntry(entry.variablename);
  }
  variables.VSet(name, "Value", entry.value);
  variables.VSet(name, "ValueUnit", entry.valueunit);
  variables.VSet(name, "Fixed", entry.fixed);
}

/// Puts a variable back to where the passes found it.
void ExplainBench::reset(const VariableEntry& initial, bool with_reference) {
  VariableClass& variables = context_.variables;
  const Variant name = initial.variablename;
  const std::pair<const char*, Variant> fields[] = {
      {"Reference", with_reference ? initial.reference : std::string()},
      {"ValueUnit", initial.valueunit},
      {"Rating", initial.rating},
      {"Tolerance", initial.tolerance},
      {"Description", initial.description},
      {"Flags", initial.flags},
      {"Fixed", initial.fixed}};
  for (const auto& [field, value] : fields) variables.VSet(name, field, value);
  variables.VEmpty(name);
  if (!initial.value.is_empty()) variables.VSet(name, "Value", initial.value);
}

std::optional<VariableEntry> ExplainBench::initialOf(const std::string& name) const {
  const auto found = std::ranges::find(declared_, name, &VariableEntry::variablename);
  if (found == declared_.end()) return std::nullopt;
  return *found;
}

std::string ExplainBench::shown(const Variant& value, const std::string& unit) {
  if (value.is_empty()) return {};
  if (!value.is_numeric()) return to_text(value);
  return context_.scaledText(value, unit);
}

Explanation ExplainBench::explain(const VariableEntry& entry) {
  Explanation result;
  result.variable = entry;
  result.shown = shown(entry.value, entry.valueunit);
  const std::optional<VariableEntry> declared = initialOf(entry.variablename);
  if (declared && declared->fixed && !declared->value.is_empty()) {
    result.origin = ValueOrigin::Bill;
    result.source = "Fixed in the component table of " + context_.selection.ic;
    result.raw = result.preferred = declared->value;
  } else if (!declared && inputs_.IsVariableACCInputVariable(entry.variablename)) {
    explainInput(result);
  } else {
    VariableEntry bare;
    bare.variablename = entry.variablename;
    explainRule(result, declared.value_or(bare));
  }
  result.agrees = result.preferred == entry.value;
  for (const Message& message : quiet_.messages.shown()) result.faults.push_back(message.text);
  quiet_.messages.clear();
  return result;
}

void ExplainBench::explainInput(Explanation& result) {
  const RecordSet& row = context_.rows.read("select * from [CC:SourceVariables] where Variable = ?",
                                            result.variable.variablename);
  const std::string source = text_field(row, "Source");
  result.origin = ValueOrigin::Input;
  result.source = source.empty() ? "Constant" : "Field " + ReplaceCharacter(source, ',', ".");
  VariableEntry bare;
  bare.variablename = result.variable.variablename;
  reset(bare, false);
  quiet_.log.clearLines();
  try {
    const std::int32_t index = inputs_.EnsureCCInputVariableHasAValue(bare.variablename);
    if (index >= 0) result.raw = result.preferred = context_.entry(index).value;
  } catch (const Fault& fault) {
    result.faults.emplace_back(fault.what());
  }
  result.log = quiet_.log.lines();
  take(result.variable);
}

bool ExplainBench::findRule(Explanation& result) {
  const std::string& name = result.variable.variablename;
  RuleCursor rules = context_.rows.rules().find(name);
  const RuleChoice choice = choose_rule(rules, name, context_.selection);
  if (choice.best_row < 0 || !refetch_rule(rules, name, choice.best_row)) return false;
  result.rule = rules.row();
  result.rule_number = choice.best_row;
  result.rule_score = choice.best_score;
  return true;
}

void ExplainBench::nameInputs(Explanation& result) {
  const RuleRow& rule = *result.rule;
  std::vector<std::string> names;
  if (rule.function.empty() && !rule.set_value_directly) {
    result.function = "Keeps its initial value";
  } else if (rule.functionisvar) {
    result.function = "Copy of " + rule.function;
    names = {rule.function};
  } else if (rule.set_value_directly) {
    result.function = "Set directly to " + comma_list(rule.parameters);
  } else if (rule.interpolates()) {
    result.function = "Interpolation(" + comma_list(rule.parameters) + ")";
    if (!rule.parameters.empty()) names = {rule.parameters.front()};
  } else {
    result.function = rule.function + "(" + comma_list(rule.parameters) + ")";
    names = rule.parameters;
  }
  for (const std::string& name : names) {
    const std::int32_t index = context_.variables.GetVariableEntryNumber(name);
    if (index < 0) continue;
    result.inputs.push_back({name, context_.entry(index).value, context_.entry(index).valueunit});
  }
}

/// Carries the rule out once more; gives the log of it.
std::vector<std::string> ExplainBench::workOut(const VariableEntry& initial, bool with_reference,
                                               Variant& value) {
  reset(initial, with_reference);
  quiet_.log.clearLines();
  context_.abort = false;
  const std::int32_t index = context_.variables.GetVariableEntryNumber(initial.variablename);
  try {
    matching_.CalculateVariableUsingCalculation(index);
    value = context_.entry(index).value;
  } catch (const Fault& fault) {
    context_.services.messages.msg("", fault.what());
  }
  return quiet_.log.lines();
}

/// Without its reference a component is neither rounded nor matched, which shows the raw result.
void ExplainBench::explainRule(Explanation& result, const VariableEntry& initial) {
  if (!findRule(result)) {
    result.source = "No rule fits the selection";
    return;
  }
  result.origin = ValueOrigin::Rule;
  result.source = "Rule " + general_text(result.rule_number) + " for " + result.rule->calculate;
  nameInputs(result);
  workOut(initial, false, result.raw);
  quiet_.messages.clear();
  result.log = workOut(initial, true, result.preferred);
  const std::string object = line_with(result.log, "Calling function ");
  if (!object.empty()) {
    const std::size_t start = std::string_view("Calling function ").size();
    const std::size_t dot = object.find('.', start);
    result.function = object.substr(start, dot - start + 1) + result.function;
  }
  result.rounding = line_with(result.log, " has been rounded to ");
  result.series = line_with(result.log, " Matched To : ");
  take(result.variable);
}

}  // namespace vantrel
