#pragma once

#include <array>
#include <cstdint>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "database/adoaccess.h"
#include "selection/slots.h"
#include "services/messages/sysmsg.h"

namespace vantrel {

/// The items of one type by which a group is offered or hidden.
struct SelectionList {
  bool IsNot = false;
  std::vector<std::int32_t> Ids;

  /// True when the selected item `id` allows the group: it is one of the items, or with `IsNot`
  /// none of them. A list without items allows everything.
  bool allows(std::int32_t id) const;
};

/// One list for each slot.
using SelectionRules = std::array<SelectionList, kSlotCount>;

/// Reads the rule text of a group, a comma list of TYPE#NAME and !TYPE#NAME items, into `rules`.
/// `row_name` is the text of the group's row that the message of a mixed list shows. A fault is
/// reported, ends the reading and gives false.
bool ParseSelectionAllowed(std::string_view text, std::string_view row_name, SelectionRules& rules,
                           adoaccess_class& database, SysMsg& messages);

}  // namespace vantrel
