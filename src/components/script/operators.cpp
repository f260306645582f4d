#include "components/script/operators.h"

#include <algorithm>
#include <cmath>
#include <compare>
#include <cstdint>
#include <limits>
#include <string>

#include "core/fault.h"
#include "core/text_parsing.h"

namespace vantrel::script {

namespace {

using Type = Variant::Type;
using Operator = BinaryOperator;

template <typename T>
bool fits(std::int64_t value) {
  return value >= std::numeric_limits<T>::min() && value <= std::numeric_limits<T>::max();
}

Type common_type(const Variant& left, const Variant& right) {
  const Type a = arithmetic_type(left);
  const Type b = arithmetic_type(right);
  // A Single has too few digits for a Long.
  const bool mixed = std::min(a, b) == Type::Long && std::max(a, b) == Type::Single;
  return mixed ? Type::Double : std::max(a, b);
}

template <typename Number>
Number calculate(Operator operation, Number left, Number right) {
  switch (operation) {
    case Operator::Add:
      return left + right;
    case Operator::Subtract:
      return left - right;
    default:
      return left * right;
  }
}

Variant arithmetic(Operator operation, const Variant& left, const Variant& right) {
  const Type type = common_type(left, right);
  if (type == Type::Integer || type == Type::Long) {
    return whole_number(calculate<std::int64_t>(operation, to_int32(left), to_int32(right)), type);
  }
  const double result = calculate(operation, to_double(left), to_double(right));
  if (type == Type::Single && std::abs(result) <= std::numeric_limits<float>::max()) {
    return static_cast<float>(result);
  }
  return finite(result);
}

Variant add(const Variant& left, const Variant& right) {
  if (left.is_string() && right.is_string())
    return left.get<std::string>() + right.get<std::string>();
  if (left.is_string() && right.is_empty()) return left;
  if (left.is_empty() && right.is_string()) return right;
  return arithmetic(Operator::Add, left, right);
}

Variant divide(const Variant& left, const Variant& right) {
  const double numerator = to_double(left);
  const double denominator = to_double(right);
  if (denominator == 0) {
    throw Fault(numerator == 0 ? fault_text::kOverflow : fault_text::kDivisionByZero);
  }
  return finite(numerator / denominator);
}

Variant power(const Variant& left, const Variant& right) {
  const double base = to_double(left);
  const double exponent = to_double(right);
  const bool fractional = exponent != std::floor(exponent);
  if ((base < 0 && fractional) || (base == 0 && exponent < 0)) {
    throw Fault(fault_text::kInvalidCall);
  }
  return finite(std::pow(base, exponent));
}

Variant whole_division(Operator operation, const Variant& left, const Variant& right) {
  const std::int64_t numerator = to_int32(left);
  const std::int64_t denominator = to_int32(right);
  if (denominator == 0) throw Fault(fault_text::kDivisionByZero);
  const bool narrow = common_type(left, right) == Type::Integer;
  const std::int64_t result =
      operation == Operator::Modulo ? numerator % denominator : numerator / denominator;
  if (!fits<std::int32_t>(result)) throw Fault(fault_text::kOverflow);
  return whole_number(result, narrow ? Type::Integer : Type::Long);
}

Variant concatenate(const Variant& left, const Variant& right) {
  if (left.is_null() && right.is_null()) return Null{};
  const auto part = [](const Variant& value) {
    return value.is_null() ? std::string() : to_text(value);
  };
  return part(left) + part(right);
}

std::partial_ordering order(const Variant& left, const Variant& right) {
  if (left.is_array() || right.is_array()) throw Fault(fault_text::kTypeMismatch);
  const auto textual = [](const Variant& value) { return value.is_string() || value.is_empty(); };
  const bool any_text = left.is_string() || right.is_string();
  if (any_text && textual(left) && textual(right)) return to_text(left) <=> to_text(right);
  if (any_text)
    return left.is_string() ? std::partial_ordering::greater : std::partial_ordering::less;
  return to_double(left) <=> to_double(right);
}

Variant compare(Operator operation, const Variant& left, const Variant& right) {
  const std::partial_ordering result = order(left, right);
  switch (operation) {
    case Operator::Equal:
      return std::is_eq(result);
    case Operator::NotEqual:
      return std::is_neq(result);
    case Operator::Less:
      return std::is_lt(result);
    case Operator::Greater:
      return std::is_gt(result);
    case Operator::LessOrEqual:
      return std::is_lteq(result);
    default:
      return std::is_gteq(result);
  }
}

bool spells(const Variant& value, std::string_view word) {
  return value.is_string() && equal_ignoring_case(trimmed(value.get<std::string>()), word);
}

/// A logical operand as bits and the type that it brings along.
struct Bits {
  std::int32_t value;
  Type type;
};

Bits to_bits(const Variant& value) {
  if (spells(value, "true")) return {-1, Type::Boolean};
  if (spells(value, "false")) return {0, Type::Boolean};
  if (value.type() == Type::Boolean) return {value.get<bool>() ? -1 : 0, Type::Boolean};
  const bool narrow = arithmetic_type(value) == Type::Integer;
  return {to_int32(value), narrow ? Type::Integer : Type::Long};
}

Variant from_bits(std::int32_t value, Type type) {
  if (type == Type::Boolean) return value != 0;
  return whole_number(value, type);
}

Variant logic_with_null(Operator operation, const Variant& left, const Variant& right) {
  if (operation == Operator::Xor || (left.is_null() && right.is_null())) return Null{};
  const Bits known = to_bits(left.is_null() ? right : left);
  const std::int32_t decisive = operation == Operator::And ? 0 : -1;
  if (known.value == decisive) return from_bits(decisive, known.type);
  return Null{};
}

Variant logic(Operator operation, const Variant& left, const Variant& right) {
  if (left.is_null() || right.is_null()) return logic_with_null(operation, left, right);
  const Bits a = to_bits(left);
  const Bits b = to_bits(right);
  const Type type = std::max(a.type, b.type);
  switch (operation) {
    case Operator::And:
      return from_bits(a.value & b.value, type);
    case Operator::Or:
      return from_bits(a.value | b.value, type);
    default:
      return from_bits(a.value ^ b.value, type);
  }
}

Variant negate(const Variant& value) {
  return arithmetic(Operator::Subtract, static_cast<std::int16_t>(0), value);
}

Variant invert(const Variant& value) {
  const Bits bits = to_bits(value);
  return from_bits(~bits.value, bits.type);
}

}  // namespace

Type arithmetic_type(const Variant& value) {
  switch (value.type()) {
    case Type::Empty:
    case Type::Boolean:
    case Type::Integer:
      return Type::Integer;
    case Type::Long:
    case Type::Single:
      return value.type();
    default:
      return Type::Double;
  }
}

Variant whole_number(std::int64_t value, Type least) {
  if (least == Type::Integer && fits<std::int16_t>(value)) return static_cast<std::int16_t>(value);
  if (fits<std::int32_t>(value)) return static_cast<std::int32_t>(value);
  return static_cast<double>(value);
}

Variant finite(double value) {
  if (!std::isfinite(value)) throw Fault(fault_text::kOverflow);
  return value;
}

Variant apply(UnaryOperator operation, const Variant& value) {
  if (value.is_null()) return value;
  return operation == UnaryOperator::Negate ? negate(value) : invert(value);
}

Variant apply(BinaryOperator operation, const Variant& left, const Variant& right) {
  if (operation >= Operator::And) return logic(operation, left, right);
  if (operation == Operator::Concatenate) return concatenate(left, right);
  if (left.is_null() || right.is_null()) return Null{};
  switch (operation) {
    case Operator::Power:
      return power(left, right);
    case Operator::Divide:
      return divide(left, right);
    case Operator::IntegerDivide:
    case Operator::Modulo:
      return whole_division(operation, left, right);
    case Operator::Add:
      return add(left, right);
    case Operator::Multiply:
    case Operator::Subtract:
      return arithmetic(operation, left, right);
    default:
      return compare(operation, left, right);
  }
}

}  // namespace vantrel::script
