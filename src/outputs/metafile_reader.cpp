#include "outputs/metafile_reader.h"

#include <algorithm>
#include <cmath>

namespace vantrel {
namespace {

/// The placeable head of 22 bytes and the plain one of 18.
constexpr std::size_t kRecordsStart = 40;
constexpr std::uint8_t kKey[] = {0xD7, 0xCD, 0xC6, 0x9A};

std::uint16_t word_at(std::span<const std::uint8_t> bytes, std::size_t at) {
  return static_cast<std::uint16_t>(bytes[at] | bytes[at + 1] << 8);
}

int number_at(std::span<const std::uint8_t> bytes, std::size_t at) {
  return static_cast<std::int16_t>(word_at(bytes, at));
}

std::string characters(const MetafileRecord& record, std::size_t word, std::size_t count) {
  const auto bytes = record.bytes().subspan(word * 2, count);
  return {bytes.begin(), bytes.end()};
}

std::optional<MetafileText> plain_text(const MetafileRecord& record) {
  const std::size_t count = record.word(0);
  const std::size_t behind = 1 + (count + 1) / 2;
  if (record.words() < behind + 2) return std::nullopt;
  return MetafileText{record.reversedPoint(behind), characters(record, 1, count), 0, {}, {}};
}

std::optional<MetafileText> extended_text(const MetafileRecord& record) {
  constexpr std::size_t kFixedWords = 4;
  const std::size_t count = record.word(2);
  MetafileText text{record.reversedPoint(0), {}, record.word(3), {}, {}};
  std::size_t start = kFixedWords;
  if ((text.options & (kTextOpaque | kTextClipped)) != 0) {
    text.box = {record.number(start), record.number(start + 1), record.number(start + 2),
                record.number(start + 3)};
    start += 4;
  }
  const std::size_t behind = start + (count + 1) / 2;
  if (record.words() < behind) return std::nullopt;
  text.bytes = characters(record, start, count);
  if (record.words() < behind + count) return text;
  for (std::size_t i = 0; i < count; ++i) text.advance.push_back(record.number(behind + i));
  return text;
}

}  // namespace

Size MetafileHeader::size() const {
  if (unitsPerInch <= 0) return {};
  const double scale = kMetafilePixelsPerInch / unitsPerInch;
  return {std::abs(width()) * scale, std::abs(height()) * scale};
}

std::optional<MetafileHeader> metafile_header(std::span<const std::uint8_t> bytes) {
  if (bytes.size() < kRecordsStart) return std::nullopt;
  if (!std::equal(std::begin(kKey), std::end(kKey), bytes.begin())) return std::nullopt;
  const MetafileBox bounds{number_at(bytes, 6), number_at(bytes, 8), number_at(bytes, 10),
                           number_at(bytes, 12)};
  return MetafileHeader{bounds, word_at(bytes, 14)};
}

std::uint16_t MetafileRecord::word(std::size_t index) const {
  return index < words() ? word_at(parameters_, index * 2) : std::uint16_t{0};
}

Colour MetafileRecord::colour(std::size_t index) const {
  const unsigned low = word(index);
  const auto byte = [](unsigned value) { return static_cast<std::uint8_t>(value & 0xFFU); };
  return {byte(low), byte(low >> 8U), byte(word(index + 1)), 255};
}

std::optional<std::vector<MetafilePoint>> MetafileRecord::points(std::size_t index,
                                                                 std::size_t count) const {
  if (index > words() || (words() - index) / 2 < count) return std::nullopt;
  std::vector<MetafilePoint> result;
  result.reserve(count);
  for (std::size_t at = index; result.size() < count; at += 2) {
    result.push_back({number(at), number(at + 1)});
  }
  return result;
}

std::optional<MetafileText> metafile_text_record(const MetafileRecord& record) {
  if (record.function() == MetafileFunction::TextOut) return plain_text(record);
  if (record.function() == MetafileFunction::ExtTextOut) return extended_text(record);
  return std::nullopt;
}

MetafileReader::MetafileReader(std::span<const std::uint8_t> bytes)
    : rest_(bytes.size() > kRecordsStart ? bytes.subspan(kRecordsStart)
                                         : std::span<const std::uint8_t>()) {}

std::optional<MetafileRecord> MetafileReader::next() {
  if (rest_.size() < kMetafileRecordHeadWords * 2) return std::nullopt;
  const std::uint32_t size = word_at(rest_, 0) | static_cast<std::uint32_t>(word_at(rest_, 2))
                                                     << 16U;
  const auto function = static_cast<MetafileFunction>(word_at(rest_, 4));
  const bool sound = size >= kMetafileRecordHeadWords && size <= rest_.size() / 2;
  if (!sound || function == MetafileFunction::EndOfFile) {
    rest_ = {};
    return std::nullopt;
  }
  const std::size_t length = std::size_t{size} * 2;
  const MetafileRecord record(size, function,
                              rest_.first(length).subspan(kMetafileRecordHeadWords * 2));
  rest_ = rest_.subspan(length);
  return record;
}

}  // namespace vantrel
