#include "services/file_reader.h"

#include <fstream>
#include <ios>
#include <system_error>

namespace vantrel {

std::optional<std::vector<std::uint8_t>> read_file(const std::filesystem::path& path,
                                                   std::size_t most) {
  std::error_code error;
  if (!std::filesystem::is_regular_file(path, error)) return std::nullopt;
  const std::uintmax_t size = std::filesystem::file_size(path, error);
  if (error || size > most) return std::nullopt;
  std::ifstream file(path, std::ios::binary);
  std::vector<std::uint8_t> bytes(static_cast<std::size_t>(size));
  file.read(reinterpret_cast<char*>(bytes.data()), static_cast<std::streamsize>(bytes.size()));
  if (!file.is_open() || file.gcount() != static_cast<std::streamsize>(bytes.size())) {
    return std::nullopt;
  }
  return bytes;
}

}  // namespace vantrel
