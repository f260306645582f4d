#include "operating/tank_calculator.h"

#include <cmath>
#include <limits>
#include <string>
#include <vector>

#include "core/fp_trap.h"

namespace vantrel {

namespace {

constexpr std::string_view kOwner = "Advanced";

}  // namespace

bool TankCalculator::SelectTarget(std::int32_t number) {
  generic_ = &factory_.generic();
  selected_ = factory_.TargetFromNumber(number);
  return selected_ != nullptr;
}

float TankCalculator::fail() {
  CalculationFailed = true;
  return 0;
}

float TankCalculator::CalculateResult(std::string_view name, std::span<const float> arguments) {
  if (generic_ == nullptr) generic_ = &factory_.generic();
  for (const Target* object : {selected_, generic_}) {
    if (arguments.size() > kMaxArguments) {
      messages_.msg(kOwner, "Too many parameters for calculate function : " + std::string(name));
      continue;
    }
    const TankEntry* entry = object == nullptr ? nullptr : object->tankFormula(name);
    if (entry == nullptr || static_cast<std::size_t>(entry->arity) != arguments.size()) continue;
    const FpTrap trap;
    const double result = entry->formula(arguments);
    const bool fits = std::abs(result) <= std::numeric_limits<float>::max();
    if (trap.tripped() || !fits) return fail();
    return static_cast<float>(result);
  }
  messages_.msg(kOwner, "Could not find the calculation function : " + std::string(name));
  return fail();
}

float TankCalculator::CalculateResult(std::string_view name, std::span<const Variant> arguments) {
  std::vector<float> singles;
  singles.reserve(arguments.size());
  for (const Variant& argument : arguments) singles.push_back(to_single(argument));
  return CalculateResult(name, std::span<const float>(singles));
}

}  // namespace vantrel
