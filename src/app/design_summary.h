#pragma once

#include <string>

#include "app/session.h"

namespace vantrel {

/// The design as a table for a terminal: selection, operating points, tank and PFC stage with
/// units, whatever tab they are on. Fields that this design does not use or that are empty are left
/// out.
std::string design_summary(Session& session);

}  // namespace vantrel
