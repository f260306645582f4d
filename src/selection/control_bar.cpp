#include "selection/control_bar.h"

#include <cstddef>
#include <utility>

namespace vantrel {

namespace {
bool is_slot(int slot) { return slot >= 0 && slot < kSlotCount; }
}  // namespace

control_bar::control_bar(ControlBarHooks hooks) : hooks_(std::move(hooks)) {
  for (int slot = 0; slot < kSlotCount; ++slot) {
    pull_downs_[static_cast<std::size_t>(slot)].name = GroupTypeName(slot);
  }
  pull_downs_[kDetailsList].name = "details";
}

void control_bar::SetInfo(int slot, std::int32_t id, const std::string& name) {
  if (!is_slot(slot)) return;
  infos_[static_cast<std::size_t>(slot)].id = id;
  SetSelection(slot, name);
}

void control_bar::SetSelection(int slot, const std::string& name) {
  if (!is_slot(slot)) return;
  infos_[static_cast<std::size_t>(slot)].name = name;
  changed.raise();
}

std::int32_t control_bar::GetInfo(int slot) const {
  return is_slot(slot) ? infos_[static_cast<std::size_t>(slot)].id : -1;
}

const std::string& control_bar::GetInfoName(int slot) const {
  static const std::string kNoName;
  return is_slot(slot) ? infos_[static_cast<std::size_t>(slot)].name : kNoName;
}

void control_bar::SetAvailable(bool input, bool config, bool advanced) {
  infos_[kSlotInput].available = input;
  infos_[kSlotConfig].available = config;
  advanced_available_ = advanced;
  settleSelectors();
  set_enabled_byname("c_advanced", advanced);
}

bool control_bar::IsSlotAvailable(int slot) const {
  return is_slot(slot) && infos_[static_cast<std::size_t>(slot)].available;
}

void control_bar::SetEnabledStateOfAllSelectors(bool enabled) {
  selectors_enabled_ = enabled;
  settleSelectors();
  changed.raise();
}

void control_bar::settleSelectors() {
  for (std::size_t slot = 0; slot < infos_.size(); ++slot) {
    pull_downs_[slot].enabled = selectors_enabled_ && infos_[slot].available;
  }
}

void control_bar::set_status(std::string_view text) {
  status_ = text;
  changed.raise();
}

// Pull-downs

const PullDown& control_bar::Pulldown(int list) const {
  const bool known = list >= 0 && list <= kDetailsList;
  return pull_downs_[static_cast<std::size_t>(known ? list : kDetailsList)];
}

void control_bar::RefreshSelector(int slot) {
  if (!is_slot(slot) || !hooks_.listItems) return;
  hooks_.listItems(slot, pull_downs_[static_cast<std::size_t>(slot)]);
  changed.raise();
}

void control_bar::SetDetails(const std::vector<std::string>& items) {
  PullDown& details = pull_downs_[kDetailsList];
  details.items = items;
  details.selected = items.empty() ? -1 : 0;
  changed.raise();
}

int control_bar::DetailsGetListIndex(int list) const { return Pulldown(list).selected; }

int control_bar::DetailsGetListCount(int list) const {
  return static_cast<int>(Pulldown(list).items.size());
}

bool control_bar::DetailsSetListIndex(int position, int list) {
  if (list < 0 || list > kDetailsList) return false;
  if (position < 0 || position >= DetailsGetListCount(list)) return false;
  pull_downs_[static_cast<std::size_t>(list)].selected = position;
  changed.raise();
  return true;
}

bool control_bar::DetailsMoveNext(int list) {
  return DetailsSetListIndex(DetailsGetListIndex(list) + 1, list);
}

bool control_bar::SelectItemFromPulldown(int list) {
  const int position = DetailsGetListIndex(list);
  if (position < 0 || position >= DetailsGetListCount(list)) return false;
  if (!is_slot(list)) {
    detailSelected.raise(position);
    return true;
  }
  const std::vector<std::int32_t>& ids = Pulldown(list).itemData;
  const auto line = static_cast<std::size_t>(position);
  return line < ids.size() && hooks_.selectItem && hooks_.selectItem(list, ids[line]);
}

}  // namespace vantrel
