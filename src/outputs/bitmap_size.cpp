#include "outputs/bitmap_size.h"

#include <cmath>
#include <string>
#include <string_view>

namespace vantrel {
namespace {

/// Where the head of a bitmap file has its size in pixels.
struct BitmapKind {
  std::string_view signature;
  std::size_t width;
  std::size_t height;
  std::size_t bytes;
  bool bigEndian;
};

constexpr BitmapKind kBitmapKinds[] = {
    {"GIF8", 6, 8, 2, false}, {"\x89PNG\r\n\x1a\n", 16, 20, 4, true}, {"BM", 18, 22, 4, false}};

double number_at(std::span<const std::uint8_t> bytes, std::size_t at, const BitmapKind& kind) {
  std::uint32_t number = 0;
  for (std::size_t i = 0; i < kind.bytes; ++i) {
    const std::size_t shift = 8 * (kind.bigEndian ? kind.bytes - 1 - i : i);
    number |= std::uint32_t{bytes[at + i]} << shift;
  }
  return std::abs(static_cast<double>(static_cast<std::int32_t>(number)));
}

}  // namespace

Size bitmap_size(std::span<const std::uint8_t> bytes) {
  for (const BitmapKind& kind : kBitmapKinds) {
    if (bytes.size() < kind.height + kind.bytes) continue;
    const std::string head(bytes.begin(), bytes.begin() + kind.signature.size());
    if (head != kind.signature) continue;
    return {number_at(bytes, kind.width, kind), number_at(bytes, kind.height, kind)};
  }
  return {};
}

}  // namespace vantrel
