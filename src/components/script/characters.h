#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

/// Characters of UTF-8 texts. Bytes that are no UTF-8 do no harm: a stray continuation byte belongs
/// to the character ahead of it.
namespace vantrel::script {

std::size_t character_count(std::string_view text);

/// The bytes that the first `characters` take, all when there are fewer.
std::size_t byte_offset(std::string_view text, std::size_t characters);

/// The character with a code from 0 to 255.
std::string latin1_character(std::uint8_t code);

/// The code of the first character of a text that is not empty; 63, a question mark, when it is
/// above 255 or no UTF-8.
std::uint8_t latin1_code(std::string_view text);

}  // namespace vantrel::script
