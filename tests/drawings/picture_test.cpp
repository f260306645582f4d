#include <gtest/gtest.h>

#include "drawing_builder/core_drawing.h"

namespace vantrel::drawing {
namespace {

std::string problems_of(std::string_view text) {
  Problems problems;
  read_picture(split_lines(text, "picture"), problems);
  return problems.empty() ? "" : problems.list().front().text;
}

TEST(Pictures, RefuseWhatCannotBeShown) {
  constexpr std::string_view kSheet = "folder A\nsize 40 20\n";
  const std::pair<std::string_view, std::string_view> cases[]{
      {"line 1 1 9 9\nletters 2 4 left ABC\noverlay 1 20 4 2", ""},
      {"line 1 1 41 9", "a shape leaves the picture"},
      {"letters 38 4 left ABC", "a shape leaves the picture"},
      {"letters 2 4 left ABC\nletters 3 4 left D", "'D' overlaps 'ABC'"},
      {"letters 2 4 left ABC\noverlay 3 3 4 2", "'overlay 3' overlaps 'ABC'"},
      {"overlay 13 3 4 2", "'overlay' cannot be read in a picture"},
      {"line 1 1 9", "'line' has wrong numbers"},
      {"letters 2 4 left A;B", "'A;B' has a character without strokes"},
  };
  for (const auto& [lines, expected] : cases) {
    EXPECT_EQ(problems_of(std::string(kSheet) + std::string(lines)), expected) << lines;
  }
  EXPECT_EQ(problems_of("line 1 1 2 2"), "the picture needs a folder and a size");
}

TEST(Pictures, OverlaysAreMeasuredInUnitsOfTheMetafile) {
  Problems problems;
  const Picture picture =
      read_picture(split_lines("folder A\nsize 40 20\noverlay 2 3 4.5 2.6", "p"), problems);
  EXPECT_EQ(picture.layout(), "overlay 2 60 90 52\n");
}

TEST(Pictures, CoresKeepTheProportionsOfTheTable) {
  EXPECT_EQ(core_file_name("E20/10/5"), "E20105");
  // A leg of 4 and a window of 5 x 9 (their sum is 36/2 - 4, their product 27/0.6): 18 wide and 13
  // tall, drawn 42 steps wide.
  const Picture core = draw_core({"EF25", 36, 16, 27, 1.5, 10});
  const Area upper = shape_area(core.shapes[1]);
  const Area lower = shape_area(core.shapes[2]);
  EXPECT_NEAR(upper.width(), 42, 1e-9);
  EXPECT_NEAR(lower.bottom - upper.top, 42.0 * 13 / 18, 1e-9);
}

}  // namespace
}  // namespace vantrel::drawing
