#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <string_view>

#include "components/engine_context.h"

namespace vantrel {

/// Calls component functions by name and stores what they give.
class FunctionCalls {
 public:
  /// The most parameters that a function can be called with.
  static constexpr std::size_t kMostParameters = 9;

  explicit FunctionCalls(EngineContext& context) : context_(context) {}

  /// Calls `function` on `target`, and on `generic` when `target` has none of that name and count
  /// of parameters or the call failed, and stores the result in a variable. `parameter_text` stands
  /// for the parameters in the log. True when a result was stored; failures are reported.
  bool AttemptCalculation(const Target* target, const Target* generic, std::int32_t index,
                          const std::string& function, std::span<const Variant> values,
                          const std::string& parameter_text);

 private:
  Variant call(const Target* object, const std::string& function, std::span<const Variant> values,
               std::string& fault);
  bool store(std::int32_t index, const Variant& result);
  bool storeTagged(std::int32_t index, const Variant::Array& items, std::string& text);

  EngineContext& context_;
};

}  // namespace vantrel
