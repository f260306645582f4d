#pragma once

#include <QByteArray>
#include <QRectF>
#include <string>

#include "core/program_folder.h"
#include "screens/appearance.h"

class QPainter;

namespace vantrel {

/// The drawing of a group of items. Its few inks are those of the light theme; on a dark screen
/// each is replaced by the one that does the same there.
class GroupPicture {
 public:
  /// Reads the drawing at a path below the program's folder; a missing file leaves it blank.
  void load(const ProgramFolder& folder, const std::string& path);
  bool isBlank() const { return drawing_.isEmpty(); }
  /// Draws it as large as it fits into `box`, in the middle; a disabled one is faint.
  void paint(QPainter& painter, const QRectF& box, const Appearance& look, bool enabled) const;

 private:
  std::string path_;
  QByteArray drawing_;
};

}  // namespace vantrel
