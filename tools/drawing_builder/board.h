#pragma once

#include <string>
#include <vector>

#include "drawing_builder/source_lines.h"

namespace vantrel::drawing {

/// A board with copper on its lower side. Millimetres, y upwards.
struct Board {
  struct Pad {
    Origin origin;
    std::string component;  ///< "-" for an input from the control part.
    std::string pin;
    std::string net;
    Spot at;
    double diameter = 0;
    double hole = 0;
  };
  struct Track {
    Origin origin;
    std::string net;
    double width = 0;
    std::vector<Spot> points;
  };
  /// An outline on the component side; the name stands at its first point.
  struct Silk {
    std::string component;
    std::vector<Spot> points;
  };
  double width = 0;
  double height = 0;
  std::vector<Pad> pads;
  std::vector<Track> tracks;
  std::vector<Silk> silk;
};

/// Least distance between copper of two nets.
inline constexpr double kClearance = 0.5;

/// Reads "size", "pad", "track" and "silk" lines, the first words of their descriptions in the
/// source. Problems are copper of two nets that is too close, pads of a net that no track joins, a
/// hole that leaves no ring, and copper near the edge.
Board read_board(const std::vector<SourceLine>& lines, Problems& problems);

/// Distance of a point from a straight line between two others.
double distance_to_line(Spot p, Spot from, Spot to);

}  // namespace vantrel::drawing
