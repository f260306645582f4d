#include <string>
#include <vector>

#include "components_bench.h"
#include "core/fault.h"

namespace vantrel {
namespace {

struct IcNumberCase {
  Target (*target)();
  const char* name;
  Args arguments;
  Variant expected;
};

class IcComponents : public ComponentsBench {};

// Worked out beside the program, with the roundings to 32 bits where a number is held as such.
TEST_F(IcComponents, Formulas) {
  const double bus = 400;
  const std::vector<IcNumberCase> cases = {
      {make_tv6101, "component_CPH", {1.3}, 2.524271844660194e-07},
      {make_tv6101, "component_RCS", {22000.0, 0.7}, 1.5714285714285716},
      {make_tv6105, "component_CPH", {1.3}, 2.524271844660194e-07},
      {make_tv6105, "component_RCS", {22000.0, 0.7}, 1.5714285714285716},
      {make_tv6103, "component_RT", {1e-9, "unused", 40140.0, Null()}, 21532.31880574851},
      {make_tv6103, "component_CPH", {1.3}, 5.005e-07},
      {make_tv6103, "component_RPH", {22000.0, 1e-9, 57400.0, "unused"}, 39955.98828125F},
      // Either operand of the quotient left in 64 bits would give another last digit.
      {make_tv6103, "component_RPH", {22000.0, 1e-9, 57333.0, 0.0}, 40114.6875F},
      {make_tv6103, "component_RCS", {0.7}, 1.8571428571428574},
      {make_tv6104, "component_RT", {1e-9, 45900.0, 40140.0, 0.0}, 21532.31880574851},
      {make_tv6104, "component_CPH", {1.3}, 2.6e-07},
      {make_tv6104, "component_RPH", {22000.0, 1e-9, 57400.0, 0.0}, 39955.98828125F},
      {make_tv6104, "component_RCS", {0.7}, 1.8571428571428574},
      {make_tv6104, "component_RVDC", {1.5e6, bus}, 15151.515151515152},
      {make_tv6102, "component_CPH", {1.3}, 3.3800000000000004e-07},
      {make_tv6102, "component_RCS", {0.7}, 2.285714285714286},
      {make_tv6102, "component_RMIN", {36.0, -86.6}, 26.319999999999997},
      {make_tv6102, "component_RMAX", {36.0, -86.6, -44.6}, 24.252000000000002},
      {make_tv6106, "component_CPH", {1.3}, 5.005e-07},
      {make_tv6106, "component_RCS", {0.7}, 1.8571428571428574},
      {make_tv6106, "component_CVCO", {0.01}, 3.3e-09},
      {make_tv6106, "component_RSUPPLY", {}, 1500000.0},
      {make_tv6106, "component_RBUS", {bus, 820e3, 910e3}, 10880.503144654089},
      {make_tv6107, "component_RCS", {0.9}, 1.3333333333333333},
      {make_tv6107, "component_CPH", {0.01}, 2.5e-09},
      {make_tv6107, "component_RSUPPLY", {}, 1500000.0},
      {make_tv6107, "component_RBUS", {bus, 820e3, 910e3}, 10880.503144654089},
      {make_tv6107, "component_ROC", {0.35}, 1.4285714285714286},
      {make_tv6108, "component_RCS", {207.0, 50.0}, 0.621},
      {make_tv6109, "component_RT", {1e-9, 45900.0, 40140.0, 0.0}, 21532.31880574851},
      {make_tv6109, "component_ROC", {0.5}, 2.4},
      {make_tv6109, "component_CPH", {1.0, 2.5e6}, 4e-07},
      {make_tv6109, "component_CVCO", {0.01, 100000.0}, 1e-07},
      {make_tv6109, "component_RPH", {22000.0, 1e-9, 57400.0, 0.0}, 39955.98828125F},
      {make_tv6109, "component_RCS", {0.7}, 1.8571428571428574},
      {make_tv6109, "component_RVDC", {1.5e6, bus}, 15151.515151515152},
      {make_tv6110, "component_RT", {1e-9, 45900.0, 40140.0, 0.0}, 21532.31880574851},
      {make_tv6110, "component_CT", {1e-6}, 6.666666666666666e-10},
      {make_tv6110, "component_CPH", {1.0, 2.5e6}, 4e-07},
      {make_tv6110, "component_RSUPPLY", {90.0}, 343149.99999999994},
      {make_tv6110, "component_CVCO", {0.01, 100000.0}, 1e-07},
      {make_tv6110, "component_RPH", {680e-12, 24000.0, 60000.0}, 51000.0},  // 52804.8
      {make_tv6110, "component_RCS", {0.9}, 1.3333333333333333},
      {make_tv6110, "component_ROC", {0.35}, 1.4285714285714286},
      {make_tv6110, "component_RFMIN", {680e-12, 43000.0}, 24000.0F},  // 24011.4
      {make_tv6110, "component_RFMIN", {680e-12, 400.0}, 2700000.0F},  // 2847477
  };
  for (const IcNumberCase& c : cases) expectNumber(c.target(), c.name, c.arguments, c.expected);
}

TEST_F(IcComponents, PlainNumbersAreNoArrays) {
  EXPECT_EQ(text(make_tv6107(), "component_ROCxDCInput", {310.0}), "Double 59000");
  EXPECT_EQ(text(make_tv6110(), "component_ROCxDCInput", {310.0}), "Double 59000");
}

TEST_F(IcComponents, SmallTransistorsByStep) {
  struct Row {
    double voltage, power;
    const char* part;
  };
  const Row rows[] = {{350, 30, "TVF110"},     {349.9, 29.9, "TVF110"}, {350, 30.1, "TVF120"},
                      {0, 500, "TVF120"},      {350.1, 30, "TVF130"},   {900, 0, "TVF130"},
                      {350.1, 30.1, "TVF140"}, {900, 500, "TVF140"}};
  for (const auto& target : {make_tv6106(), make_tv6107()}) {
    for (const Row& row : rows) {
      expectNumber(target, "component_MLS", {row.voltage, row.power}, row.part);
      expectNumber(target, "component_MHSorMLS", {row.voltage, row.power}, row.part);
    }
  }
}

TEST_F(IcComponents, ResonantPartsOfTheSmallIcs) {
  struct Row {
    double voltage;
    const char* rating;
  };
  const Row rows[] = {{900, "1500V"},    {1000, "1500V"}, {1200, "1500V"},
                      {1499.9, "1500V"}, {1500, "1500V"}, {1500.1, "2000V"}};
  for (const auto& target : {make_tv6106(), make_tv6107()}) {
    for (const Row& row : rows) {
      EXPECT_EQ(text(target, "component_CRESs", {4.7e-9, row.voltage}),
                "0 Double 0.0000000047, 1 String " + std::string(row.rating));
    }
    EXPECT_EQ(text(target, "component_LRESs", {3.6e-3, 0.6}), "0 Double 0.0036, 1 String 0.6 Apk");
    // To 0.34 first, half to even on what 0.345 is in binary; then to 0.3.
    EXPECT_EQ(text(target, "component_LRESs", {3.6e-3, 0.345}),
              "0 Double 0.0036, 1 String 0.3 Apk");
    EXPECT_EQ(text(target, "component_LRESs", {3.6e-3, 0.349}),
              "0 Double 0.0036, 1 String 0.4 Apk");
  }
}

TEST_F(IcComponents, LampSenseResistors) {
  EXPECT_EQ(text(make_tv6107(), "component_RLS", {0.25, 0.2525}), "0 Double 13, 1 String 1W");
  struct Row {
    double power, voltage;
    const char* expected;
  };
  const Row rows[] = {
      {14, 236, "0 Long 42, 1 String 1W"},
      {1, 1, "0 Long 2, 1 String 1W"},    // 2.5
      {1, 1.4, "0 Long 4, 1 String 1W"},  // 3.5
      {1, 3, "0 Long 8, 1 String 1W"},    // 7.5
      // The largest integer that can be doubled is 2^30 - 1.
      {1, 429496729.2, "0 Long 1073741823, 1 String 1W"},
      {1, 429496729.6, "Empty "},
      {-1, 429496729.6, "0 Long -1073741824, 1 String 1W"},
      {-1, 429496730, "Empty "},
      {1, 1e10, "Empty "},
      // Dividing by infinity would be 0 ohms.
      {14, 0, "Empty "},
      {0, 236, "Empty "},
  };
  for (const Row& row : rows) {
    EXPECT_EQ(text(make_tv6110(), "component_RLS", {row.power, row.voltage}), row.expected)
        << row.power << " W, " << row.voltage << " V";
  }
}

TEST_F(IcComponents, TransformerRatings) {
  const Target target = make_tv6108();
  EXPECT_EQ(text(target, "component_D1234", {50.0, 207.0}), "1 String 1A");
  EXPECT_EQ(text(target, "component_D1234", {206.9, 207.0}), "1 String 1A");
  EXPECT_EQ(text(target, "component_D1234", {207.0, 207.0}), "1 String 2A");
  EXPECT_EQ(text(target, "component_D1234", {-1.0, 207.0}), "1 String 0A");
  EXPECT_EQ(text(target, "component_Q", {50.0, 2.07}), "1 String 2A");
  EXPECT_EQ(text(target, "component_Q", {43.9, 2.0}), "1 String 1A");
  EXPECT_EQ(text(target, "component_Q", {44.0, 2.0}), "1 String 2A");
}

TEST_F(IcComponents, SnubberByBus) {
  for (const auto& target : {make_tv6109(), make_tv6110()}) {
    EXPECT_EQ(text(target, "component_CSNUB", {299.9}), "0 Double 0.0000000012, 1 String 630V");
    EXPECT_EQ(text(target, "component_CSNUB", {300.0}), "0 Double 0.0000000012, 1 String 630V");
    EXPECT_EQ(text(target, "component_CSNUB", {300.1}), "0 Double 0.000000001, 1 String 630V");
  }
}

TEST_F(IcComponents, ReferenceDesignsMatchExactlyOrNotAtAll) {
  struct Row {
    double line_min, line_max, bus;
    const char* rsupply;
    const char* rar;
  };
  const Row rows[] = {
      {90, 265, 500, "0 Double 220000, 1 String 500V", "0 Double 56000, 1 String 200V"},
      {90, 265, 400, "0 Double 220000, 1 String 400V", "0 Double 56000, 1 String 100V"},
      {80, 140, 400, "0 Double 200000, 1 String 400V", "0 Double 50000, 1 String 100V"},
      {185, 265, 400, "0 Double 360000, 1 String 400V", "0 Double 100000, 1 String 100V"},
      {80, 140, 300, "0 Double 200000, 1 String 300V", "0 Double 50000, 1 String 100V"},
      {90, 265, 500.0001, "Empty ", "Empty "},
      {90, 265, 300, "Empty ", "Empty "},
      {185, 265, 500, "Empty ", "Empty "},
      {90, 140, 400, "Empty ", "Empty "},
      {80, 265, 400, "Empty ", "Empty "},
  };
  const Target target = make_tv6109();
  for (const Row& row : rows) {
    const Args arguments = {row.line_min, row.line_max, row.bus};
    EXPECT_EQ(text(target, "component_RSUPPLY", arguments), row.rsupply) << row.bus;
    EXPECT_EQ(text(target, "component_RARx", arguments), row.rar) << row.bus;
  }
  EXPECT_EQ(text(target, "component_RARx", {90.0F, std::int32_t{265}, 500.0F}),
            "0 Double 56000, 1 String 200V");
  EXPECT_EQ(text(target, "component_RARx", {"90", 265.0, 500.0}), "Empty ");
}

TEST_F(IcComponents, TrapsGiveEmpty) {
  const std::vector<IcNumberCase> cases = {
      {make_tv6101, "component_RCS", {22000.0, 0.0}, {}},
      {make_tv6102, "component_RCS", {0.0}, {}},
      {make_tv6102, "component_RMAX", {36.0, -45.0, -45.0}, {}},
      {make_tv6103, "component_RT", {0.0, 0.0, 40140.0, 0.0}, {}},
      {make_tv6103, "component_RPH", {22000.0, 0.0, 57400.0, 0.0}, {}},
      {make_tv6103, "component_RPH", {1e30, 1e-39, 1.0, 0.0}, {}},  // too large for 32 bits
      {make_tv6104, "component_RVDC", {1.5e6, 4.0}, {}},
      {make_tv6106, "component_RBUS", {2.5, 820e3, 820e3}, {}},
      {make_tv6107, "component_RLS", {0.25, 0.0}, {}},
      {make_tv6107, "component_ROC", {0.0}, {}},
      {make_tv6108, "component_RCS", {207.0, 0.0}, {}},
      {make_tv6108, "component_Q", {50.0, 0.0}, {}},
      {make_tv6109, "component_CPH", {1.0, 0.0}, {}},
      {make_tv6109, "component_CPH", {0.0, 0.0}, {}},
      {make_tv6110, "component_RPH", {5.0 / 16121, 0.0, 1.0}, {}},
      {make_tv6110, "component_RFMIN", {0.0, 43000.0}, {}},
  };
  for (const IcNumberCase& c : cases) {
    EXPECT_EQ(text(c.target(), c.name, c.arguments), "Empty ") << c.name;
  }
}

// A text makes the arithmetic fail, even one that spells a number.
TEST_F(IcComponents, TextArgumentsGiveEmpty) {
  const std::vector<Target (*)()> makers = {
      make_tv6101, make_tv6102, make_tv6103, make_tv6104, make_tv6105,         make_tv6106,
      make_tv6107, make_tv6108, make_tv6109, make_tv6110, make_tvGenericTarget};
  for (const auto make : makers) {
    const Target target = make();
    for (const ComponentEntry& entry : target.components()) {
      const std::string name(entry.name);
      const bool generic = target.name() == "tvGenericTarget";
      if (entry.arity == 0) continue;
      if (generic && (name == "component_L1" || name == "component_CBUSx")) continue;
      if (generic && name == "component_CRESs") continue;  // hands on what it is given
      const Args arguments(static_cast<std::size_t>(entry.arity), "12");
      EXPECT_EQ(text(target, entry.name, arguments), "Empty ") << target.name() << "." << name;
    }
  }
}

}  // namespace
}  // namespace vantrel
