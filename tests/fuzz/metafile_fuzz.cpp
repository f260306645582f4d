// Fuzz target of the reader and player of pictures. Any bytes either are no placeable metafile or
// are drawn with numbers that a painter can count, and leave the surface as it was. A bitmap tells
// a size that can be counted, too.

#include <cmath>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <span>

#include "core/recording_device_context.h"
#include "outputs/bitmap_size.h"
#include "outputs/metafile_player.h"
#include "outputs/validate_schematic_texts.h"

namespace {

void require(bool holds) {
  if (!holds) std::abort();
}

bool is_countable(double number) {
  constexpr double kMost = 1e6;
  return std::isfinite(number) && std::abs(number) < kMost;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  constexpr vantrel::PlayLimits kLimits{.shapes = 2000};
  const std::span bytes(data, size);
  vantrel::RecordingDeviceContext surface({800, 600});
  surface.setTextColour({1, 2, 3, 4});
  vantrel::play_metafile(bytes, surface, {10, 20, 700, 500}, kLimits);
  for (const vantrel::DrawingCall& call : surface.calls()) {
    for (const vantrel::Point point : call.points) {
      require(is_countable(point.x) && is_countable(point.y));
    }
    require(call.state.font.size >= 0 && is_countable(call.state.font.size));
    require(!call.state.pen || is_countable(call.state.pen->width));
  }
  surface.text({}, "after");
  require(surface.calls().back().state.textColour == vantrel::Colour{1, 2, 3, 4});

  constexpr double kMost = 4294967295.0;
  const vantrel::Size size_in_pixels = vantrel::bitmap_size(bytes);
  require(size_in_pixels.width >= 0 && size_in_pixels.width <= kMost);
  require(size_in_pixels.height >= 0 && size_in_pixels.height <= kMost);

  if (const auto texts = vantrel::read_schematic_texts(bytes)) {
    for (const auto& each : texts->references) {
      require(each.name.size() >= 2);
      require(texts->find(each.name) != nullptr);
    }
  }
  return 0;
}
