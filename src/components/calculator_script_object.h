#pragma once

#include <span>
#include <string>
#include <string_view>

#include "components/engine_context.h"
#include "components/script/script_object.h"

namespace vantrel {

/// The object that generator scripts reach under the name "Calculator".
class CalculatorScriptObject : public ScriptObject {
 public:
  explicit CalculatorScriptObject(EngineContext& context) : context_(context) {}

  /// Answers to ScriptGetVTLValue and ScriptSetComponent.
  Variant call(std::string_view method, std::span<const Variant> args) override;

  /// The value of a field on any loaded screen. An unknown screen or field is told in a box and
  /// gives Empty.
  Variant ScriptGetVTLValue(const std::string& form, const std::string& control);
  /// Sets a field of a variable of the calculation.
  void ScriptSetComponent(const Variant& index, const std::string& field, const Variant& value);

 private:
  EngineContext& context_;
};

}  // namespace vantrel
