#pragma once

#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

namespace vantrel::builder {

/// Something in the sources that must not reach the design database.
struct Problem {
  std::filesystem::path file;
  int line = 0;  ///< Line in the file from 1; 0 when the problem lies in the file as a whole.
  std::string text;
};

/// Collects problems, so that one build names them all.
class Problems {
 public:
  void add(const std::filesystem::path& file, int line, std::string_view text) {
    list_.push_back({file, line, std::string(text)});
  }
  bool empty() const { return list_.empty(); }
  const std::vector<Problem>& list() const { return list_; }

 private:
  std::vector<Problem> list_;
};

/// "file:line: text", the form that editors jump to.
std::string to_string(const Problem& problem);

}  // namespace vantrel::builder
