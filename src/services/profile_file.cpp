#include "services/profile_file.h"

#include <algorithm>
#include <charconv>

#include "core/file_writer.h"
#include "core/text_parsing.h"
#include "services/file_reader.h"

namespace vantrel {
namespace {

constexpr std::size_t kLongestProfile = std::size_t{1} << 20U;
constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";

/// The name in a line "[name]"; nothing for any other line.
std::optional<std::string> section_of(std::string_view line) {
  const std::string text = trimmed(line);
  if (text.size() < 2 || text.front() != '[') return std::nullopt;
  const auto end = text.find(']');
  if (end == std::string::npos) return std::nullopt;
  return trimmed(std::string_view(text).substr(1, end - 1));
}

bool is_key_line(std::string_view line, std::string_view key) {
  const auto equals = line.find('=');
  return equals != std::string_view::npos &&
         equal_ignoring_case(trimmed(line.substr(0, equals)), key);
}

std::string value_of(std::string_view line) {
  std::string value = trimmed(line.substr(line.find('=') + 1));
  const bool quoted = value.size() >= 2 && value.front() == value.back() &&
                      (value.front() == '"' || value.front() == '\'');
  return quoted ? value.substr(1, value.size() - 2) : value;
}

std::string one_line(std::string_view text) {
  std::string line(text);
  std::replace_if(
      line.begin(), line.end(), [](char c) { return c == '\n' || c == '\r'; }, ' ');
  return line;
}

}  // namespace

ProfileText::ProfileText(std::string_view text) {
  if (text.starts_with(kByteOrderMark)) text.remove_prefix(kByteOrderMark.size());
  while (!text.empty()) {
    const auto end = std::min(text.find('\n'), text.size());
    lines_.emplace_back(text.substr(0, end));
    text.remove_prefix(std::min(end + 1, text.size()));
  }
}

/// Index of the line behind the section's heading; past the last line when there is none.
std::size_t ProfileText::sectionStart(std::string_view section) const {
  const auto found = std::find_if(lines_.begin(), lines_.end(), [&](const std::string& line) {
    const auto name = section_of(line);
    return name && equal_ignoring_case(*name, section);
  });
  if (found == lines_.end()) return lines_.size() + 1;
  return static_cast<std::size_t>(found - lines_.begin()) + 1;
}

std::size_t ProfileText::sectionEnd(std::size_t start) const {
  std::size_t end = start;
  while (end < lines_.size() && !section_of(lines_[end])) ++end;
  return end;
}

/// Index of the key's line, or the end of the section.
std::size_t ProfileText::keyLine(std::size_t start, std::string_view key) const {
  const std::size_t end = sectionEnd(start);
  std::size_t line = start;
  while (line < end && !is_key_line(lines_[line], key)) ++line;
  return line;
}

std::optional<std::string> ProfileText::get(std::string_view section, std::string_view key) const {
  const std::size_t start = sectionStart(section);
  if (start > lines_.size()) return std::nullopt;
  const std::size_t line = keyLine(start, key);
  if (line == sectionEnd(start)) return std::nullopt;
  return value_of(lines_[line]);
}

std::optional<std::int32_t> ProfileText::getInt(std::string_view section,
                                                std::string_view key) const {
  const auto text = get(section, key);
  if (!text) return std::nullopt;
  std::int32_t number = 0;
  const char* const end = text->data() + text->size();
  const auto result = std::from_chars(text->data(), end, number);
  if (result.ec != std::errc() || result.ptr != end) return std::nullopt;
  return number;
}

void ProfileText::set(std::string_view section, std::string_view key, std::string_view value) {
  std::size_t start = sectionStart(section);
  if (start > lines_.size()) {
    lines_.push_back("[" + one_line(section) + "]");
    start = lines_.size();
  }
  const std::string text = one_line(key) + "=" + one_line(value);
  const std::size_t end = sectionEnd(start);
  std::size_t line = keyLine(start, key);
  if (line < end) {
    lines_[line] = text;
    return;
  }
  // Blank lines in front of the next section stay in front of it.
  while (line > start && trimmed(lines_[line - 1]).empty()) --line;
  lines_.insert(lines_.begin() + static_cast<std::ptrdiff_t>(line), text);
}

std::string ProfileText::text() const {
  std::string text;
  for (const std::string& line : lines_) text += line + "\n";
  return text;
}

ProfileText ProfileFile::read() const {
  const auto bytes = read_file(path_, kLongestProfile);
  if (!bytes) return ProfileText();
  return ProfileText(std::string_view(reinterpret_cast<const char*>(bytes->data()), bytes->size()));
}

std::optional<std::string> ProfileFile::write(std::string_view section,
                                              std::span<const ProfileValue> values) const {
  ProfileText text = read();
  for (const ProfileValue& value : values) text.set(section, value.key, value.value);
  return write_file(path_, text.text());
}

}  // namespace vantrel
