#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace vantrel {

/// Maps the program's paths ("\Data\VTL.mdb") to the file system. Steps are split at "\" and "/",
/// and matched exactly first, then regardless of case; ".." is refused.
class ProgramFolder {
 public:
  /// `home` is the writable folder; files that it lacks are read from `installed` when given.
  explicit ProgramFolder(std::filesystem::path home, std::filesystem::path installed = {});

  const std::filesystem::path& home() const { return home_; }
  /// The existing file or folder, in `home` first; nothing when there is none or the path leaves
  /// the program's folder.
  std::optional<std::filesystem::path> find(std::string_view path) const;
  /// Where to write the file, in `home`: the existing one when there is one. Nothing when the path
  /// leaves the program's folder.
  std::optional<std::filesystem::path> writable(std::string_view path) const;

 private:
  std::filesystem::path home_;
  std::filesystem::path installed_;
};

/// The last step of a path with either separator.
std::string name_without_path(std::string_view path);
/// The text before the last ".", all of it when there is none.
std::string name_without_extension(std::string_view path);
/// Deletes a file; a missing one is no failure. True when no such file is left.
bool delete_file(const std::filesystem::path& path);

}  // namespace vantrel
