#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "components/engine_context.h"
#include "components/fixed_values.h"
#include "components/function_calls.h"
#include "components/input_variables.h"
#include "components/rule_table.h"
#include "database/lookup.h"

namespace vantrel {

/// Chooses the rule for a variable and carries it out.
class RuleMatching {
 public:
  RuleMatching(EngineContext& context, InputVariables& inputs, FixedValues& fixed_values,
               FunctionCalls& functions);

  /// One step of a pass: 1 when the variable is not resolved yet, 0 when it is, or when it was
  /// removed because no rule fits. Raises a Fault when the rule itself is faulty.
  int CalculateVariableUsingCalculation(std::int32_t index);

 private:
  bool findRule(RuleCursor& rules, const std::string& name);
  int withoutRule(std::int32_t index, const std::string& name);
  int carryOut(std::int32_t index, const RuleRow& rule);
  int copyVariable(std::int32_t index, const RuleRow& rule);
  int setDirectly(std::int32_t index, const RuleRow& rule);
  int callFunction(std::int32_t index, const RuleRow& rule);
  int interpolate(std::int32_t index, const RuleRow& rule);
  bool fetchInput(const std::string& name);
  bool defineMissing(const std::vector<std::string>& names);
  std::optional<std::vector<Variant>> valuesOf(const std::vector<std::string>& names,
                                               const std::string& wanted_by);
  std::optional<std::int32_t> createVariable(const std::string& name);

  EngineContext& context_;
  InputVariables& inputs_;
  FixedValues& fixed_values_;
  FunctionCalls& functions_;
  Lookup lookup_;
};

}  // namespace vantrel
