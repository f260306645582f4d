#pragma once

#include <string>

#include "drawing_builder/picture_file.h"

namespace vantrel::drawing {

/// What the table of cores knows of one. Lengths in mm, areas in square mm.
struct CoreData {
  std::string name;
  double path = 0;     ///< Magnetic path length.
  double area = 0;     ///< Cross-section.
  double winding = 0;  ///< Area that the former leaves to the winding.
  double gap = 0;      ///< Largest gap.
  int pins = 0;        ///< Of the former.
};

/// File name of a core's drawing without extension: its name without "-" and "/".
std::string core_file_name(const std::string& core);

/// Front view of the two halves with the former in between, and the data of the table. Legs are as
/// wide as the root of the cross-section, and the window has the area and the circumference that
/// winding area and path length ask for; the outer legs are half as wide as the middle one.
Picture draw_core(const CoreData& core);

}  // namespace vantrel::drawing
