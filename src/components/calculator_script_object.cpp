#include "components/calculator_script_object.h"

#include "core/fault.h"
#include "core/text_parsing.h"

namespace vantrel {

namespace {

void expect_count(std::span<const Variant> args, std::size_t count, std::string_view method) {
  if (args.size() != count) throw wrong_arguments(method);
}

}  // namespace

Variant CalculatorScriptObject::call(std::string_view method, std::span<const Variant> args) {
  if (equal_ignoring_case(method, "ScriptGetVTLValue")) {
    expect_count(args, 2, method);
    return ScriptGetVTLValue(to_text(args[0]), to_text(args[1]));
  }
  if (equal_ignoring_case(method, "ScriptSetComponent")) {
    expect_count(args, 3, method);
    ScriptSetComponent(args[0], to_text(args[1]), args[2]);
    return {};
  }
  throw unsupported_member(method);
}

Variant CalculatorScriptObject::ScriptGetVTLValue(const std::string& form,
                                                  const std::string& control) {
  try {
    Screen* const screen = context_.services.screens.find(form);
    if (screen == nullptr) {
      context_.box("Fatal error : ScriptGetVTLValue could not find form " + form);
      throw Fault(fault_text::kSubscript);
    }
    return screen->field(control).GetValue();
  } catch (const Fault& fault) {
    context_.box("ScriptGetVTLValue : Error (" + std::string(fault.what()) + ") form '" + form +
                 "', control '" + control + "'");
    return {};
  }
}

void CalculatorScriptObject::ScriptSetComponent(const Variant& index, const std::string& field,
                                                const Variant& value) {
  context_.variables.VSet(index, field, value);
}

}  // namespace vantrel
