#include "services/project_fields.h"

#include <string>

#include "core/fault.h"
#include "core/number_text.h"
#include "core/text_parsing.h"

namespace vantrel {
namespace {

std::string text_of(const VTLValue& field) {
  const Variant& value = field.value();
  if (field.ValueType() != kNumeric) return value.is_null() ? "" : to_text(value);
  try {
    return number_text(to_single(value));
  } catch (const Fault&) {
    // Larger than a single can be: the number itself still fits and reads back.
    return to_text(value);
  }
}

void set_unrounded(VTLValue& field, const std::string& text) {
  const std::string places = field.ValueRoundDecPlaces();
  field.ValueRoundDecPlaces("");
  field.SetValue(text);
  field.ValueRoundDecPlaces(places);
}

/// The calculator's output rows are numbers in one design and texts in another, such as a part's
/// name.
constexpr std::string_view kOutputRow = "CC_ShowOutputs";

void settle_output_row(VTLValue& row, bool is_number) {
  row.StyleType(is_number ? kLockedPrefixed : kLocked);
  row.ValueType(is_number ? kNumeric : kTextual);
}

/// The list of the history belongs to the run: where it has rows they are other calculations.
constexpr std::string_view kHistoryList = "CalculationPulldown";

bool apply_value(const DesignScreens& screens, const ValueRecord& record) {
  VTLValue* const field =
      screens[record.screen]->findField(record.name, record.index < 0 ? -1 : record.index);
  if (field == nullptr) return false;
  const std::string number = trimmed(record.text);
  const bool is_number = number.empty() || parse_number(number).has_value();
  if (field->Name() == kOutputRow) settle_output_row(*field, is_number);
  const bool numeric = field->ValueType() == kNumeric;
  if (numeric && !is_number) return false;
  field->SetFixed(record.fixed);
  if (numeric) {
    set_unrounded(*field, number);
  } else {
    field->SetValue(record.text);
  }
  return true;
}

bool apply_list(const DesignScreens& screens, const ListRecord& record) {
  PullDown* const list = screens[record.screen]->findPullDown(record.name, record.index);
  if (list == nullptr) return false;
  if (record.selected < -1) return false;
  if (list->name == kHistoryList && !list->items.empty()) return true;
  if (!list->items.empty() && record.selected >= static_cast<int>(list->items.size())) return false;
  list->selected = record.selected;
  return true;
}

}  // namespace

std::vector<ValueRecord> collect_values(const DesignScreens& screens) {
  std::vector<ValueRecord> records;
  for (std::size_t i = 0; i < screens.size(); ++i) {
    for (const auto& field : screens[i]->fields()) {
      records.push_back({static_cast<std::uint8_t>(i), field->Name(), field->Index(),
                         field->IsFixed(), text_of(*field)});
    }
  }
  return records;
}

std::vector<ListRecord> collect_lists(const DesignScreens& screens) {
  std::vector<ListRecord> records;
  for (std::size_t i = 0; i < screens.size(); ++i) {
    for (const PullDown& list : screens[i]->pullDowns()) {
      records.push_back({static_cast<std::uint8_t>(i), list.name, list.index, list.selected});
    }
  }
  return records;
}

std::size_t apply_values(const DesignScreens& screens, std::span<const ValueRecord> records) {
  std::size_t skipped = 0;
  for (const ValueRecord& record : records) skipped += apply_value(screens, record) ? 0 : 1;
  return skipped;
}

std::size_t apply_lists(const DesignScreens& screens, std::span<const ListRecord> records) {
  std::size_t skipped = 0;
  for (const ListRecord& record : records) skipped += apply_list(screens, record) ? 0 : 1;
  for (Screen* const screen : screens) screen->notifyLayoutChanged();
  return skipped;
}

}  // namespace vantrel
