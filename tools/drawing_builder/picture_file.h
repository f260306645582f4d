#pragma once

#include <string>
#include <vector>

#include "drawing_builder/shapes.h"

namespace vantrel::drawing {

/// A picture that is described line by line, such as the drawing of a winding.
struct Picture {
  struct Overlay {
    int number = 0;
    Spot at;
    double size = 0;
  };
  std::string folder;  ///< Below the folder of the drawings.
  double width = 0;
  double height = 0;
  std::vector<Shape> shapes;
  std::vector<Overlay> overlays;  ///< Where results of the design are printed over it.

  /// The layout file of the picture, in units of its metafile.
  std::string layout() const;
};

/// Reads shapes and the lines
///
///     folder NAME
///     size width height
///     overlay NUMBER x y size      left end and middle of the height, height of the em
///
/// Shapes that reach over the edge, letters that overlap others, and overlays that stand in each
/// other's or in a letter's way are problems.
Picture read_picture(const std::vector<SourceLine>& lines, Problems& problems);

}  // namespace vantrel::drawing
