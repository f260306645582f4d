#pragma once

#include <cstddef>
#include <optional>
#include <span>
#include <string_view>

#include "components/script/script_limits.h"
#include "core/variant.h"

namespace vantrel::script {

/// The number by which `call_builtin` knows a built-in function, its name in any case; nothing for
/// any other name.
std::optional<std::size_t> find_builtin(std::string_view name);

/// The function's result. Faults: "Wrong number of arguments or invalid property assignment:
/// 'name'" and those of the function.
Variant call_builtin(std::size_t builtin, std::span<const Variant> args, Budget& budget);

}  // namespace vantrel::script
