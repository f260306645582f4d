#include "services/project_file.h"

#include <string_view>

#include "core/code_page.h"

namespace vantrel {
namespace {

constexpr std::uint8_t kVersion = 2;
constexpr std::uint8_t kLegacyVersion = 1;
constexpr std::string_view kLegacyName = "TV6114_DCOMP";
constexpr std::string_view kNameOfToday = "TV6104_DCOMP";

constexpr std::size_t kValueRecordBytes = 1 + kProjectNameWidth + 4 + 1 + kProjectTextWidth;
constexpr std::size_t kListRecordBytes = 1 + kProjectNameWidth + 4 + 4;

class Writer {
 public:
  void byte(std::uint8_t value) { bytes_.push_back(value); }

  void number(std::int32_t value) {
    const auto bits = static_cast<std::uint32_t>(value);
    for (unsigned shift = 0; shift < 32; shift += 8) {
      byte(static_cast<std::uint8_t>(bits >> shift));
    }
  }

  void count(std::size_t value) { number(static_cast<std::int32_t>(value)); }

  void text(std::string_view utf8, std::size_t width) {
    std::string fixed = to_code_page(utf8);
    fixed.resize(width, ' ');
    bytes_.insert(bytes_.end(), fixed.begin(), fixed.end());
  }

  std::vector<std::uint8_t> take() { return std::move(bytes_); }

 private:
  std::vector<std::uint8_t> bytes_;
};

class Reader {
 public:
  explicit Reader(std::span<const std::uint8_t> bytes) : bytes_(bytes) {}

  std::span<const std::uint8_t> take(std::size_t count) {
    if (bytes_.size() < count) throw ProjectError{"The file is cut short"};
    const auto taken = bytes_.first(count);
    bytes_ = bytes_.subspan(count);
    return taken;
  }

  std::uint8_t byte() { return take(1).front(); }

  std::int32_t number() {
    std::uint32_t bits = 0;
    unsigned shift = 0;
    for (const std::uint8_t part : take(4)) {
      bits |= std::uint32_t{part} << shift;
      shift += 8;
    }
    return static_cast<std::int32_t>(bits);
  }

  /// The number of records that follow; checked before any of them is read.
  std::size_t count(std::size_t record_bytes) {
    const std::int32_t records = number();
    if (records < 0) throw ProjectError{"A count is negative"};
    const auto wanted = static_cast<std::size_t>(records);
    if (wanted > bytes_.size() / record_bytes) throw ProjectError{"The file is cut short"};
    return wanted;
  }

  std::string text(std::size_t width) {
    const auto fixed = take(width);
    const std::string_view all(reinterpret_cast<const char*>(fixed.data()), fixed.size());
    return from_code_page(all.substr(0, all.find_last_not_of(' ') + 1));
  }

  std::uint8_t screen() {
    const std::uint8_t index = byte();
    if (index >= kProjectScreens) throw ProjectError{"A screen is unknown"};
    return index;
  }

  bool at_end() const { return bytes_.empty(); }

 private:
  std::span<const std::uint8_t> bytes_;
};

ValueRecord read_value(Reader& reader, bool legacy) {
  ValueRecord record;
  record.screen = reader.screen();
  record.name = reader.text(kProjectNameWidth);
  if (legacy && record.name == kLegacyName) record.name = kNameOfToday;
  record.index = reader.number();
  record.fixed = reader.byte() != 0;
  record.text = reader.text(kProjectTextWidth);
  return record;
}

ListRecord read_list(Reader& reader) {
  ListRecord record;
  record.screen = reader.screen();
  record.name = reader.text(kProjectNameWidth);
  record.index = reader.number();
  record.selected = reader.number();
  return record;
}

ProjectData read_project(Reader& reader) {
  const std::uint8_t version = reader.byte();
  if (version != kVersion && version != kLegacyVersion) {
    throw ProjectError{"The format is not known"};
  }
  ProjectData data;
  data.screenCount = reader.number();
  for (std::int32_t& id : data.selection) id = reader.number();
  for (bool& visible : data.visible) visible = reader.byte() == 1;
  const std::size_t values = reader.count(kValueRecordBytes);
  data.values.reserve(values);
  while (data.values.size() < values) {
    data.values.push_back(read_value(reader, version == kLegacyVersion));
  }
  const std::size_t lists = reader.count(kListRecordBytes);
  data.lists.reserve(lists);
  while (data.lists.size() < lists) data.lists.push_back(read_list(reader));
  if (!reader.at_end()) throw ProjectError{"The file is longer than its counts say"};
  return data;
}

}  // namespace

std::vector<std::uint8_t> encode(const ProjectData& data) {
  Writer writer;
  writer.byte(kVersion);
  writer.number(data.screenCount);
  for (const std::int32_t id : data.selection) writer.number(id);
  for (const bool visible : data.visible) writer.byte(visible ? 1 : 0);
  writer.count(data.values.size());
  for (const ValueRecord& record : data.values) {
    writer.byte(record.screen);
    writer.text(record.name, kProjectNameWidth);
    writer.number(record.index);
    writer.byte(record.fixed ? 1 : 0);
    writer.text(record.text, kProjectTextWidth);
  }
  writer.count(data.lists.size());
  for (const ListRecord& record : data.lists) {
    writer.byte(record.screen);
    writer.text(record.name, kProjectNameWidth);
    writer.number(record.index);
    writer.number(record.selected);
  }
  return writer.take();
}

std::variant<ProjectData, ProjectError> decode(std::span<const std::uint8_t> bytes) {
  try {
    Reader reader(bytes);
    return read_project(reader);
  } catch (const ProjectError& error) {
    return error;
  }
}

}  // namespace vantrel
