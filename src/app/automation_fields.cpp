#include <optional>

#include "app/automation_ops.h"
#include "core/number_text.h"
#include "core/text_parsing.h"

namespace vantrel {

namespace {

struct Place {
  Screen* screen;
  std::string control;
};

/// Splits "Advanced.LValue" at its first dot.
Place place_argument(Session& session, const Json& command) {
  const std::string name = text_argument(command, "field");
  const std::size_t dot = name.find('.');
  if (dot == std::string::npos)
    throw CommandError("A field is named as Screen.field: '" + name + "'");
  Screen* screen = session.screens().find(name.substr(0, dot));
  if (screen == nullptr) throw CommandError("Unknown screen '" + name.substr(0, dot) + "'");
  return {screen, name.substr(dot + 1)};
}

int index_argument(const Json& command) {
  return command.contains("index") ? number_argument(command, "index") : -1;
}

std::string key_of(const VTLValue& field) {
  std::string key = field.GetOwnerForm().name() + "." + field.Name();
  if (field.Index() >= 0) key += "(" + std::to_string(field.Index()) + ")";
  return key;
}

void require_storable(const VTLValue& field, const Json& value) {
  if (value.is_null()) return;
  const bool plain =
      field.ValueType() == kNumeric
          ? value.is_number() || (value.is_string() && (value.get<std::string>().empty() ||
                                                        parse_number(value.get<std::string>())))
          : value.is_string() || value.is_number();
  if (!plain) {
    throw CommandError(value.dump(-1, ' ', false, Json::error_handler_t::replace) +
                       " is no value for field '" + key_of(field) + "', which stays as it is");
  }
}

Json set_field(VTLValue& field, const Json& command) {
  const auto value = command.find("value");
  if (value != command.end()) require_storable(field, *value);
  if (const auto fixed = command.find("fixed"); fixed != command.end()) {
    if (!fixed->is_boolean()) throw CommandError("Argument 'fixed' is neither true nor false");
    if (!field.ValueFix()) throw CommandError("Field '" + key_of(field) + "' has no tick");
    field.SetFixed(fixed->get<bool>());
  }
  if (value != command.end()) field.SetValue(from_json(*value));
  return {{"value", to_json(field.value())}, {"fixed", field.IsFixed()}};
}

Json set_pull_down(PullDown& list, const Json& command) {
  const std::string text = text_argument(command, "value");
  for (std::size_t i = 0; i < list.items.size(); ++i) {
    if (list.items[i] == text) {
      list.selected = static_cast<int>(i);
      return {{"value", text}};
    }
  }
  throw CommandError("List '" + list.name + "' has no row '" + text + "'");
}

Json set_tick_box(TickBox& box, const Json& command) {
  const auto value = command.find("value");
  if (value == command.end() || !value->is_boolean()) {
    throw CommandError("Tick box '" + box.name + "' takes true or false");
  }
  box.checked = value->get<bool>();
  return {{"value", box.checked}};
}

}  // namespace

Json field_json(const VTLValue& field) {
  Json json{{"value", to_json(field.value())},
            {"type", field.value().type_name()},
            {"unit", field.UnitText()},
            {"display", field.DisplayText()},
            {"style", field.StyleType()},
            {"fixed", field.IsFixed()},
            {"visible", field.GetOwnerForm().isFieldShown(field)},
            {"label", field.ValueLabel()}};
  if (field.Index() >= 0) json["index"] = field.Index();
  return json;
}

Json fields_json(const Screen& screen) {
  Json fields = Json::object();
  for (const auto& field : screen.fields()) fields[key_of(*field)] = field_json(*field);
  return fields;
}

Json op_set(Session& session, const Json& command) {
  const Place place = place_argument(session, command);
  if (place.screen == &session.options()) throw CommandError("Options are set by the op 'option'");
  if (VTLValue* field = place.screen->findField(place.control, index_argument(command))) {
    return set_field(*field, command);
  }
  if (PullDown* list = place.screen->findPullDown(place.control, index_argument(command))) {
    return set_pull_down(*list, command);
  }
  if (TickBox* box = place.screen->findTickBox(place.control, index_argument(command)))
    return set_tick_box(*box, command);
  throw CommandError("Screen '" + place.screen->name() + "' has no field '" + place.control + "'");
}

Json op_get(Session& session, const Json& command) {
  const Place place = place_argument(session, command);
  if (place.control == "*") return {{"fields", fields_json(*place.screen)}};
  if (VTLValue* field = place.screen->findField(place.control, index_argument(command))) {
    return {{"fields", {{key_of(*field), field_json(*field)}}}};
  }
  throw CommandError("Screen '" + place.screen->name() + "' has no field '" + place.control + "'");
}

}  // namespace vantrel
