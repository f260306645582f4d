#include "operating/targets/component_result.h"

#include <utility>

#include "core/fault.h"

namespace vantrel {

Variant value_result(Variant value) { return Variant::Array{kTagValue, std::move(value)}; }

Variant value_result(Variant value, std::string_view rating) {
  return Variant::Array{kTagValue, std::move(value), kTagRating, rating};
}

Variant rating_result(std::string_view rating) { return Variant::Array{kTagRating, rating}; }

Variant not_connected() {
  return Variant::Array{kTagValue, "N/C", kTagRating, "N/C", kTagTolerance, "N/C"};
}

double number(const Variant& argument) {
  if (argument.is_string()) throw Fault(fault_text::kTypeMismatch);
  return to_double(argument);
}

}  // namespace vantrel
