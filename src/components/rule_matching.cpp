#include "components/rule_matching.h"

#include "components/component_finish.h"
#include "components/rule_choice.h"
#include "core/fault.h"
#include "core/number_text.h"
#include "core/text_parsing.h"

namespace vantrel {

namespace {

constexpr int kResolved = 0;
constexpr int kOpen = 1;

constexpr std::size_t kInterpolationParameters = 5;

std::string criteria(const RuleRow& rule) {
  return "input = '" + rule.input + "', target = '" + rule.target + "', config = '" + rule.config +
         "'";
}

std::string no_calculation(std::string_view what, const std::string& name) {
  return std::string(what) + " CC:Calculations entry for variable '" + name +
         "' - it cannot be calculated";
}

std::string not_yet(const std::string& parameter, const std::string& wanted_by) {
  return "Function variable '" + parameter + "' does not yet have a value - cannot calculate " +
         wanted_by + " yet";
}

}  // namespace

RuleMatching::RuleMatching(EngineContext& context, InputVariables& inputs,
                           FixedValues& fixed_values, FunctionCalls& functions)
    : context_(context),
      inputs_(inputs),
      fixed_values_(fixed_values),
      functions_(functions),
      lookup_(context.services.database, context.services.messages) {}

int RuleMatching::CalculateVariableUsingCalculation(std::int32_t index) {
  const std::string name = context_.entry(index).variablename;
  context_.log("");
  context_.log("Calculating value for variable '" + name + "'");
  RuleCursor rules = context_.rows.rules().find(name);
  if (rules.isEmpty()) {
    context_.fatal(no_calculation("Could not find", name));
    return kOpen;
  }
  const RuleChoice choice = choose_rule(rules, name, context_.selection);
  if (choice.best_row < 0) return withoutRule(index, name);
  if (choice.ties > 0) {
    context_.fatal(no_calculation("ERROR: Could not decide between given", name));
    return kOpen;
  }
  if (!refetch_rule(rules, name, choice.best_row)) {
    context_.fatal(no_calculation("ERROR: Could not refetch", name));
    return kOpen;
  }
  return carryOut(index, rules.row());
}

int RuleMatching::withoutRule(std::int32_t index, const std::string& name) {
  if (context_.entry(index).removeifnomatch) {
    context_.log("Could not match any CC:Calculations entry for variable '" + name +
                 "' - it has been marked for removal under these conditions");
    context_.variables.DeleteVariableEntry("", index);
    return kResolved;
  }
  const int answer = context_.services.log.write(
      no_calculation("ERROR: Could not match any", name) + "\r\n\r\nDo you wish to continue ?",
      true, true);
  if (answer != kYes) context_.abort = true;
  return kOpen;
}

int RuleMatching::carryOut(std::int32_t index, const RuleRow& rule) {
  if (rule.function.empty() && !rule.set_value_directly) {
    context_.logAndShow("WARNING: Matched calculation has empty function field (" + criteria(rule) +
                        " - assuming inital values are OK");
    return kResolved;
  }
  if (rule.functionisvar) return copyVariable(index, rule);
  if (rule.set_value_directly) return setDirectly(index, rule);
  return callFunction(index, rule);
}

std::optional<std::int32_t> RuleMatching::createVariable(const std::string& name) {
  const std::optional<std::int32_t> created = context_.create(name);
  if (!created) context_.fatal("ERROR : Could not create variable '" + name + "' ");
  return created;
}

bool RuleMatching::fetchInput(const std::string& name) {
  if (inputs_.EnsureCCInputVariableHasAValue(name) >= 0) return true;
  context_.fatal("ERROR : Could not fetch input variable '" + name + "' ");
  return false;
}

int RuleMatching::copyVariable(std::int32_t index, const RuleRow& rule) {
  const std::string& source = rule.function;
  context_.log("Matched with Variable '" + source + "' (" + criteria(rule));
  if (context_.variables.GetVariableEntryNumber(source) < 0) {
    if (!inputs_.IsVariableACCInputVariable(source)) {
      context_.log("Source variable (" + source +
                   ") is not currently defined - defining it now as a numeric variable");
      if (const auto created = createVariable(source)) {
        context_.log("Source variable (" + source + ") defined at index " + general_text(*created));
      }
      return kOpen;
    }
    if (!fetchInput(source)) return kOpen;
  }
  const Variant value = context_.variables.VGet(source, "Value");
  if (value.is_empty()) {
    context_.log("Source variable (" + source + ") does not yet have a value - cannot copy yet");
    return kOpen;
  }
  context_.variables.VSet(index, "Value", value);
  context_.log("Copied from variable '" + source + "'");
  return finish_component(context_, index, rule.set_value_directly);
}

int RuleMatching::setDirectly(std::int32_t index, const RuleRow& rule) {
  // The list has one spare entry behind its last one, so that the tolerance may be left out; a
  // shorter list is a fault of the rule.
  std::vector<std::string> list = rule.parameters;
  list.emplace_back();
  if (list.size() < 4) throw Fault(fault_text::kSubscript);
  fixed_values_.CalculateVariableFromFixed(index, list[0], list[1], list[2], list[3], "");
  context_.variables.VSet(index, "Fixed", true);
  return finish_component(context_, index, true);
}

/// Creates the variables among `names` that do not exist, so that other rules can give them values,
/// and fetches those that are inputs. True when there was none to create.
bool RuleMatching::defineMissing(const std::vector<std::string>& names) {
  bool complete = true;
  for (const std::string& name : names) {
    if (context_.variables.GetVariableEntryNumber(name) >= 0) continue;
    if (inputs_.IsVariableACCInputVariable(name)) {
      if (!fetchInput(name)) return false;
      continue;
    }
    complete = false;
    context_.log("Required function variable (" + name +
                 ") is not currently defined - defining it now as a numeric variable");
    if (const auto created = createVariable(name)) {
      context_.log("Function variable (" + name + ") defined at index " + general_text(*created));
    }
  }
  return complete;
}

std::optional<std::vector<Variant>> RuleMatching::valuesOf(const std::vector<std::string>& names,
                                                           const std::string& wanted_by) {
  std::vector<Variant> values;
  for (const std::string& name : names) {
    values.push_back(context_.variables.VGet(name, "Value"));
    if (!values.back().is_empty()) continue;
    context_.log(not_yet(name, wanted_by));
    return std::nullopt;
  }
  return values;
}

int RuleMatching::callFunction(std::int32_t index, const RuleRow& rule) {
  const std::string parameters = comma_list(rule.parameters);
  const bool interpolation = rule.interpolates();
  context_.log((interpolation ? "Matched Interpolation"
                              : "Matched with Function " + rule.function + "(" + parameters + ")") +
               " [" + criteria(rule) + "]");
  if (interpolation) return interpolate(index, rule);
  if (!defineMissing(rule.parameters)) return kOpen;
  const auto values = valuesOf(rule.parameters, context_.entry(index).variablename);
  if (!values) return kOpen;
  if (!functions_.AttemptCalculation(context_.target, context_.generic, index, rule.function,
                                     *values, parameters)) {
    context_.fatal("ERROR : Call to function '" + std::string(type_name(context_.target)) + "." +
                   rule.function + "' FAILED (" + parameters + ")");
    return kOpen;
  }
  return finish_component(context_, index, false);
}

/// Reads the curve that the second and third parameter name at the value of the variable that the
/// first one names; the other two scale the result.
int RuleMatching::interpolate(std::int32_t index, const RuleRow& rule) {
  if (rule.parameters.size() != kInterpolationParameters) {
    context_.fatal("ERROR : Interpolation requires 3 variables");
    return kOpen;
  }
  const std::string name = context_.entry(index).variablename;
  const std::vector<std::string> variable = {rule.parameters[0]};
  if (!defineMissing(variable)) return kOpen;
  const auto values = valuesOf(variable, name);
  if (!values) return kOpen;
  const Variant result =
      lookup_.LookupValue(rule.parameters[1], rule.parameters[2], to_single(values->front()),
                          to_double(rule.parameters[3]), to_double(rule.parameters[4]),
                          [this](const std::string& line) { context_.log(line); });
  context_.variables.VSet(index, "Value", result);
  if (context_.entry(index).value.is_empty()) {
    context_.fatal("ERROR : Interpolation Failed - Could not calculate value");
    return kOpen;
  }
  context_.log("Results of interpolation, " + name + " = " + to_text(result));
  context_.variables.VSet(index, "Fixed", true);
  return finish_component(context_, index, false);
}

}  // namespace vantrel
