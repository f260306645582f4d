#include "app/selection_options.h"

#include <CLI/CLI.hpp>
#include <array>
#include <charconv>

#include "core/number_text.h"

namespace vantrel {

namespace {

struct SlotChoice {
  int slot;
  const char* what;
  const std::string& wanted;
};

/// An item by its name, or by its number when the text is one.
bool choose(Session& session, const SlotChoice& choice, std::string& why) {
  if (choice.wanted.empty()) return true;
  if (session.selectByName(choice.slot, choice.wanted)) return true;
  std::int32_t number = -1;
  const char* const end = choice.wanted.data() + choice.wanted.size();
  const auto read = std::from_chars(choice.wanted.data(), end, number);
  if (read.ec == std::errc() && read.ptr == end && session.selectById(choice.slot, number)) {
    return true;
  }
  why = std::string(choice.what) + " '" + choice.wanted + "' is unknown or not allowed here";
  return false;
}

VTLValue* field_named(Session& session, const std::string& name, std::string& why) {
  const std::size_t dot = name.find('.');
  Screen* screen = dot == std::string::npos ? nullptr : session.screens().find(name.substr(0, dot));
  VTLValue* field = screen == nullptr ? nullptr : screen->findField(name.substr(dot + 1));
  if (field == nullptr) why = "No field '" + name + "' (fields are named as Screen.field)";
  return field;
}

bool set_field(Session& session, const std::string& setting, std::string& why) {
  const std::size_t equals = setting.find('=');
  if (equals == std::string::npos) {
    why = "--set wants Screen.field=value, not '" + setting + "'";
    return false;
  }
  VTLValue* field = field_named(session, setting.substr(0, equals), why);
  if (field == nullptr) return false;
  const std::string text = setting.substr(equals + 1);
  if (field->ValueType() == kNumeric && !parse_number(text)) {
    why = "'" + text + "' is no number for " + setting.substr(0, equals);
    return false;
  }
  field->SetValue(text);
  return true;
}

bool fix_field(Session& session, const std::string& name, std::string& why) {
  VTLValue* field = field_named(session, name, why);
  if (field == nullptr) return false;
  if (!field->ValueFix()) {
    why = "Field '" + name + "' cannot be fixed";
    return false;
  }
  field->SetFixValue(true);
  return true;
}

}  // namespace

void add_selection_options(CLI::App& command, SelectionOptions& options) {
  command.add_option("--ic", options.ic, "Control IC, by name or number");
  command.add_option("--input", options.input, "Line input");
  command.add_option("--lamp", options.lamp, "Lamp");
  command.add_option("--config", options.config, "Lamp configuration");
}

void add_field_options(CLI::App& command, SelectionOptions& options) {
  command.add_option("--set", options.sets, "Screen.field=value, may be repeated")
      ->allow_extra_args(false);
  command.add_option("--fix", options.fixes, "Screen.field to keep as set, may be repeated")
      ->allow_extra_args(false);
}

bool apply_selection_options(Session& session, const SelectionOptions& options, std::string& why) {
  const std::array<SlotChoice, 4> choices{{{0, "Control IC", options.ic},
                                           {1, "Line input", options.input},
                                           {2, "Lamp", options.lamp},
                                           {3, "Configuration", options.config}}};
  for (const SlotChoice& choice : choices) {
    if (!choose(session, choice, why)) return false;
  }
  for (const std::string& setting : options.sets) {
    if (!set_field(session, setting, why)) return false;
  }
  for (const std::string& name : options.fixes) {
    if (!fix_field(session, name, why)) return false;
  }
  return true;
}

}  // namespace vantrel
