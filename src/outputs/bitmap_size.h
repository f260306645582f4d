#pragma once

#include <cstdint>
#include <span>

#include "core/device_context.h"

namespace vantrel {

/// The size in pixels that the head of a GIF, PNG or BMP file tells; without size for anything
/// else.
Size bitmap_size(std::span<const std::uint8_t> bytes);

}  // namespace vantrel
