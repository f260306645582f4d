#pragma once

#include <functional>
#include <map>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "core/vtl_value.h"

namespace vantrel::builder {

/// Component functions of one object and the number of arguments of each.
using FunctionArities = std::map<std::string, int, std::less<>>;

/// What the program knows by name and the sources may refer to.
struct Vocabulary {
  std::span<const FieldSpec> fields;               ///< Fields of the design screen.
  bool (*calculated)(std::string_view) = nullptr;  ///< True for a calculated field, in lower case.
  std::vector<std::string> config_codes;           ///< Short codes of the lamp configurations.
  std::vector<std::string> targets;                ///< Short names of the ICs by target number.
  std::vector<FunctionArities> functions;          ///< The ICs' own functions by target number.
  FunctionArities generic_functions;               ///< Functions that serve every IC.

  /// The field of that name regardless of case, or nothing.
  const FieldSpec* field(std::string_view name) const;
};

/// The vocabulary of this build of the program.
Vocabulary program_vocabulary();

}  // namespace vantrel::builder
