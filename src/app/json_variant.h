#pragma once

#include <nlohmann/json.hpp>

#include "core/variant.h"

namespace vantrel {

using Json = nlohmann::json;

/// A value as JSON. Numbers read back exactly; Empty and Null are null.
Json to_json(const Variant& value);

/// A JSON value as Variant: whole numbers of 32 bits are Long, other numbers Double, null is Empty.
/// The object {"type": "Single", "value": 0.1} makes a value of that type name. A Fault
/// "Type mismatch" for anything else.
Variant from_json(const Json& json);

}  // namespace vantrel
