#pragma once

#include <cstddef>
#include <filesystem>
#include <string>

#include "app/json_variant.h"
#include "app/session.h"

namespace vantrel {

/// The whole design as JSON: selection, every field of the design screens with its unit, the
/// components, the bill of materials, and the messages from position `first_message` on.
Json design_json(Session& session, bool complete, std::size_t first_message);

/// Writes "design.json", "bom.csv" and the gain graph as "operating-points.svg" and ".png" into a
/// folder, which is made when it is missing; what the design lacks is left out. Gives the reason of
/// a failure, empty when all was written.
std::string write_design(Session& session, const Json& design, const std::filesystem::path& folder);

}  // namespace vantrel
