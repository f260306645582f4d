#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <variant>
#include <vector>

namespace vantrel {

// Project files (".vtl"): a flat sequence of records without padding, integers little-endian, texts
// in code page 1252 and filled with blanks.

/// Design screens of a project; a screen's place in their order is its index in the file.
inline constexpr std::size_t kProjectScreens = 7;
inline constexpr std::size_t kProjectSlots = 4;
/// Width in bytes of a field's name and of a value's text; longer ones are cut.
inline constexpr std::size_t kProjectNameWidth = 32;
inline constexpr std::size_t kProjectTextWidth = 64;

/// One value field.
struct ValueRecord {
  std::uint8_t screen = 0;
  std::string name;
  std::int32_t index = -1;  ///< Place in a control group, -1 outside one.
  bool fixed = false;
  std::string text;
  friend bool operator==(const ValueRecord&, const ValueRecord&) = default;
};

/// One pull-down list.
struct ListRecord {
  std::uint8_t screen = 0;
  std::string name;
  std::int32_t index = -1;  ///< Place in a control group, -1 outside one.
  std::int32_t selected = -1;
  friend bool operator==(const ListRecord&, const ListRecord&) = default;
};

/// All that a project file holds.
struct ProjectData {
  std::int32_t screenCount = 0;  ///< Screens that were loaded; nothing depends on it.
  std::array<std::int32_t, kProjectSlots> selection{};  ///< IDs in IC, INPUT, LAMP, CONFIG.
  std::array<bool, kProjectScreens> visible{};
  std::vector<ValueRecord> values;
  std::vector<ListRecord> lists;
  friend bool operator==(const ProjectData&, const ProjectData&) = default;
};

/// Why bytes are no project.
struct ProjectError {
  std::string reason;
};

/// The bytes of a file of format version 2.
std::vector<std::uint8_t> encode(const ProjectData& data);

/// Reads a file of format version 1 or 2. The whole file is checked: a version that is not known,
/// counts that its length does not bear out, a screen that is none of the seven, and bytes behind
/// the end are errors. Field names of version 1 come back as they are spelled today. The memory
/// used is in proportion to the length of the file.
std::variant<ProjectData, ProjectError> decode(std::span<const std::uint8_t> bytes);

}  // namespace vantrel
