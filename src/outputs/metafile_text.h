#pragma once

#include <string>
#include <string_view>

namespace vantrel {

/// The texts of metafiles are in code page 1252; the five bytes that it leaves open stand for the
/// control characters of their own number.

/// The UTF-8 text of bytes in the code page.
std::string metafile_text(std::string_view bytes);
/// One byte for each character of a UTF-8 text; "?" for a character outside of it.
std::string metafile_text_bytes(std::string_view utf8);

}  // namespace vantrel
