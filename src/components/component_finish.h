#pragma once

#include <cstdint>
#include <string_view>

#include "components/engine_context.h"

namespace vantrel {

/// Flags of a component: which series it is matched to whatever its description says.
enum MatchBits : std::int32_t { kMatchResistor = 1, kMatchCapacitor = 2 };

/// The description row of a reference. Without one the calculation stops, with a message, and the
/// rows stand at their end.
RecordSet& find_description(EngineContext& context, std::string_view reference);

/// Gives a calculated component its description and, unless it was set directly, rounds its value
/// and matches it to a series of preferred values, as the description row of its reference says. A
/// variable without a reference, and a value that is a text, stay as they are. Returns 0, or 1 when
/// there is no description row.
int finish_component(EngineContext& context, std::int32_t index, bool set_directly);

}  // namespace vantrel
