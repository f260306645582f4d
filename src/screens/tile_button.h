#pragma once

#include "screens/group_picture.h"
#include "screens/x_button.h"

namespace vantrel {

/// A button that is a plate with the picture of a group; what is written on it is up to the kind of
/// tile.
class TileButton : public XButton {
  Q_OBJECT

 public:
  /// `look` and `folder`, which holds the pictures, must outlive the tile.
  TileButton(Appearance& look, const ProgramFolder& folder, QWidget* parent = nullptr);

 protected:
  void setPicture(const std::string& path);
  const GroupPicture& picture() const { return picture_; }
  /// Draws the plate; a marked one has the accent edge, as has one with the focus.
  void paintPlate(QPainter& painter, bool marked) const;
  /// Writes one line into `box`, cut off with dots when it is too long.
  static void writeLine(QPainter& painter, const QRect& box, const QFont& font,
                        const QColor& colour, int alignment, const QString& text);
  /// The font of the tile, bold, and larger by `scale`.
  QFont boldFont(qreal scale) const;

 private:
  const ProgramFolder& folder_;
  GroupPicture picture_;
};

}  // namespace vantrel
