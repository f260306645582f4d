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
Json op_answers(Session& session, const Json& command);
Json op_sql(Session& session, const Json& command);

/// Required text argument.
std::string text_argument(const Json& command, const char* name);
/// Number of the slot that the argument "slot" names: IC, INPUT, LAMP or CONFIG.
int slot_argument(const Json& command);
/// The messages from position `from` on as JSON.
Json messages_json(const SysMsg& messages, std::size_t from);

}  // namespace vantrel
