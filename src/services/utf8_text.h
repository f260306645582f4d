#pragma once

#include <string>
#include <string_view>

namespace vantrel {

/// True when the bytes are UTF-8 throughout.
bool is_utf8(std::string_view bytes);

/// Text of a foreign file or page: the bytes as they are when they are UTF-8, otherwise read in
/// code page 1252.
std::string as_utf8(std::string_view bytes);

}  // namespace vantrel
