#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "outputs/metafile_reader.h"

namespace vantrel {

/// True when every character is a digit; also for the empty text.
bool IsOnlyNumbers(std::string_view text);

/// A reference designator on a schematic, in units of the drawing's bounding box.
struct SchematicReference {
  std::string name;
  std::optional<int> x;  ///< Nothing when the drawing has no extent to scale by.
  std::optional<int> y;
  bool duplicate = false;  ///< Not the first text of that name.
};

/// What the check finds on a schematic.
struct SchematicTexts {
  MetafileHeader header;
  std::vector<SchematicReference> references;  ///< In the order of the file.
  bool clipped = false;                        ///< A text is cut off at a box.

  /// The first reference of that name; nothing when there is none.
  const SchematicReference* find(std::string_view name) const;
};

/// The reference designators of a placeable metafile; nothing when the bytes are none.
///
/// A reference is an ExtTextOut record without options, of at most 255 words, whose trimmed text
/// has two characters or more and does not start with a digit. All other texts are labels.
std::optional<SchematicTexts> read_schematic_texts(std::span<const std::uint8_t> bytes);

/// The bytes of a file; nothing when it does not open, or is larger than any drawing.
std::optional<std::vector<std::uint8_t>> read_drawing(const std::string& path);

}  // namespace vantrel
