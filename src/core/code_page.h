#pragma once

#include <string>
#include <string_view>

namespace vantrel {

/// Code page 1252, in which the fixed texts of a project file and those of metafiles are held
/// whatever the desktop's encoding is. The five bytes that it leaves open stand for the control
/// characters of their own number, so that every byte has one character.

/// One byte for each character of a UTF-8 text; "?" for a character outside the code page and for
/// each byte that is no UTF-8.
std::string to_code_page(std::string_view utf8);
/// The UTF-8 text of bytes in the code page.
std::string from_code_page(std::string_view bytes);

}  // namespace vantrel
