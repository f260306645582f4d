#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "selection/browser_control.h"

namespace vantrel {

/// An item that a search has found.
struct ItemHit {
  int groupIndex = -1;       ///< Index of its group among those on offer.
  std::size_t position = 0;  ///< Position in that group.
  std::int32_t id = -1;
  std::string text;   ///< As in the list of items.
  std::string group;  ///< Title of the group in one line.
};

/// The items of all groups on offer in whose name, or in whose group's title, every word of `text`
/// occurs, without regard to case; in the order of the groups. A blank text finds nothing.
std::vector<ItemHit> SearchItems(const browser_control& browser, std::string_view text);

}  // namespace vantrel
