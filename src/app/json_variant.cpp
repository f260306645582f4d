#include "app/json_variant.h"

#include <limits>

#include "core/fault.h"

namespace vantrel {

namespace {

Variant typed(const std::string& type, const Json& value) {
  if (type == "Empty") return {};
  if (type == "Null") return Null{};
  if (type == "Boolean") return value.get<bool>();
  if (type == "Integer") return to_int16(from_json(value));
  if (type == "Long") return to_int32(from_json(value));
  if (type == "Single") return to_single(from_json(value));
  if (type == "Double") return to_double(from_json(value));
  if (type == "String") return value.get<std::string>();
  throw Fault(fault_text::kTypeMismatch);
}

Variant whole_number(const Json& json) {
  constexpr std::int64_t low = std::numeric_limits<std::int32_t>::min();
  constexpr std::int64_t high = std::numeric_limits<std::int32_t>::max();
  const double wide = json.get<double>();
  if (wide >= static_cast<double>(low) && wide <= static_cast<double>(high)) {
    return json.get<std::int32_t>();
  }
  return wide;
}

}  // namespace

Json to_json(const Variant& value) {
  switch (value.type()) {
    case Variant::Type::Empty:
    case Variant::Type::Null:
      return nullptr;
    case Variant::Type::Boolean:
      return value.get<bool>();
    case Variant::Type::Integer:
    case Variant::Type::Long:
      return to_int32(value);
    case Variant::Type::Single:
    case Variant::Type::Double:
      return to_double(value);
    case Variant::Type::String:
      return value.get<std::string>();
    case Variant::Type::Array: {
      Json list = Json::array();
      for (const Variant& item : value.get<Variant::Array>()) list.push_back(to_json(item));
      return list;
    }
  }
  return nullptr;
}

Variant from_json(const Json& json) {
  if (json.is_null()) return {};
  if (json.is_boolean()) return json.get<bool>();
  if (json.is_number_integer()) return whole_number(json);
  if (json.is_number()) return json.get<double>();
  if (json.is_string()) return json.get<std::string>();
  if (json.is_array()) {
    Variant::Array list;
    for (const Json& item : json) list.push_back(from_json(item));
    return list;
  }
  if (json.is_object() && json.contains("type") && json.at("type").is_string()) {
    return typed(json.at("type").get<std::string>(), json.value("value", Json()));
  }
  throw Fault(fault_text::kTypeMismatch);
}

}  // namespace vantrel
