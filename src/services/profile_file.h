#pragma once

#include <cstdint>
#include <filesystem>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace vantrel {

/// The text of an INI file: sections of "key=value" lines. Sections and keys ignore case, the first
/// of several alike counts. Comments and lines that mean nothing are kept as they are.
class ProfileText {
 public:
  explicit ProfileText(std::string_view text = {});

  /// The value without surrounding blanks and quotes; nothing when the key is missing.
  std::optional<std::string> get(std::string_view section, std::string_view key) const;
  /// The value as an integer; nothing when the key is missing or holds anything else.
  std::optional<std::int32_t> getInt(std::string_view section, std::string_view key) const;
  /// Replaces or adds a value. A line break in any of the texts becomes a blank.
  void set(std::string_view section, std::string_view key, std::string_view value);
  std::string text() const;

 private:
  std::size_t sectionStart(std::string_view section) const;
  std::size_t sectionEnd(std::size_t start) const;
  std::size_t keyLine(std::size_t start, std::string_view key) const;

  std::vector<std::string> lines_;
};

/// A value to write.
struct ProfileValue {
  std::string key;
  std::string value;
};

/// An INI file on the disk. It is read at every use, so a second instance of the program sees what
/// the first one wrote, and the last writer wins.
class ProfileFile {
 public:
  explicit ProfileFile(std::filesystem::path path) : path_(std::move(path)) {}

  /// What the file holds; nothing at all when it is missing or cannot be read.
  ProfileText read() const;
  /// Writes values of one section in one go. Gives the reason when it fails.
  std::optional<std::string> write(std::string_view section,
                                   std::span<const ProfileValue> values) const;

 private:
  std::filesystem::path path_;
};

}  // namespace vantrel
