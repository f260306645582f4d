#pragma once

#include <filesystem>
#include <map>
#include <string>
#include <vector>

#include "database_builder/problems.h"

namespace vantrel::builder {

/// A folder with the smallest sources that build, which a test then breaks. It is deleted at the
/// end.
class SourceFolder {
 public:
  SourceFolder();
  ~SourceFolder();
  SourceFolder(const SourceFolder&) = delete;
  SourceFolder& operator=(const SourceFolder&) = delete;

  /// Text of a file, to be changed before `build`.
  std::string& file(const std::string& name) { return files_.at(name); }
  void add(const std::string& name, const std::string& text) { files_[name] = text; }
  void remove(const std::string& name) { files_.erase(name); }
  /// Replaces the only occurrence of `from`; false when there is not exactly one.
  bool replace(const std::string& name, const std::string& from, const std::string& to);

  /// Writes the files and builds the database from them and the project's schema.
  Problems build();
  /// As `build`; the problems as "file:line: text" without the folder.
  std::vector<std::string> problems();

  const std::filesystem::path& path() const { return path_; }
  std::filesystem::path database() const { return path_ / "out" / "Data" / "VTL.mdb"; }

 private:
  std::filesystem::path path_;
  std::map<std::string, std::string> files_;
};

}  // namespace vantrel::builder
