#include "selection/load_inputs.h"

#include <algorithm>
#include <cstddef>
#include <optional>
#include <utility>

#include "core/number_text.h"
#include "core/text_parsing.h"
#include "core/units.h"
#include "selection/record_fields.h"

namespace vantrel {

namespace {

constexpr const char* kEmptyDestination = "LoadInput record has empty Destination field";

/// Says that a load runs, for as long as it lives.
class LoadingMark {
 public:
  explicit LoadingMark(bool& flag) : flag_(flag) { flag_ = true; }
  ~LoadingMark() { flag_ = false; }
  LoadingMark(const LoadingMark&) = delete;
  LoadingMark& operator=(const LoadingMark&) = delete;

 private:
  bool& flag_;
};

/// The one prefix letter that `shown` has in front of `unit` ("K" for "KHz" and "Hz"), or nothing.
std::string prefix_before(std::string_view shown, std::string_view unit) {
  if (unit.empty() || shown.find(unit) != 1) return {};
  const bool known = std::string_view("pnumkKM").find(shown.front()) != std::string_view::npos;
  return known ? std::string(1, shown.front()) : std::string();
}

/// True when `unit` is `base` with a prefix in front, such as "KHz" for "Hz".
bool is_prefixed(std::string_view unit, std::string_view base) {
  return unit.size() == base.size() + 1 && !prefix_before(unit, base).empty();
}

/// Place in a control group that a destination names; nothing when it is no such number.
std::optional<int> group_index(std::string_view text) {
  const double number = Val(text);
  if (!(number >= 0 && number <= 32767)) return std::nullopt;
  return round_to_int32(number);
}

}  // namespace

int GetFormIndexFromName(const ScreenRegistry& screens, std::string_view name, bool report,
                         SysMsg& messages) {
  const int index = screens.indexOf(name);
  if (index < 0 && report) {
    messages.msg("", "GetFormIndexFromName: Could not find form '" + std::string(name) + "'");
  }
  return index;
}

InputLoader::InputLoader(adoaccess_class& database, SysMsg& messages, SelectionDetails& details,
                         const RunState& state, const ScreenRegistry& screens,
                         MissingFields& missing, std::function<void(const std::string&)> log)
    : database_(database),
      messages_(messages),
      details_(details),
      state_(state),
      screens_(screens),
      missing_(missing),
      log_(std::move(log)) {}

bool InputLoader::LoadInputs(std::string_view load_id, Screen& caller, bool skip_sources,
                             const FrameList& frames) {
  missing_.Reset();
  for (const auto& [screen, frame] : frames) {
    ClearFrameValues(*screen, frame);
    SetFrameChildrenVisible(*screen, frame, true);
  }
  RecordSet rows;
  const bool found =
      database_.read("select * from LoadInputs where LoadID = ?", {Variant(load_id)}, rows);
  target_ = to_text(details_.TargetDetails(kTargetName));
  if (!found) {
    messages_.msg(caller.name(), "Could not find LoadInputs Records for Form '" +
                                     std::string(load_id) + "', IC '" + target_ +
                                     "' in components database");
    return false;
  }
  load(caller.name(), rows, skip_sources);
  return missing_.IsEmpty(true);
}

void InputLoader::load(const std::string& owner, RecordSet& rows, bool skip_sources) {
  const LoadingMark mark(loading_);
  hideUnused(owner, rows);
  for (rows.MoveFirst(); !rows.atEnd(); rows.MoveNext()) loadRow(owner, rows, skip_sources);
  rows.Close();
  deriveIgnitionTime();
}

/// Hides whatever may be unused; the load shows again what matches the target.
void InputLoader::hideUnused(const std::string& owner, RecordSet& rows) {
  for (; !rows.atEnd(); rows.MoveNext()) {
    if (!flag_field(rows, "InvisibleIfUnused")) continue;
    Screen* screen = screens_.find(text_field(rows, "Destination"));
    if (screen == nullptr) continue;
    if (VTLValue* field = destinationField(owner, rows, *screen)) field->Visible(false);
  }
}

void InputLoader::loadRow(const std::string& owner, const RecordSet& row, bool skip_sources) {
  Screen* screen = screens_.find(text_field(row, "Destination"));
  if (screen == nullptr) return;
  const std::string targets = text_field(row, "target");
  if (targets.empty()) {
    messages_.msg(owner, "LoadInput record has empty target field");
    return;
  }
  const std::vector<std::string> entries = comma_list(targets);
  const bool matched = std::any_of(entries.begin(), entries.end(), [&](const std::string& entry) {
    return entry == "*" || entry == target_;
  });
  VTLValue* field = destinationField(owner, row, *screen);
  if (field == nullptr) return;
  if (!matched && !flag_field(row, "CopyRegardlessOfTarget")) return;

  const std::string unit = text_field(row, "ValueUnit");
  if (unit.empty()) {
    messages_.msg(owner, "LoadInput record has empty ValueUnit field");
  } else {
    loadValue(row, *field, unit, owner, skip_sources);
  }
  field->StyleType(flag_field(row, "Locked") ? kLocked : kInput);
  if (field->IsItEmpty() && flag_field(row, "InvisibleIfEmpty")) {
    field->Visible(false);
  } else if (matched) {
    field->Visible(true);
  }
}

VTLValue* InputLoader::destinationField(const std::string& owner, const RecordSet& row,
                                        Screen& screen) {
  const std::string destination = text_field(row, "DestinationField");
  if (destination.empty()) {
    messages_.msg(owner, kEmptyDestination);
    return nullptr;
  }
  const std::vector<std::string> parts = comma_list(destination);
  VTLValue* field = nullptr;
  if (parts.size() == 1) field = screen.findField(parts[0]);
  if (parts.size() == 2) {
    if (const auto index = group_index(parts[1])) field = screen.findField(parts[0], *index);
  }
  if (field == nullptr) noteUnknown(screen, destination);
  return field;
}

void InputLoader::loadValue(const RecordSet& row, VTLValue& field, const std::string& unit,
                            const std::string& owner, bool skip_sources) {
  field.Clear();
  field.ValueBaseUnits(unit);
  const std::string default_value = text_field(row, "DefaultValue");
  if (!default_value.empty()) field.SetValue(default_value);
  const std::string source = text_field(row, "Source");
  if (!skip_sources && !source.empty()) copySource(source, field, unit, owner);
}

void InputLoader::copySource(const std::string& source, VTLValue& field, const std::string& unit,
                             const std::string& owner) {
  const std::vector<std::string> parts = comma_list(source);
  if (parts.size() != 2) {
    messages_.msg(owner, "LoadInput record has invalid Source field");
    return;
  }
  const int index = GetFormIndexFromName(screens_, parts[0], true, messages_);
  if (index < 0) return;
  Screen& screen = *screens_.screens()[static_cast<std::size_t>(index)];
  VTLValue* from = screen.findField(parts[1]);
  if (from == nullptr) {
    noteUnknown(screen, parts[1]);
  } else if (from->IsItEmpty()) {
    missing_.Add(field, screen.caption() + " screen : " + from->ValueLabel());
  } else {
    copyConverted(*from, field, unit);
  }
}

/// Carries the number as it is shown, and labels it with the unit in which it is shown. A text goes
/// as it is.
void InputLoader::copyConverted(VTLValue& source, VTLValue& field, const std::string& unit) {
  const Variant value = source.GetValue();
  if (!value.is_numeric()) {
    field.SetValue(value);
    return;
  }
  const double number = to_double(value);
  const std::string& base = source.ValueBaseUnits();
  if (is_prefixed(unit, base)) {
    field.SetValue(si_to(number, unit, base, messages_));
    return;
  }
  const std::string shown = source.ValueDisplayUnits();
  const std::string prefix = prefix_before(shown, unit);
  if (!prefix.empty()) {
    // Only a style 2 field holds base units; the others hold the number in the unit they show.
    const bool scaled = source.StyleType() == kLockedPrefixed;
    field.SetValue(scaled ? Variant(si_to(number, shown, unit, messages_)) : value);
    field.ValueBaseUnits(prefix + unit);
    return;
  }
  field.SetValue(si_to(number, shown, unit, messages_));
}

/// On the two targets whose ignition follows from the preheat, at four tenths of its time.
void InputLoader::deriveIgnitionTime() {
  if (state_.CurrentTarget != 7 && state_.CurrentTarget != 8) return;
  Screen* calculator = screens_.find("Calculator");
  if (calculator == nullptr) return;
  VTLValue* preheat = calculator->findField("cc_preheat_time");
  VTLValue* ignition = calculator->findField("cc_ignition_time");
  if (preheat == nullptr || ignition == nullptr || preheat->IsFixed()) return;
  const Variant time = preheat->GetValue();
  if (!time.is_numeric()) {
    ignition->Clear();
    return;
  }
  const std::string places = ignition->ValueRoundDecPlaces();
  ignition->ValueRoundDecPlaces("");
  ignition->SetValue(0.4 * to_double(time), true);
  ignition->ValueRoundDecPlaces(places);
}

void InputLoader::noteUnknown(const Screen& screen, std::string_view field) {
  const std::string note =
      "LoadInputs names the unknown field '" + std::string(field) + "' of screen " + screen.name();
  if (noted_.insert(note).second && log_) log_(note);
}

}  // namespace vantrel
