#include "components/script/characters.h"

namespace vantrel::script {

namespace {

constexpr unsigned kAsciiEnd = 0x80;

bool continues(char byte) { return (static_cast<unsigned char>(byte) & 0xC0U) == 0x80U; }

std::size_t after_character(std::string_view text, std::size_t offset) {
  ++offset;
  while (offset < text.size() && continues(text[offset])) ++offset;
  return offset;
}

}  // namespace

std::size_t character_count(std::string_view text) {
  std::size_t count = 0;
  for (std::size_t i = 0; i < text.size(); i = after_character(text, i)) ++count;
  return count;
}

std::size_t byte_offset(std::string_view text, std::size_t characters) {
  std::size_t offset = 0;
  for (; characters > 0 && offset < text.size(); --characters) {
    offset = after_character(text, offset);
  }
  return offset;
}

std::string latin1_character(std::uint8_t code) {
  if (code < kAsciiEnd) return std::string(1, static_cast<char>(code));
  return {static_cast<char>(0xC0U | code >> 6U), static_cast<char>(0x80U | (code & 0x3FU))};
}

std::uint8_t latin1_code(std::string_view text) {
  const auto first = static_cast<unsigned char>(text[0]);
  if (first < kAsciiEnd) return first;
  const bool two_bytes =
      (first == 0xC2U || first == 0xC3U) && text.size() > 1 && continues(text[1]);
  if (!two_bytes) return '?';
  return static_cast<std::uint8_t>((first & 0x03U) << 6U |
                                   (static_cast<unsigned char>(text[1]) & 0x3FU));
}

}  // namespace vantrel::script
