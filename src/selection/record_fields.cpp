#include "selection/record_fields.h"

#include "core/fault.h"
#include "core/text_parsing.h"

namespace vantrel {

std::string text_field(const RecordSet& row, std::string_view name) {
  return trimmed(NullToText(adoaccess_class::rs_get(row, name)));
}

bool flag_value(const Variant& value) {
  try {
    return to_bool(value);
  } catch (const Fault&) {
    return false;
  }
}

bool flag_field(const RecordSet& row, std::string_view name) {
  return flag_value(adoaccess_class::rs_get(row, name));
}

std::int32_t number_value(const Variant& value) {
  try {
    return to_int32(value);
  } catch (const Fault&) {
    return 0;
  }
}

std::int32_t number_field(const RecordSet& row, std::string_view name) {
  return number_value(adoaccess_class::rs_get(row, name));
}

std::vector<std::string> comma_list(std::string_view text) {
  std::vector<std::string> entries;
  for (;;) {
    const std::size_t comma = text.find(',');
    entries.push_back(trimmed(text.substr(0, comma)));
    if (comma == std::string_view::npos) return entries;
    text.remove_prefix(comma + 1);
  }
}

}  // namespace vantrel
