#pragma once

#include <sys/types.h>

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <functional>
#include <optional>
#include <span>
#include <string>
#include <string_view>

namespace vantrel {

/// The calls of the system that a write is made of, so that a test can let each of them fail. Each
/// one gives -1 and sets `errno` on failure.
struct FileCalls {
  std::function<ssize_t(int file, const void* bytes, std::size_t count)> write;
  std::function<int(int file)> sync;
  std::function<int(const char* from, const char* to)> rename;
};
/// The system's own.
FileCalls system_file_calls();

/// Writes a whole file: beside the target, flushed to the disk, then renamed over it, so that at
/// any moment the name holds either the old bytes or the new ones. A symbolic link is followed and
/// stays; the mode of an existing file is kept. Only regular files are replaced, and none that the
/// user may not write.
///
/// Gives the reason when it fails; then the old file is as it was and no temporary file is left.
[[nodiscard]] std::optional<std::string> write_file(const std::filesystem::path& path,
                                                    std::span<const std::uint8_t> bytes,
                                                    const FileCalls& calls = system_file_calls());
/// The same for text.
[[nodiscard]] std::optional<std::string> write_file(const std::filesystem::path& path,
                                                    std::string_view text,
                                                    const FileCalls& calls = system_file_calls());

}  // namespace vantrel
