#include "selection/control_bar.h"

#include <cstddef>

namespace vantrel {

namespace {
bool is_slot(int slot) { return slot >= 0 && slot < kSlotCount; }
}  // namespace

void control_bar::SetInfo(int slot, std::int32_t id, const std::string& name) {
  if (!is_slot(slot)) return;
  Info& info = infos_[static_cast<std::size_t>(slot)];
  info.id = id;
  info.name = name;
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
  changed.raise();
}

bool control_bar::IsSlotAvailable(int slot) const {
  return is_slot(slot) && infos_[static_cast<std::size_t>(slot)].available;
}

void control_bar::set_status(std::string_view text) {
  status_ = text;
  changed.raise();
}

}  // namespace vantrel
