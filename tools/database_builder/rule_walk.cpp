#include "database_builder/rule_walk.h"

namespace vantrel::builder {

namespace {

/// Arguments that a component function can be called with at most.
constexpr int kMostArguments = 9;

std::string counted(int count) {
  return std::to_string(count) + (count == 1 ? " argument" : " arguments");
}

}  // namespace

void RuleWalk::report(const Place& place, const std::string& text) {
  if (!reported_.emplace(place.table.file.string(), place.line, text).second) return;
  problems_.add(place.table.file, place.line, text + " (" + to_string(*combination_) + ")");
}

void RuleWalk::walk(const BillRows& bill, const Combination& combination, bool outputs_only) {
  combination_ = &combination;
  visited_.clear();
  declare(bill, outputs_only);
  for (const auto& [name, component] : components_) visit(name, {bill.table(), component.line});
}

void RuleWalk::declare(const BillRows& bill, bool outputs_only) {
  components_.clear();
  for (const DeclaredComponent& component : bill.declared(*combination_, outputs_only)) {
    const auto [first, is_new] = components_.emplace(component.reference, component);
    if (is_new) continue;
    report({bill.table(), component.line}, "reference '" + component.reference +
                                               "' is declared by line " +
                                               std::to_string(first->second.line));
  }
}

void RuleWalk::visit(const std::string& name, const Place& asked) {
  const auto [state, is_new] = visited_.emplace(name, false);
  if (!is_new) {
    if (!state->second) report(asked, "variable '" + name + "' waits for itself");
    return;
  }
  const auto component = components_.find(name);
  if (component == components_.end() && inputs_.contains(name)) {
    visitInput(name, asked);
  } else if (component == components_.end() || !component->second.settled) {
    if (const CalculationRule* rule = choose(name, asked)) follow(name, *rule);
  }
  visited_[name] = true;
}

void RuleWalk::visitInput(const std::string& name, const Place& asked) {
  if (inputs_.filled(name, *combination_)) return;
  report(asked, "variable '" + name + "' comes from a field of the calculator that is not loaded");
}

const CalculationRule* RuleWalk::choose(const std::string& name, const Place& asked) {
  const auto best = rules_.best(name, *combination_);
  if (best.empty()) {
    const auto component = components_.find(name);
    if (component == components_.end()) {
      report(asked, "variable '" + name + "' is no component, no input and has no rule");
    } else if (!component->second.removed_unmatched) {
      report(asked, "no rule fits '" + name + "'");
    }
    return nullptr;
  }
  if (best.size() > 1) {
    report({rules_.table(), best[1]->line},
           "ties with line " + std::to_string(best[0]->line) + " for '" + name + "'");
  }
  used_.insert(best.begin(), best.end());
  return best.front();
}

void RuleWalk::follow(const std::string& name, const CalculationRule& rule) {
  const Place place{rules_.table(), rule.line};
  if (rule.function.empty() || rule.sets_value) return;
  if (rule.copies) return visit(rule.function, place);
  if (rule.interpolates()) {
    if (!rule.parameters.empty()) visit(rule.parameters.front(), place);
    return;
  }
  checkFunction(rule);
  for (const std::string& parameter : rule.parameters) {
    if (parameter == name) {
      report(place, "variable '" + name + "' waits for itself");
    } else {
      visit(parameter, place);
    }
  }
}

void RuleWalk::checkFunction(const CalculationRule& rule) {
  const auto count = static_cast<int>(rule.parameters.size());
  const std::string fault = functionFault(rule.function, count);
  if (!fault.empty()) report({rules_.table(), rule.line}, fault);
}

std::string RuleWalk::functionFault(const std::string& function, int count) const {
  if (count > kMostArguments) {
    return "'" + function + "' cannot be called with " + counted(count);
  }
  // A generic function with the right count would run in place of the IC's own, and give another
  // value without a word.
  const FunctionArities& own = vocabulary_.functions[combination_->target];
  auto found = own.find(function);
  const bool has_own = found != own.end();
  if (!has_own) found = vocabulary_.generic_functions.find(function);
  if (!has_own && found == vocabulary_.generic_functions.end()) {
    return combination_->ic + " has no function '" + function + "'";
  }
  if (found->second == count) return "";
  return "'" + function + "' of " + combination_->ic + " takes " + counted(found->second) +
         ", not " + std::to_string(count);
}

void RuleWalk::reportUnused() const {
  for (const CalculationRule& rule : rules_.rows()) {
    if (used_.contains(&rule)) continue;
    problems_.add(rules_.table().file, rule.line, "is the best rule of no combination");
  }
}

}  // namespace vantrel::builder
