#include "selection/browser_control.h"

#include <algorithm>
#include <cstddef>
#include <iterator>
#include <utility>

#include "core/text_parsing.h"
#include "selection/record_fields.h"

namespace vantrel {

namespace {

constexpr const char* kOwner = "browser_form";

template <typename... Args>
void run(const std::function<void(Args...)>& hook, Args... args) {
  if (hook) hook(args...);
}

}  // namespace

std::string ValidItem::ListText() const { return (UserData ? "User:" : "") + PullDownName; }

browser_control::browser_control(adoaccess_class& database, SysMsg& messages, RunState& state,
                                 ItemData& items, Screen& advanced,
                                 std::span<control_bar* const> bars, SelectionHooks hooks)
    : database_(database),
      messages_(messages),
      state_(state),
      items_(items),
      advanced_(advanced),
      bars_(bars.begin(), bars.end()),
      hooks_(std::move(hooks)) {}

std::int32_t browser_control::GetInfo(int slot) const {
  return bars_.empty() ? -1 : bars_.front()->GetInfo(slot);
}

// Listing

void browser_control::Setup(int slot, PullDown* list) {
  current_slot_ = slot;
  valid_items_.clear();
  group_list_.clear();
  listed_group_ = -1;
  SlotGroups& source = groupsOf(slot);
  if (source.Loaded || loadGroups(source)) {
    listGroups(source);
    listItems();
  }
  ScrollPosition(scroll_position_);
  if (list != nullptr) fillList(*list);
}

/// Any slot but the four known ones has the reserved place, which no group type fills.
browser_control::SlotGroups& browser_control::groupsOf(int slot) {
  const bool known = slot >= 0 && slot < kSlotCount;
  return groups_[known ? static_cast<std::size_t>(slot) : kReservedSlot];
}

bool browser_control::loadGroups(SlotGroups& target) {
  // An earlier reading that met a faulty rule has left a part of them.
  target.groups.clear();
  RecordSet rows;
  if (!database_.read("select * from groups where [Group Type] = '" + quoted(CurrentType()) +
                          "' order by sequence",
                      rows)) {
    messages_.msg(kOwner, "Could not read groups table (or no entries)");
    return false;
  }
  target.Loaded = readGroups(rows, target);
  return target.Loaded;
}

bool browser_control::readGroups(RecordSet& rows, SlotGroups& target) {
  constexpr std::size_t kRowName = 2;
  for (; !rows.atEnd(); rows.MoveNext()) {
    Group group;
    group.ID = number_field(rows, "ID");
    group.Title = text_field(rows, "Group Title");
    group.Include = flag_field(rows, "Include");
    group.Picture = text_field(rows, "Group Picture");
    if (!ParseSelectionAllowed(text_field(rows, "SelectionAllowed"), NullToText(rows.at(kRowName)),
                               group.Rules, database_, messages_)) {
      rows.Close();
      return false;
    }
    target.groups.push_back(std::move(group));
  }
  return true;
}

bool browser_control::isOffered(const Group& group) const {
  if (!group.Include) return false;
  for (int slot = 0; slot < kSlotCount; ++slot) {
    if (!group.Rules[static_cast<std::size_t>(slot)].allows(GetInfo(slot))) return false;
  }
  return true;
}

void browser_control::listGroups(const SlotGroups& source) {
  for (const Group& group : source.groups) {
    if (isOffered(group)) group_list_.push_back(&group);
  }
  if (!group_list_.empty()) listed_group_ = 0;
}

/// One read for all groups: the rows keep their order inside each group.
void browser_control::listItems() {
  if (group_list_.empty()) return;
  RecordSet rows;
  database_.read("select Group, ID, Name, PullDownName, UserData from [DATA:" +
                     std::string(CurrentType()) + "] Where [RecordType] = 2 and [Include] = yes",
                 rows);
  std::vector<std::vector<ValidItem>> by_group(group_list_.size());
  for (; adoaccess_class::RSOK(rows); rows.MoveNext()) {
    ValidItem item;
    item.Group = number_value(rows.at(0));
    const int index = groupIndexOf(item.Group);
    if (index < 0) continue;
    item.ID = number_value(rows.at(1));
    item.Name = NullToText(rows.at(2));
    item.PullDownName = NullToText(rows.at(3));
    if (item.PullDownName.empty()) item.PullDownName = item.Name;
    item.UserData = flag_value(rows.at(4));
    by_group[static_cast<std::size_t>(index)].push_back(std::move(item));
  }
  for (auto& items : by_group) {
    std::move(items.begin(), items.end(), std::back_inserter(valid_items_));
  }
}

int browser_control::groupIndexOf(std::int32_t group_id) const {
  const auto found = std::find_if(group_list_.begin(), group_list_.end(),
                                  [&](const Group* group) { return group->ID == group_id; });
  return found == group_list_.end() ? -1 : static_cast<int>(found - group_list_.begin());
}

void browser_control::fillList(PullDown& list) const {
  list.items.clear();
  list.itemData.clear();
  list.selected = -1;
  for (const ValidItem& item : valid_items_) {
    if (item.ID == GetInfo(current_slot_)) list.selected = static_cast<int>(list.items.size());
    list.items.push_back(item.ListText());
    list.itemData.push_back(item.ID);
  }
}

const ValidItem* browser_control::findItem(std::int32_t id) const {
  const auto found = std::find_if(valid_items_.begin(), valid_items_.end(),
                                  [&](const ValidItem& item) { return item.ID == id; });
  return found == valid_items_.end() ? nullptr : &*found;
}

const ValidItem* browser_control::findItem(std::string_view name) const {
  const auto found =
      std::find_if(valid_items_.begin(), valid_items_.end(), [&](const ValidItem& item) {
        return trimmed(item.Name) == name || trimmed(item.PullDownName) == name;
      });
  return found == valid_items_.end() ? nullptr : &*found;
}

bool browser_control::CheckAvailable(int slot, std::int32_t id, bool select_first) {
  Setup(slot);
  if (findItem(id) != nullptr) return true;
  if (select_first && !valid_items_.empty()) {
    ItemSelect(false, slot, valid_items_.front().ID, false, false, true);
  }
  return false;
}

bool browser_control::Find(std::int32_t& id, int slot, std::string_view name, bool position) {
  if (slot >= 0) Setup(slot);
  if (id < 0) {
    const std::string wanted = trimmed(name);
    if (wanted.empty()) {
      messages_.msg(kOwner, "Invalid item ID number AND name for browser find");
      return false;
    }
    if (const ValidItem* item = findItem(wanted)) id = item->ID;
    if (id < 0) {
      messages_.msg(kOwner, "Invalid item ID number for find, incorrect search string ?");
      return false;
    }
  }
  if (position) return positionAt(id);
  if (findItem(id) == nullptr) return false;
  ItemSelect(false, current_slot_, id, false, false, false);
  return true;
}

bool browser_control::positionAt(std::int32_t id) {
  const ValidItem* item = findItem(id);
  if (item == nullptr) {
    ScrollPosition(0);
    return false;
  }
  const int index = groupIndexOf(item->Group);
  if (index < 0) {
    messages_.msg(kOwner, "Could not find item group in browser");
    return false;
  }
  if (index > scroll_position_) ScrollPosition(index);
  listed_group_ = index;
  return true;
}

// Selecting

bool browser_control::ItemSelect(bool rebuild, int slot, std::int32_t id, bool scan_others,
                                 bool load_only, bool silent) {
  run(hooks_.loadGraphTimeDomain);
  if (rebuild) Setup(slot);
  const ValidItem* item = findItem(id);
  if (item == nullptr) {
    if (!silent) {
      messages_.msg(kOwner, "ItemSelect could not find specified item in the ValidItems list!");
    }
    return false;
  }
  if (load_only) {
    items_.LoadItemData(slot, id);
    return true;
  }
  const std::string name = item->PullDownName;
  for (control_bar* bar : bars_) bar->SetInfo(slot, id, name);
  applySelection(slot, id);
  if (state_.SelectionReady) PerformInitialisationAndChecking();
  run(hooks_.clearComputedComponents);
  if (scan_others) RecheckOtherSelections(slot);
  itemSelected.raise(slot);
  return true;
}

void browser_control::applySelection(int slot, std::int32_t id) {
  switch (slot) {
    case kSlotIc:
      // The load sees the IC before: its data statements are resolved against that one.
      items_.LoadItemData(slot, id);
      state_.CurrentTarget = id;
      break;
    case kSlotInput:
    case kSlotLamp:
      items_.LoadItemData(slot, id);
      // The load has replaced the scaled values by those of one lamp.
      if (slot == kSlotLamp) items_.ScaleForConfiguration(state_.CurrentConfig, true, 7);
      run(hooks_.setFramesFromTabstrips);
      run(hooks_.magneticsSelectionChanged, slot);
      break;
    case kSlotConfig:
      items_.ScaleForConfiguration(state_.CurrentConfig, false, 7);
      state_.CurrentConfig = id;
      items_.ScaleForConfiguration(state_.CurrentConfig, true, 7);
      break;
    default:
      break;
  }
}

void browser_control::RecheckOtherSelections(int slot) {
  for (const int other : {kSlotInput, kSlotLamp, kSlotConfig}) {
    if (other != slot) CheckAvailable(other, GetInfo(other), true);
  }
}

bool browser_control::gate(std::string_view field) const {
  VTLValue* value = advanced_.findField(field);
  return value != nullptr && lower(NullToText(value->GetValue())) == "yes";
}

void browser_control::PerformInitialisationAndChecking() {
  run(hooks_.resetAdvanced);
  run(hooks_.setAdvancedLayout);
  run(hooks_.resetCalculator);
  const bool input = gate("allow_input");
  const bool config = gate("allow_config");
  const bool advanced = gate("allow_advanced");
  for (control_bar* bar : bars_) bar->SetAvailable(input, config, advanced);
  run(hooks_.enableMainButton, int{kSlotInput}, input);
  run(hooks_.enableMainButton, int{kSlotConfig}, config);
  if (advanced_.visible() && !advanced) run(hooks_.showSimpleScreen);
  if (!gate("allow_inductor")) run(hooks_.hideInductor);
  if (!gate("allow_transformer")) run(hooks_.hideTransformer);
}

// The chooser

bool browser_control::StartBrowser(int slot, std::int32_t current_id) {
  scroll_position_ = 0;
  if (current_id < 0) {
    Setup(slot);
  } else {
    Find(current_id, slot, "", true);
  }
  return groupsOf(slot).Loaded;
}

void browser_control::SelectSelectionItem(std::size_t position) {
  const std::vector<const ValidItem*> items = ItemsOfGroup(listed_group_);
  if (position >= items.size()) return;
  // Other checks may have listed another slot meanwhile, so the list is built anew.
  ItemSelect(true, current_slot_, items[position]->ID, true, false, false);
}

std::vector<const ValidItem*> browser_control::ItemsOfGroup(int group_index) const {
  std::vector<const ValidItem*> items;
  if (group_index < 0 || static_cast<std::size_t>(group_index) >= group_list_.size()) return items;
  const std::int32_t id = group_list_[static_cast<std::size_t>(group_index)]->ID;
  for (const ValidItem& item : valid_items_) {
    if (item.Group == id) items.push_back(&item);
  }
  return items;
}

int browser_control::HowManyItemsInThisGroupList(int group_index) const {
  return static_cast<int>(ItemsOfGroup(group_index).size());
}

std::string browser_control::GetMeTheSingleEntryInThisGroupList(int group_index) const {
  const std::vector<const ValidItem*> items = ItemsOfGroup(group_index);
  return items.empty() ? std::string() : trimmed(items.back()->Name);
}

int browser_control::ScrollMaximum() const {
  return std::max(0, static_cast<int>(group_list_.size()) - kGroupsInSight);
}

void browser_control::ScrollPosition(int position) {
  scroll_position_ = std::clamp(position, 0, ScrollMaximum());
}

void browser_control::ListGroup(int group_index) {
  if (group_index < 0 || static_cast<std::size_t>(group_index) >= group_list_.size()) return;
  listed_group_ = group_index;
  if (group_index < scroll_position_) ScrollPosition(group_index);
  if (group_index >= scroll_position_ + kGroupsInSight) {
    ScrollPosition(group_index - kGroupsInSight + 1);
  }
}

}  // namespace vantrel
