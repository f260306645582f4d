#include "database_builder/vocabulary.h"

#include <algorithm>

#include "core/run_state.h"
#include "core/text_parsing.h"
#include "database/adoaccess.h"
#include "operating/advanced_fields.h"
#include "operating/targets/target.h"
#include "selection/details.h"
#include "selection/item_data.h"

namespace vantrel::builder {

namespace {

/// Configurations are numbered from 0 to this.
constexpr std::int32_t kLastConfig = 7;

FunctionArities arities(const Target& target) {
  FunctionArities result;
  for (const ComponentEntry& entry : target.components()) result.emplace(entry.name, entry.arity);
  return result;
}

}  // namespace

const FieldSpec* Vocabulary::field(std::string_view name) const {
  const auto found = std::ranges::find_if(
      fields, [&](const FieldSpec& row) { return equal_ignoring_case(row.name, name); });
  return found == fields.end() ? nullptr : &*found;
}

Vocabulary program_vocabulary() {
  Vocabulary vocabulary;
  vocabulary.fields = advanced_fields();
  vocabulary.calculated = &DataLoadCalcFields::knows;
  const RunState state;
  SysMsg messages;
  adoaccess_class database(messages);
  SelectionDetails details(database, messages, state);
  for (std::int32_t config = 0; config <= kLastConfig; ++config) {
    vocabulary.config_codes.push_back(details.ConfigDetails(kConfigShortCode, config));
  }
  TargetFactory targets(messages, state);
  for (std::int32_t target = 0; target < kTargetCount; ++target) {
    // The formulas' objects bear the IC's name in lower case.
    const Target& formulas = *targets.TargetFromNumber(target);
    vocabulary.targets.push_back(upper(formulas.name()));
    vocabulary.functions.push_back(arities(formulas));
  }
  vocabulary.generic_functions = arities(targets.generic());
  return vocabulary;
}

}  // namespace vantrel::builder
