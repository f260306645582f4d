#pragma once

#include <optional>

#include "core/device_context.h"
#include "outputs/metafile_mapping.h"
#include "outputs/metafile_objects.h"

namespace vantrel {

/// Everything that the records of a metafile set, and that a saved context keeps.
struct MetafileState {
  explicit MetafileState(const MetafileMapping& start) : mapping(start) {}

  MetafileMapping mapping;
  MetafilePenObject pen;
  MetafileBrushObject brush;
  MetafileFontObject font;
  Colour textColour;
  Colour background{255, 255, 255, 255};  ///< Behind opaque texts.
  FillRule fillRule = FillRule::EvenOdd;
  unsigned textAlign = 0;  ///< As in the file.
  std::optional<Box> clip;
  MetafilePoint position;

  /// Reads a record that alters the state, apart from objects and saved contexts; false for any
  /// other record.
  bool read(const MetafileRecord& record);
  void select(const MetafileObject& object);
  /// Hands the state over to a surface whose clip is as wide as it may be.
  void apply(DeviceContext& surface) const;

  /// The pen of a line of that length in pixels; nothing for no line.
  std::optional<Pen> penFor(double length) const;
  Font drawnFont() const;
  TextAlign drawnAlign() const;
  /// True when texts start where the last one has ended.
  bool movesWithText() const { return (textAlign & 1U) != 0; }

 private:
  bool readClip(const MetafileRecord& record);
};

}  // namespace vantrel
