#include "operating/calculation_history.h"

#include <algorithm>
#include <utility>

#include "core/number_text.h"

namespace vantrel {

namespace {

constexpr const char* kRemoved[kSlotCount] = {
    "The calculation refers to an IC type which has been removed",
    "The calculation refers to an input type which has been removed",
    "The calculation refers to a lamp type which has been removed",
    "The calculation refers to a configuration which has been removed"};

/// Gives a field back the very value that it held. Storing rounds to the field's places and keeps
/// numbers in 64 bits, so the places are put aside, and a 32-bit number, which only comes from a
/// multiplication, goes through one by 1.
void restore_value(VTLValue& field, const Variant& stored) {
  if (stored.is_empty()) {
    field.Clear();
    return;
  }
  const std::string places = field.ValueRoundDecPlaces();
  field.ValueRoundDecPlaces("");
  field.value(stored);
  const bool narrow = stored.type() == Variant::Type::Single;
  if (narrow && field.ValueType() == kNumeric) field.MultiplyValue(1);
  field.ValueRoundDecPlaces(places);
}

}  // namespace

std::vector<FieldSnapshot> snapshot_of(const Screen& screen) {
  std::vector<FieldSnapshot> fields;
  fields.reserve(screen.fields().size());
  for (const auto& field : screen.fields()) {
    fields.push_back({field->Name(), field->IsFixed(), field->value()});
  }
  return fields;
}

CalculationHistory::CalculationHistory(Advanced& advanced, control_bar& bar, SysMsg& messages,
                                       CalculationHistoryHooks hooks)
    : advanced_(advanced), bar_(bar), messages_(messages), hooks_(std::move(hooks)) {
  SetupCalculationPulldown();
}

std::int32_t CalculationHistory::AddCalculationRecord() {
  const std::string number = general_text(++advanced_.CalculationNumber);
  CalculationRecord record;
  record.title = "Calculation " + number;
  record.description =
      "#" + number + " - " + (hooks_.configDescription ? hooks_.configDescription() : "");
  for (const int slot : {kSlotIc, kSlotInput, kSlotLamp}) {
    record.description += ", " + (hooks_.itemName ? hooks_.itemName(slot) : bar_.GetInfoName(slot));
  }
  for (int slot = 0; slot < kSlotCount; ++slot) {
    record.items[static_cast<std::size_t>(slot)] = bar_.GetInfo(slot);
  }
  record.fields = snapshot_of(advanced_);
  if (records_.size() == kMostRecords) records_.pop_front();
  records_.push_back(std::move(record));
  shown_ = static_cast<std::int32_t>(records_.size()) - 1;
  SetupCalculationPulldown();
  return advanced_.CalculationNumber;
}

void CalculationHistory::SetupCalculationPulldown() {
  PullDown& list = *advanced_.findPullDown("CalculationPulldown");
  std::vector<std::string> titles;
  list.items.clear();
  list.itemData.clear();
  for (const CalculationRecord& record : records_) {
    list.items.push_back("Calculation " + record.description);
    titles.push_back(record.title);
  }
  list.selected = shown_;
  bar_.CreateCalculationBrowserMenu(titles, shown_);
  // The title names the marked line, so it can only follow the list.
  advanced_.SetCaption();
}

bool CalculationHistory::isRecord(std::int64_t index) const {
  return index >= 0 && index < static_cast<std::int64_t>(records_.size());
}

void CalculationHistory::ShowCalculationRecord(const bool& absolute, std::int32_t& position) {
  SetupCalculationPulldown();
  if (absolute && !isRecord(position)) {
    messages_.msg(advanced_.name(), "Cannot display calculation record " + general_text(position) +
                                        " - it is invalid");
    return;
  }
  if (!absolute) {
    const std::int64_t target = std::int64_t{shown_} + position;
    if (!isRecord(target)) return;
    position = static_cast<std::int32_t>(target);
  }
  // A copy: a selection runs other parts of the program, which may calculate and add a record.
  const CalculationRecord record = records_[static_cast<std::size_t>(position)];
  if (!reselect(record)) return;
  advanced_.set_frames_from_tabstrips();
  advanced_.set_layout();
  restore(record);
  shown_ = position;
  SetupCalculationPulldown();
  if (hooks_.DrawGraph) hooks_.DrawGraph();
}

bool CalculationHistory::reselect(const CalculationRecord& record) {
  for (int slot = 0; slot < kSlotCount; ++slot) {
    const auto index = static_cast<std::size_t>(slot);
    if (hooks_.selectItem && hooks_.selectItem(slot, record.items[index])) continue;
    messages_.msg(advanced_.name(), kRemoved[index]);
    return false;
  }
  return true;
}

void CalculationHistory::restore(const CalculationRecord& record) {
  for (const FieldSnapshot& stored : record.fields) {
    VTLValue* field = advanced_.findField(stored.Name);
    if (field == nullptr) continue;
    field->SetFixed(stored.IsFixed);
    restore_value(*field, stored.value);
  }
  // A field that comes back empty has raised no change.
  advanced_.relabel_brightness();
}

bool CalculationHistory::execute_command(std::string_view command, std::string_view argument) {
  std::int32_t position = 0;
  const bool absolute = command == kBrowseCalculation;
  if (absolute) {
    // A text that is no number stands for 0, which is no record.
    constexpr double kFarOutside = 1e9;
    position = round_to_int32(std::clamp(Val(argument), -kFarOutside, kFarOutside)) - 1;
  } else if (command == "c_previous") {
    position = -1;
  } else if (command == "c_next") {
    position = 1;
  } else {
    return false;
  }
  ShowCalculationRecord(absolute, position);
  return true;
}

void CalculationHistory::PulldownClick(std::int32_t row) { ShowCalculationRecord(true, row); }

}  // namespace vantrel
