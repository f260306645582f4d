#pragma once

#include <functional>
#include <span>
#include <string>
#include <string_view>

#include "core/screen.h"
#include "magnetics/core_table.h"

namespace vantrel {

/// What the buttons of a designer reach beyond the designer itself; each may be empty.
struct DesignerHooks {
  std::function<void()> print;          ///< Prints the screen.
  std::function<void()> editUserData;   ///< Lets the user edit core types.
  std::function<void()> showDatasheet;  ///< Shows the drawing of the core.
};

/// Calls a hook unless it is empty.
void call_hook(const std::function<void()>& hook);

/// The unit that a designer counts a field in: "mH" is "H" with the prefix "m".
struct CountedUnit {
  std::string_view unit;
  std::string_view base;
};

/// The field's number in the unit that the designer counts it in, 0 when the field is empty, which
/// is added to the missing fields. A field holds the number in the unit of its label, and a load
/// may have changed the prefix there: 80 labelled "mApk" is 0.08 in "A". An unknown unit is
/// reported and gives 0.
double required_number(VTLValue& field, const CountedUnit& counted, SysMsg& messages);

/// The size of the core that a pull-down shows, empty without one.
std::string shown_core(const PullDown& list);
/// Shows the core of that size; a size that the list lacks, such as the empty one, shows nothing.
void show_core(PullDown& list, std::string_view size);
/// Replaces the sizes on offer and goes on showing the same core if it is still there.
void fill_core_list(PullDown& list, std::span<const CoreType> cores);

}  // namespace vantrel
