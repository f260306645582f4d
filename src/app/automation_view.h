#pragma once

#include "app/automation.h"
#include "app/session.h"

namespace vantrel {

// The operations on the view of the simulated start, in the form of those in automation_ops.h.
Json op_view(Session& session, const Json& command);
Json op_measure(Session& session, const Json& command);

/// The last run as the last "view" has set it, and before the first one the whole of it, as far as
/// one view can show it, on fitting axes.
Picture time_domain_picture(Session& session);

}  // namespace vantrel
