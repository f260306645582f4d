#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

#include "core/device_context.h"
#include "core/ports.h"
#include "core/program_folder.h"
#include "outputs/image_display_layout.h"
#include "outputs/validate_schematic_texts.h"

namespace vantrel {

/// Twelve texts to print over a drawing, five entries each: the face of the font, three layout
/// numbers (x, y and size in units of the drawing) and the text.
using OverlayTable = std::array<std::string, 60>;
inline constexpr std::size_t kOverlayCount = 12;
inline constexpr std::size_t kOverlayEntries = 5;

/// The table of texts on the slots of a layout. The entries of a text without a slot stay empty.
OverlayTable overlay_table(const DrawingLayout& layout,
                           const std::array<std::string, kOverlayCount>& texts);

/// One text over a picture, in pixels of the document.
struct ImageText {
  std::string face;
  TextSlot slot;
  std::string text;
};

/// One picture of a document; what could not be read has no bytes and shows its name.
struct ImagePicture {
  std::string name;
  std::string file;  ///< In the program's folder, with backslashes.
  std::string path;  ///< In the file system; empty when there is no such file.
  Box box;           ///< In the document.
  std::vector<std::uint8_t> bytes;
  bool isBitmap = false;  ///< The bytes are a GIF, PNG or BMP file, else a metafile.
  SchematicTexts texts;
  DrawingLayout layout;
  double unit = 1;  ///< Pixels to a unit of the drawing.
};

/// Where a component stands in a document, or why it cannot be shown there.
using ComponentPlace = std::variant<Box, std::string>;

/// Pictures and texts that are shown together, measured in pixels of 1/96 inch.
class ImageDocument {
 public:
  explicit ImageDocument(const ProgramFolder& folder) : folder_(folder) {}

  void clear();
  /// False when the file is missing, or neither a placeable metafile nor a bitmap; the picture then
  /// shows its name.
  bool add_picture(std::string_view name, std::string_view file, Point at);
  /// Prints texts over the last picture. Entries without text or numbers are left out.
  void add_overlays(const OverlayTable& overlays);
  void add_text(ImageText text) { texts_.push_back(std::move(text)); }

  const std::vector<ImagePicture>& pictures() const { return pictures_; }
  const std::vector<ImageText>& texts() const { return texts_; }
  /// From 0, 0 to the far ends of all pictures.
  Size size() const;

  /// The symbol of a component as its drawing's layout has it; without one a square about its
  /// designator.
  ComponentPlace findComponent(std::string_view reference) const;
  /// The component whose symbol covers a point; empty when there is none.
  std::string componentAt(Point point) const;

 private:
  const ProgramFolder& folder_;
  std::vector<ImagePicture> pictures_;
  std::vector<ImageText> texts_;
};

}  // namespace vantrel
