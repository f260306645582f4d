#include "services/utf8_text.h"

#include <cstddef>
#include <cstdint>

#include "core/code_page.h"

namespace vantrel {

namespace {

/// The first byte of a sequence, how many follow, and the range of the second one, which rules out
/// longer spellings, surrogates and numbers beyond Unicode.
struct Sequence {
  std::uint8_t first, last;
  std::size_t following;
  std::uint8_t second_from, second_to;
};

constexpr Sequence kSequences[] = {
    {0x00, 0x7F, 0, 0, 0},       {0xC2, 0xDF, 1, 0x80, 0xBF}, {0xE0, 0xE0, 2, 0xA0, 0xBF},
    {0xE1, 0xEC, 2, 0x80, 0xBF}, {0xED, 0xED, 2, 0x80, 0x9F}, {0xEE, 0xEF, 2, 0x80, 0xBF},
    {0xF0, 0xF0, 3, 0x90, 0xBF}, {0xF1, 0xF3, 3, 0x80, 0xBF}, {0xF4, 0xF4, 3, 0x80, 0x8F}};

/// Length of the character at the start of the text, 0 when there is none.
std::size_t character_length(std::string_view text) {
  const auto byte = [&](std::size_t at) { return static_cast<std::uint8_t>(text[at]); };
  for (const Sequence& kind : kSequences) {
    if (byte(0) < kind.first || byte(0) > kind.last) continue;
    if (text.size() <= kind.following) return 0;
    for (std::size_t i = 1; i <= kind.following; ++i) {
      const std::uint8_t from = i == 1 ? kind.second_from : 0x80;
      const std::uint8_t to = i == 1 ? kind.second_to : 0xBF;
      if (byte(i) < from || byte(i) > to) return 0;
    }
    return kind.following + 1;
  }
  return 0;
}

}  // namespace

bool is_utf8(std::string_view bytes) {
  while (!bytes.empty()) {
    const std::size_t length = character_length(bytes);
    if (length == 0) return false;
    bytes.remove_prefix(length);
  }
  return true;
}

std::string as_utf8(std::string_view bytes) {
  return is_utf8(bytes) ? std::string(bytes) : from_code_page(bytes);
}

}  // namespace vantrel
