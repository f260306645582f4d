#pragma once

#include <string_view>

namespace vantrel {

/// The four selections that make a design.
enum SelectionSlot { kSlotIc = 0, kSlotInput = 1, kSlotLamp = 2, kSlotConfig = 3 };
inline constexpr int kSlotCount = 4;

/// The type word of a slot: "IC", "INPUT", "LAMP" or "CONFIG", "UNKNOWN" for any other number.
std::string_view GroupTypeName(int slot);

}  // namespace vantrel
