#include <cstdint>
#include <string>

#include "components/script/builtin_functions.h"
#include "components/script/operators.h"
#include "core/fault.h"
#include "core/number_text.h"

namespace vantrel::script::builtin {

Variant CInt(Arguments args, Budget&) { return to_int16(args[0]); }
Variant CLng(Arguments args, Budget&) { return to_int32(args[0]); }
Variant CSng(Arguments args, Budget&) { return to_single(args[0]); }
Variant CDbl(Arguments args, Budget&) { return to_double(args[0]); }
Variant CStr(Arguments args, Budget&) { return to_text(args[0]); }
Variant CBool(Arguments args, Budget&) { return to_bool(args[0]); }
Variant IsEmpty(Arguments args, Budget&) { return args[0].is_empty(); }
Variant IsNull(Arguments args, Budget&) { return args[0].is_null(); }

Variant IsNumeric(Arguments args, Budget&) {
  const Variant& value = args[0];
  if (value.is_string()) return parse_number(value.get<std::string>()).has_value();
  return value.is_empty() || value.is_numeric();
}

Variant FormatNumber(Arguments args, Budget&) {
  constexpr std::int32_t kUsualDecimals = 2;
  constexpr std::int32_t kMostDecimals = 99;
  const std::int32_t decimals = args.size() > 1 ? to_int32(args[1]) : kUsualDecimals;
  if (decimals < 0 || decimals > kMostDecimals) throw Fault(fault_text::kInvalidCall);
  std::string mask = "0";
  if (decimals > 0) mask += "." + std::string(static_cast<std::size_t>(decimals), '0');
  if (args[0].type() == Variant::Type::Single) return format_mask(args[0].get<float>(), mask);
  return format_mask(to_double(args[0]), mask);
}

Variant Hex(Arguments args, Budget&) {
  auto bits = static_cast<std::uint32_t>(to_int32(args[0]));
  if (arithmetic_type(args[0]) == Variant::Type::Integer) bits &= 0xFFFFU;
  std::string text;
  do {
    text.insert(text.begin(), "0123456789ABCDEF"[bits % 16]);
    bits /= 16;
  } while (bits > 0);
  return text;
}

}  // namespace vantrel::script::builtin
