#include "core/number_text.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <cstdlib>
#include <iterator>
#include <limits>

#include "core/fault.h"
#include "core/text_parsing.h"

namespace vantrel {
namespace {

/// A finite number, not 0, as its shortest decimal text: d.ddd times 10 to the power `exponent`.
struct Decimal {
  bool negative = false;
  std::string digits;
  int exponent = 0;
};

template <typename Float>
Decimal shortest_decimal(Float value) {
  std::array<char, 48> buffer;
  const auto end = std::to_chars(buffer.data(), buffer.data() + buffer.size(), std::abs(value),
                                 std::chars_format::scientific)
                       .ptr;
  const char* const mark = std::find(buffer.data(), end, 'e');
  Decimal result;
  result.negative = std::signbit(value);
  std::copy_if(buffer.data(), const_cast<char*>(mark), std::back_inserter(result.digits),
               [](char c) { return c != '.'; });
  const char* const exponent = mark[1] == '+' ? mark + 2 : mark + 1;
  std::from_chars(exponent, end, result.exponent);
  return result;
}

std::string zeros(int count) {
  return std::string(static_cast<std::size_t>(std::max(count, 0)), '0');
}

std::string plain_text(const Decimal& number) {
  const int whole = number.exponent + 1;
  std::string text = number.digits;
  if (whole <= 0) {
    text.insert(0, zeros(-whole)).insert(0, "0.");
  } else if (static_cast<int>(text.size()) <= whole) {
    text += zeros(whole - static_cast<int>(text.size()));
  } else {
    text.insert(static_cast<std::size_t>(whole), 1, '.');
  }
  return text;
}

std::string exponent_text(const Decimal& number) {
  std::string text = number.digits;
  if (text.size() > 1) text.insert(1, 1, '.');
  text += number.exponent < 0 ? "E-" : "E+";
  return text += std::to_string(std::abs(number.exponent));
}

template <typename Float>
std::string not_finite_text(Float value) {
  if (std::isnan(value)) return "nan";
  return value < 0 ? "-inf" : "inf";
}

template <typename Float>
std::string general(Float value) {
  if (!std::isfinite(value)) return not_finite_text(value);
  if (value == 0) return "0";
  const Decimal number = shortest_decimal(value);
  const bool plain = number.exponent >= -15 && number.exponent < 15;
  std::string text = plain ? plain_text(number) : exponent_text(number);
  if (number.negative) text.insert(0, 1, '-');
  return text;
}

/// What a mask asks for: digits always shown, and decimals shown at most.
struct Mask {
  int whole = 0;
  int decimals = 0;
  int most_decimals = 0;
  bool point = false;
};

Mask read_mask(std::string_view text) {
  Mask mask;
  for (const char c : text) {
    if (c == '.') {
      mask.point = true;
    } else if (mask.point) {
      ++mask.most_decimals;
      if (c == '0') mask.decimals = mask.most_decimals;
    } else if (c == '0' || mask.whole > 0) {
      ++mask.whole;
    }
  }
  return mask;
}

/// Digits before and behind the decimal point, without zeros at the outer ends.
struct Parts {
  std::string whole;
  std::string decimals;
};

/// Cuts the digits behind `keep` places, half away from zero. A carry out of the first digit adds a
/// digit in front and raises the exponent.
void round_digits(Decimal& number, int keep) {
  if (keep < 0) {
    number.digits.clear();
    return;
  }
  const auto place = static_cast<std::size_t>(keep);
  if (place >= number.digits.size()) return;
  const bool up = number.digits[place] >= '5';
  number.digits.resize(place);
  if (!up) return;
  auto digit = number.digits.rbegin();
  while (digit != number.digits.rend() && *digit == '9') *digit++ = '0';
  if (digit != number.digits.rend()) {
    ++*digit;
  } else {
    number.digits.insert(0, 1, '1');
    ++number.exponent;
  }
}

Parts split_rounded(Decimal number, int most_decimals) {
  round_digits(number, number.exponent + 1 + most_decimals);
  Parts parts;
  const int whole = number.exponent + 1;
  if (number.digits.empty()) return parts;
  if (whole <= 0) {
    parts.decimals = zeros(-whole) + number.digits;
  } else {
    number.digits += zeros(whole - static_cast<int>(number.digits.size()));
    parts.whole = number.digits.substr(0, static_cast<std::size_t>(whole));
    parts.decimals = number.digits.substr(static_cast<std::size_t>(whole));
  }
  parts.decimals.erase(parts.decimals.find_last_not_of('0') + 1);
  return parts;
}

template <typename Float>
std::string masked(Float value, std::string_view text) {
  if (!std::isfinite(value)) return not_finite_text(value);
  const Mask mask = read_mask(text);
  Parts parts;
  if (value != 0) parts = split_rounded(shortest_decimal(value), mask.most_decimals);
  const bool negative = value < 0 && !(parts.whole.empty() && parts.decimals.empty());
  std::string result = negative ? "-" : "";
  result += zeros(mask.whole - static_cast<int>(parts.whole.size())) + parts.whole;
  if (mask.point) {
    result += "." + parts.decimals + zeros(mask.decimals - static_cast<int>(parts.decimals.size()));
  }
  return result;
}

bool is_digit(char c) { return c >= '0' && c <= '9'; }

std::size_t skip_digits(std::string_view text, std::size_t from) {
  while (from < text.size() && is_digit(text[from])) ++from;
  return from;
}

std::optional<double> convert(std::string_view spelled) {
  if (!spelled.empty() && spelled.front() == '+') spelled.remove_prefix(1);
  double value = 0;
  const auto [end, error] = std::from_chars(spelled.data(), spelled.data() + spelled.size(), value);
  if (error != std::errc() || end != spelled.data() + spelled.size()) return std::nullopt;
  return value;
}

}  // namespace

std::size_t number_length(std::string_view text) {
  std::size_t at = !text.empty() && (text[0] == '+' || text[0] == '-') ? 1 : 0;
  const std::size_t whole = skip_digits(text, at);
  std::size_t digits = whole - at;
  at = whole;
  if (at < text.size() && text[at] == '.') {
    const std::size_t decimals = skip_digits(text, at + 1);
    digits += decimals - at - 1;
    at = decimals;
  }
  if (digits == 0) return 0;
  if (at < text.size() && (text[at] == 'e' || text[at] == 'E')) {
    std::size_t exponent = at + 1;
    if (exponent < text.size() && (text[exponent] == '+' || text[exponent] == '-')) ++exponent;
    const std::size_t end = skip_digits(text, exponent);
    if (end > exponent) at = end;
  }
  return at;
}

std::string general_text(double value) { return general(value); }
std::string general_text(float value) { return general(value); }
std::string general_text(std::int32_t value) { return std::to_string(value); }

// The general form has no leading blank and always a digit in front of its ".".
std::string number_text(float value) { return general(value); }

std::string format_mask(double value, std::string_view mask) { return masked(value, mask); }
std::string format_mask(float value, std::string_view mask) { return masked(value, mask); }

std::optional<double> parse_number(std::string_view text) {
  const std::string spelled = trimmed(text);
  if (spelled.empty() || number_length(spelled) != spelled.size()) return std::nullopt;
  return convert(spelled);
}

double Val(std::string_view text) {
  std::string packed;
  std::copy_if(text.begin(), text.end(), std::back_inserter(packed),
               [](char c) { return c != ' ' && c != '\t' && c != '\r' && c != '\n'; });
  packed.resize(number_length(packed));
  return convert(packed).value_or(0.0);
}

std::string local_decimal(std::string_view text, char separator, char locale_separator) {
  std::string result(text);
  const auto last = result.rfind(separator);
  if (last != std::string::npos) result[last] = locale_separator;
  return result;
}

double round_to(double value, std::int32_t places) {
  if (places < 0) return value;
  const double scale = std::pow(10.0, places);
  try {
    return round_to_int32(value * scale) / scale;
  } catch (const Fault&) {
    return value;
  }
}

namespace {

template <typename Integer>
Integer nearest(double value) {
  const double whole = std::nearbyint(value);
  if (!(whole >= std::numeric_limits<Integer>::min() &&
        whole <= std::numeric_limits<Integer>::max())) {
    throw Fault(fault_text::kOverflow);
  }
  return static_cast<Integer>(whole);
}

}  // namespace

std::int32_t round_to_int32(double value) { return nearest<std::int32_t>(value); }
std::int16_t round_to_int16(double value) { return nearest<std::int16_t>(value); }

float checked_single(double value) {
  // From the middle between the largest float and the next power of two on, rounding overflows.
  constexpr double kFirstTooLarge = 0x1.ffffffp+127;
  if (!(std::abs(value) < kFirstTooLarge)) throw Fault(fault_text::kOverflow);
  return static_cast<float>(value);
}

}  // namespace vantrel
