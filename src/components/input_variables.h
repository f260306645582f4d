#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "components/engine_context.h"
#include "components/fixed_values.h"

namespace vantrel {

/// The variables that a calculation takes from fields of the screens, by the rows of
/// [CC:SourceVariables].
class InputVariables {
 public:
  InputVariables(EngineContext& context, FixedValues& fixed_values)
      : context_(context), fixed_values_(fixed_values) {}

  bool IsVariableACCInputVariable(std::string_view name);
  /// The index of the variable, fetched from its field when it has no value yet; -1, reported, when
  /// it has no source, or a blank one. A row without a source may hold a constant instead. Raises a
  /// Fault when the source names no field of its screen.
  std::int32_t EnsureCCInputVariableHasAValue(std::string_view name);

 private:
  RecordSet& sourceRow(std::string_view name);
  std::int32_t createFor(std::string_view name);
  std::int32_t takeConstant(std::string_view name, const RecordSet& row);
  std::int32_t fetch(std::string_view name, const RecordSet& row, const std::string& form,
                     const std::string& control);
  void setFromField(std::int32_t index, const VTLValue& field, const RecordSet& row);

  EngineContext& context_;
  FixedValues& fixed_values_;
};

}  // namespace vantrel
