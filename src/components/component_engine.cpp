#include "components/component_engine.h"

#include <utility>

namespace vantrel {

namespace {

// Parted by a comma, which no declared reference can hold.
constexpr const char* kScratchName = "scratch,variable";

std::string joined_texts(std::span<const Variant> values) {
  std::string result;
  for (const Variant& value : values) {
    if (!result.empty()) result += ", ";
    if (!value.is_null() && !value.is_array()) result += to_text(value);
  }
  return result;
}

}  // namespace

ComponentEngine::ComponentEngine(const CalculatorServices& services, BillStore& bill,
                                 EngineView view)
    : context_(services),
      bill_(bill),
      view_(std::move(view)),
      fixed_values_(context_),
      inputs_(context_, fixed_values_),
      functions_(context_),
      matching_(context_, inputs_, fixed_values_, functions_),
      stages_(context_, fixed_values_) {}

void ComponentEngine::useTargets(const Target* target, const Target* generic) {
  context_.target = target;
  context_.generic = generic;
}

template <typename Action>
ScratchResult ComponentEngine::onScratch(const Action& action) {
  VariableClass& variables = context_.variables;
  ScratchResult scratch;
  const auto index = context_.create(kScratchName);
  if (!index) return scratch;
  scratch.result = action(*index);
  scratch.variable = context_.entry(*index);
  variables.DeleteVariableEntry("", *index);
  return scratch;
}

ScratchResult ComponentEngine::CallOnScratch(const Target* target, const std::string& function,
                                             std::span<const Variant> arguments) {
  return onScratch([&](std::int32_t index) {
    return functions_.AttemptCalculation(target, &context_.services.targets.generic(), index,
                                         function, arguments, joined_texts(arguments));
  });
}

ScratchResult ComponentEngine::RunOnScratch(const std::string& code) {
  return onScratch([&](std::int32_t index) { return fixed_values_.runCode(index, code); });
}

}  // namespace vantrel
