#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "selection/browser_control.h"

namespace vantrel {

/// One of the pictures of the chooser.
struct GroupTile {
  int groupIndex = -1;
  std::string firstLine;   ///< Title before the "/".
  std::string secondLine;  ///< The rest of the title with the count, or the name of a single item.
  std::string picture;     ///< Path below the program's folder.
  std::string marker;      ///< " (Currently Selected)" on the group of the present selection.
};

/// Caption of the chooser's window for a slot: "Select Target IC" and so on.
std::string_view ChooserCaption(int slot);
/// Caption of the frame of groups: "Available target ICs" and so on.
std::string AvailableCaption(int slot);
/// Title of a group in one line: the "/" becomes a blank.
std::string GroupTitleLine(std::string_view title);
/// The groups in sight from the scroll position on, at most four.
std::vector<GroupTile> SelectionPictures(const browser_control& browser);
/// The group titles of the list, in one line each.
std::vector<std::string> GroupLines(const browser_control& browser);
/// Heading of the item list of the listed group, such as "Lamp : Select type of T5 High Output";
/// empty when no group is on offer.
std::string SelectionTitle(const browser_control& browser);
/// The items of the listed group; items of the user carry "User:" in front.
std::vector<std::string> SelectionLines(const browser_control& browser);
/// True when the button for user data is shown: for lamps only.
bool IsEditShown(const browser_control& browser);
/// True when the button for user data is enabled: from the fourth group on.
bool IsEditEnabled(const browser_control& browser);

}  // namespace vantrel
