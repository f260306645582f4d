#include "app/selected_inputs.h"

#include "app/report_sections.h"
#include "core/text_parsing.h"
#include "selection/item_data.h"
#include "selection/slots.h"

namespace vantrel {

SelectedInputs::SelectedInputs(Session& session)
    : context_{.messages = messages_, .playClickSound = {}, .addMissingField = {}},
      state_(session.state()),
      defaults_(context_, state_,
                {.itemName = [&session](int slot) { return session.selectionName(slot); },
                 .heatingMode = [] { return std::string(); }}) {
  SelectionDetails details(session.database(), messages_, state_);
  ItemData items(session.database(), messages_, details, defaults_);
  for (const int slot : {kSlotIc, kSlotInput, kSlotLamp}) {
    items.LoadItemData(slot, session.browser().GetInfo(slot));
  }
  items.ScaleForConfiguration(state_.CurrentConfig, true, 7);
}

std::string SelectedInputs::origin(const VTLValue& field) const {
  const VTLValue* selected = defaults_.findField(field.Name(), field.Index());
  if (selected == nullptr || with_unit(*selected) == with_unit(field)) return kDefault;
  if (selected->IsItEmpty()) return "changed, no default";
  return "changed, default " + with_unit(*selected);
}

}  // namespace vantrel
