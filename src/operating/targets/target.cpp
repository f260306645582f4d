#include "operating/targets/target.h"

#include "core/number_text.h"

namespace vantrel {

namespace {

// By target number.
constexpr Target (*kMakers[kTargetCount])() = {
    make_tv6101, make_tv6103, make_tv6102, make_tv6104, make_tv6105,
    make_tv6106, make_tv6108, make_tv6109, make_tv6110, make_tv6107,
};

template <typename Entry>
const Entry* find(const std::unordered_map<std::string_view, const Entry*>& index,
                  std::string_view name) {
  const auto found = index.find(name);
  return found == index.end() ? nullptr : found->second;
}

}  // namespace

Target::Target(std::string_view name, std::span<const TankEntry> formulas,
               std::span<const ComponentEntry> components)
    : name_(name), components_(components) {
  for (const TankEntry& entry : formulas) formula_index_.emplace(entry.name, &entry);
  for (const ComponentEntry& entry : components) component_index_.emplace(entry.name, &entry);
}

const TankEntry* Target::tankFormula(std::string_view name) const {
  return find(formula_index_, name);
}

const ComponentEntry* Target::component(std::string_view name) const {
  return find(component_index_, name);
}

const Target* TargetFactory::TargetFromNumber(std::int32_t number) {
  if (number < 0 || number >= kTargetCount) {
    messages_.msg("", "Unknown target type : " + general_text(state_.CurrentTarget));
    return nullptr;
  }
  auto& target = targets_[number];
  if (!target) target = std::make_unique<Target>(kMakers[number]());
  return target.get();
}

const Target& TargetFactory::generic() {
  if (!generic_) generic_ = std::make_unique<Target>(make_tvGenericTarget());
  return *generic_;
}

}  // namespace vantrel
