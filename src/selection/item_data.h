#pragma once

#include <cstdint>
#include <functional>
#include <set>
#include <string>
#include <string_view>

#include "core/run_state.h"
#include "core/screen.h"
#include "core/variant.h"
#include "database/adoaccess.h"
#include "selection/data_statement.h"
#include "selection/details.h"
#include "services/messages/sysmsg.h"

namespace vantrel {

/// The values that an item load calculates instead of reading; tags name them behind a "#".
class DataLoadCalcFields {
 public:
  explicit DataLoadCalcFields(Screen& advanced) : advanced_(advanced) {}

  /// True when `name` (lower case) is a calculated field.
  static bool knows(std::string_view name);
  /// The value of a calculated field that `knows` affirms; Empty when it cannot be calculated.
  Variant calculate(std::string_view name) const;
  /// Power at the dimmed end: pmax x min / max in single precision. Empty when max is 0 or empty.
  Variant pmin() const;

 private:
  Screen& advanced_;
};

/// Fills the fields of `Advanced` from the row of a selected item, and applies the multiples that a
/// lamp configuration puts on the values of one lamp.
class ItemData {
 public:
  /// `log` takes note of a tag that names no field, once for each tag; it may be empty.
  ItemData(adoaccess_class& database, SysMsg& messages, SelectionDetails& details, Screen& advanced,
           std::function<void(const std::string&)> log = {});

  /// Loads the row of item `id` of a slot (0 IC, 1 INPUT, 2 LAMP, 3 CONFIG) by the tags of its
  /// table. An `id` below 0 empties the tagged fields. A missing tags row or item row is reported
  /// and loads nothing.
  void LoadItemData(int slot, std::int32_t id);

  /// Multiplies the lamp's fields by the factors of a configuration, or divides with `apply` false.
  /// Bit 0 of `mask` covers the lamp's voltages and powers; `pfc_input_power` is scaled in any case
  /// unless it is fixed. Empty fields stay empty.
  void ScaleForConfiguration(std::int32_t config, bool apply, int mask);

  /// The factor of `pfc_input_power` for a configuration.
  float PfcPowerFactor(std::int32_t config) const;

 private:
  void loadTag(const std::string& type, std::string tag, std::int32_t id, const Variant& column,
               Variant& value);
  Variant columnValue(const Variant& column);
  bool storeTag(const std::string& type, const std::string& tag, const Variant& value);
  void storeCopies(const std::string& type, const std::string& tag, const Variant& value);
  VTLValue* tagField(const std::string& type, std::string_view name);
  void noteUnknown(const std::string& type, std::string_view tag);
  void multiply(std::string_view field, float factor);

  adoaccess_class& database_;
  SysMsg& messages_;
  Screen& advanced_;
  DataStatement statement_;
  DataLoadCalcFields calculated_;
  std::function<void(const std::string&)> log_;
  std::set<std::string> noted_;
};

}  // namespace vantrel
