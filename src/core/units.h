#pragma once

#include <string>
#include <string_view>

#include "core/variant.h"
#include "services/messages/sysmsg.h"

namespace vantrel {

// SI prefixes: "p", "n", "u", "m", none, "k" or "K", "M".

/// From a display unit to base units: (2, "uH", "H") gives 2e-6. The prefix is what stands before
/// the first occurrence of `type` in `postfix`. An unknown type or prefix is reported and gives 0.
float si_from(double value, std::string_view postfix, std::string_view type, SysMsg& messages);

/// The inverse of `si_from`.
float si_to(double value, std::string_view postfix, std::string_view type, SysMsg& messages);

/// The value scaled for display, by its size or by the prefix `fix`. A text, and any value with an
/// unknown `fix` (which is reported), come back unchanged.
Variant si_scale(const Variant& value, std::string_view fix, SysMsg& messages);
float si_scale_single(double value, std::string_view fix, SysMsg& messages);

/// From a number that is expressed with prefix `letter` to base units; a text is left alone.
Variant si_unscale(const Variant& value, std::string_view letter);

/// The prefix that `si_scale` would use; empty for a text and for 0.
std::string si_prefix(const Variant& value, std::string_view fix, SysMsg& messages);

/// Scaled number by `format_mask`, prefix and unit in one text; 0 shows as "0".
std::string si_text(double value, std::string_view unit, std::string_view mask,
                    std::string_view fix, SysMsg& messages);

}  // namespace vantrel
