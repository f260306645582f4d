#pragma once

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <optional>
#include <vector>

namespace vantrel {

/// The bytes of a regular file. Nothing when it cannot be read, is no regular file (a pipe would
/// wait for ever), or holds more than `most` bytes.
std::optional<std::vector<std::uint8_t>> read_file(const std::filesystem::path& path,
                                                   std::size_t most);

}  // namespace vantrel
