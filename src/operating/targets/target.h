#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <span>
#include <string>
#include <string_view>
#include <unordered_map>

#include "core/run_state.h"
#include "core/screen.h"
#include "core/variant.h"
#include "services/messages/sysmsg.h"

namespace vantrel {

/// A tank formula: 32-bit arguments in, a 64-bit result out. It fails by its floating-point flags
/// (see FpTrap), so it needs no test of its own.
using TankFormula = double (*)(std::span<const float> arguments);

struct TankEntry {
  std::string_view name;
  int arity;
  TankFormula formula;
};

/// What a component function may read besides its arguments.
struct ComponentContext {
  Screen& advanced;
  const RunState& state;
  /// Takes the text of a failure that a function trapped; may be nothing.
  std::string* fault = nullptr;
};

/// A component function. Arguments are the variables' values as they are. The result is a tagged
/// array (see tagged), a text or a plain number; Empty says that the function trapped a failure of
/// its own. A Fault that leaves the function is a failed call, as if the name were missing.
using ComponentFunction = Variant (*)(const ComponentContext& context,
                                      std::span<const Variant> arguments);

struct ComponentEntry {
  std::string_view name;
  int arity;
  ComponentFunction function;
};

/// The calculations that one control IC answers to by name. It holds no state.
class Target {
 public:
  Target(std::string_view name, std::span<const TankEntry> formulas,
         std::span<const ComponentEntry> components);

  const std::string& name() const { return name_; }
  /// The entry of that exact name, or nothing.
  const TankEntry* tankFormula(std::string_view name) const;
  const ComponentEntry* component(std::string_view name) const;
  std::span<const ComponentEntry> components() const { return components_; }

 private:
  std::string name_;
  std::span<const ComponentEntry> components_;
  std::unordered_map<std::string_view, const TankEntry*> formula_index_;
  std::unordered_map<std::string_view, const ComponentEntry*> component_index_;
};

inline constexpr std::int32_t kTargetCount = 10;

// One source each; the tables they refer to live as long as the program.
Target make_tv6101();
Target make_tv6102();
Target make_tv6103();
Target make_tv6104();
Target make_tv6105();
Target make_tv6106();
Target make_tv6107();
Target make_tv6108();
Target make_tv6109();
Target make_tv6110();
/// The generic target: the ten tank formulas and the component functions that serve every IC.
Target make_tvGenericTarget();

/// The target objects of a run, made at first use.
class TargetFactory {
 public:
  explicit TargetFactory(SysMsg& messages, const RunState& state)
      : messages_(messages), state_(state) {}

  /// The object of target 0 to 9: TV6101, TV6103, TV6102, TV6104, TV6105, TV6106, TV6108, TV6109,
  /// TV6110, TV6107. Any other number reports "Unknown target type : " and gives nothing.
  const Target* TargetFromNumber(std::int32_t number);
  const Target& generic();

 private:
  SysMsg& messages_;
  const RunState& state_;
  std::unique_ptr<Target> targets_[kTargetCount];
  std::unique_ptr<Target> generic_;
};

}  // namespace vantrel
