#pragma once

#include <cstdint>
#include <functional>
#include <span>
#include <string>
#include <vector>

#include "components/bill_store.h"
#include "components/engine_context.h"
#include "components/fixed_values.h"
#include "components/function_calls.h"
#include "components/input_variables.h"
#include "components/rule_matching.h"
#include "components/stage_reader.h"

namespace vantrel {

/// How a calculation is seen on a screen; each callable may be empty.
struct EngineView {
  /// The user's series of preferred values, a PreferredSeries; E24 when empty.
  std::function<std::int32_t()> series;
  /// Lists the outputs among the variables, which are sorted by name.
  std::function<void(const std::vector<VariableEntry>&)> listOutputs;
  /// Shows the results of a finished calculation.
  std::function<void(const VariableClass&)> showOutputs;
  /// A calculation has begun.
  std::function<void()> started;
  /// It ended with these variables open.
  std::function<void(const std::vector<std::string>& missing)> stopped;
};

/// A variable that was calculated by itself, and whether that succeeded.
struct ScratchResult {
  VariableEntry variable;
  bool result = false;
};

/// One component calculation: its variable table, its script host and its target objects. Several
/// may work on the same screens and fill the same bill.
class ComponentEngine {
 public:
  ComponentEngine(const CalculatorServices& services, BillStore& bill, EngineView view);
  ComponentEngine(const ComponentEngine&) = delete;
  ComponentEngine& operator=(const ComponentEngine&) = delete;

  /// Creates the variables of the present selection and calculates them until nothing is open, or
  /// the count of open ones has come up three passes running. With `outputs_only` they are only
  /// listed. True when everything was resolved; the bill holds the result then.
  bool CalculateComponents(bool full_bom, bool outputs_only);

  /// The objects whose functions the rules call.
  void useTargets(const Target* target, const Target* generic);
  const Target* target() const { return context_.target; }
  const Target* generic() const { return context_.generic; }
  const VariableClass& variables() const { return context_.variables; }

  /// Calls one component function, as a rule would, for a variable that is gone again afterwards.
  ScratchResult CallOnScratch(const Target* target, const std::string& function,
                              std::span<const Variant> arguments);
  /// Runs a generator script for a variable that is gone again afterwards.
  ScratchResult RunOnScratch(const std::string& code);

 private:
  bool run(bool full_bom, bool outputs_only);
  void addStages(const RecordSet& info, bool full_bom, bool outputs_only);
  void logStart(const RecordSet& info, bool full_bom);
  void listOutputs();
  bool calculate();
  std::int32_t ComponentCalculateStages();
  bool runPass(std::int32_t& open);
  void finish();
  void stop();
  void fillBill();
  template <typename Action>
  ScratchResult onScratch(const Action& action);

  EngineContext context_;
  BillStore& bill_;
  EngineView view_;
  FixedValues fixed_values_;
  InputVariables inputs_;
  FunctionCalls functions_;
  RuleMatching matching_;
  StageReader stages_;
};

}  // namespace vantrel
