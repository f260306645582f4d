#include "selection/item_preview.h"

#include <algorithm>
#include <memory>
#include <utility>

#include "core/text_parsing.h"
#include "selection/item_data.h"
#include "selection/slots.h"

namespace vantrel {

namespace {

constexpr const char* kPfcGate = "line_input_pfc";
constexpr const char* kPfcFrequency = "pfc_frequency";

/// The same fields as another screen has, all empty.
std::unique_ptr<Screen> twin_of(const Screen& original, FieldContext& context) {
  auto twin = std::make_unique<Screen>(original.name(), original.caption(), context);
  for (const auto& field : original.fields()) {
    twin->addField({.name = field->Name().c_str(),
                    .label = field->ValueLabel().c_str(),
                    .unit = field->ValueBaseUnits().c_str(),
                    .places = field->ValueRoundDecPlaces().c_str(),
                    .style = field->StyleType(),
                    .type = field->ValueType(),
                    .index = field->Index()});
  }
  return twin;
}

}  // namespace

ItemPreview::ItemPreview(adoaccess_class& database, SelectionDetails& details, Screen& advanced,
                         std::function<bool(const VTLValue&)> is_shown)
    : database_(database), details_(details), advanced_(advanced), is_shown_(std::move(is_shown)) {}

std::vector<PreviewRow> ItemPreview::rows(int slot, std::int32_t id) const {
  if (id < 0) return {};
  // A load into a screen of its own gives exactly what a selection would give, and reports to
  // nobody.
  SysMsg silent;
  FieldContext context{.messages = silent, .playClickSound = {}, .addMissingField = {}};
  const std::unique_ptr<Screen> loaded = twin_of(advanced_, context);
  std::vector<VTLValue*> order;
  for (const auto& field : loaded->fields()) {
    field->changed.connect([&order, loads = field.get()](Variant&) {
      if (std::find(order.begin(), order.end(), loads) == order.end()) order.push_back(loads);
    });
  }
  ItemData(database_, silent, details_, *loaded).LoadItemData(slot, id);

  // A line input brings its own PFC stage, or none, and with it the field that goes with it.
  const VTLValue* gate = loaded->findField(kPfcGate);
  const bool has_pfc = gate != nullptr && lower(gate->DisplayText()) == "yes";
  std::vector<PreviewRow> rows;
  for (const VTLValue* field : order) {
    if (rows.size() == kMostPreviewRows) break;
    if (field->StyleType() != kInput || field->IsItEmpty()) continue;
    const bool own_gate = slot == kSlotInput && equal_ignoring_case(field->Name(), kPfcFrequency);
    if (!(own_gate ? has_pfc : is_shown_(advanced_.field(field->Name(), field->Index())))) continue;
    rows.push_back({trimmed(field->ValueLabel()), field->DisplayText(), field->UnitText()});
  }
  return rows;
}

}  // namespace vantrel
