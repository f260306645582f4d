#pragma once

#include <string>

#include "app/automation.h"
#include "app/session.h"

namespace vantrel {

// One routine for each operation. It returns what the reply gets besides "ok" and "messages", and
// throws a CommandError when the command itself is wrong.
Json op_select(Session& session, const Json& command);
Json op_items(Session& session, const Json& command);
Json op_set(Session& session, const Json& command);
Json op_get(Session& session, const Json& command);
Json op_calculate(Session& session, const Json& command);
Json op_formula(Session& session, const Json& command);
Json op_convert(Session& session, const Json& command);
Json op_dump(Session& session, const Json& command);
Json op_component(Session& session, const Json& command);
Json op_statement(Session& session, const Json& command);
Json op_design_inductor(Session& session, const Json& command);
Json op_design_transformer(Session& session, const Json& command);
Json op_history(Session& session, const Json& command);
Json op_command(Session& session, const Json& command);
Json op_option(Session& session, const Json& command);
Json op_save(Session& session, const Json& command);
Json op_load(Session& session, const Json& command);
Json op_validate(Session& session, const Json& command);
Json op_export(Session& session, const Json& command);
Json op_print(Session& session, const Json& command);
Json op_answers(Session& session, const Json& command);
Json op_sql(Session& session, const Json& command);

/// Texts of the drawing on show with their places in its units.
Json dump_drawing(Session& session);

/// Required text argument.
std::string text_argument(const Json& command, const char* name);
/// Required whole-number argument.
std::int32_t number_argument(const Json& command, const char* name);
/// Argument that is true or false; `fallback` when it is missing.
bool flag_argument(const Json& command, const char* name, bool fallback);
/// Argument that is a list of values; empty when it is missing.
Variant::Array list_argument(const Json& command, const char* name);
/// A field with its value, unit and looks.
Json field_json(const VTLValue& field);
/// All fields of a screen by "Screen.field" or, in a control group, "Screen.field(index)".
Json fields_json(const Screen& screen);
/// The bill of materials, one object for each line.
Json bill_json(const BomStore& store);
/// A variable of the component calculator with all of its columns.
Json variable_json(const VariableEntry& variable);
/// Number of the slot that the argument "slot" names: IC, INPUT, LAMP or CONFIG.
int slot_argument(const Json& command);
/// The messages from position `from` on as JSON.
Json messages_json(const SysMsg& messages, std::size_t from);

}  // namespace vantrel
