#include "outputs/metafile_writer.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <numbers>
#include <string>

#include "core/code_page.h"
#include "core/fault.h"

namespace vantrel {
namespace {

using Words = std::vector<std::uint16_t>;

constexpr std::size_t kPlainHeaderWords = 9;
constexpr std::uint16_t kTransparent = 1;
constexpr std::uint16_t kEvenOdd = 1;
constexpr std::uint16_t kNullBrush = 1;
constexpr std::size_t kLongestText = 255;
constexpr std::size_t kFaceLength = 32;
/// Half the height of a capital letter of Arial in ems.
constexpr double kHalfCapital = 0.358;

[[noreturn]] void overflow() { throw Fault(fault_text::kOverflow); }

std::uint16_t word(int number) {
  using Limits = std::numeric_limits<std::int16_t>;
  if (number < Limits::min() || number > Limits::max()) overflow();
  return static_cast<std::uint16_t>(number);
}

std::uint16_t word(double number) {
  if (!(std::abs(number) <= std::numeric_limits<std::int16_t>::max())) overflow();
  return word(static_cast<int>(std::nearbyint(number)));
}

std::uint16_t count_word(std::size_t count) {
  if (count > std::numeric_limits<std::int16_t>::max()) overflow();
  return static_cast<std::uint16_t>(count);
}

void append_long(Words& words, std::size_t number) {
  if (number > std::numeric_limits<std::uint32_t>::max()) overflow();
  words.push_back(static_cast<std::uint16_t>(number & 0xFFFFU));
  words.push_back(static_cast<std::uint16_t>(number >> 16U));
}

void append_colour(Words& words, Colour colour) {
  words.push_back(static_cast<std::uint16_t>(colour.red | colour.green << 8));
  words.push_back(colour.blue);
}

void append_points(Words& words, std::span<const MetafilePoint> points) {
  for (const MetafilePoint point : points) {
    words.push_back(word(point.x));
    words.push_back(word(point.y));
  }
}

std::string text_bytes(std::string_view words) {
  std::string bytes = to_code_page(words);
  if (bytes.size() > kLongestText) overflow();
  return bytes;
}

/// Characters two to a word, an odd one padded.
void append_characters(Words& words, std::string bytes) {
  if (bytes.size() % 2 != 0) bytes += '\0';
  for (std::size_t i = 0; i < bytes.size(); i += 2) {
    const auto low = static_cast<std::uint8_t>(bytes[i]);
    const auto high = static_cast<std::uint8_t>(bytes[i + 1]);
    words.push_back(static_cast<std::uint16_t>(low | high << 8));
  }
}

Words reversed(const MetafileBox& box) {
  return {word(box.bottom), word(box.right), word(box.top), word(box.left)};
}

Words counted(std::span<const MetafilePoint> points) {
  Words words{count_word(points.size())};
  append_points(words, points);
  return words;
}

Words font_definition(const Font& font) {
  constexpr std::uint16_t kNormal = 400;
  constexpr std::uint16_t kBold = 700;
  const std::uint16_t tenths = word(font.angle * 10);
  // Height (below 0 for the em), width, direction of the line and of its letters, weight; then one
  // byte each: italic, underlined, struck out, character set, precisions, quality, pitch.
  Words words{word(-font.size),
              0,
              tenths,
              tenths,
              font.bold ? kBold : kNormal,
              font.italic ? std::uint16_t{1} : std::uint16_t{0},
              0,
              0,
              0};
  std::string face = to_code_page(font.face);
  face.resize(kFaceLength - 1);
  append_characters(words, face + '\0');
  return words;
}

std::uint16_t align_flags(TextAlign align) {
  constexpr std::uint16_t kHorizontal[] = {0, 6, 2};
  constexpr std::uint16_t kVertical[] = {0, 24, 24, 8};
  return kHorizontal[static_cast<std::size_t>(align.horizontal)] |
         kVertical[static_cast<std::size_t>(align.vertical)];
}

}  // namespace

MetafileWriter::MetafileWriter(int width, int height, int units_per_inch)
    : width_(width), height_(height), units_per_inch_(units_per_inch) {
  if (width < 1 || height < 1 || units_per_inch < 1) throw Fault(fault_text::kInvalidCall);
  record(MetafileFunction::SetMapMode, {kMetafileAnisotropic});
  record(MetafileFunction::SetWindowOrigin, {0, 0});
  record(MetafileFunction::SetWindowExtent, {word(height), word(width)});
  record(MetafileFunction::SetBackgroundMode, {kTransparent});
  record(MetafileFunction::SetPolyFillMode, {kEvenOdd});
  pen({});
  noBrush();
  font({});
  textColour({});
  textAlign({});
}

void MetafileWriter::record(MetafileFunction function, const Words& parameters) {
  const std::size_t size = kMetafileRecordHeadWords + parameters.size();
  append_long(records_, size);
  records_.push_back(static_cast<std::uint16_t>(function));
  records_.insert(records_.end(), parameters.begin(), parameters.end());
  largest_ = std::max(largest_, static_cast<std::uint32_t>(size));
}

void MetafileWriter::select(MetafileFunction create, const Words& definition) {
  Words key{static_cast<std::uint16_t>(create)};
  key.insert(key.end(), definition.begin(), definition.end());
  const auto [entry, fresh] = table_.emplace(std::move(key), count_word(table_.size()));
  if (fresh) record(create, definition);
  record(MetafileFunction::SelectObject, {entry->second});
}

void MetafileWriter::pen(Colour colour, int width, MetafileLine line) {
  Words words{static_cast<std::uint16_t>(line), word(width), 0};
  append_colour(words, colour);
  select(MetafileFunction::CreatePen, words);
}

void MetafileWriter::brush(Colour colour) {
  Words words{0};
  append_colour(words, colour);
  words.push_back(0);
  select(MetafileFunction::CreateBrush, words);
}

void MetafileWriter::noBrush() { select(MetafileFunction::CreateBrush, {kNullBrush, 0, 0, 0}); }

void MetafileWriter::font(const Font& font) {
  select(MetafileFunction::CreateFont, font_definition(font));
  text_.font = font;
}

void MetafileWriter::textColour(Colour colour) {
  Words words;
  append_colour(words, colour);
  record(MetafileFunction::SetTextColour, words);
}

void MetafileWriter::textAlign(TextAlign align) {
  record(MetafileFunction::SetTextAlign, {align_flags(align)});
  text_.align = align;
}

void MetafileWriter::line(MetafilePoint from, MetafilePoint to) {
  record(MetafileFunction::MoveTo, {word(from.y), word(from.x)});
  record(MetafileFunction::LineTo, {word(to.y), word(to.x)});
}

void MetafileWriter::polyline(std::span<const MetafilePoint> points) {
  record(MetafileFunction::Polyline, counted(points));
}

void MetafileWriter::polygon(std::span<const MetafilePoint> points) {
  record(MetafileFunction::Polygon, counted(points));
}

void MetafileWriter::polyPolygon(std::span<const std::vector<MetafilePoint>> outlines) {
  Words words{count_word(outlines.size())};
  for (const auto& outline : outlines) words.push_back(count_word(outline.size()));
  for (const auto& outline : outlines) append_points(words, outline);
  record(MetafileFunction::PolyPolygon, words);
}

void MetafileWriter::rectangle(const MetafileBox& box) {
  record(MetafileFunction::Rectangle, reversed(box));
}

void MetafileWriter::roundRectangle(const MetafileBox& box, MetafilePoint round) {
  Words words{word(round.y), word(round.x)};
  const Words corners = reversed(box);
  words.insert(words.end(), corners.begin(), corners.end());
  record(MetafileFunction::RoundRectangle, words);
}

void MetafileWriter::ellipse(const MetafileBox& box) {
  record(MetafileFunction::Ellipse, reversed(box));
}

void MetafileWriter::sector(MetafileFunction function, const MetafileBox& box, MetafilePoint from,
                            MetafilePoint to) {
  Words words{word(to.y), word(to.x), word(from.y), word(from.x)};
  const Words corners = reversed(box);
  words.insert(words.end(), corners.begin(), corners.end());
  record(function, words);
}

void MetafileWriter::arc(const MetafileBox& box, MetafilePoint from, MetafilePoint to) {
  sector(MetafileFunction::Arc, box, from, to);
}

void MetafileWriter::pie(const MetafileBox& box, MetafilePoint from, MetafilePoint to) {
  sector(MetafileFunction::Pie, box, from, to);
}

void MetafileWriter::chord(const MetafileBox& box, MetafilePoint from, MetafilePoint to) {
  sector(MetafileFunction::Chord, box, from, to);
}

MetafilePoint MetafileWriter::written(MetafilePoint at) const {
  if (text_.align.vertical != VerticalAlign::Middle) return at;
  const double turn = text_.font.angle * std::numbers::pi / 180;
  const double down = kHalfCapital * text_.font.size;
  return {at.x + static_cast<int>(std::nearbyint(down * std::sin(turn))),
          at.y + static_cast<int>(std::nearbyint(down * std::cos(turn)))};
}

void MetafileWriter::text(MetafilePoint at, std::string_view words) {
  const std::string bytes = text_bytes(words);
  const MetafilePoint start = written(at);
  Words parameters{word(start.y), word(start.x), count_word(bytes.size()), 0};
  append_characters(parameters, bytes);
  record(MetafileFunction::ExtTextOut, parameters);
}

void MetafileWriter::label(MetafilePoint at, std::string_view words) {
  const std::string bytes = text_bytes(words);
  const MetafilePoint start = written(at);
  Words parameters{count_word(bytes.size())};
  append_characters(parameters, bytes);
  parameters.push_back(word(start.y));
  parameters.push_back(word(start.x));
  record(MetafileFunction::TextOut, parameters);
}

void MetafileWriter::clip(const MetafileBox& box) {
  record(MetafileFunction::IntersectClip, reversed(box));
}

void MetafileWriter::save() {
  saved_.push_back(text_);
  record(MetafileFunction::SaveContext, {});
}

void MetafileWriter::restore() {
  constexpr int kLast = -1;
  if (saved_.empty()) return;
  text_ = saved_.back();
  saved_.pop_back();
  record(MetafileFunction::RestoreContext, {word(kLast)});
}

std::vector<std::uint8_t> MetafileWriter::bytes() const {
  Words words{0xCDD7, 0x9AC6, 0, 0, 0, word(width_), word(height_), word(units_per_inch_), 0, 0};
  std::uint16_t checksum = 0;
  for (const std::uint16_t each : words) checksum ^= each;
  words.push_back(checksum);
  // A file in memory or on disk, the length of this header, version 3.0.
  words.insert(words.end(), {1, std::uint16_t{kPlainHeaderWords}, 0x0300});
  append_long(words, kPlainHeaderWords + records_.size() + kMetafileRecordHeadWords);
  words.push_back(count_word(table_.size()));
  append_long(words, largest_);
  words.push_back(0);
  words.insert(words.end(), records_.begin(), records_.end());
  words.insert(words.end(), {std::uint16_t{kMetafileRecordHeadWords}, 0, 0});

  std::vector<std::uint8_t> bytes;
  bytes.reserve(words.size() * 2);
  for (const std::uint16_t each : words) {
    bytes.push_back(static_cast<std::uint8_t>(each & 0xFFU));
    bytes.push_back(static_cast<std::uint8_t>(each >> 8U));
  }
  return bytes;
}

}  // namespace vantrel
