#include "selection/browser_view.h"

#include <algorithm>
#include <cstddef>

#include "core/number_text.h"
#include "core/text_parsing.h"

namespace vantrel {

namespace {

struct SlotTexts {
  std::string_view chooser;
  std::string_view available;
  std::string_view prefix;
};

const SlotTexts& texts_of(int slot) {
  static constexpr SlotTexts kTexts[kSlotCount] = {
      {"Select Target IC", "target ICs", "Target IC : "},
      {"Select Line Input", "line inputs", "Line Input : "},
      {"Select Lamp", "lamp groups", "Lamp : "},
      {"Select Lamp Configuration", "lamp configurations", "Lamp Configuration : "},
  };
  static constexpr SlotTexts kNone = {};
  return slot >= 0 && slot < kSlotCount ? kTexts[slot] : kNone;
}

bool holds_selection(const browser_control& browser, int group_index) {
  const std::int32_t selected = browser.GetInfo(browser.CurrentSlot());
  const std::vector<const ValidItem*> items = browser.ItemsOfGroup(group_index);
  return std::any_of(items.begin(), items.end(),
                     [&](const ValidItem* item) { return item->ID == selected; });
}

GroupTile make_tile(const browser_control& browser, int group_index) {
  const Group& group = *browser.GroupList()[static_cast<std::size_t>(group_index)];
  const std::size_t slash = group.Title.find('/');
  GroupTile tile;
  tile.groupIndex = group_index;
  tile.picture = group.Picture;
  tile.firstLine = trimmed(group.Title.substr(0, slash));
  if (slash != std::string::npos) tile.secondLine = trimmed(group.Title.substr(slash + 1));
  const std::int32_t count = browser.HowManyItemsInThisGroupList(group_index);
  if (count == 1) tile.secondLine = browser.GetMeTheSingleEntryInThisGroupList(group_index);
  if (count > 1) {
    tile.secondLine = trimmed(tile.secondLine + " - " + general_text(count) + " Types");
  }
  if (holds_selection(browser, group_index)) tile.marker = " (Currently Selected)";
  return tile;
}

}  // namespace

std::string_view ChooserCaption(int slot) { return texts_of(slot).chooser; }

std::string AvailableCaption(int slot) {
  return "Available " + std::string(texts_of(slot).available);
}

std::string GroupTitleLine(std::string_view title) {
  return trimmed(ReplaceCharacter(title, '/', " "));
}

std::vector<GroupTile> SelectionPictures(const browser_control& browser) {
  std::vector<GroupTile> tiles;
  const int first = browser.ScrollPosition();
  const int end = std::min(first + kGroupsInSight, static_cast<int>(browser.GroupList().size()));
  for (int index = first; index < end; ++index) tiles.push_back(make_tile(browser, index));
  return tiles;
}

std::vector<std::string> GroupLines(const browser_control& browser) {
  std::vector<std::string> lines;
  for (const Group* group : browser.GroupList()) lines.push_back(GroupTitleLine(group->Title));
  return lines;
}

std::string SelectionTitle(const browser_control& browser) {
  const int listed = browser.ListedGroup();
  if (listed < 0) return {};
  std::string title(texts_of(browser.CurrentSlot()).prefix);
  if (browser.HowManyItemsInThisGroupList(listed) > 1) title += "Select type of ";
  return title + GroupTitleLine(browser.GroupList()[static_cast<std::size_t>(listed)]->Title);
}

std::vector<std::string> SelectionLines(const browser_control& browser) {
  std::vector<std::string> lines;
  for (const ValidItem* item : browser.ItemsOfGroup(browser.ListedGroup())) {
    lines.push_back(item->ListText());
  }
  return lines;
}

bool IsEditShown(const browser_control& browser) { return browser.CurrentSlot() == kSlotLamp; }

bool IsEditEnabled(const browser_control& browser) {
  constexpr int kFirstEditableGroup = 3;
  return IsEditShown(browser) && browser.ListedGroup() >= kFirstEditableGroup;
}

}  // namespace vantrel
