#pragma once

#include "app/automation.h"
#include "app/session.h"

namespace vantrel {

/// Explains a variable of the last component calculation; all values stand as they are kept.
Json op_explain(Session& session, const Json& command);

}  // namespace vantrel
