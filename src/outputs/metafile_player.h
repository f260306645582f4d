#pragma once

#include <cstddef>
#include <cstdint>
#include <span>

#include "core/device_context.h"
#include "core/ports.h"

namespace vantrel {

/// How much a metafile may cost. Anything an engineer draws stays far below; a file that was made
/// to hang the program does not.
struct PlayLimits {
  std::size_t shapes = 200000;         ///< Shapes and letters that stand alone.
  std::size_t pointsOfAShape = 10000;  ///< A shape of more is left out.
  Clock* clock = nullptr;              ///< Without one only the shapes are counted.
  double seconds = 1;                  ///< By `clock`.
};

/// Draws a placeable metafile so that its bounds fill `target`. Records that are not known or not
/// sound are skipped, and an outline so tangled that it would take seconds to fill is only
/// outlined. The state of the surface is afterwards what it was before. False when the bytes are no
/// placeable metafile with a size, or a limit has cut the drawing off.
bool play_metafile(std::span<const std::uint8_t> bytes, DeviceContext& surface, const Box& target,
                   const PlayLimits& limits = {});

}  // namespace vantrel
