#include "selection/details.h"

#include <cstddef>

#include "core/number_text.h"
#include "selection/record_fields.h"

namespace vantrel {

namespace {

constexpr int kConfigCount = 8;
constexpr int kConfigInfoCount = 5;

constexpr const char* kConfigs[kConfigCount][kConfigInfoCount] = {
    {"Single lamp/current-mode heating", "Single", "", "Current Mode", "SLCM"},
    {"Single lamp/voltage-mode heating", "Single", "", "Voltage Mode", "SLVM"},
    {"Dual lamp series/current-mode heating", "Dual", "Series", "Current Mode", "DLSCM"},
    {"Dual lamp series/voltage-mode heating", "Dual", "Series", "Voltage Mode", "DLSVM"},
    {"Dual lamp parallel/current-mode heating", "Dual", "Parallel", "Current Mode", "DLPCM"},
    {"Dual lamp parallel/voltage-mode heating", "Dual", "Parallel", "Voltage Mode", "DLPVM"},
    {"Dual lamp parallel/voltage-mode balance transformer", "Dual", "Parallel", "Voltage Mode",
     "DLPVMB"},
    {"Electronic Transformer", "", "", "", "ET"},
};

}  // namespace

Variant SelectionDetails::TargetDetails(int info, std::optional<std::int32_t> target) {
  if (!fillTargets()) return {};
  const std::int32_t number = target.value_or(state_.CurrentTarget);
  if (number < 0 || static_cast<std::size_t>(number) >= targets_.size()) {
    messages_.msg("", "Target not found in name list");
    return {};
  }
  if (info < kTargetName || info > kTargetUrl) return {};
  return targets_[static_cast<std::size_t>(number)].texts[info];
}

bool SelectionDetails::fillTargets() {
  if (!targets_.empty()) return true;
  RecordSet rows;
  if (!database_.read("select * from Target:Info order by TargetNo ASC", rows)) {
    messages_.msg("", "Could not read Target:Info table");
    return false;
  }
  for (; !rows.atEnd(); rows.MoveNext()) {
    targets_.push_back({{text_field(rows, "target"), text_field(rows, "FullName"),
                         text_field(rows, "GroupName"), text_field(rows, "URL")}});
  }
  return true;
}

std::string SelectionDetails::ConfigDetails(int info, std::optional<std::int32_t> config) {
  const std::int32_t number = config.value_or(state_.CurrentConfig);
  if (number < 0 || number >= kConfigCount) {
    messages_.msg("", "Unknown configuration type (" + general_text(number) + ")");
    return "Unknown cfg type";
  }
  if (info < 0 || info >= kConfigInfoCount) {
    messages_.msg("", "Unknown info type in configuration details (" +
                          general_text(std::int32_t{info}) + ")");
    return "Unknown cfg info";
  }
  return kConfigs[number][info];
}

}  // namespace vantrel
