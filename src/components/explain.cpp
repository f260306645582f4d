#include "components/explain.h"

#include <algorithm>
#include <set>
#include <utility>

#include "components/explain_bench.h"
#include "core/text_parsing.h"

namespace vantrel {

namespace {

std::string list_text(const std::string& list) { return list.empty() ? "any" : list; }

std::string value_text(const Variant& value) {
  return value.is_empty() || value.is_null() || value.is_array() ? "none" : to_text(value);
}

ExplainNode rule_node(const Explanation& explanation) {
  const RuleRow& rule = *explanation.rule;
  return {"Rule",
          explanation.source,
          {{"Input", list_text(rule.input), {}},
           {"Target", list_text(rule.target), {}},
           {"Config", list_text(rule.config), {}}}};
}

/// The lines below a variable, but for its inputs.
std::vector<ExplainNode> result_nodes(const Explanation& explanation) {
  std::vector<ExplainNode> nodes;
  const auto add = [&](const char* label, const std::string& text) {
    if (!text.empty()) nodes.push_back({label, text, {}});
  };
  if (explanation.origin == ValueOrigin::Rule) {
    add("Raw result", value_text(explanation.raw));
    add("Rounding", explanation.rounding.empty() ? "none" : explanation.rounding);
    add("Series", explanation.series.empty() ? "none" : explanation.series);
    add("Preferred value", value_text(explanation.preferred));
  }
  add("Rating", explanation.variable.rating);
  add("Tolerance", explanation.variable.tolerance);
  if (!explanation.agrees) {
    const bool calculated = !explanation.variable.value.is_empty();
    add(calculated ? "Out of date" : "Not calculated",
        "worked out now it is " + value_text(explanation.preferred));
  }
  for (const std::string& fault : explanation.faults) add("Fault", fault);
  return nodes;
}

}  // namespace

Explain::Explain(const CalculatorServices& services, Calculator& calculator)
    : services_(services), calculator_(calculator) {}

std::vector<std::string> Explain::names() const {
  std::vector<std::string> names;
  for (const VariableEntry& entry : calculator_.engine().variables().entries()) {
    names.push_back(entry.variablename);
  }
  std::ranges::sort(names);
  return names;
}

const VariableEntry* Explain::find(std::string_view name) const {
  const VariableClass& variables = calculator_.engine().variables();
  for (const std::string& spelling : {trimmed(name), upper(trimmed(name))}) {
    const std::int32_t index = variables.GetVariableEntryNumber(spelling);
    if (index >= 0) return &variables.entries()[static_cast<std::size_t>(index)];
  }
  return nullptr;
}

std::optional<Explanation> Explain::explain(std::string_view name) {
  const VariableEntry* const entry = find(name);
  if (entry == nullptr) return std::nullopt;
  const ReadScope one_view(services_.database);
  return ExplainBench(services_, calculator_).explain(*entry);
}

std::vector<Explanation> Explain::all() {
  const ReadScope one_view(services_.database);
  ExplainBench bench(services_, calculator_);
  std::vector<Explanation> explanations;
  for (const VariableEntry& entry : calculator_.engine().variables().entries()) {
    explanations.push_back(bench.explain(entry));
  }
  return explanations;
}

std::optional<ExplainNode> Explain::tree(std::string_view name) {
  const VariableEntry* const entry = find(name);
  if (entry == nullptr) return std::nullopt;
  const ReadScope one_view(services_.database);
  ExplainBench bench(services_, calculator_);
  std::set<std::string> opened;
  return node(bench, *entry, opened);
}

ExplainNode Explain::node(ExplainBench& bench, const VariableEntry& entry,
                          std::set<std::string>& opened) {
  const Explanation explanation = bench.explain(entry);
  ExplainNode result{entry.variablename, explanation.shown, {}};
  if (!opened.insert(entry.variablename).second) return result;
  if (explanation.rule) {
    result.children.push_back(rule_node(explanation));
    result.children.push_back({"Function", explanation.function, {}});
  } else {
    result.children.push_back({"Source", explanation.source, {}});
  }
  for (const ExplainedInput& input : explanation.inputs) {
    if (const VariableEntry* const behind = find(input.name)) {
      result.children.push_back(node(bench, *behind, opened));
    }
  }
  for (ExplainNode& line : result_nodes(explanation)) result.children.push_back(std::move(line));
  return result;
}

}  // namespace vantrel
