#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace vantrel {

/// General form: the shortest text that reads back as the same value in its own width. Plain
/// decimals for 1e-15 <= |x| < 1e15, otherwise "d.dddE-16" with an upper-case E. "." always, no
/// thousands separators, no "-0". "inf", "-inf" and "nan" for what is no number.
std::string general_text(double value);
std::string general_text(float value);
std::string general_text(std::int32_t value);

/// The general form for files: without a leading blank and with "0" in front of a leading ".".
std::string number_text(float value);

/// Formats by a mask of "0" (digit always shown), "#" (digit shown when significant) and one ".".
/// Rounds half away from zero on the shortest decimal text of the value: 45.25 by "0.0" is "45.3".
std::string format_mask(double value, std::string_view mask);
std::string format_mask(float value, std::string_view mask);

/// The number that the whole trimmed text spells in the invariant form: sign, digits, one ".",
/// exponent "E" or "e". Nothing for anything else ("nan", "inf", hexadecimal, separators, blank),
/// and for a number that no double can hold.
std::optional<double> parse_number(std::string_view text);

/// Length of the longest start of the text that spells a number: sign, digits, one ".", exponent;
/// 0 when it starts with none.
std::size_t number_length(std::string_view text);

/// A number as a user types it into a field that shows `unit`, in that unit: "." and "," both serve
/// as the decimal separator, "45" and "45 KHz" in a field of KHz are 45.
///
/// An SI prefix behind the digits counts in the unit without prefix and is converted to the
/// field's: "45000" in KHz stays 45000, "45k" and "45000 Hz" in KHz are 45, "4.7n" in nF is 4.7,
/// "45k" in Hz or without a unit is 45000. It is honoured only where it has one meaning: not for
/// units that take none (%, Deg, areas, unknown ones), and not for "m" in a length, which might be
/// metres. A unit that follows must be the field's, with any prefix or none.
///
/// Nothing when the text is no such number.
std::optional<double> typed_number(std::string_view text, std::string_view unit = {});

/// The number at the start of the text after dropping all its blanks, 0 when there is none; never
/// fails.
double Val(std::string_view text);

/// Replaces the last occurrence of `separator` by the decimal separator of the running locale.
std::string local_decimal(std::string_view text, char separator, char locale_separator);

/// `value` rounded to `places` decimals, half to even, through a 32-bit integer. Places below 0,
/// and a product that does not fit in 32 bits, give the value as it stands.
double round_to(double value, std::int32_t places);

/// Nearest integers, ties to even; a Fault "Overflow" when out of range or not a number.
std::int32_t round_to_int32(double value);
std::int16_t round_to_int16(double value);
/// `value` in 32 bits; a Fault "Overflow" when it does not fit.
float checked_single(double value);

}  // namespace vantrel
