#include "core/variant.h"

#include <array>

#include "core/fault.h"
#include "core/number_text.h"
#include "core/text_parsing.h"

namespace vantrel {
namespace {

double text_to_double(const std::string& text) {
  const std::optional<double> number = parse_number(text);
  if (!number) throw Fault(fault_text::kTypeMismatch);
  return *number;
}

}  // namespace

std::string_view Variant::type_name() const {
  static constexpr std::array<std::string_view, 9> kNames{
      "Empty", "Null", "Boolean", "Integer", "Long", "Single", "Double", "String", "Variant()"};
  return kNames[value_.index()];
}

bool Variant::is_numeric() const { return type() >= Type::Boolean && type() <= Type::Double; }

double to_double(const Variant& value) {
  switch (value.type()) {
    case Variant::Type::Empty:
      return 0;
    case Variant::Type::Null:
      throw Fault(fault_text::kInvalidNull);
    case Variant::Type::Boolean:
      return value.get<bool>() ? -1 : 0;
    case Variant::Type::Integer:
      return value.get<std::int16_t>();
    case Variant::Type::Long:
      return value.get<std::int32_t>();
    case Variant::Type::Single:
      return value.get<float>();
    case Variant::Type::Double:
      return value.get<double>();
    case Variant::Type::String:
      return text_to_double(value.get<std::string>());
    case Variant::Type::Array:
      break;
  }
  throw Fault(fault_text::kTypeMismatch);
}

float to_single(const Variant& value) {
  if (value.type() == Variant::Type::Single) return value.get<float>();
  return checked_single(to_double(value));
}

std::int32_t to_int32(const Variant& value) { return round_to_int32(to_double(value)); }
std::int16_t to_int16(const Variant& value) { return round_to_int16(to_double(value)); }

bool to_bool(const Variant& value) {
  if (value.is_string()) {
    const std::string text = trimmed(value.get<std::string>());
    if (equal_ignoring_case(text, "True")) return true;
    if (equal_ignoring_case(text, "False")) return false;
  }
  return to_double(value) != 0;
}

std::string to_text(const Variant& value) {
  switch (value.type()) {
    case Variant::Type::Empty:
      return {};
    case Variant::Type::Null:
      throw Fault(fault_text::kInvalidNull);
    case Variant::Type::Boolean:
      return value.get<bool>() ? "True" : "False";
    case Variant::Type::Integer:
      return general_text(std::int32_t{value.get<std::int16_t>()});
    case Variant::Type::Long:
      return general_text(value.get<std::int32_t>());
    case Variant::Type::Single:
      return general_text(value.get<float>());
    case Variant::Type::Double:
      return general_text(value.get<double>());
    case Variant::Type::String:
      return value.get<std::string>();
    case Variant::Type::Array:
      break;
  }
  throw Fault(fault_text::kTypeMismatch);
}

}  // namespace vantrel
