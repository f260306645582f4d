#pragma once

#include <cstdint>
#include <optional>
#include <set>
#include <string>
#include <string_view>
#include <vector>

#include "components/calculator.h"
#include "components/component_engine.h"
#include "components/rule_table.h"

namespace vantrel {

/// Where the value of a variable comes from.
enum class ValueOrigin {
  Bill,   ///< Fixed in its row of the component table.
  Rule,   ///< A rule calculated it.
  Input,  ///< Fetched from a field of a screen, or a constant.
  None    ///< Nothing gives it a value.
};

/// A variable that a rule reads.
struct ExplainedInput {
  std::string name;
  Variant value;
  std::string unit;
};

/// How a variable of the last component calculation came by its value: what its rule gives when it
/// is worked out once more from the values of the other variables.
struct Explanation {
  VariableEntry variable;  ///< As the calculation has left it.
  std::string shown;       ///< Its value with prefix and unit.
  ValueOrigin origin = ValueOrigin::None;
  std::string source;  ///< The stage, rule or field that gave the value, in words.
  /// The rule; only with the origin Rule.
  std::optional<RuleRow> rule;
  int rule_number = 0;   ///< Its place among the rules for the variable, from 1.
  int rule_score = 0;    ///< How many of its lists name the selection.
  std::string function;  ///< Of what object which function, or what else the rule does.
  std::vector<ExplainedInput> inputs;
  Variant raw;                      ///< What the rule gave, before rounding and matching.
  std::string rounding;             ///< What was done to the places, in words.
  std::string series;               ///< To which series it was matched, in words.
  Variant preferred;                ///< What came of it.
  bool agrees = false;              ///< The value worked out again is the variable's.
  std::vector<std::string> log;     ///< Lines of the calculation of this variable.
  std::vector<std::string> faults;  ///< Messages that it raised.
};

/// One line of an explanation and what lies behind it.
struct ExplainNode {
  std::string label;
  std::string text;
  std::vector<ExplainNode> children;
};

class ExplainBench;

/// Explains the variables of a component calculator after a calculation. Everything is worked out
/// on variables of its own: the calculator, its log and the user see nothing of it.
class Explain {
 public:
  Explain(const CalculatorServices& services, Calculator& calculator);

  /// The names of the variables that can be explained, sorted.
  std::vector<std::string> names() const;
  /// Nothing when the last calculation has no such variable; letters count as in `names`, or else
  /// in upper case.
  std::optional<Explanation> explain(std::string_view name);
  /// The explanations of all variables, in the order of the calculation.
  std::vector<Explanation> all();
  /// The explanation as a tree, each input with its own behind it. One that comes up again is not
  /// opened a second time.
  std::optional<ExplainNode> tree(std::string_view name);

 private:
  ExplainNode node(ExplainBench& bench, const VariableEntry& entry, std::set<std::string>& opened);
  const VariableEntry* find(std::string_view name) const;

  CalculatorServices services_;
  Calculator& calculator_;
};

}  // namespace vantrel
