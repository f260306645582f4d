#pragma once

#include <span>
#include <string_view>

#include "core/fault.h"
#include "core/variant.h"

namespace vantrel {

/// Something that a script can call under a name, as in `Calculator.Method(1, "x")`.
class ScriptObject {
 public:
  virtual ~ScriptObject() = default;

  /// Runs `method`, spelled as the script spells it (compare without regard to case), and gives its
  /// result, Empty when it has none. Raises `unsupported_member` for a name that it does not know,
  /// `wrong_arguments` for a wrong count, and any other Fault for a call that failed.
  virtual Variant call(std::string_view method, std::span<const Variant> args) = 0;
};

/// "Object doesn't support this property or method: 'name'".
Fault unsupported_member(std::string_view name);
/// "Wrong number of arguments or invalid property assignment: 'name'".
Fault wrong_arguments(std::string_view name);

}  // namespace vantrel
