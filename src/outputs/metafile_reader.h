#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <vector>

#include "core/device_context.h"
#include "outputs/metafile_records.h"

namespace vantrel {

/// What stands in front of the records of a placeable metafile.
struct MetafileHeader {
  MetafileBox bounds;    ///< In logical units.
  int unitsPerInch = 0;  ///< Logical units on an inch of paper.

  int width() const { return bounds.right - bounds.left; }
  int height() const { return bounds.bottom - bounds.top; }
  /// Size on paper in pixels of 1/96 inch, never negative; 0 without units.
  Size size() const;
};

/// The header of a placeable metafile. Nothing when the key is another one or the bytes end before
/// the records.
std::optional<MetafileHeader> metafile_header(std::span<const std::uint8_t> bytes);

/// One record. What lies past its end reads as 0.
class MetafileRecord {
 public:
  MetafileRecord(std::uint32_t size, MetafileFunction function,
                 std::span<const std::uint8_t> parameters)
      : size_(size), function_(function), parameters_(parameters) {}

  /// In words, with its own head.
  std::uint32_t size() const { return size_; }
  MetafileFunction function() const { return function_; }
  /// Count of its parameter words.
  std::size_t words() const { return parameters_.size() / 2; }
  std::span<const std::uint8_t> bytes() const { return parameters_; }

  std::uint16_t word(std::size_t index) const;
  int number(std::size_t index) const { return static_cast<std::int16_t>(word(index)); }
  /// A position that is stored y first, as in calls with reversed parameters.
  MetafilePoint reversedPoint(std::size_t index) const {
    return {number(index + 1), number(index)};
  }
  /// A box that is stored from its bottom to its left.
  MetafileBox reversedBox(std::size_t index) const {
    return {number(index + 3), number(index + 2), number(index + 1), number(index)};
  }
  Colour colour(std::size_t index) const;
  /// `count` positions from a word on, x first. Nothing when the record is too short for them.
  std::optional<std::vector<MetafilePoint>> points(std::size_t index, std::size_t count) const;

 private:
  std::uint32_t size_;
  MetafileFunction function_;
  std::span<const std::uint8_t> parameters_;
};

/// A text and where it stands.
struct MetafileText {
  MetafilePoint at;
  std::string bytes;         ///< In the code page of the file.
  unsigned options = 0;      ///< kTextOpaque, kTextClipped and others.
  MetafileBox box;           ///< Of an opaque or clipped text.
  std::vector<int> advance;  ///< From letter to letter; empty when the font is to decide.
};
inline constexpr unsigned kTextOpaque = 2;
inline constexpr unsigned kTextClipped = 4;

/// The text of a TextOut or ExtTextOut record. Nothing when the record is another one or its
/// characters do not fit into it.
std::optional<MetafileText> metafile_text_record(const MetafileRecord& record);

/// Walks the records of a placeable metafile. The bytes must outlive it and its records.
class MetafileReader {
 public:
  explicit MetafileReader(std::span<const std::uint8_t> bytes);

  /// The next record; nothing at the end record, at a size below the head of a record, and at one
  /// that leads past the end of the bytes.
  std::optional<MetafileRecord> next();

 private:
  std::span<const std::uint8_t> rest_;
};

}  // namespace vantrel
