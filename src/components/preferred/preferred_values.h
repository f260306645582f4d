#pragma once

#include <cstdint>
#include <string_view>

#include "core/variant.h"
#include "services/messages/sysmsg.h"

namespace vantrel {

/// Series of preferred values as the user's option names them.
enum PreferredSeries { kSeriesE12 = 0, kSeriesE24 = 1 };

/// Bits of a component's flags that demand a series.
enum ForceTypeBits { kForceE12 = 4, kForceE24 = 8 };

/// The preferred resistance nearest to `value` in ohms, from 0.001 to below 1e8, as a Double; of
/// two equally near the lower. Series 0 and 1 are rewritten to 12 and 24. Any other series is
/// reported and gives Empty.
Variant find_nearest_resistor(double value, std::int32_t& series, SysMsg& messages);

/// The same for a capacitor, from 1e-10 to below 1e7 in the unit of `value`; differences are
/// compared at 32 bits.
Variant find_nearest_capacitor(double value, std::int32_t& series, SysMsg& messages);

/// The bits that a description's text asks for: "e12" gives 4, "e24" 8 in any case of letters,
/// anything else 0.
std::int32_t ReturnForceTypeBits(std::string_view text);

/// The series that a component's bits demand, E12 before E24, else the one given.
std::int32_t OverrideSeriesBasedOnBitSettings(std::int32_t series, std::int32_t bits);

}  // namespace vantrel
