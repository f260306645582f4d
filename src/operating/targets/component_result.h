#pragma once

#include <cstdint>
#include <string_view>

#include "core/variant.h"

namespace vantrel {

/// What the element behind a tag of a tagged array is. A tagged array holds pairs: a tag, then its
/// content.
enum ResultTag : std::int16_t { kTagValue = 0, kTagRating = 1, kTagTolerance = 2 };

/// A tagged array that sets the value alone.
Variant value_result(Variant value);
/// A tagged array that sets the value and the rating.
Variant value_result(Variant value, std::string_view rating);
/// A tagged array that sets the rating and leaves the value as it is.
Variant rating_result(std::string_view rating);
/// The component is left out: "N/C" as value, rating and tolerance.
Variant not_connected();

/// An argument of a formula, widened to 64 bits. A text is a Fault "Type mismatch" even when it
/// spells a number; a Null is a Fault as well.
double number(const Variant& argument);

}  // namespace vantrel
