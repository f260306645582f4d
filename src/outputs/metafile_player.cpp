#include "outputs/metafile_player.h"

#include <algorithm>
#include <cmath>
#include <numbers>
#include <numeric>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "core/code_page.h"
#include "outputs/metafile_curves.h"
#include "outputs/metafile_reader.h"
#include "outputs/metafile_state.h"

namespace vantrel {
namespace {

using Points = std::vector<Point>;

/// Contexts that can be saved at a time.
constexpr std::size_t kMostSaved = 256;
/// The format counts positions in 16 bits.
constexpr double kFarthest = 32767;

/// Painting takes time by the square of how often an outline crosses a row of pixels. Beyond so
/// many times the width and height of the picture a line is cut up and an area left empty.
constexpr double kSpansOfAShape = 32;
constexpr double kShortestLimit = 20000;

double length_of(std::span<const Point> points) {
  double length = 0;
  for (std::size_t i = 1; i < points.size(); ++i) {
    length += std::hypot(points[i].x - points[i - 1].x, points[i].y - points[i - 1].y);
  }
  return length;
}

double outline_of(const Box& box) { return 2 * (box.width + box.height); }

class Player {
 public:
  Player(DeviceContext& surface, const PlayLimits& limits, const MetafileMapping& mapping,
         const Box& target)
      : surface_(surface),
        limits_(limits),
        state_(mapping),
        longest_(std::max(kShortestLimit, kSpansOfAShape * (target.width + target.height))) {
    if (limits_.clock != nullptr) until_ = limits_.clock->seconds() + limits_.seconds;
    surface_.save();
    surface_.save();
  }
  ~Player() {
    surface_.restore();
    surface_.restore();
  }
  Player(const Player&) = delete;
  Player& operator=(const Player&) = delete;

  /// False when a limit was reached.
  bool play(MetafileReader reader);

 private:
  void read(const MetafileRecord& record);
  bool readObject(const MetafileRecord& record);
  void restoreContext(int number);
  void draw(const MetafileRecord& record);
  void drawBox(const MetafileRecord& record);
  void drawSector(const MetafileRecord& record);
  void drawPoints(const MetafileRecord& record);
  void drawPolyPolygon(const MetafileRecord& record);
  void drawLineTo(MetafilePoint to);
  void drawText(const MetafileText& text);
  void drawLetters(const MetafileText& text, Point at);
  void fillTextBox(const MetafileText& text);
  /// Moves the position along a text of that length.
  void goOnBehind(double pixels);

  /// Makes the surface ready for a shape whose outline is that long.
  void settle(double length);
  bool mayHave(std::size_t points) const { return points <= limits_.pointsOfAShape; }
  bool isSpent();
  Points mapped(std::span<const MetafilePoint> points) const;
  void polygon(const Points& points);
  void polyline(const Points& points);
  /// Draws a line that is too tangled to be painted at once.
  void pieces(std::span<const Point> points);
  bool isLate() { return limits_.clock != nullptr && limits_.clock->seconds() > until_; }

