#pragma once

#include <string>
#include <string_view>

#include "core/fault.h"

namespace vantrel::script {

/// The texts that VBScript gives to faults which only scripts have.
namespace script_fault {
inline constexpr const char* kSyntaxError = "Syntax error";
inline constexpr const char* kExpectedStatement = "Expected statement";
inline constexpr const char* kExpectedEndOfStatement = "Expected end of statement";
inline constexpr const char* kExpectedIdentifier = "Expected identifier";
inline constexpr const char* kExpectedThen = "Expected 'Then'";
inline constexpr const char* kExpectedEnd = "Expected 'End'";
inline constexpr const char* kExpectedIf = "Expected 'If'";
inline constexpr const char* kExpectedEquals = "Expected '='";
inline constexpr const char* kExpectedClosing = "Expected ')'";
inline constexpr const char* kParenthesesInSubCall = "Cannot use parentheses when calling a Sub";
inline constexpr const char* kNameRedefined = "Name redefined";
inline constexpr const char* kIdentifierTooLong = "Identifier too long";
inline constexpr const char* kInvalidNumber = "Invalid number";
inline constexpr const char* kInvalidCharacter = "Invalid character";
inline constexpr const char* kUnterminatedString = "Unterminated string constant";
inline constexpr const char* kOutOfStackSpace = "Out of stack space";
inline constexpr const char* kOutOfStringSpace = "Out of string space";
inline constexpr const char* kTimedOut = "Script timed out";
inline constexpr const char* kObjectRequired = "Object required";
inline constexpr const char* kIllegalAssignment = "Illegal assignment";
inline constexpr const char* kWrongArguments =
    "Wrong number of arguments or invalid property assignment";
inline constexpr const char* kUnsupportedMember = "Object doesn't support this property or method";
}  // namespace script_fault

/// The text followed by the name that it is about, as in "Object required: 'x'".
inline std::string about(std::string_view text, std::string_view name) {
  return std::string(text) + ": '" + std::string(name) + "'";
}

}  // namespace vantrel::script
