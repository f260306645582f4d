#include <cmath>
#include <cstdint>
#include <cstdlib>

#include "components/script/builtin_functions.h"
#include "components/script/operators.h"
#include "core/fault.h"

namespace vantrel::script::builtin {

namespace {

using Type = Variant::Type;

constexpr std::int32_t kMostDecimals = 22;

/// `on_whole` for Integer and Long, `on_real` for anything else, which keeps Single and Double.
template <typename OnWhole, typename OnReal>
Variant keeping_type(const Variant& value, OnWhole on_whole, OnReal on_real) {
  const Type type = arithmetic_type(value);
  if (type == Type::Integer || type == Type::Long) {
    return whole_number(on_whole(std::int64_t{to_int32(value)}), type);
  }
  const double result = on_real(to_double(value));
  if (type == Type::Single) return to_single(result);
  return result;
}

std::int64_t unchanged(std::int64_t value) { return value; }

double round_half_even(double value, std::int32_t decimals) {
  const double scale = std::pow(10.0, decimals);
  const double scaled = value * scale;
  // From here on a double has no decimals to round.
  if (!(std::abs(scaled) < 9007199254740992.0)) return value;
  return std::nearbyint(scaled) / scale;
}

}  // namespace

Variant Abs(Arguments args, Budget&) {
  return keeping_type(
      args[0], [](std::int64_t value) { return std::abs(value); },
      [](double value) { return std::abs(value); });
}

Variant Sgn(Arguments args, Budget&) {
  const double value = to_double(args[0]);
  return static_cast<std::int16_t>((value > 0) - (value < 0));
}

Variant Sqr(Arguments args, Budget&) {
  const double value = to_double(args[0]);
  if (value < 0) throw Fault(fault_text::kInvalidCall);
  return std::sqrt(value);
}

Variant Int(Arguments args, Budget&) {
  return keeping_type(args[0], unchanged, [](double value) { return std::floor(value); });
}

Variant Fix(Arguments args, Budget&) {
  return keeping_type(args[0], unchanged, [](double value) { return std::trunc(value); });
}

Variant Round(Arguments args, Budget&) {
  const std::int32_t decimals = args.size() > 1 ? to_int32(args[1]) : 0;
  if (decimals < 0 || decimals > kMostDecimals) throw Fault(fault_text::kInvalidCall);
  return keeping_type(args[0], unchanged,
                      [decimals](double value) { return round_half_even(value, decimals); });
}

Variant Exp(Arguments args, Budget&) { return finite(std::exp(to_double(args[0]))); }

Variant Log(Arguments args, Budget&) {
  const double value = to_double(args[0]);
  if (value <= 0) throw Fault(fault_text::kInvalidCall);
  return std::log(value);
}

Variant Sin(Arguments args, Budget&) { return finite(std::sin(to_double(args[0]))); }
Variant Cos(Arguments args, Budget&) { return finite(std::cos(to_double(args[0]))); }
Variant Tan(Arguments args, Budget&) { return finite(std::tan(to_double(args[0]))); }
Variant Atn(Arguments args, Budget&) { return std::atan(to_double(args[0])); }

}  // namespace vantrel::script::builtin
