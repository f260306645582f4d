#include "core/vtl_value.h"

#include <algorithm>

#include "core/fault.h"
#include "core/number_text.h"
#include "core/screen.h"
#include "core/text_parsing.h"
#include "core/units.h"

namespace vantrel {
namespace {

/// A handler of the field's own event may set the field once more; deeper sets are ignored, so that
/// two handlers cannot drive each other for ever.
constexpr int kDeepestSet = 1;

class DepthGuard {
 public:
  explicit DepthGuard(int& depth) : depth_(depth) { ++depth_; }
  ~DepthGuard() { --depth_; }
  DepthGuard(const DepthGuard&) = delete;
  DepthGuard& operator=(const DepthGuard&) = delete;

 private:
  int& depth_;
};

bool is_blank(std::string_view text) { return trimmed(text).empty(); }

}  // namespace

VTLValue::VTLValue(const FieldSpec& row, Screen& owner, FieldContext& context)
    : name_(row.name),
      index_(row.index),
      label_(row.label),
      base_units_(row.unit),
      places_(row.places),
      tooltip_(row.tooltip),
      frame_(row.frame),
      style_(row.style),
      type_(row.type),
      tick_(row.tick),
      visible_(row.visible),
      owner_(owner),
      context_(context) {}

void VTLValue::StyleType(int style) {
  style_ = style;
  displayChanged.raise();
}

void VTLValue::ValueType(int type) {
  type_ = type;
  displayChanged.raise();
}

void VTLValue::ValueFix(bool tick) {
  tick_ = tick;
  displayChanged.raise();
}

void VTLValue::ValueLabel(std::string_view label) {
  label_ = label;
  displayChanged.raise();
}

void VTLValue::ValueBaseUnits(std::string_view unit) {
  base_units_ = unit;
  displayChanged.raise();
}

void VTLValue::ValueRoundDecPlaces(std::string_view places) {
  places_ = places;
  displayChanged.raise();
}

std::string VTLValue::ValueDisplayUnits() const {
  return style_ == kLockedPrefixed ? trimmed(UnitText()) : base_units_;
}

void VTLValue::Tooltip(std::string_view text) {
  tooltip_ = text;
  displayChanged.raise();
}

void VTLValue::Visible(bool visible) {
  visible_ = visible;
  displayChanged.raise();
}

int VTLValue::places() const {
  if (is_blank(places_)) return -1;
  try {
    return round_to_int32(Val(places_));
  } catch (const Fault&) {
    return -1;
  }
}

double VTLValue::rounded(double number) const { return round_to(number, places()); }

void VTLValue::refuse(const Variant& given, std::string_view why) {
  const bool spelled = given.is_string() || given.is_numeric();
  const std::string shown = spelled ? to_text(given) : std::string(given.type_name());
  context_.messages.msg(owner_.name(),
                        "Value '" + shown + "' for " + name_ + " : " + std::string(why));
}

void VTLValue::store(Variant new_value, bool no_event) {
  editing_ = false;
  value_ = std::move(new_value);
  if (!no_event) {
    const DepthGuard guard(event_depth_);
    changed.raise(value_);
  }
  displayChanged.raise();
}

Variant VTLValue::from_data(const Variant& given) {
  if (given.is_empty()) return {};
  try {
    return rounded(to_double(given));
  } catch (const Fault& fault) {
    refuse(given, given.is_string() ? "not a number" : fault.what());
    return {};
  }
}

void VTLValue::value(const Variant& new_value) {
  if (event_depth_ > kDeepestSet) return;
  store(type_ == kNumeric ? from_data(new_value) : new_value, false);
}

void VTLValue::SetValue(const Variant& new_value, bool no_event) {
  if (event_depth_ > kDeepestSet) return;
  if (context_.playClickSound) context_.playClickSound();
  const bool nothing = new_value.is_empty() || new_value.is_null();
  if (type_ == kNumeric) {
    store(nothing ? Variant(0.0) : from_text_of(new_value), no_event);
  } else {
    store(nothing ? Variant("") : trimmed_text_of(new_value), no_event);
  }
}

Variant VTLValue::from_text_of(const Variant& given) {
  try {
    // Through text: the Single 0.21 becomes the Double 0.21.
    const std::string text = to_text(given);
    if (is_blank(text)) return {};
    return from_data(text);
  } catch (const Fault& fault) {
    refuse(given, fault.what());
    return {};
  }
}

Variant VTLValue::trimmed_text_of(const Variant& given) {
  try {
    return trimmed(to_text(given));
  } catch (const Fault& fault) {
    refuse(given, fault.what());
    return "";
  }
}

Variant VTLValue::GetValue(bool report_missing) {
  if (!IsItEmpty()) return value_;
  if (report_missing && context_.addMissingField) {
    context_.addMissingField(*this, owner_.caption() + " Screen : " + label_);
  }
  return {};
}

float VTLValue::MultiplyValue(float factor) {
  if (type_ != kNumeric) {
    context_.messages.msg(owner_.name(), "Error : Can only multiply value for numeric fields");
    return 0;
  }
  if (value_.is_empty()) return 0;
  try {
    const float product = checked_single(double{factor} * to_double(value_));
    value_ = product;
    editing_ = false;
    displayChanged.raise();
    return product;
  } catch (const Fault& fault) {
    refuse(value_, fault.what());
    return 0;
  }
}

void VTLValue::SetFixed(bool fixed) {
  if (!tick_) return;
  fixed_ = fixed;
  displayChanged.raise();
}

void VTLValue::SetFixValue(bool fixed) {
  if (!tick_) return;
  // Handler of the check box: a result that loses its tick is locked, so what was typed is dropped.
  fixed_ = fixed;
  if (!IsEditable()) editing_ = false;
  displayChanged.raise();
}

void VTLValue::Clear() {
  value_ = {};
  editing_ = false;
  displayChanged.raise();
}

bool VTLValue::IsItEmpty() const {
  if (value_.is_empty() || value_.is_null()) return true;
  return type_ == kTextual && value_.is_string() && is_blank(value_.get<std::string>());
}

void VTLValue::CopyFrom(VTLValue& other) {
  ValueBaseUnits(other.ValueBaseUnits());
  value(other.GetValue(false));
}

void VTLValue::StartFlash() { flashRequested.raise(); }

std::string VTLValue::DisplayText() const {
  if (editing_) return editor_text_;
  if (value_.is_empty() || value_.is_null() || value_.is_array()) return {};
  if (type_ != kNumeric || style_ != kLockedPrefixed || value_.is_string()) return to_text(value_);
  const Variant scaled = si_scale(value_, "", context_.messages);
  return places() < 0 ? to_text(scaled) : general_text(rounded(to_double(scaled)));
}

std::string VTLValue::UnitText() const {
  // While the user types, the unit is the one that a bare number is taken in.
  if (style_ != kLockedPrefixed || editing_) return base_units_;
  return si_prefix(value_, "", context_.messages) + base_units_;
}

std::string VTLValue::GetPrintText() const {
  if (!visible_) return {};
  const std::string caption = trimmed(label_);
  return caption + (caption.empty() ? "" : " ") + trimmed(DisplayText()) + " " +
         trimmed(UnitText());
}

bool VTLValue::IsEditable() const { return style_ == kInput || IsFixed(); }

void VTLValue::Edit(std::string_view text) {
  if (!IsEditable()) return;
  editor_text_ = text;
  editing_ = true;
}

bool VTLValue::Commit(std::string* why) {
  if (!editing_ || event_depth_ > kDeepestSet) return true;
  if (context_.playClickSound) context_.playClickSound();
  if (type_ != kNumeric) {
    store(trimmed(editor_text_), false);
    return true;
  }
  if (is_blank(editor_text_)) {
    store({}, false);
    return true;
  }
  const std::optional<double> number = typed_number(plain_separators(editor_text_), base_units_);
  if (number) {
    store(rounded(*number), false);
    return true;
  }
  editing_ = false;
  const std::string reason = "'" + editor_text_ + "' is not a number";
  if (why != nullptr) {
    *why = reason;
  } else {
    context_.messages.msg(owner_.name(), reason);
  }
  displayChanged.raise();
  return false;
}

std::string VTLValue::plain_separators(std::string_view text) const {
  const char local = context_.decimalSeparator;
  return local == '.' || local == ',' ? std::string(text) : local_decimal(text, local, '.');
}

void VTLValue::CancelEdit() {
  editing_ = false;
  displayChanged.raise();
}

}  // namespace vantrel
