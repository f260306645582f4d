#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "database/adoaccess.h"

namespace vantrel {

/// What a main window shows of the selected item of a slot.
struct SelectionCard {
  std::string name;     ///< Full name of the item, empty without one.
  std::string group;    ///< Title of its group in one line.
  std::string picture;  ///< Picture of the group, a path below the program's folder.
};

/// "Target IC", "Line Input", "Lamp" or "Lamp Configuration"; empty for any other slot.
std::string_view SlotCaption(int slot);

/// Reads the card of item `id` of a slot. What the database does not know stays empty, without a
/// report; what the browser lists is left alone.
SelectionCard ReadSelectionCard(adoaccess_class& database, int slot, std::int32_t id);

}  // namespace vantrel
