#include "core/code_page.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>

namespace vantrel {
namespace {

constexpr char32_t kNoCharacter = 0xFFFFFFFF;
constexpr std::uint8_t kFirstSpecial = 0x80;

/// Characters of the bytes 0x80 to 0x9F; all other bytes are the character of their own number.
constexpr std::array<char32_t, 32> kSpecials = {
    0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
    0x2039, 0x0152, 0x008D, 0x017D, 0x008F, 0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178};

char byte_of(char32_t character) {
  const bool own_number = character < 0x80 || (character >= 0xA0 && character <= 0xFF);
  if (own_number) return static_cast<char>(character);
  const auto found = std::find(kSpecials.begin(), kSpecials.end(), character);
  if (found == kSpecials.end()) return '?';
  return static_cast<char>(kFirstSpecial + (found - kSpecials.begin()));
}

char32_t character_of(std::uint8_t byte) {
  const bool special = byte >= kFirstSpecial && byte < kFirstSpecial + kSpecials.size();
  return special ? kSpecials[byte - kFirstSpecial] : byte;
}

/// Length of the sequence that a first byte announces, 0 when it can be none.
std::size_t sequence_length(std::uint8_t first) {
  if (first < 0x80) return 1;
  if (first >= 0xC2 && first < 0xE0) return 2;
  if (first >= 0xE0 && first < 0xF0) return 3;
  if (first >= 0xF0 && first < 0xF5) return 4;
  return 0;
}

/// Smallest character that needs a sequence of that length; a longer spelling is no UTF-8.
constexpr std::array<char32_t, 5> kSmallest = {0, 0, 0x80, 0x800, 0x10000};

/// Takes one character off the text; a byte that begins none is taken alone.
char32_t take_character(std::string_view& text) {
  const auto first = static_cast<std::uint8_t>(text.front());
  const std::size_t length = sequence_length(first);
  char32_t character = length < 2 ? first : first & (0x7FU >> length);
  bool sound = length > 0 && length <= text.size();
  for (std::size_t i = 1; sound && i < length; ++i) {
    const auto next = static_cast<std::uint8_t>(text[i]);
    sound = (next & 0xC0U) == 0x80U;
    character = (character << 6U) | (next & 0x3FU);
  }
  sound = sound && character >= kSmallest[length];
  text.remove_prefix(sound ? length : 1);
  return sound ? character : kNoCharacter;
}

/// Every character of the code page has at most three bytes.
void append_utf8(std::string& text, char32_t character) {
  if (character < 0x80) {
    text += static_cast<char>(character);
    return;
  }
  if (character < 0x800) {
    text += static_cast<char>(0xC0U | (character >> 6U));
  } else {
    text += static_cast<char>(0xE0U | (character >> 12U));
    text += static_cast<char>(0x80U | ((character >> 6U) & 0x3FU));
  }
  text += static_cast<char>(0x80U | (character & 0x3FU));
}

}  // namespace

std::string to_code_page(std::string_view utf8) {
  std::string bytes;
  while (!utf8.empty()) bytes += byte_of(take_character(utf8));
  return bytes;
}

std::string from_code_page(std::string_view bytes) {
  std::string text;
  for (const char byte : bytes) append_utf8(text, character_of(static_cast<std::uint8_t>(byte)));
  return text;
}

}  // namespace vantrel
