#include "outputs/image_display_document.h"

#include <algorithm>
#include <utility>

#include "core/number_text.h"
#include "outputs/bitmap_size.h"

namespace vantrel {
namespace {

/// Size of a picture that is missing, and of one that does not say its own.
constexpr Size kEmptyPicture{640, 400};
/// Side of the square about a designator whose symbol is not known.
constexpr double kUnknownSymbol = 48;

std::string text_of(const std::vector<std::uint8_t>& bytes) { return {bytes.begin(), bytes.end()}; }

Point on_document(const ImagePicture& picture, Point units) {
  return {picture.box.left + units.x * picture.unit, picture.box.top + units.y * picture.unit};
}

Box on_document(const ImagePicture& picture, const Box& units) {
  const Point corner = on_document(picture, Point{units.left, units.top});
  return {corner.x, corner.y, units.width * picture.unit, units.height * picture.unit};
}

/// No board layer comes near it.
constexpr double kMostPixels = 20000;

bool load_bitmap(ImagePicture& picture, std::vector<std::uint8_t> bytes) {
  const Size size = bitmap_size(bytes);
  const double longer = std::max(size.width, size.height);
  if (size.width <= 0 || size.height <= 0 || longer > kMostPixels) return false;
  picture.box.width = size.width;
  picture.box.height = size.height;
  picture.bytes = std::move(bytes);
  picture.isBitmap = true;
  return true;
}

/// Reads the drawing at `path`; false when there is none.
bool load(ImagePicture& picture) {
  auto bytes = read_drawing(picture.path);
  if (!bytes) return false;
  auto texts = read_schematic_texts(*bytes);
  if (!texts) return load_bitmap(picture, std::move(*bytes));
  const Size size = texts->header.size();
  if (!(size.width > 0 && size.height > 0)) return false;
  picture.box.width = size.width;
  picture.box.height = size.height;
  picture.unit = size.width / std::abs(texts->header.width());
  picture.bytes = std::move(*bytes);
  picture.texts = std::move(*texts);
  return true;
}

bool isInside(const MetafileHeader& header, const SchematicReference& reference, bool across) {
  const std::optional<int>& place = across ? reference.x : reference.y;
  const int length = across ? header.width() : header.height();
  return place && *place >= std::min(0, length) && *place <= std::max(0, length);
}

ComponentPlace place_on(const ImagePicture& picture, const SchematicReference& reference) {
  if (!isInside(picture.texts.header, reference, false)) {
    return "Component " + reference.name + " has invalid y coordinates";
  }
  if (!isInside(picture.texts.header, reference, true)) {
    return "Component " + reference.name + " has invalid x coordinates";
  }
  const auto symbol = picture.layout.components.find(reference.name);
  if (symbol != picture.layout.components.end()) return on_document(picture, symbol->second);
  const Point at = on_document(
      picture, Point{static_cast<double>(*reference.x), static_cast<double>(*reference.y)});
  const double half = kUnknownSymbol / 2;
  return Box{at.x - half, at.y - half, kUnknownSymbol, kUnknownSymbol};
}

}  // namespace

OverlayTable overlay_table(const DrawingLayout& layout,
                           const std::array<std::string, kOverlayCount>& texts) {
  OverlayTable table;
  for (std::size_t i = 0; i < kOverlayCount; ++i) {
    const auto slot = layout.overlays.find(i + 1);
    if (slot == layout.overlays.end()) continue;
    std::string* const entry = &table[i * kOverlayEntries];
    entry[0] = Font{}.face;
    entry[1] = general_text(slot->second.at.x);
    entry[2] = general_text(slot->second.at.y);
    entry[3] = general_text(slot->second.size);
    entry[4] = texts[i];
  }
  return table;
}

void ImageDocument::clear() {
  pictures_.clear();
  texts_.clear();
}

bool ImageDocument::add_picture(std::string_view name, std::string_view file, Point at) {
  ImagePicture& picture = pictures_.emplace_back();
  picture.name = name;
  picture.file = file;
  picture.box = {at.x, at.y, kEmptyPicture.width, kEmptyPicture.height};
  const auto path = folder_.find(file);
  if (path) picture.path = path->string();
  if (!path || !load(picture)) return false;
  const auto layout = folder_.find(layout_path(file));
  const auto bytes = layout ? read_drawing(layout->string()) : std::nullopt;
  if (bytes) picture.layout = read_drawing_layout(text_of(*bytes));
  return true;
}

void ImageDocument::add_overlays(const OverlayTable& overlays) {
  if (pictures_.empty()) return;
  const ImagePicture& picture = pictures_.back();
  for (std::size_t i = 0; i < overlays.size(); i += kOverlayEntries) {
    const auto x = parse_number(overlays[i + 1]);
    const auto y = parse_number(overlays[i + 2]);
    const auto size = parse_number(overlays[i + 3]);
    const std::string& text = overlays[i + 4];
    if (!x || !y || !size || text.empty()) continue;
    add_text({overlays[i], {on_document(picture, Point{*x, *y}), *size * picture.unit}, text});
  }
}

Size ImageDocument::size() const {
  Size all;
  for (const ImagePicture& picture : pictures_) {
    all.width = std::max(all.width, picture.box.right());
    all.height = std::max(all.height, picture.box.bottom());
  }
  return all;
}

ComponentPlace ImageDocument::findComponent(std::string_view reference) const {
  for (const ImagePicture& picture : pictures_) {
    const SchematicReference* const found = picture.texts.find(reference);
    if (found != nullptr) return place_on(picture, *found);
  }
  return "Could not find component '" + std::string(reference) +
         "' for display in schematic - invalid reference";
}

std::string ImageDocument::componentAt(Point point) const {
  for (const ImagePicture& picture : pictures_) {
    for (const auto& [reference, symbol] : picture.layout.components) {
      if (on_document(picture, symbol).contains(point)) return reference;
    }
  }
  return {};
}

}  // namespace vantrel
