#include "selection/slots.h"

#include <array>
#include <cstddef>

namespace vantrel {

std::string_view GroupTypeName(int slot) {
  static constexpr std::array<std::string_view, kSlotCount> kNames = {"IC", "INPUT", "LAMP",
                                                                      "CONFIG"};
  if (slot < 0 || slot >= kSlotCount) return "UNKNOWN";
  return kNames[static_cast<std::size_t>(slot)];
}

}  // namespace vantrel
