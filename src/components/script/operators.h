#pragma once

#include "core/variant.h"

namespace vantrel::script {

enum class UnaryOperator { Negate, Not };

enum class BinaryOperator {
  Power,
  Multiply,
  Divide,
  IntegerDivide,
  Modulo,
  Add,
  Subtract,
  Concatenate,
  Equal,
  NotEqual,
  Less,
  Greater,
  LessOrEqual,
  GreaterOrEqual,
  And,
  Or,
  Xor,
};

/// The type in which a value takes part in arithmetic: Integer for Empty and Boolean, Double for a
/// text.
Variant::Type arithmetic_type(const Variant& value);
/// A whole number in the narrowest of Integer, Long and Double that holds it and is not narrower
/// than `least`.
Variant whole_number(std::int64_t value, Variant::Type least);
/// The Double, or a Fault "Overflow" when it is infinite or not a number.
Variant finite(double value);

/// VBScript's operators. Faults: "Type mismatch" for a text that is no number, "Division by zero",
/// "Overflow", "Invalid procedure call or argument" for a root of a negative number.
Variant apply(UnaryOperator operation, const Variant& value);
/// Sums, differences and products of Integers and Longs widen to Long and Double when they must;
/// `/` and `^` give Double; `\` and Mod work on 32-bit integers, rounded half to even, and truncate
/// toward zero. Null makes the result Null, but `&` takes it for the empty text beside another
/// value, and False And Null is False, True Or Null is True. Texts compare by their bytes; a number
/// is less than any text, whatever the text spells.
Variant apply(BinaryOperator operation, const Variant& left, const Variant& right);

}  // namespace vantrel::script
