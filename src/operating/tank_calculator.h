#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <string_view>

#include "core/variant.h"
#include "operating/targets/target.h"
#include "services/messages/sysmsg.h"

namespace vantrel {

/// Calls the tank formulas by name: first in the selected IC, then in the generic target.
class TankCalculator {
 public:
  TankCalculator(TargetFactory& factory, SysMsg& messages)
      : factory_(factory), messages_(messages) {}

  /// Chooses the IC whose formulas go first. False, with a report, when there is no such IC; no IC
  /// is selected then, and only the generic formulas answer.
  bool SelectTarget(std::int32_t number);

  /// The result of a formula. 0 and `CalculationFailed` when the formula fails (silently), or when
  /// no formula of that name takes that many arguments (reported). More than nine arguments are
  /// refused.
  float CalculateResult(std::string_view name, std::span<const float> arguments);
  /// The same with dynamically typed arguments, each converted to 32 bits first; an argument that
  /// does not convert is a Fault.
  float CalculateResult(std::string_view name, std::span<const Variant> arguments);

  /// Set by a failed call, cleared by the caller.
  bool CalculationFailed = false;

  static constexpr std::size_t kMaxArguments = 9;

 private:
  float fail();

  TargetFactory& factory_;
  SysMsg& messages_;
  const Target* selected_ = nullptr;
  const Target* generic_ = nullptr;
};

}  // namespace vantrel
