#include <gtest/gtest.h>

#include "small_drawing.h"

namespace vantrel::drawing {
namespace {

/// A sound drawing: two resistors in a ring.
constexpr std::string_view kRing =
    "part R1 r 0 0\npart R2 r 20 0\nwire R1.1 -- R2.1\nwire R1.2 -- R2.2\n";

TEST(DrawingBuilder, AcceptsWhatIsWhole) {
  const SmallDrawing drawing = draw_block(kRing, {"R1", "R2"});
  EXPECT_EQ(drawing.problems, "");
  EXPECT_TRUE(drawing.nets.joined({"R1.1", "R2.1"}));
  EXPECT_FALSE(drawing.nets.joined({"R1.1", "R1.2"}));
  EXPECT_TRUE(drawing.nets.nodes.empty());
}

TEST(DrawingBuilder, RefusesWhatIsBroken) {
  struct Case {
    std::string_view more;
    std::set<std::string> bill;
    std::string_view problem;
  };
  const Case cases[]{
      {"part R3 r 40 0\nwire R3.1 -- 40,-2\nflag X 40,-2 up\nflag X 20,-0 up",
       {"R1", "R2", "R3"},
       "pin 'R3.2' is not connected"},
      {"wire 10,0 -- 10,-4", {"R1", "R2"}, "the wire ends nowhere at 10,-4"},
      {"wire 10,0 -- 12,-4", {"R1", "R2"}, "the wire is slanted or has no length at 10,0"},
      {"wire 5,0 -- 8,0", {"R1", "R2"}, "the wire lies on another one at 5,0"},
      {"wire -4,3 -- 4,3", {"R1", "R2"}, "the wire runs through 'R1'"},
      {"wire 10,0 -- 10,6\nwire 10,0 -- 10,-6 -- 14,-6 -- 14,0",
       {"R1", "R2"},
       "more than three branches meet at 10,0"},
      {"wire 10,0 -- 10,-4\nflag VCC 10,-4 up", {"R1", "R2"}, "net 'VCC' has one flag only"},
      {"wire 5,0 -- 5,-4\nflag A 5,-4 up\nwire 9,0 -- 9,-4\nflag B 9,-4 up",
       {"R1", "R2"},
       "'B' is joined to another net"},
      {"", {"R1"}, "the bill of materials lacks 'R2'"},
      {"", {"R1", "R2", "C1"}, "component 'C1' of the bill has no symbol"},
      {"part R3 r 1 1\nwire R3.1 -- 1,0\nwire R3.2 -- 1,9 -- 6,9 -- 6,6",
       {"R1", "R2", "R3"},
       "text 'R3' overlaps text 'R1'"},
      {"part R2 r 40 0", {"R1", "R2"}, "'R2' stands on the sheet twice"},
      {"part R3 q 40 0", {"R1", "R2"}, "there is no symbol 'q'"},
      {"wire R1.3 -- 0,-4", {"R1", "R2"}, "there is no pin 'R1.3'"},
      {"wire R1.1 - R2.1", {"R1", "R2"}, "'wire' cannot be read"},
      {"part R3 r 40", {"R1", "R2"}, "'part' cannot be read"},
  };
  for (const Case& c : cases) {
    const SmallDrawing drawing = draw_block(std::string(kRing) + std::string(c.more), c.bill);
    EXPECT_NE(drawing.problems.find(c.problem), std::string::npos)
        << c.more << "\nexpected: " << c.problem << "\nfound: " << drawing.problems;
  }
}

TEST(DrawingBuilder, CrossingWiresAreNotJoined) {
  const SmallDrawing drawing = draw_block(
      "part R1 r 0 0\npart R2 r 20 0\npart R3 r 10 -10\npart R4 r 30 -10\n"
      "wire R1.1 -- R2.1\nwire R1.2 -- R2.2\n"
      "wire R3.1 -- R4.1\nwire R3.2 -- 10,10 -- 30,10 -- R4.2\n",
      {"R1", "R2", "R3", "R4"});
  EXPECT_EQ(drawing.problems, "");
  EXPECT_FALSE(drawing.nets.joined({"R1.1", "R3.2"}));
  EXPECT_TRUE(drawing.nets.joined({"R3.2", "R4.2"}));
}

}  // namespace
}  // namespace vantrel::drawing
