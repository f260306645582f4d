#pragma once

#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "components/explain.h"
#include "core/plain_ports.h"

namespace vantrel {

/// What a calculation writes to, for one that nobody sees.
struct QuietPorts {
  SysMsg messages;
  CalculationLog log{messages};
  MissingFields missing{messages};
  ProgressScreen progress{std::make_unique<ManualTimer>(), {}};
};

/// Works variables out again, on copies of everything that a calculation changes.
class ExplainBench {
 public:
  ExplainBench(const CalculatorServices& services, Calculator& calculator);

  ExplainBench(const ExplainBench&) = delete;
  ExplainBench& operator=(const ExplainBench&) = delete;

  /// How the variable, one of the calculator's, came by its value.
  Explanation explain(const VariableEntry& entry);

 private:
  void declareStages();
  void take(const VariableEntry& entry);
  void reset(const VariableEntry& initial, bool with_reference);
  std::optional<VariableEntry> initialOf(const std::string& name) const;
  bool findRule(Explanation& result);
  void nameInputs(Explanation& result);
  std::vector<std::string> workOut(const VariableEntry& initial, bool with_reference,
                                   Variant& value);
  void explainRule(Explanation& result, const VariableEntry& initial);
  void explainInput(Explanation& result);
  std::string shown(const Variant& value, const std::string& unit);

  QuietPorts quiet_;
  Calculator& calculator_;
  EngineContext context_;
  FixedValues fixed_values_;
  InputVariables inputs_;
  FunctionCalls functions_;
  RuleMatching matching_;
  std::vector<VariableEntry> declared_;  ///< The components as their tables declare them.
};

}  // namespace vantrel
