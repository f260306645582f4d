#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

namespace vantrel {

/// A database NULL.
struct Null {
  friend bool operator==(Null, Null) { return true; }
};

/// A dynamically typed value. The type decides how a result is stored, so nothing converts
/// silently: the constructor's argument type is the Variant's type, and reading goes through the
/// `to_` routines below.
class Variant {
 public:
  using Array = std::vector<Variant>;
  enum class Type { Empty, Null, Boolean, Integer, Long, Single, Double, String, Array };

  Variant() = default;
  Variant(Null value) : value_(value) {}                    // NOLINT(google-explicit-constructor)
  Variant(bool value) : value_(value) {}                    // NOLINT(google-explicit-constructor)
  Variant(std::int16_t value) : value_(value) {}            // NOLINT(google-explicit-constructor)
  Variant(std::int32_t value) : value_(value) {}            // NOLINT(google-explicit-constructor)
  Variant(float value) : value_(value) {}                   // NOLINT(google-explicit-constructor)
  Variant(double value) : value_(value) {}                  // NOLINT(google-explicit-constructor)
  Variant(std::string value) : value_(std::move(value)) {}  // NOLINT
  Variant(std::string_view value) : value_(std::string(value)) {}  // NOLINT
  Variant(const char* value) : value_(std::string(value)) {}       // NOLINT
  Variant(Array value) : value_(std::move(value)) {}  // NOLINT(google-explicit-constructor)

  Type type() const { return static_cast<Type>(value_.index()); }
  /// "Empty", "Null", "Boolean", "Integer", "Long", "Single", "Double", "String" or "Variant()".
  std::string_view type_name() const;

  bool is_empty() const { return type() == Type::Empty; }
  bool is_null() const { return type() == Type::Null; }
  bool is_string() const { return type() == Type::String; }
  bool is_array() const { return type() == Type::Array; }
  /// True for Boolean, Integer, Long, Single and Double.
  bool is_numeric() const;

  /// The held value; the type must match (checked by `std::get`).
  template <typename T>
  const T& get() const {
    return std::get<T>(value_);
  }

  /// Same type and same value.
  friend bool operator==(const Variant& a, const Variant& b) { return a.value_ == b.value_; }

 private:
  std::variant<std::monostate, Null, bool, std::int16_t, std::int32_t, float, double, std::string,
               Array>
      value_;
};

// Conversions. Empty counts as 0, False and the empty text; True counts as -1. A Null, a text that
// is no number and an array raise a Fault "Invalid use of Null" or "Type mismatch"; a number out of
// range raises "Overflow". Texts are read in the invariant form ("." only).
double to_double(const Variant& value);
float to_single(const Variant& value);
/// To the nearest 32-bit integer, ties to even.
std::int32_t to_int32(const Variant& value);
/// To the nearest 16-bit integer, ties to even.
std::int16_t to_int16(const Variant& value);
bool to_bool(const Variant& value);
/// The general form of a number, "True" or "False", or the text itself.
std::string to_text(const Variant& value);

}  // namespace vantrel
