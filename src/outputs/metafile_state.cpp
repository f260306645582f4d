#include "outputs/metafile_state.h"

#include <algorithm>
#include <cmath>
#include <vector>

namespace vantrel {
namespace {

constexpr unsigned kHorizontalMask = 6;
constexpr unsigned kRight = 2;
constexpr unsigned kCentre = 6;
constexpr unsigned kVerticalMask = 24;
constexpr unsigned kBottom = 8;
constexpr unsigned kBaseline = 24;

constexpr int kWindingMode = 2;
/// Height of a line of text in ems.
constexpr double kLineHeight = 1.15;
/// Height of a text in pixels when the font leaves it open.
constexpr double kUsualText = 16;
constexpr double kLargestText = 2000;
/// A line of more dashes is drawn solid: nobody could tell them apart.
constexpr double kMostDashes = 2000;

/// Dashes and gaps in widths of the pen.
std::vector<double> dashes_of(MetafileLine line) {
  switch (line) {
    case MetafileLine::Dash:
      return {8, 4};
    case MetafileLine::Dot:
      return {2, 3};
    case MetafileLine::DashDot:
      return {8, 3, 2, 3};
    case MetafileLine::DashDotDot:
      return {8, 3, 2, 3, 2, 3};
    case MetafileLine::Solid:
    case MetafileLine::None:
      break;
  }
  return {};
}

}  // namespace

bool MetafileState::read(const MetafileRecord& record) {
  switch (record.function()) {
    case MetafileFunction::SetPolyFillMode:
      fillRule = record.number(0) == kWindingMode ? FillRule::Winding : FillRule::EvenOdd;
      return true;
    case MetafileFunction::SetTextColour:
      textColour = record.colour(0);
      return true;
    case MetafileFunction::SetBackgroundColour:
      background = record.colour(0);
      return true;
    case MetafileFunction::SetTextAlign:
      textAlign = record.word(0);
      return true;
    default:
      return readClip(record) || mapping.read(record);
  }
}

bool MetafileState::readClip(const MetafileRecord& record) {
  switch (record.function()) {
    case MetafileFunction::IntersectClip: {
      const Box box = mapping.map(record.reversedBox(0));
      clip = clip ? common_part(*clip, box) : box;
      return true;
    }
    case MetafileFunction::OffsetClipRegion:
      if (clip) {
        const Point zero = mapping.map(MetafilePoint{});
        const Point by = mapping.map(record.reversedPoint(0));
        clip->left += by.x - zero.x;
        clip->top += by.y - zero.y;
      }
      return true;
    case MetafileFunction::SelectClipRegion:
      // Regions are not kept, so selecting one shows more than it would rather than less.
      clip.reset();
      return true;
    default:
      return false;
  }
}

void MetafileState::select(const MetafileObject& object) {
  if (const auto* chosen = std::get_if<MetafilePenObject>(&object)) pen = *chosen;
  if (const auto* chosen = std::get_if<MetafileBrushObject>(&object)) brush = *chosen;
  if (const auto* chosen = std::get_if<MetafileFontObject>(&object)) font = *chosen;
}

std::optional<Pen> MetafileState::penFor(double length) const {
  if (pen.line == MetafileLine::None) return std::nullopt;
  Pen drawn{pen.colour, std::max(1.0, mapping.width(pen.width)), dashes_of(pen.line)};
  for (double& dash : drawn.dashes) dash *= drawn.width;
  if (length > kMostDashes * drawn.width) drawn.dashes.clear();
  return drawn;
}

Font MetafileState::drawnFont() const {
  double size = kUsualText;
  if (font.height < 0) size = mapping.height(font.height);
  if (font.height > 0) size = mapping.height(font.height) / kLineHeight;
  return {font.face, std::min(size, kLargestText), font.bold, font.italic, font.angle};
}

TextAlign MetafileState::drawnAlign() const {
  TextAlign align;
  const unsigned horizontal = textAlign & kHorizontalMask;
  if (horizontal == kRight) align.horizontal = HorizontalAlign::Right;
  if (horizontal == kCentre) align.horizontal = HorizontalAlign::Centre;
  const unsigned vertical = textAlign & kVerticalMask;
  if (vertical == kBottom) align.vertical = VerticalAlign::Bottom;
  if (vertical == kBaseline) align.vertical = VerticalAlign::Baseline;
  return align;
}

void MetafileState::apply(DeviceContext& surface) const {
  if (clip) surface.clip(*clip);
  if (brush.colour) {
    surface.setBrush(*brush.colour);
  } else {
    surface.setNoBrush();
  }
  surface.setFillRule(fillRule);
  surface.setFont(drawnFont());
  surface.setTextColour(textColour);
  surface.setTextAlign(drawnAlign());
}

}  // namespace vantrel
