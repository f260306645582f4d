#pragma once

#include <fstream>
#include <iterator>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "core/ports.h"
#include "support/fixtures.h"

namespace vantrel::test {

/// A save dialog that gives one answer and notes what it was asked.
class AnsweredSave : public FileDialogs {
 public:
  std::optional<std::string> askSave(std::string_view title, std::string_view filter,
                                     std::string_view proposed) override {
    asked = {std::string(title), std::string(filter), std::string(proposed)};
    return answer;
  }
  std::optional<std::string> askOpen(std::string_view /*title*/, std::string_view /*filter*/,
                                     std::string_view /*proposed*/) override {
    return std::nullopt;
  }

  std::optional<std::string> answer;
  std::vector<std::string> asked;
};

/// The bytes of a file, empty when there is none.
inline std::string contents(const std::filesystem::path& path) {
  std::ifstream file(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(file), {}};
}

}  // namespace vantrel::test
