#include "outputs/metafile_text.h"

#include <array>
#include <cstddef>

namespace vantrel {
namespace {

/// Characters of the bytes 0x80 to 0x9F; all other bytes are the character of their own number.
constexpr std::array<std::string_view, 32> kSpecials = {
    "\u20AC",   "\xC2\x81", "\u201A", "\u0192", "\u201E", "\u2026",   "\u2020", "\u2021",
    "\u02C6",   "\u2030",   "\u0160", "\u2039", "\u0152", "\xC2\x8D", "\u017D", "\xC2\x8F",
    "\xC2\x90", "\u2018",   "\u2019", "\u201C", "\u201D", "\u2022",   "\u2013", "\u2014",
    "\u02DC",   "\u2122",   "\u0161", "\u203A", "\u0153", "\xC2\x9D", "\u017E", "\u0178"};

constexpr unsigned kFirstSpecial = 0x80;
constexpr unsigned kFirstLatin = 0xA0;

void append(std::string& text, unsigned byte) {
  if (byte < kFirstSpecial) {
    text += static_cast<char>(byte);
  } else if (byte < kFirstLatin) {
    text += kSpecials[byte - kFirstSpecial];
  } else {
    text += static_cast<char>(0xC0U | (byte >> 6U));
    text += static_cast<char>(0x80U | (byte & 0x3FU));
  }
}

/// Takes one character off the text and gives its byte.
char take_byte(std::string_view& text) {
  const auto first = static_cast<unsigned char>(text.front());
  std::size_t length = 1;
  char byte = first < kFirstSpecial ? text.front() : '?';
  std::string character;
  for (unsigned each = kFirstSpecial; first >= kFirstSpecial && each <= 0xFF; ++each) {
    character.clear();
    append(character, each);
    if (!text.starts_with(character)) continue;
    byte = static_cast<char>(each);
    length = character.size();
    break;
  }
  text.remove_prefix(length);
  return byte;
}

/// True for a byte that goes on with the character before it.
bool continues(char byte) { return (static_cast<unsigned char>(byte) & 0xC0U) == 0x80U; }

}  // namespace

std::string metafile_text(std::string_view bytes) {
  std::string text;
  for (const char byte : bytes) append(text, static_cast<unsigned char>(byte));
  return text;
}

std::string metafile_text_bytes(std::string_view utf8) {
  std::string bytes;
  while (!utf8.empty()) {
    const char byte = take_byte(utf8);
    bytes += byte;
    // A character outside the page is one "?", however many bytes it has.
    while (byte == '?' && !utf8.empty() && continues(utf8.front())) utf8.remove_prefix(1);
  }
  return bytes;
}

}  // namespace vantrel
