#include "app/automation_explain.h"

#include "app/automation_ops.h"
#include "components/explain.h"

namespace vantrel {

namespace {

constexpr const char* kOrigins[] = {"bill", "rule", "input", "none"};

Json tree_json(const ExplainNode& node) {
  Json children = Json::array();
  for (const ExplainNode& child : node.children) children.push_back(tree_json(child));
  return {{"label", node.label}, {"text", node.text}, {"children", std::move(children)}};
}

Json rule_json(const Explanation& explanation) {
  if (!explanation.rule) return nullptr;
  const RuleRow& rule = *explanation.rule;
  return {{"calculate", rule.calculate},     {"number", explanation.rule_number},
          {"score", explanation.rule_score}, {"input", rule.input},
          {"target", rule.target},           {"config", rule.config},
          {"function", rule.function},       {"parameters", rule.parameters}};
}

Json inputs_json(const Explanation& explanation) {
  Json inputs = Json::array();
  for (const ExplainedInput& input : explanation.inputs) {
    inputs.push_back({{"name", input.name}, {"value", to_json(input.value)}, {"unit", input.unit}});
  }
  return inputs;
}

}  // namespace

Json op_explain(Session& session, const Json& command) {
  const std::string name = text_argument(command, "variable");
  Explain explainer = session.explain();
  const std::optional<Explanation> explanation = explainer.explain(name);
  const std::optional<ExplainNode> tree = explainer.tree(name);
  if (!explanation || !tree) {
    throw CommandError("The last component calculation has no variable '" + name + "'");
  }
  Json json = variable_json(explanation->variable);
  json["shown"] = explanation->shown;
  json["origin"] = kOrigins[static_cast<std::size_t>(explanation->origin)];
  json["source"] = explanation->source;
  json["rule"] = rule_json(*explanation);
  json["calculation"] = explanation->function;
  json["inputs"] = inputs_json(*explanation);
  json["raw"] = to_json(explanation->raw);
  json["rounding"] = explanation->rounding;
  json["series"] = explanation->series;
  json["preferred"] = to_json(explanation->preferred);
  json["agrees"] = explanation->agrees;
  json["log"] = explanation->log;
  json["faults"] = explanation->faults;
  json["tree"] = tree_json(*tree);
  return json;
}

}  // namespace vantrel
