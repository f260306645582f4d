#include "outputs/metafile_objects.h"

#include <algorithm>
#include <utility>

#include "core/code_page.h"

namespace vantrel {
namespace {

/// Numbers of objects have 16 bits.
constexpr std::size_t kMostObjects = 0x10000;

MetafilePenObject pen_of(const MetafileRecord& record) {
  constexpr unsigned kStyleMask = 0x0F;
  constexpr unsigned kInsideFrame = 6;
  const unsigned style = record.word(0) & kStyleMask;
  const bool known = style < kInsideFrame;
  return {record.colour(3), record.number(1),
          known ? static_cast<MetafileLine>(style) : MetafileLine::Solid};
}

MetafileBrushObject brush_of(const MetafileRecord& record) {
  constexpr std::uint8_t kHatchAlpha = 64;
  constexpr unsigned kSolid = 0;
  constexpr unsigned kNull = 1;
  constexpr unsigned kHatched = 2;
  Colour colour = record.colour(1);
  switch (record.word(0)) {
    case kSolid:
      return {colour};
    case kHatched:
      colour.alpha = kHatchAlpha;
      return {colour};
    case kNull:
    default:
      return {std::nullopt};
  }
}

/// A brush made of a picture, which is shown as the grey that it stands for on most drawings.
MetafileBrushObject pattern_brush() { return {Colour{192, 192, 192, 255}}; }

MetafileFontObject font_of(const MetafileRecord& record) {
  constexpr int kBoldWeight = 600;
  constexpr std::size_t kFaceStart = 18;
  const auto bytes = record.bytes().subspan(std::min(kFaceStart, record.bytes().size()));
  const auto end = std::find(bytes.begin(), bytes.end(), 0);
  MetafileFontObject font;
  font.height = record.number(0);
  font.angle = record.number(2) / 10.0;
  font.bold = record.number(4) >= kBoldWeight;
  font.italic = (record.word(5) & 0xFFU) != 0;
  font.face = from_code_page(std::string(bytes.begin(), end));
  constexpr std::size_t kLongestFace = 64;
  if (font.face.empty() || font.face.size() > kLongestFace) font.face = Font{}.face;
  return font;
}

}  // namespace

std::optional<MetafileObject> metafile_object(const MetafileRecord& record) {
  switch (record.function()) {
    case MetafileFunction::CreatePen:
      return pen_of(record);
    case MetafileFunction::CreateBrush:
      return brush_of(record);
    case MetafileFunction::CreateFont:
      return font_of(record);
    case MetafileFunction::CreatePatternBrush:
    case MetafileFunction::CreateDibPatternBrush:
      return pattern_brush();
    case MetafileFunction::CreatePalette:
    case MetafileFunction::CreateRegion:
      return MetafileObject();
    default:
      return std::nullopt;
  }
}

void MetafileObjects::add(MetafileObject object) {
  if (!free_.empty()) {
    table_[free_.top()] = std::move(object);
    free_.pop();
  } else if (table_.size() < kMostObjects) {
    table_.emplace_back(std::move(object));
  }
}

void MetafileObjects::remove(std::size_t number) {
  if (find(number) == nullptr) return;
  table_[number].reset();
  free_.push(number);
}

const MetafileObject* MetafileObjects::find(std::size_t number) const {
  if (number >= table_.size() || !table_[number]) return nullptr;
  return &*table_[number];
}

}  // namespace vantrel
