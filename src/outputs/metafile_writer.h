#pragma once

#include <cstdint>
#include <map>
#include <span>
#include <string_view>
#include <vector>

#include "core/device_context.h"
#include "outputs/metafile_records.h"

namespace vantrel {

/// Makes a placeable metafile. Positions and lengths are whole logical units, x to the right, y
/// down; the picture reaches from 0, 0 to its width and height. Anything that does not fit in the
/// 16 bits of the format is a Fault "Overflow".
///
/// Equal pens, brushes and fonts are stored once, so they may be set as often as it is handy. At
/// first the pen is black and thin, there is no brush, and texts are black, 12 units of Arial,
/// aligned to their left end and top.
class MetafileWriter {
 public:
  /// `units_per_inch` says how large the picture is meant to be on paper, and is at least 1.
  MetafileWriter(int width, int height, int units_per_inch);

  /// A width of 0 is the thinnest line that the output can show.
  void pen(Colour colour, int width = 0, MetafileLine line = MetafileLine::Solid);
  void noPen() { pen({}, 0, MetafileLine::None); }
  void brush(Colour colour);
  void noBrush();
  /// `size` is the height of the em in units and rounded to a whole one.
  void font(const Font& font);
  void textColour(Colour colour);
  /// The format has no alignment to the middle of the height: such texts are written on a baseline
  /// that lies as far below as the middle of a capital letter of Arial is above its own.
  void textAlign(TextAlign align);

  void line(MetafilePoint from, MetafilePoint to);
  void polyline(std::span<const MetafilePoint> points);
  void polygon(std::span<const MetafilePoint> points);
  /// Several closed outlines filled together: where they overlap an even number of times, nothing.
  void polyPolygon(std::span<const std::vector<MetafilePoint>> outlines);
  void rectangle(const MetafileBox& box);
  /// `round` is the width and height of the ellipse whose quarters make the corners.
  void roundRectangle(const MetafileBox& box, MetafilePoint round);
  void ellipse(const MetafileBox& box);
  /// A part of the ellipse in `box`, counter-clockwise from the ray of its centre through `from` to
  /// the one through `to`.
  void arc(const MetafileBox& box, MetafilePoint from, MetafilePoint to);
  void pie(const MetafileBox& box, MetafilePoint from, MetafilePoint to);
  void chord(const MetafileBox& box, MetafilePoint from, MetafilePoint to);
  /// One line of UTF-8 text of at most 255 characters, all of them in code page 1252 (others become
  /// "?").
  void text(MetafilePoint at, std::string_view words);
  /// The same for a text that names no component, such as a net or a pin: the check of a drawing
  /// against the bill of materials takes no notice of it.
  void label(MetafilePoint at, std::string_view words);

  /// Narrows the clip to the part that lies in `box` too.
  void clip(const MetafileBox& box);
  /// Keeps everything that was set until the matching `restore`; without one it does nothing.
  void save();
  void restore();

  /// The whole file as it stands now: headers with checksum and sizes, records, end.
  std::vector<std::uint8_t> bytes() const;

 private:
  using Words = std::vector<std::uint16_t>;

  void record(MetafileFunction function, const Words& parameters);
  /// Selects an object, which is stored first when no equal one is.
  void select(MetafileFunction create, const Words& definition);
  /// Where a text is written that is to stand at `at`.
  MetafilePoint written(MetafilePoint at) const;
  void sector(MetafileFunction function, const MetafileBox& box, MetafilePoint from,
              MetafilePoint to);

  int width_;
  int height_;
  int units_per_inch_;
  Words records_;
  std::uint32_t largest_ = 0;             ///< Size of the largest record in words.
  std::map<Words, std::uint16_t> table_;  ///< Objects by their creating records.
  struct TextState {
    Font font;
    TextAlign align;
  };
  TextState text_;
  std::vector<TextState> saved_;
};

}  // namespace vantrel
