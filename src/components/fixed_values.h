#pragma once

#include <cstdint>
#include <string>

#include "components/calculator_script_object.h"
#include "components/engine_context.h"
#include "components/script/script_host.h"

namespace vantrel {

/// Sets variables from the texts of a row and runs the row's generator script.
class FixedValues {
 public:
  explicit FixedValues(EngineContext& context);
  FixedValues(const FixedValues&) = delete;
  FixedValues& operator=(const FixedValues&) = delete;

  /// Sets rating, tolerance, value and unit, looks the description up when there is none, and runs
  /// `code`. A unit "uF/F" says that the value is given in uF and kept in F; without a unit the
  /// value is a text. A failure is logged with a dialog and ends the routine.
  void CalculateVariableFromFixed(std::int32_t index, const std::string& value,
                                  const std::string& value_unit, const std::string& rating,
                                  const std::string& tolerance, const std::string& code);

  /// Sets value and unit alone.
  void setValue(std::int32_t index, const std::string& value, const std::string& value_unit);
  /// Runs a script of statements parted by ";" on a variable. In each, "#" reads a field of a
  /// screen and "$" sets one of the variable; both are replaced inside quotes too. A failure is
  /// logged with a dialog, ends the script and gives false.
  bool runCode(std::int32_t index, const std::string& code);

 private:
  void setConverted(std::int32_t index, const std::string& value, const std::string& units);
  void setNumber(std::int32_t index, const std::string& value, const std::string& unit);
  void setText(std::int32_t index, const std::string& value);
  bool describe(std::int32_t index);

  EngineContext& context_;
  CalculatorScriptObject script_object_;
  ScriptHost script_host_;
};

}  // namespace vantrel
