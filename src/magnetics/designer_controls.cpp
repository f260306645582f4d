#include "magnetics/designer_controls.h"

#include <algorithm>

#include "core/units.h"

namespace vantrel {

void call_hook(const std::function<void()>& hook) {
  if (hook) hook();
}

double required_number(VTLValue& field, const CountedUnit& counted, SysMsg& messages) {
  const double number = to_double(field.GetValue(true));
  const std::string_view label = field.ValueBaseUnits();
  const std::string_view prefix = counted.unit.substr(0, counted.unit.find(counted.base));
  if (field.IsItEmpty() || label.substr(0, label.find(counted.base)) == prefix) return number;
  return si_to(si_from(number, label, counted.base, messages), counted.unit, counted.base,
               messages);
}

std::string shown_core(const PullDown& list) {
  const auto row = static_cast<std::size_t>(list.selected);
  return list.selected >= 0 && row < list.items.size() ? list.items[row] : std::string();
}

void show_core(PullDown& list, std::string_view size) {
  const auto found = std::ranges::find(list.items, size);
  list.selected = found == list.items.end() ? -1 : static_cast<int>(found - list.items.begin());
}

void fill_core_list(PullDown& list, std::span<const CoreType> cores) {
  const std::string shown = shown_core(list);
  list.items.clear();
  for (const CoreType& core : cores) list.items.push_back(core.size);
  show_core(list, shown);
}

}  // namespace vantrel
