#pragma once

#include <functional>
#include <string>
#include <string_view>

#include "core/signal.h"
#include "core/variant.h"
#include "services/messages/sysmsg.h"

namespace vantrel {

class Screen;
class VTLValue;

/// What every field of a run shares; owned by the composition root and outlives the screens.
struct FieldContext {
  SysMsg& messages;
  /// Decimal separator of the running locale, for typed text only.
  char decimalSeparator = '.';
  /// Played at each commit; may be empty.
  std::function<void()> playClickSound;
  /// Takes note of an empty required field and the text that names it; may be empty.
  std::function<void(VTLValue& field, const std::string& text)> addMissingField;
};

/// Looks of a field: 0 editable input, 1 locked output, 2 locked output with an SI prefix.
enum FieldStyle { kInput = 0, kLocked = 1, kLockedPrefixed = 2 };
enum FieldType { kNumeric = 0, kTextual = 1 };

/// One row of a screen's field table. Everything that is known of a field is said here once.
struct FieldSpec {
  const char* name;
  const char* label;
  const char* unit;    ///< Unit of the stored number; for style 2 the unit without prefix.
  const char* places;  ///< Decimal places, blank for no rounding.
  int style = kInput;
  bool tick = false;  ///< Carries a fix check box.
  const char* tooltip = "";
  const char* frame = "";  ///< Name of the frame that holds it.
  int type = kNumeric;
  bool visible = true;
  int index = -1;  ///< Place in a control group, -1 outside one.
};

/// A named engineering value: the editor on the screen and the variable that calculations read and
/// write. Styles 0 and 1 hold the number in the unit of `ValueBaseUnits`, whatever its prefix;
/// style 2 holds the plain base unit and scales for display.
class VTLValue {
 public:
  VTLValue(const FieldSpec& row, Screen& owner, FieldContext& context);
  VTLValue(const VTLValue&) = delete;
  VTLValue& operator=(const VTLValue&) = delete;

  const std::string& Name() const { return name_; }
  int Index() const { return index_; }
  Screen& GetOwnerForm() const { return owner_; }
  const std::string& FrameName() const { return frame_; }

  int StyleType() const { return style_; }
  void StyleType(int style);
  int ValueType() const { return type_; }
  void ValueType(int type);
  /// True when the field carries a fix check box.
  bool ValueFix() const { return tick_; }
  void ValueFix(bool tick);
  const std::string& ValueLabel() const { return label_; }
  void ValueLabel(std::string_view label);
  const std::string& ValueBaseUnits() const { return base_units_; }
  void ValueBaseUnits(std::string_view unit);
  const std::string& ValueRoundDecPlaces() const { return places_; }
  void ValueRoundDecPlaces(std::string_view places);
  /// Style 2: the unit label with its prefix, trimmed; otherwise `ValueBaseUnits`.
  std::string ValueDisplayUnits() const;
  const std::string& Tooltip() const { return tooltip_; }
  void Tooltip(std::string_view text);
  bool Visible() const { return visible_; }
  void Visible(bool visible);

  /// The stored value: Empty, Double, Single or String.
  const Variant& value() const { return value_; }
  /// Stores a value rounded to the field's places, on a text field as it is, and raises `changed`.
  /// Empty stays Empty; what is no number empties a numeric field and is reported.
  void value(const Variant& new_value);

  /// Stores the text of `new_value` as if it had been entered: Empty and Null become 0 or the empty
  /// text, a blank text empties a numeric field. A text that is no number empties the field and is
  /// reported. Raises `changed` unless `no_event`.
  void SetValue(const Variant& new_value, bool no_event = false);
  /// The value, or Empty; with `report_missing` an empty field is added to the missing fields.
  Variant GetValue(bool report_missing = false);
  /// Multiplies in 64 bits and stores in 32, without rounding and without an event. An empty field
  /// stays empty; a text field reports and gives 0.
  float MultiplyValue(float factor);
  /// True only if the field has a check box and it is set.
  bool IsFixed() const { return tick_ && fixed_; }
  /// Sets the check without running the check box's handler.
  void SetFixed(bool fixed);
  /// Sets the check and runs the check box's handler: a ticked result accepts input.
  void SetFixValue(bool fixed);
  /// Empties the field; no event.
  void Clear();
  bool IsItEmpty() const;
  /// Takes the other field's unit, then its value.
  void CopyFrom(VTLValue& other);
  void StartFlash();

  /// Text of the value as shown, empty for an empty field.
  std::string DisplayText() const;
  /// Text of the unit label as shown; for style 2 with the prefix that fits the value.
  std::string UnitText() const;
  /// Label, value and unit in one line for the printer.
  std::string GetPrintText() const;

  /// True when the user may type: an input, or a ticked output.
  bool IsEditable() const;
  /// Text in the editor while the user types; nothing is stored before `Commit`.
  void Edit(std::string_view text);
  bool IsEditing() const { return editing_; }
  /// Stores the typed text (Return, or focus lost). A text that is no number is refused: the field
  /// keeps its value, `why` (when given) tells the reason and the result is false. A field that the
  /// user has not entered is left alone. Numbers are read by `typed_number` in `ValueBaseUnits`, so
  /// "45k" is 45 in a field of KHz and 45000 in one of Hz.
  bool Commit(std::string* why = nullptr);
  /// Drops the typed text (Esc).
  void CancelEdit();

  /// Raised after a commit, `SetValue`, a `value` set or `CopyFrom`, also when the value is the
  /// same. The receiver may alter the argument; its final state is what the field holds.
  Signal<Variant&> changed;
  /// Raised whenever the view must be drawn anew.
  Signal<> displayChanged;
  /// Raised by `StartFlash`.
  Signal<> flashRequested;

 private:
  void store(Variant new_value, bool no_event);
  int places() const;
  double rounded(double number) const;
  Variant from_data(const Variant& given);
  Variant from_text_of(const Variant& given);
  Variant trimmed_text_of(const Variant& given);
  void refuse(const Variant& given, std::string_view why);
  std::string plain_separators(std::string_view text) const;

  std::string name_;
  int index_;
  std::string label_;
  std::string base_units_;
  std::string places_;
  std::string tooltip_;
  std::string frame_;
  int style_;
  int type_;
  bool tick_;
  bool fixed_ = false;
  bool visible_;
  bool editing_ = false;
  int event_depth_ = 0;
  std::string editor_text_;
  Variant value_;
  Screen& owner_;
  FieldContext& context_;
};

}  // namespace vantrel
