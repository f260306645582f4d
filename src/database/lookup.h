#pragma once

#include <functional>
#include <string>
#include <string_view>

#include "database/adoaccess.h"
#include "services/messages/sysmsg.h"

namespace vantrel {

/// Takes the warnings of a look-up, one line each.
using LookupLog = std::function<void(const std::string&)>;

/// Reads curves that the database holds as tables of points, by linear interpolation. A table is
/// called "Lookup:a:b" and is read afresh at each call.
class Lookup {
 public:
  Lookup(adoaccess_class& database, SysMsg& messages) : database_(database), messages_(messages) {}

  /// Value of the curve "Lookup:`a`:`b`" at `x`. Outside the table the end segment goes on,
  /// measured from the end point but anchored on the inner point, and `log` (which may be empty)
  /// takes a warning. A table that cannot be read or has fewer than two points is reported and
  /// gives 0. Raises a Fault "Division by zero" when the segment has no width, and those of a
  /// stored value that is no 32-bit number.
  float LookupInterpolate(std::string_view a, std::string_view b, float x, const LookupLog& log);

  /// `LookupInterpolate` x `multiplier` / `divisor`, rounded once. A Fault for a divisor of 0.
  float LookupValue(std::string_view a, std::string_view b, float x, double multiplier,
                    double divisor, const LookupLog& log);

 private:
  adoaccess_class& database_;
  SysMsg& messages_;
};

}  // namespace vantrel
