#pragma once

#include <stdexcept>

namespace vantrel {

/// A run-time failure inside a routine: a division by zero, an overflow, a text where a number is
/// needed. A routine traps the faults of its own body, reports them in its own words and returns a
/// harmless value, so no Fault ever leaves a public routine that does not say so.
class Fault : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

namespace fault_text {
inline constexpr const char* kDivisionByZero = "Division by zero";
inline constexpr const char* kOverflow = "Overflow";
inline constexpr const char* kTypeMismatch = "Type mismatch";
inline constexpr const char* kInvalidNull = "Invalid use of Null";
inline constexpr const char* kInvalidCall = "Invalid procedure call or argument";
inline constexpr const char* kSubscript = "Subscript out of range";
inline constexpr const char* kOutOfMemory = "Out of memory";
}  // namespace fault_text

}  // namespace vantrel
