#include "components/output_rows.h"

#include <string>

#include "components/calculator_fields.h"

namespace vantrel {

namespace {

// Places of rows in 1/1440 inch.
constexpr int kFirstTop = 480;
constexpr int kGapBetweenLetters = 150;
constexpr int kRowOffset = 90;
constexpr int kRowHeight = 300;

char first_letter(const VariableEntry& entry) {
  return entry.variablename.empty() ? '\0' : entry.variablename.front();
}

void show_number(VTLValue& row, const VariableEntry& entry) {
  row.StyleType(kLockedPrefixed);
  row.ValueType(kNumeric);
  row.ValueBaseUnits(entry.valueunit);
  // Rounded where it is shown and not as it is stored: 4.7 nF is 0.00 F.
  const std::string places = row.ValueRoundDecPlaces();
  row.ValueRoundDecPlaces("");
  row.value(entry.value);
  row.ValueRoundDecPlaces(places);
}

void show_text(VTLValue& row, const VariableEntry& entry) {
  row.StyleType(kLocked);
  row.ValueType(kTextual);
  row.ValueBaseUnits("");
  row.value(entry.value);
}

}  // namespace

VTLValue& OutputRows::row(int index) {
  const auto place = static_cast<std::size_t>(index);
  if (place == rows_.size()) rows_.push_back(&screen_.addField(output_row_field(index)));
  return *rows_[place];
}

void OutputRows::reserve(int count) {
  for (int index = static_cast<int>(rows_.size()); index < count; ++index) {
    row(index).Visible(false);
  }
}

void OutputRows::list(const std::vector<VariableEntry>& sorted) {
  tops_.clear();
  int cursor = kFirstTop;
  char letter = sorted.empty() ? '\0' : first_letter(sorted.front());
  for (const VariableEntry& entry : sorted) {
    if (!entry.ccoutput) continue;
    VTLValue& field = row(static_cast<int>(tops_.size()));
    if (first_letter(entry) != letter) cursor += kGapBetweenLetters;
    letter = first_letter(entry);
    tops_.push_back(cursor + kRowOffset);
    cursor += kRowHeight;
    field.ValueLabel(entry.variablename);
    field.StyleType(kLockedPrefixed);
    field.ValueType(kNumeric);
    field.ValueBaseUnits(entry.valueunit);
    field.Clear();
    field.Visible(true);
  }
  for (std::size_t unused = tops_.size(); unused < rows_.size(); ++unused) {
    rows_[unused]->Visible(false);
  }
  screen_.notifyLayoutChanged();
}

void OutputRows::show(const VariableClass& variables) {
  for (VTLValue* field : rows_) {
    if (!field->Visible()) continue;
    const std::int32_t index = variables.GetVariableEntryNumber(field->ValueLabel());
    if (index < 0) {
      field->Clear();
      continue;
    }
    const VariableEntry& entry = variables.entries()[static_cast<std::size_t>(index)];
    if (entry.value.is_string()) {
      show_text(*field, entry);
    } else {
      show_number(*field, entry);
    }
  }
}

}  // namespace vantrel
