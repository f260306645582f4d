#include <gtest/gtest.h>

#include <cmath>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "core/fault.h"
#include "core/recording_device_context.h"
#include "outputs/metafile_player.h"
#include "outputs/metafile_reader.h"
#include "outputs/metafile_writer.h"

namespace vantrel {
namespace {

using Kind = DrawingCall::Kind;
using Words = std::vector<std::uint16_t>;
using Bytes = std::vector<std::uint8_t>;

constexpr Box kTarget{0, 0, 100, 50};

/// A placeable file of other programs' records: bounds 0, 0 to 1000, 500 and 1000 units an inch.
Bytes file(const std::vector<Words>& records) {
  Words words{0xCDD7, 0x9AC6, 0, 0, 0, 1000, 500, 1000, 0, 0, 0, 1, 9, 0x0300, 0, 0, 9, 0, 0, 0};
  for (const Words& record : records) {
    words.push_back(static_cast<std::uint16_t>(record.size() + 2));
    words.push_back(0);
    words.insert(words.end(), record.begin(), record.end());
  }
  words.insert(words.end(), {3, 0, 0});
  Bytes bytes;
  for (const std::uint16_t word : words) {
    bytes.push_back(static_cast<std::uint8_t>(word & 0xFFU));
    bytes.push_back(static_cast<std::uint8_t>(word >> 8U));
  }
  return bytes;
}

std::uint16_t low(int number) { return static_cast<std::uint16_t>(number); }

std::vector<DrawingCall> played(const Bytes& bytes) {
  RecordingDeviceContext surface({100, 50});
  EXPECT_TRUE(play_metafile(bytes, surface, kTarget));
  return surface.calls();
}

/// A target of a tenth of the logical units: expected positions are easy to read.
DrawingCall only(const std::vector<Words>& records) {
  const auto calls = played(file(records));
  EXPECT_EQ(calls.size(), 1U);
  return calls.empty() ? DrawingCall{} : calls.front();
}

TEST(MetafileWriter, WritesHeadersThatOtherProgramsCheck) {
  MetafileWriter writer(1000, 500, 1440);
  writer.text({10, 20}, "R1\xC2\xB5");
  const Bytes bytes = writer.bytes();
  const auto word = [&bytes](std::size_t index) {
    return static_cast<unsigned>(bytes.at(index * 2) | bytes.at(index * 2 + 1) << 8);
  };
  unsigned checksum = 0;
  for (std::size_t i = 0; i < 10; ++i) checksum ^= word(i);
  EXPECT_EQ(word(10), checksum);
  EXPECT_EQ(word(7), 1440U);
  EXPECT_EQ(word(14) | word(15) << 16, bytes.size() / 2 - 11);  // words without the placeable head
  EXPECT_EQ(word(16), 3U);                                      // a pen, no brush, a font
  EXPECT_EQ(word(17), 28U);                                     // the font, 3 + 9 + 16 words
  MetafileReader reader(bytes);
  std::optional<MetafileText> text;
  while (const auto record = reader.next()) {
    if (const auto found = metafile_text_record(*record)) text = found;
  }
  ASSERT_TRUE(text);
  EXPECT_EQ(text->bytes, "R1\xB5");
  EXPECT_EQ(text->at, (MetafilePoint{10, 20}));
}

TEST(MetafileWriter, RefusesWhatTheFormatCannotHold) {
  MetafileWriter writer(1000, 500, 1440);
  EXPECT_THROW(writer.line({0, 0}, {40000, 0}), Fault);
  EXPECT_THROW(writer.text({0, 0}, std::string(256, 'x')), Fault);
  EXPECT_THROW(MetafileWriter(0, 10, 100), Fault);
}

TEST(MetafilePlayer, DrawsWhatTheWriterWrote) {
  MetafileWriter writer(1000, 500, 1000);
  writer.pen({255, 0, 0, 255}, 20, MetafileLine::Dash);
  writer.line({0, 0}, {500, 250});
  writer.save();
  writer.pen({0, 0, 255, 255}, 0);
  writer.brush({0, 128, 0, 255});
  writer.clip({0, 0, 800, 400});
  writer.ellipse({100, 100, 300, 200});
  writer.restore();
  writer.font({.face = "Arial", .size = 40, .bold = true, .angle = 90});
  writer.textColour({1, 2, 3, 255});
  writer.textAlign({HorizontalAlign::Centre, VerticalAlign::Baseline});
  writer.text({700, 100}, "C1");
  const auto calls = played(writer.bytes());
  ASSERT_EQ(calls.size(), 3U);

  EXPECT_EQ(calls[0].points, (std::vector<Point>{{0, 0}, {50, 25}}));
  EXPECT_EQ(calls[0].state.pen->colour, (Colour{255, 0, 0, 255}));
  EXPECT_EQ(calls[0].state.pen->width, 2);
  EXPECT_EQ(calls[0].state.pen->dashes, (std::vector<double>{16, 8}));

  EXPECT_EQ(calls[1].kind, Kind::Ellipse);
  EXPECT_EQ(calls[1].points, (std::vector<Point>{{10, 10}, {30, 20}}));
  EXPECT_EQ(calls[1].state.brush, (Colour{0, 128, 0, 255}));
  EXPECT_EQ(calls[1].state.clip, (Box{0, 0, 80, 40}));

  EXPECT_EQ(calls[2].text, "C1");
  EXPECT_EQ(calls[2].points.front(), (Point{70, 10}));
  EXPECT_EQ(calls[2].state.font, (Font{"Arial", 4, true, false, 90}));
  EXPECT_EQ(calls[2].state.textColour, (Colour{1, 2, 3, 255}));
  EXPECT_EQ(calls[2].state.textAlign,
            (TextAlign{HorizontalAlign::Centre, VerticalAlign::Baseline}));
  EXPECT_FALSE(calls[2].state.clip);
}

TEST(MetafilePlayer, MapsLogicalUnits) {
  const Words line{0x0213, 100, 100};  // from 0, 0
  struct Case {
    const char* what;
    std::vector<Words> before;
    Point from;
    Point to;
  };
  const Case cases[] = {
      {"bounds only", {}, {0, 0}, {10, 10}},
      {"window", {{0x020B, low(-100), 0}, {0x020C, 1000, 500}}, {0, 5}, {20, 10}},
      {"reversed y", {{0x020B, 500, 0}, {0x020C, low(-500), 1000}}, {0, 50}, {10, 40}},
      {"extent of 0", {{0x020C, 0, 0}}, {0, 0}, {10, 10}},
      {"scaled", {{0x0410, 1, 2, 1, 2}}, {0, 0}, {5, 5}},
      {"scaled by 0", {{0x0410, 0, 2, 0, 2}}, {0, 0}, {10, 10}},
      {"offset", {{0x020F, 50, low(-100)}}, {10, -5}, {20, 5}},
      // 100 tenths of a millimetre upwards; an inch of the picture is 100 pixels of the target.
      {"metric", {{0x0103, 2}}, {0, 0}, {100 * 100 / 254.0, -100 * 100 / 254.0}},
      {"isotropic", {{0x0103, 7}, {0x020C, 500, 500}}, {0, 0}, {10, 10}},
  };
  for (const Case& test : cases) {
    auto records = test.before;
    records.push_back(line);
    const DrawingCall call = only(records);
    EXPECT_NEAR(call.points.at(0).x, test.from.x, 1e-9) << test.what;
    EXPECT_NEAR(call.points.at(0).y, test.from.y, 1e-9) << test.what;
    EXPECT_NEAR(call.points.at(1).x, test.to.x, 1e-9) << test.what;
    EXPECT_NEAR(call.points.at(1).y, test.to.y, 1e-9) << test.what;
  }
}

TEST(MetafilePlayer, DrawsShapes) {
  const DrawingCall polygon = only({{0x0106, 2}, {0x0324, 3, 0, 0, 100, 0, 100, 100}});
  EXPECT_EQ(polygon.points, (std::vector<Point>{{0, 0}, {10, 0}, {10, 10}}));
  EXPECT_EQ(polygon.state.fillRule, FillRule::Winding);

  const auto outlines = played(file({{0x0538, 2, 3, 2, 0, 0, 100, 0, 100, 100, 10, 10, 20, 20}}));
  ASSERT_EQ(outlines.size(), 2U);
  EXPECT_EQ(outlines[1].kind, Kind::PolyPolygon);
  EXPECT_EQ(outlines[1].points, (std::vector<Point>{{1, 1}, {2, 2}}));

  // The upper left quarter of a circle: counter-clockwise from the top to the left.
  const DrawingCall arc = only({{0x0817, 100, 0, 0, 100, 200, 200, 0, 0}});
  EXPECT_EQ(arc.kind, Kind::Polyline);
  EXPECT_NEAR(arc.points.front().x, 10, 1e-9);
  EXPECT_NEAR(arc.points.front().y, 0, 1e-9);
  EXPECT_NEAR(arc.points.back().x, 0, 1e-9);
  EXPECT_NEAR(arc.points.back().y, 10, 1e-9);
  EXPECT_NEAR(arc.points[arc.points.size() / 2].x, 10 - 10 / std::sqrt(2), 1e-9);
  const DrawingCall pie = only({{0x081A, 100, 0, 0, 100, 200, 200, 0, 0}});
  EXPECT_EQ(pie.kind, Kind::Polygon);
  EXPECT_EQ(pie.points.back(), (Point{10, 10}));
  const DrawingCall chord = only({{0x0830, 100, 0, 0, 100, 200, 200, 0, 0}});
  EXPECT_EQ(chord.points.size(), arc.points.size());

  const DrawingCall round = only({{0x061C, 20, 40, 100, 200, 0, 0}});
  EXPECT_NEAR(round.points.front().x, 20, 1e-9);
  EXPECT_NEAR(round.points.front().y, 1, 1e-9);
}

TEST(MetafilePlayer, ReadsTextsOfOtherPrograms) {
  // "AB" with its letters 100 apart, aligned to its centre.
  const auto spaced = played(file({{0x012E, 6}, {0x0A32, 10, 500, 2, 0, 0x4241, 100, 100}}));
  ASSERT_EQ(spaced.size(), 2U);
  EXPECT_EQ(spaced[0].text, "A");
  EXPECT_EQ(spaced[0].points.front(), (Point{40, 1}));
  EXPECT_EQ(spaced[1].text, "B");
  EXPECT_EQ(spaced[1].points.front(), (Point{50, 1}));

  // A box behind the text, and a text of odd length.
  const auto boxed =
      played(file({{0x0201, 0x00FF, 0}, {0x0A32, 10, 20, 3, 2, 0, 0, 100, 50, 0x4241, 0x0043}}));
  ASSERT_EQ(boxed.size(), 2U);
  EXPECT_EQ(boxed[0].state.brush, (Colour{255, 0, 0, 255}));
  EXPECT_EQ(boxed[0].points.back(), (Point{10, 5}));
  EXPECT_EQ(boxed[1].text, "ABC");
  EXPECT_EQ(boxed[1].points.front(), (Point{2, 1}));

  EXPECT_EQ(only({{0x0521, 2, 0x4241, 30, 40}}).points.front(), (Point{4, 3}));
  // A count that leads past the end of the record.
  EXPECT_TRUE(played(file({{0x0A32, 0, 0, 200, 0, 0x4241}, {0x0521, 200, 0x4241}})).empty());
}

TEST(MetafilePlayer, KeepsATableOfObjectsAndAStackOfStates) {
  const Words red{0x02FA, 0, 10, 0, 0x00FF, 0};
  const Words green{0x02FA, 0, 10, 0, 0xFF00, 0};
  const Words line{0x0213, 100, 100};
  const auto colour = [](const DrawingCall& call) { return call.state.pen->colour; };
  // The slot of a deleted object, be it only a region, goes to the next one.
  const DrawingCall reused =
      only({{0x06FF, 0, 0}, red, {0x01F0, 0}, green, {0x012D, 0}, {0x012D, 9}, {0x01F0, 9}, line});
  EXPECT_EQ(colour(reused), (Colour{0, 255, 0, 255}));
  // Two saved states, of which the first is asked for by its number.
  const auto calls = played(file({red,
                                  green,
                                  {0x012D, 0},
                                  {0x001E},
                                  {0x012D, 1},
                                  {0x001E},
                                  {0x0127, 1},
                                  line,
                                  {0x0127, low(-1)},
                                  line}));
  ASSERT_EQ(calls.size(), 2U);
  EXPECT_EQ(colour(calls[0]), (Colour{255, 0, 0, 255}));
  EXPECT_EQ(colour(calls[1]), (Colour{255, 0, 0, 255}));
}

TEST(MetafilePlayer, StopsAtDamageAndLimits) {
  const Words line{0x0213, 100, 100};
  Bytes bytes = file({line, {0x7777, 1, 2}, line});
  EXPECT_EQ(played(bytes).size(), 2U);  // the unknown record is skipped
  bytes[40 + 10] = 2;                   // its size: below the head of a record
  EXPECT_EQ(played(bytes).size(), 1U);
  bytes[40 + 10] = 200;  // past the end
  EXPECT_EQ(played(bytes).size(), 1U);
  // A polygon of more points than its record has.
  EXPECT_TRUE(played(file({{0x0324, 60, 1, 1}, {0x0538, 2, 9, 9, 1, 1}})).empty());

  RecordingDeviceContext surface({100, 50});
  const Bytes many = file(std::vector<Words>(100, line));
  EXPECT_FALSE(play_metafile(many, surface, kTarget, {.shapes = 30}));
  EXPECT_EQ(surface.calls().size(), 30U);
  bytes[0] = 0;
  EXPECT_FALSE(play_metafile(bytes, surface, kTarget));
  EXPECT_FALSE(play_metafile(std::span(many).first(39), surface, kTarget));
}

TEST(MetafilePlayer, OutlinesWhatIsTooTangledToFill) {
  Words zigzag{0x0324, 9000};
  for (std::uint16_t i = 0; i < 9000; ++i) {
    zigzag.push_back(i % 2 == 0 ? 0 : 1000);
    zigzag.push_back(i % 500);
  }
  std::size_t points = 0;
  for (const DrawingCall& call : played(file({zigzag}))) {
    EXPECT_EQ(call.kind, Kind::Polyline);
    points += call.points.size() - 1;
  }
  EXPECT_EQ(points, 8999U);
}

}  // namespace
}  // namespace vantrel
