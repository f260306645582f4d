#pragma once

#include <cstddef>
#include <filesystem>
#include <functional>
#include <string>
#include <string_view>

namespace vantrel {

/// The file that a sweep adds its rows to. Each row goes to the system in one piece, so that a
/// sweep that is killed leaves at most one cut-off line. One sweep at a time holds a file.
class SweepFile {
 public:
  SweepFile() = default;
  ~SweepFile();
  SweepFile(const SweepFile&) = delete;
  SweepFile& operator=(const SweepFile&) = delete;

  /// Starts an empty file with `header`. Gives the reason of a failure, otherwise nothing.
  [[nodiscard]] std::string start(const std::filesystem::path& path, std::string_view header);
  /// Goes on with a file: drops a cut-off last line and counts the rows that stand. They must be
  /// the first rows of this very sweep, as `key_of` tells by the key of row `n`, counted from 0 and
  /// empty behind the last. A missing or empty file is started. Gives the reason of a failure; a
  /// file of another sweep is refused and stays as it was.
  [[nodiscard]] std::string resume(const std::filesystem::path& path, std::string_view header,
                                   const std::function<std::string(std::size_t)>& key_of);

  /// Rows that stood in the file when it was opened.
  std::size_t rows() const { return rows_; }
  /// Appends a row, line end included. Gives the reason of a failure.
  [[nodiscard]] std::string append(std::string_view row);
  /// Brings everything to the disk. Gives the reason of a failure.
  [[nodiscard]] std::string finish();
  /// Lets go of the file, as a process must that only inherited it.
  void close();

 private:
  std::string open(const std::filesystem::path& path);
  std::string failure() const;

  std::string path_;
  int file_ = -1;
  std::size_t rows_ = 0;
};

}  // namespace vantrel
