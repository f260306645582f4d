#include "components/engine_context.h"

#include "core/units.h"

namespace vantrel {

EngineContext::EngineContext(const CalculatorServices& used)
    : services(used), variables(used.messages), rows(used.database) {}

void EngineContext::readSelection() {
  selection.ic = to_text(services.details.TargetDetails(kTargetName));
  selection.input = to_text(services.advanced.field("line_input_schematic").value());
  selection.config = services.details.ConfigDetails(kConfigShortCode);
}

std::optional<std::int32_t> EngineContext::create(std::string_view name) {
  const std::int32_t index = variables.CreateVariableEntry(name);
  if (index >= variables.VariableCount()) return std::nullopt;
  return index;
}

void EngineContext::fatal(std::string_view text) {
  abort = true;
  logAndShow(text);
}

std::string EngineContext::scaledText(const Variant& value, std::string_view unit) {
  SysMsg& messages = services.messages;
  return to_text(si_scale(value, "", messages)) + " " + si_prefix(value, "", messages) +
         std::string(unit);
}

std::string_view type_name(const Target* target) {
  return target == nullptr ? std::string_view("Nothing") : std::string_view(target->name());
}

}  // namespace vantrel
