#pragma once

#include <cstdint>

namespace vantrel {

/// A position in logical units of a metafile; 16 bits each in the file.
struct MetafilePoint {
  int x = 0;
  int y = 0;
  friend bool operator==(const MetafilePoint&, const MetafilePoint&) = default;
};

struct MetafileBox {
  int left = 0;
  int top = 0;
  int right = 0;
  int bottom = 0;
  friend bool operator==(const MetafileBox&, const MetafileBox&) = default;
};

/// The words of a record before its parameters: its size in two, its function in one.
inline constexpr std::uint32_t kMetafileRecordHeadWords = 3;
/// The mapping mode with a scale of its own for each axis.
inline constexpr std::uint16_t kMetafileAnisotropic = 8;
/// Screen pixels to an inch, by which a placeable head's units become the size of the picture.
inline constexpr double kMetafilePixelsPerInch = 96;

/// Line styles, with their numbers in the file.
enum class MetafileLine { Solid = 0, Dash = 1, Dot = 2, DashDot = 3, DashDotDot = 4, None = 5 };

/// The records that are read or written, by their numbers in the file. Parameters stand in the
/// reverse of the order of a call, so that y comes before x.
enum class MetafileFunction : std::uint16_t {
  EndOfFile = 0x0000,
  SaveContext = 0x001E,
  CreatePalette = 0x00F7,
  SetBackgroundMode = 0x0102,
  SetMapMode = 0x0103,
  SetPolyFillMode = 0x0106,
  RestoreContext = 0x0127,
  SelectClipRegion = 0x012C,
  SelectObject = 0x012D,
  SetTextAlign = 0x012E,
  CreateDibPatternBrush = 0x0142,
  DeleteObject = 0x01F0,
  CreatePatternBrush = 0x01F9,
  SetBackgroundColour = 0x0201,
  SetTextColour = 0x0209,
  SetWindowOrigin = 0x020B,
  SetWindowExtent = 0x020C,
  OffsetWindowOrigin = 0x020F,
  LineTo = 0x0213,
  MoveTo = 0x0214,
  OffsetClipRegion = 0x0220,
  CreatePen = 0x02FA,
  CreateFont = 0x02FB,
  CreateBrush = 0x02FC,
  Polygon = 0x0324,
  Polyline = 0x0325,
  ScaleWindowExtent = 0x0410,
  ExcludeClip = 0x0415,
  IntersectClip = 0x0416,
  Ellipse = 0x0418,
  Rectangle = 0x041B,
  TextOut = 0x0521,
  PolyPolygon = 0x0538,
  RoundRectangle = 0x061C,
  CreateRegion = 0x06FF,
  Arc = 0x0817,
  Pie = 0x081A,
  Chord = 0x0830,
  ExtTextOut = 0x0A32,
};

}  // namespace vantrel
