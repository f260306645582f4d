#pragma once

#include <filesystem>
#include <optional>
#include <string>

namespace vantrel {

/// The SHA-256 of a file's bytes in hexadecimal digits; nothing when it cannot be read.
std::optional<std::string> file_hash(const std::filesystem::path& file);

}  // namespace vantrel
