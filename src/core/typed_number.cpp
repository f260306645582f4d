#include <algorithm>
#include <array>
#include <charconv>
#include <string>

#include "core/number_text.h"
#include "core/si_letters.h"
#include "core/text_parsing.h"

namespace vantrel {
namespace {

// Units that take a prefix. Percent, degrees, turns and areas are missing on purpose.
constexpr std::array<std::string_view, 18> kPrefixable{"Hz",  "H",    "F",    "V",   "VDC",  "VAC",
                                                       "Vpk", "Vrms", "A",    "Apk", "Arms", "W",
                                                       "VA",  "Ohm",  "Ohms", "Sec", "s",    "T"};
// Metres take one too, but "5m" could be 5 metres or 5 millimetres, so a lone "m" is refused.
constexpr std::string_view kMetre = "m";

bool takes_prefix(std::string_view root) {
  return root == kMetre ||
         std::any_of(kPrefixable.begin(), kPrefixable.end(),
                     [&](std::string_view unit) { return equal_ignoring_case(unit, root); });
}

/// A unit as its root and the power of ten of its prefix. An unknown unit is all root.
struct Unit {
  std::string_view root;
  int exponent = 0;
  bool prefixable = false;
};

Unit split_unit(std::string_view text) {
  if (text.empty() || takes_prefix(text)) return {text, 0, true};
  const SiLetter* letter = find_si_letter(text.front());
  if (letter != nullptr && takes_prefix(text.substr(1))) {
    return {text.substr(1), letter->exponent, true};
  }
  return {text, 0, false};
}

/// The power of ten that leads from what was typed to the field's unit, by the text behind the
/// digits. Nothing when that text does not belong there.
std::optional<int> shift_of(std::string_view tail, const Unit& unit) {
  if (tail.empty()) return 0;
  const SiLetter* letter = tail.size() == 1 ? find_si_letter(tail.front()) : nullptr;
  const bool is_root = equal_ignoring_case(tail, unit.root);
  if (letter != nullptr && is_root) return std::nullopt;
  if (letter != nullptr && unit.prefixable) return letter->exponent - unit.exponent;
  if (is_root) return -unit.exponent;
  const Unit typed = split_unit(tail);
  if (!typed.prefixable || !equal_ignoring_case(typed.root, unit.root)) return std::nullopt;
  return typed.exponent - unit.exponent;
}

/// The number with its decimal point moved, in its text, so that 4.7 with "n" in a field of nF is
/// 4.7 to the last bit.
std::optional<double> shifted(std::string_view spelled, int shift) {
  if (shift == 0) return parse_number(spelled);
  const auto mark = spelled.find_first_of("eE");
  int exponent = 0;
  if (mark != std::string_view::npos) {
    std::string_view digits = spelled.substr(mark + 1);
    if (digits.front() == '+') digits.remove_prefix(1);
    const auto read = std::from_chars(digits.data(), digits.data() + digits.size(), exponent);
    constexpr int kFarOut = 100000;
    if (read.ec != std::errc() || exponent > kFarOut || exponent < -kFarOut) return std::nullopt;
  }
  return parse_number(std::string(spelled.substr(0, mark)) + "e" +
                      std::to_string(exponent + shift));
}

}  // namespace

std::optional<double> typed_number(std::string_view text, std::string_view unit) {
  std::string typed = trimmed(text);
  if (std::count(typed.begin(), typed.end(), '.') + std::count(typed.begin(), typed.end(), ',') >
      1) {
    return std::nullopt;
  }
  std::replace(typed.begin(), typed.end(), ',', '.');
  const std::size_t length = number_length(typed);
  if (length == 0) return std::nullopt;
  const std::string tail = trimmed(std::string_view(typed).substr(length));
  const std::string shown = trimmed(unit);
  const std::optional<int> shift = shift_of(tail, split_unit(shown));
  if (!shift) return std::nullopt;
  return shifted(std::string_view(typed).substr(0, length), *shift);
}

}  // namespace vantrel
