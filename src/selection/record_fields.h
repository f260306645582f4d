#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "core/variant.h"
#include "database/adoaccess.h"

namespace vantrel {

// Reads of design data that a careless hand may have edited: a value of the wrong kind counts as if
// it were missing.

/// Trimmed text of a field of the current row, empty for a Null.
std::string text_field(const RecordSet& row, std::string_view name);
/// True for a Boolean true and any number but 0.
bool flag_value(const Variant& value);
bool flag_field(const RecordSet& row, std::string_view name);
/// The number in 32 bits, 0 when there is none.
std::int32_t number_value(const Variant& value);
std::int32_t number_field(const RecordSet& row, std::string_view name);

/// The trimmed entries of a comma list; an empty text has one empty entry.
std::vector<std::string> comma_list(std::string_view text);

}  // namespace vantrel
