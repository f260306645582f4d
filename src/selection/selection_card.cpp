#include "selection/selection_card.h"

#include <array>
#include <cstddef>

#include "selection/browser_view.h"
#include "selection/record_fields.h"
#include "selection/slots.h"

namespace vantrel {

std::string_view SlotCaption(int slot) {
  static constexpr std::array<std::string_view, kSlotCount> kCaptions{"Target IC", "Line Input",
                                                                      "Lamp", "Lamp Configuration"};
  if (slot < 0 || slot >= kSlotCount) return {};
  return kCaptions[static_cast<std::size_t>(slot)];
}

SelectionCard ReadSelectionCard(adoaccess_class& database, int slot, std::int32_t id) {
  SelectionCard card;
  const std::string type(GroupTypeName(slot));
  RecordSet item;
  if (id < 0 || !database.read("select * from [DATA:" + type +
                                   "] where [RecordType] = 2 and [Include] = yes and [ID] = ?",
                               {Variant(id)}, item)) {
    return card;
  }
  card.name = text_field(item, "Name");
  RecordSet group;
  if (database.read("select * from groups where [Group Type] = '" + type + "' and [ID] = ?",
                    {Variant(number_field(item, "Group"))}, group)) {
    card.group = GroupTitleLine(text_field(group, "Group Title"));
    card.picture = text_field(group, "Group Picture");
  }
  return card;
}

}  // namespace vantrel
