#pragma once

#include <cstdint>
#include <map>
#include <string>
#include <vector>

#include "drawing_builder/board.h"

namespace vantrel::drawing {

/// The files that make the board, by name: copper, mask and print as RS-274X, holes as Excellon,
/// and a list of the tools.
std::map<std::string, std::string> board_files(const Board& board);

/// Pictures of the copper, of the print with the outline, and of the holes, as GIF.
std::map<std::string, std::vector<std::uint8_t>> layer_pictures(const Board& board);

}  // namespace vantrel::drawing
