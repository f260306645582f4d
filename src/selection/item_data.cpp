#include "selection/item_data.h"

#include <array>
#include <cstddef>
#include <utility>

#include "core/fault.h"
#include "core/number_text.h"
#include "core/text_parsing.h"
#include "selection/record_fields.h"
#include "selection/slots.h"

namespace vantrel {

namespace {

constexpr std::size_t kFirstValueColumn = 5;
constexpr std::string_view kPfcInputPower = "pfc_input_power";
constexpr std::string_view kRunningBusVoltage = "running_dc_bus_voltage";

struct ConfigFactors {
  float ignition = 1;  ///< Preheat and ignition voltage.
  float runningVoltage = 1;
  float runningPower = 1;
  float pfcInputPower = 1;
};

ConfigFactors factors_of(std::int32_t config) {
  static constexpr std::array<ConfigFactors, 8> kFactors = {{
      {1, 1, 1, 1},
      {1, 1, 1, 1},
      {1.5F, 2, 2, 2},
      {1.5F, 2, 2, 2},
      {1, 1, 1, 2},
      {1, 1, 1, 2},
      {1, 1, 2, 2},
      {1, 1, 1, 1},
  }};
  if (config < 0 || static_cast<std::size_t>(config) >= kFactors.size()) return {};
  return kFactors[static_cast<std::size_t>(config)];
}

/// These two columns serve the chooser wherever they stand among the value columns.
bool is_row_flag(std::string_view column) {
  return equal_ignoring_case(column, "Include") || equal_ignoring_case(column, "UserData");
}

}  // namespace

bool DataLoadCalcFields::knows(std::string_view name) { return name == "pmin"; }

Variant DataLoadCalcFields::calculate(std::string_view name) const {
  return knows(name) ? pmin() : Variant();
}

Variant DataLoadCalcFields::pmin() const {
  try {
    const double max = to_double(advanced_.field("max").GetValue());
    if (max == 0) return {};
    const double pmax = to_double(advanced_.field("pmax").GetValue());
    const double min = to_double(advanced_.field("min").GetValue());
    return checked_single(pmax * min / max);
  } catch (const Fault&) {
    return {};
  }
}

ItemData::ItemData(adoaccess_class& database, SysMsg& messages, SelectionDetails& details,
                   Screen& advanced, std::function<void(const std::string&)> log)
    : database_(database),
      messages_(messages),
      advanced_(advanced),
      statement_(messages, details),
      calculated_(advanced),
      log_(std::move(log)) {}

void ItemData::LoadItemData(int slot, std::int32_t id) {
  const std::string type(GroupTypeName(slot));
  RecordSet tags;
  if (!database_.read("select * from [DATA:" + type + "] where RecordType = 0", tags)) {
    messages_.msg("", "Could not find FieldTags in table DATA:" + type + "] table");
    return;
  }
  RecordSet item;
  if (id >= 0 &&
      !database_.read("select * from [DATA:" + type + "] where [RecordType] = 2 and [ID] = ?",
                      {Variant(id)}, item)) {
    messages_.msg("", "Could not find [DATA:" + type + "] table entry for ID " + general_text(id));
    return;
  }
  Variant value("");
  for (std::size_t column = kFirstValueColumn; column < tags.fieldCount(); ++column) {
    if (is_row_flag(tags.fieldName(column))) continue;
    const std::string list = trimmed(NullToText(tags.at(column)));
    if (list.empty()) continue;
    for (const std::string& tag : comma_list(list)) {
      loadTag(type, tag, id, item.at(column), value);
    }
  }
}

/// `value` is shared by a whole walk: the copies of a fixed field take what the tag before left.
void ItemData::loadTag(const std::string& type, std::string tag, std::int32_t id,
                       const Variant& column, Variant& value) {
  if (tag == kPfcInputPower) {
    const VTLValue* power = advanced_.findField(kPfcInputPower);
    if (power != nullptr && power->IsFixed()) {
      storeCopies(type, tag, value);
      return;
    }
  }
  if (tag.starts_with('#')) {
    tag = lower(tag.substr(1));
    if (!DataLoadCalcFields::knows(tag)) {
      noteUnknown(type, "#" + tag);
      return;
    }
    value = id < 0 ? Variant("") : calculated_.calculate(tag);
  } else {
    value = id < 0 ? Variant("") : columnValue(column);
  }
  if (storeTag(type, tag, value)) storeCopies(type, tag, value);
}

Variant ItemData::columnValue(const Variant& column) {
  std::string text = trimmed(NullToText(column));
  if (text.starts_with('$')) return statement_.Evaluate(std::string_view(text).substr(1));
  return text;
}

/// False when the tag sets a unit and no value, or names no field.
bool ItemData::storeTag(const std::string& type, const std::string& tag, const Variant& value) {
  const bool sets_unit = tag.ends_with('*');
  VTLValue* field = tagField(type, sets_unit ? trimmed(tag.substr(0, tag.size() - 1)) : tag);
  if (field == nullptr) return false;
  if (sets_unit) {
    field->ValueBaseUnits(to_text(value));
    return false;
  }
  field->SetValue(value);
  return true;
}

void ItemData::storeCopies(const std::string& type, const std::string& tag, const Variant& value) {
  static constexpr std::array<std::pair<std::string_view, std::string_view>, 2> kCopies = {{
      {kPfcInputPower, "pfc_input_power_copy"},
      {kRunningBusVoltage, "running_dc_bus_voltage_mode"},
  }};
  for (const auto& [source, copy] : kCopies) {
    if (tag != source) continue;
    if (VTLValue* field = tagField(type, copy)) field->SetValue(value);
  }
}

VTLValue* ItemData::tagField(const std::string& type, std::string_view name) {
  VTLValue* field = advanced_.findField(name);
  if (field == nullptr) noteUnknown(type, name);
  return field;
}

void ItemData::noteUnknown(const std::string& type, std::string_view tag) {
  const std::string note =
      "Tag '" + std::string(tag) + "' of table DATA:" + type + " names no field";
  if (noted_.insert(note).second && log_) log_(note);
}

void ItemData::multiply(std::string_view field, float factor) {
  if (VTLValue* target = advanced_.findField(field)) target->MultiplyValue(factor);
}

void ItemData::ScaleForConfiguration(std::int32_t config, bool apply, int mask) {
  const ConfigFactors factors = factors_of(config);
  const auto scale = [&](std::string_view field, float factor) {
    multiply(field, apply ? factor : 1 / factor);
  };
  if ((mask & 1) != 0) {
    scale("max_preheat_voltage", factors.ignition);
    scale("max_ignition_voltage", factors.ignition);
    scale("running_lamp_voltage", factors.runningVoltage);
    scale("vmax", factors.runningVoltage);
    scale("vmin", factors.runningVoltage);
    scale("running_lamp_power", factors.runningPower);
    scale("pmax", factors.runningPower);
    scale("pmin", factors.runningPower);
  }
  // No bit of the mask covers this field: it follows every scaling.
  const VTLValue* power = advanced_.findField(kPfcInputPower);
  if (power != nullptr && !power->IsFixed()) scale(kPfcInputPower, factors.pfcInputPower);
}

float ItemData::PfcPowerFactor(std::int32_t config) const {
  return factors_of(config).pfcInputPower;
}

}  // namespace vantrel