  DeviceContext& surface_;
  const PlayLimits& limits_;
  MetafileState state_;
  MetafileObjects objects_;
  std::vector<MetafileState> saved_;
  double longest_;  ///< Outline in pixels that is painted at once.
  bool changed_ = true;
  std::size_t shapes_ = 0;
  std::size_t records_ = 0;
  double until_ = 0;
};

bool Player::isSpent() {
  if (shapes_ >= limits_.shapes) return true;
  // The clock is asked after every shape, and now and then where records draw nothing.
  constexpr std::size_t kRecordsPerLook = 1024;
  if (limits_.clock == nullptr || ++records_ % kRecordsPerLook != 0) return false;
  return isLate();
}

bool Player::play(MetafileReader reader) {
  while (const std::optional<MetafileRecord> record = reader.next()) {
    const std::size_t before = shapes_;
    read(*record);
    if ((shapes_ != before && isLate()) || isSpent()) return false;
  }
  return true;
}

void Player::read(const MetafileRecord& record) {
  if (state_.read(record) || readObject(record)) {
    changed_ = true;
    return;
  }
  draw(record);
}

bool Player::readObject(const MetafileRecord& record) {
  if (auto made = metafile_object(record)) {
    objects_.add(std::move(*made));
    return true;
  }
  switch (record.function()) {
    case MetafileFunction::SelectObject:
      if (const MetafileObject* object = objects_.find(record.word(0))) state_.select(*object);
      return true;
    case MetafileFunction::DeleteObject:
      objects_.remove(record.word(0));
      return true;
    case MetafileFunction::SaveContext:
      if (saved_.size() < kMostSaved) saved_.push_back(state_);
      return true;
    case MetafileFunction::RestoreContext:
      restoreContext(record.number(0));
      return true;
    default:
      return false;
  }
}

/// A number above 0 names a saved context from the first, one below 0 counts from the last.
void Player::restoreContext(int number) {
  const auto count = static_cast<int>(saved_.size());
  const int index = number > 0 ? number - 1 : count + number;
  if (number == 0 || index < 0 || index >= count) return;
  state_ = std::move(saved_[static_cast<std::size_t>(index)]);
  saved_.erase(saved_.begin() + index, saved_.end());
}

void Player::settle(double length) {
  ++shapes_;
  const bool length_matters = state_.pen.line != MetafileLine::Solid;
  if (!changed_ && !length_matters) return;
  if (changed_) {
    surface_.restore();
    surface_.save();
    state_.apply(surface_);
    changed_ = false;
  }
  if (const auto pen = state_.penFor(length)) {
    surface_.setPen(*pen);
  } else {
    surface_.setNoPen();
  }
}

Points Player::mapped(std::span<const MetafilePoint> points) const {
  Points result;
  result.reserve(points.size());
  for (const MetafilePoint point : points) result.push_back(state_.mapping.map(point));
  return result;
}

void Player::polygon(const Points& points) {
  if (points.size() < 2) return;
  const double length = length_of(points);
  settle(length);
  if (length <= longest_) {
    surface_.polygon(points);
  } else {
    pieces(points);
  }
}

void Player::polyline(const Points& points) {
  if (points.size() < 2) return;
  const double length = length_of(points);
  settle(length);
  if (length <= longest_) {
    surface_.polyline(points);
  } else {
    pieces(points);
  }
}

void Player::pieces(std::span<const Point> points) {
  std::size_t from = 0;
  double length = 0;
  for (std::size_t i = 1; i < points.size() && !isLate(); ++i) {
    length += length_of(points.subspan(i - 1, 2));
    const bool last = i + 1 == points.size();
    if (!last && length < longest_ / 2) continue;
    surface_.polyline(points.subspan(from, i - from + 1));
    ++shapes_;
    from = i;
    length = 0;
  }
}

void Player::draw(const MetafileRecord& record) {
  switch (record.function()) {
    case MetafileFunction::MoveTo:
      state_.position = record.reversedPoint(0);
      break;
    case MetafileFunction::LineTo:
      drawLineTo(record.reversedPoint(0));
      break;
    case MetafileFunction::Polyline:
    case MetafileFunction::Polygon:
      drawPoints(record);
      break;
    case MetafileFunction::PolyPolygon:
      drawPolyPolygon(record);
      break;
    case MetafileFunction::Rectangle:
    case MetafileFunction::RoundRectangle:
    case MetafileFunction::Ellipse:
      drawBox(record);
      break;
    case MetafileFunction::Arc:
    case MetafileFunction::Pie:
    case MetafileFunction::Chord:
      drawSector(record);
      break;
    default:
      if (const auto text = metafile_text_record(record)) drawText(*text);
  }
}

void Player::drawLineTo(MetafilePoint to) {
  const MetafilePoint ends[] = {state_.position, to};
  polyline(mapped(ends));
  state_.position = to;
}

void Player::drawPoints(const MetafileRecord& record) {
  if (!mayHave(record.word(0))) return;
  const auto points = record.points(1, record.word(0));
  if (!points) return;
  if (record.function() == MetafileFunction::Polygon) {
    polygon(mapped(*points));
  } else {
    polyline(mapped(*points));
  }
}

void Player::drawPolyPolygon(const MetafileRecord& record) {
  const std::size_t count = record.word(0);
  if (count == 0 || !mayHave(count)) return;
  std::size_t total = 0;
  for (std::size_t i = 1; i <= count; ++i) total += record.word(i);
  const auto points = mayHave(total) ? record.points(1 + count, total) : std::nullopt;
  if (!points) return;
  const Points all = mapped(*points);
  std::vector<Points> outlines;
  auto from = all.begin();
  for (std::size_t i = 1; i <= count; ++i) {
    const auto to = from + record.word(i);
    if (to - from >= 2) outlines.emplace_back(from, to);
    from = to;
  }
  if (outlines.empty()) return;
  const double length = length_of(all);
  settle(length);
  if (length <= longest_) {
    surface_.polyPolygon(outlines);
    return;
  }
  for (const Points& outline : outlines) pieces(outline);
}

void Player::drawBox(const MetafileRecord& record) {
  const bool round = record.function() == MetafileFunction::RoundRectangle;
  const Box box = state_.mapping.map(record.reversedBox(round ? 2 : 0));
  if (round) {
    const Size corner{state_.mapping.width(record.number(1)),
                      state_.mapping.height(record.number(0))};
    polygon(round_box_points(box, corner));
    return;
  }
  settle(outline_of(box));
  if (record.function() == MetafileFunction::Ellipse) {
    surface_.ellipse(box);
  } else {
    surface_.rectangle(box);
  }
}

void Player::drawSector(const MetafileRecord& record) {
  const Box box = state_.mapping.map(record.reversedBox(4));
  Points points = arc_points(box, state_.mapping.map(record.reversedPoint(2)),
                             state_.mapping.map(record.reversedPoint(0)));
  if (record.function() == MetafileFunction::Arc) {
    polyline(points);
    return;
  }
  if (points.empty()) return;
  if (record.function() == MetafileFunction::Pie) {
    points.push_back({box.left + box.width / 2, box.top + box.height / 2});
  }
  polygon(points);
}

void Player::fillTextBox(const MetafileText& text) {
  settle(0);
  surface_.setNoPen();
  surface_.setBrush(state_.background);
  surface_.rectangle(state_.mapping.map(text.box));
  changed_ = true;
}

void Player::drawText(const MetafileText& text) {
  if (!mayHave(text.bytes.size())) return;
  if ((text.options & kTextOpaque) != 0) fillTextBox(text);
  if (text.bytes.empty()) return;
  settle(0);
  const bool clipped = (text.options & kTextClipped) != 0;
  if (clipped) {
    surface_.clip(state_.mapping.map(text.box));
    changed_ = true;
  }
  const Point at = state_.mapping.map(state_.movesWithText() ? state_.position : text.at);
  if (!text.advance.empty()) {
    drawLetters(text, at);
    return;
  }
  const std::string words = from_code_page(text.bytes);
  surface_.text(at, words);
  if (state_.movesWithText()) goOnBehind(surface_.textExtent(words).width);
}

void Player::goOnBehind(double pixels) {
  const double unit = state_.mapping.width(1);
  const double units = unit > 0 ? std::min(pixels / unit, kFarthest) : 0;
  state_.position.x = static_cast<int>(std::min(state_.position.x + units, kFarthest));
}

/// Sets each letter where the writing program had it, whatever font this machine has.
void Player::drawLetters(const MetafileText& text, Point at) {
  const TextAlign align = state_.drawnAlign();
  const int total = std::accumulate(text.advance.begin(), text.advance.end(), 0);
  const double share = align.horizontal == HorizontalAlign::Left     ? 0
                       : align.horizontal == HorizontalAlign::Centre ? 0.5
                                                                     : 1;
  const double turn = state_.font.angle * std::numbers::pi / 180;
  surface_.setTextAlign({HorizontalAlign::Left, align.vertical});
  double done = -share * total;
  for (std::size_t i = 0; i < text.bytes.size(); ++i) {
    const double along = std::copysign(state_.mapping.width(done), done);
    surface_.text({at.x + along * std::cos(turn), at.y - along * std::sin(turn)},
                  from_code_page(text.bytes.substr(i, 1)));
    done += text.advance[i];
  }
  shapes_ += text.bytes.size();
  if (state_.movesWithText()) goOnBehind(state_.mapping.width(total));
  changed_ = true;
}

}  // namespace

bool play_metafile(std::span<const std::uint8_t> bytes, DeviceContext& surface, const Box& target,
                   const PlayLimits& limits) {
  const auto header = metafile_header(bytes);
  if (!header) return false;
  const Size size = header->size();
  if (!(size.width > 0 && size.height > 0)) return false;
  return Player(surface, limits, MetafileMapping(*header, target), target)
      .play(MetafileReader(bytes));
}

}  // namespace vantrel
