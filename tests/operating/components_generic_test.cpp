#include <cmath>
#include <string>
#include <vector>

#include "components_bench.h"
#include "core/fault.h"

namespace vantrel {
namespace {

struct NumberCase {
  const char* name;
  Args arguments;
  Variant expected;
};

struct TextCase {
  const char* name;
  Args arguments;
  const char* expected;
};

class GenericComponents : public ComponentsBench {
 protected:
  const Target generic = make_tvGenericTarget();
};

constexpr const char* kNotConnected = "0 String N/C, 1 String N/C, 2 String N/C";

// Worked out beside the program, with the roundings to 32 bits where a number is held as such.
TEST_F(GenericComponents, Formulas) {
  const std::vector<NumberCase> cases = {
      {"component_RT", {470e-12, 49920.1, 40480.3, 3600.0}, 23796.184848003795},
      {"component_RT", {470e-12, 40480.3, 49920.1, 3600.0}, 23796.184848003795},
      {"component_RSTART", {470e-12, 49920.1, 40480.3, 3600.0}, 23796.184848003795},
      {"component_RPH", {24000.0, 470e-12, 61970.0, 3600.0}, 37821.489723076535},
      {"component_RDT", {470e-12, 1.2e-6}, 3676.59574468085},
      {"component_RFMIN", {40480.3, 49920.0}, 36.01009382961287},
      {"component_RFMIN", {49920.0, 40480.3}, 36.01009382961287},
      {"component_RIPH", {0.21, 2.2, 36.0}, 23.52119996938932},
      {"component_RMIN", {36.0, -86.6}, 26.319999999999997},
      {"component_RMAX", {36.0, 26.32, -44.6}, 24.251999999999995},
      {"component_ROC", {1.6, 0.7}, 22399.999999999996},
      {"component_CRAMP", {0.01, 100000.0}, 1e-07},
      {"component_CBUSx", {50e-9}, 1e-07},
      {"component_R9orRBUS", {400.0}, 10314.465408805032},
      {"component_RS", {0.35}, 1.4285714285714286},
      {"component_RVBUS", {400.0}, 13.737373737373737},
      {"component_RSUPPLY", {90.0}, 343149.99999999994},
      {"component_CRESs", {3.3e-9}, 3.3e-9},
      {"component_CRESs", {3.3e-9F}, 3.3e-9F},
  };
  for (const NumberCase& c : cases) expectNumber(generic, c.name, c.arguments, c.expected);
}

TEST_F(GenericComponents, SteppedValues) {
  const double eps = 1e-9;
  const std::vector<NumberCase> cases = {
      {"component_C1", {20 - eps}, 0.1e-6},
      {"component_C1", {20.0}, 0.1e-6},
      {"component_C1", {20 + eps}, 2.1999999999999998e-07},
      {"component_C1", {40.0}, 2.1999999999999998e-07},
      {"component_C1", {40 + eps}, 0.33e-6},
      {"component_C1", {60.0}, 0.33e-6},
      {"component_C1", {60 + eps}, 4.6999999999999995e-07},
      {"component_CBUSxDC", {-30.0}, 4.9999999999999996e-05},
      {"component_CBUSxDC", {4.0}, 4.9999999999999996e-05},
      {"component_CBUSxDC", {9.6}, 4.9999999999999996e-05},
      {"component_CBUSxDC", {19.49}, 4.9999999999999996e-05},
      {"component_CBUSxDC", {18.5}, 4.9999999999999996e-05},
      {"component_CBUSxDC", {19.5}, 9.999999999999999e-05},
      {"component_CBUSxDC", {160.0}, 0.0007999999999999999},
      {"component_RVDC", {140 - eps}, 130000.0},
      {"component_RVDC", {140.0}, 130000.0},
      {"component_RVDC", {140 + eps}, 56000.0},
  };
  for (const NumberCase& c : cases) expectNumber(generic, c.name, c.arguments, c.expected);
}

TEST_F(GenericComponents, RunResistorIsDroppedRatherThanAbsurd) {
  const Args good = {24000.0, 470e-12, 44000.0, 1.2e-6, 41000.0};
  expectNumber(generic, "component_RRUN", good, 218501.5625F);
  // Either operand of the quotient left in 64 bits would give another last digit.
  expectNumber(generic, "component_RRUN", {24000.0, 470e-12, 43822.0, 1.2e-6, 0.0}, 228960.578125F);
  const auto with = [&](double frequency, double limit) {
    return text(generic, "component_RRUN", {24000.0, 470e-12, frequency, 1.2e-6, limit});
  };
  EXPECT_EQ(with(44000, 44000), "0 Single 218501.56");
  EXPECT_EQ(with(44000, 44000.01), kNotConnected);
  EXPECT_EQ(with(40480, 0), kNotConnected);  // 2.1 megohm
  EXPECT_EQ(with(39000, 0), kNotConnected);  // negative
  // Below the limit nothing else is looked at.
  EXPECT_EQ(text(generic, "component_RRUN", {"N/C", 0.0, 40480.0, Null(), 49920.0}), kNotConnected);

  // t = 1e6 / 2^20 and 1 - t / RT = 2^-20 make exactly 1 megohm; a part in 1024 more is below it.
  const double t = 0.95367431640625;
  const double step = 1.0 / 1048576;
  EXPECT_EQ(text(generic, "component_RRUN", {t / (1 - step), 1.0, 0.5 / t, 0.0, 0.0}),
            kNotConnected);
  EXPECT_EQ(
      text(generic, "component_RRUN", {t / (1 - step * 1.0009765625), 1.0, 0.5 / t, 0.0, 0.0}),
      "0 Single 999024.4");
}

TEST_F(GenericComponents, ValuesWithRatings) {
  const std::vector<TextCase> cases = {
      {"component_CBUSxActivePFC", {400.0, 28.0}, "0 Double 0.000014, 1 String 450V"},
      {"component_CBUSxActivePFC", {500.0, 0.0}, "0 Double 0, 1 String 550V"},
      {"component_CBUSxActivePFC", {449.5, 0.0}, "0 Double 0, 1 String 500V"},
      {"component_CBUSxActivePFC", {449.4, 0.0}, "0 Double 0, 1 String 450V"},
      {"component_CBUSxActivePFC", {448.5, 0.0}, "0 Double 0, 1 String 450V"},
      {"component_CBUS12xActivePFC", {500.0, 28.0}, "0 Double 0.0000224, 1 String 300V"},
      {"component_CBUS12xActivePFC", {499.0, 0.0}, "0 Double 0, 1 String 300V"},
      {"component_CBUS12xActivePFC", {498.9, 0.0}, "0 Double 0, 1 String 250V"},
      {"component_CBUS12xVoltageDoubler", {90.0, 28.0}, "0 Double 0.0000168, 1 String 250V"},
      {"component_CBUS12xVoltageDoubler", {"unused", 28.0}, "0 Double 0.0000168, 1 String 250V"},
      {"component_CBUSxFullBridgeRectifier",
       {184.999, 28.0},
       "0 Double 0.000044004400440044, 1 String 250V"},
      {"component_CBUSxFullBridgeRectifier",
       {185.0, 28.0},
       "0 Double 0.00002140754616002141, 1 String 450V"},
      {"component_L2", {62.1, 90.0}, "1 String 0.7A"},
      {"component_L2", {1.0, 4.0}, "1 String 0.3A"},
      {"component_L2", {400.0, 100.0}, "1 String 4.0A"},
      {"component_RSxDCInput", {310.0}, "Double 59000"},
      {"component_LRESs", {5.3e-3, 0.7}, "0 Double 0.0053, 1 String 0.8 Apk"},
      {"component_LRESs", {5.3e-3F, 2.0}, "0 Single 0.0053, 1 String 2.3 Apk"},
      // 0.4485 becomes 0.45 first and 0.5 then; in one step it would be 0.4.
      {"component_LRESs", {1.0, 0.39}, "0 Double 1, 1 String 0.5 Apk"},
      // Too large for the rounding, which leaves it as it is.
      {"component_LRESs", {1.0, 3e7}, "0 Double 1, 1 String 34500000.0 Apk"},
      {"component_LPFC", {3.8e-3, 1.0}, "0 Double 0.0038, 1 String 1.2 Apk"},
      {"component_LPFC", {3.8e-3, 1.25}, "0 Double 0.0038, 1 String 1.4 Apk"},
      {"component_LPFC", {3.8e-3, 1.75}, "0 Double 0.0038, 1 String 2 Apk"},
  };
  for (const TextCase& c : cases) {
    EXPECT_EQ(text(generic, c.name, c.arguments), c.expected) << c.name;
  }
}

TEST_F(GenericComponents, TransistorsByStep) {
  const std::vector<std::vector<const char*>> low_side = {{"TVF110", "TVF120", "TVF150"},
                                                          {"TVF130", "TVF140", "TVF160"},
                                                          {"TVF170", "TVF180", "TVF190"}};
  const std::vector<std::vector<const char*>> either_side = {{"TVF110", "TVF120", "TVF210"},
                                                             {"TVF130", "TVF140", "TVF200"},
                                                             {"TVF170", "TVF180", "TVF190"}};
  const std::vector<std::vector<double>> voltages = {
      {0, 349.9, 350}, {350.1, 449.9, 450}, {450.1, 1000}};
  const std::vector<std::vector<double>> powers = {{0, 39.9, 40}, {40.1, 59.9, 60}, {60.1, 500}};
  for (std::size_t row = 0; row < 3; ++row) {
    for (std::size_t column = 0; column < 3; ++column) {
      for (const double v : voltages[row]) {
        for (const double p : powers[column]) {
          SCOPED_TRACE(std::to_string(v) + " V, " + std::to_string(p) + " W");
          expectNumber(generic, "component_MLS", {v, p}, low_side[row][column]);
          expectNumber(generic, "component_MHSorMLS", {v, p}, either_side[row][column]);
        }
      }
    }
  }
}

TEST_F(GenericComponents, PfcTransistorByBusThenCurrent) {
  const std::vector<NumberCase> cases = {
      {"component_MPFC", {1.5, 360.0}, "TVF120"},   {"component_MPFC", {1.501, 360.0}, "TVF210"},
      {"component_MPFC", {1.5, 360.01}, "TVF140"},  {"component_MPFC", {1.501, 460.0}, "TVF200"},
      {"component_MPFC", {1.499, 460.0}, "TVF140"}, {"component_MPFC", {1.5, 460.01}, "TVF180"},
      {"component_MPFC", {9.0, 900.0}, "TVF190"},
  };
  for (const NumberCase& c : cases) expectNumber(generic, c.name, c.arguments, c.expected);
}

TEST_F(GenericComponents, MainsChokeByConfiguration) {
  const char* expected[] = {"2x10mH",  "2x10mH",  "2x5.1mH", "2x5.1mH",
                            "2x5.1mH", "2x5.1mH", "2x5.1mH", "2x5.1mH"};
  for (int config = 0; config < 8; ++config) {
    state.CurrentConfig = config;
    EXPECT_EQ(text(generic, "component_L1", {62.1, 90.0}),
              "0 String " + std::string(expected[config]) + ", 1 String 0.7A");
  }
}

TEST_F(GenericComponents, LampResistorOnlyForALampThatHasIt) {
  VTLValue& has_rdc = advanced.field("lamp_hasrdc");
  EXPECT_EQ(text(generic, "component_RDC", {}), "0 String Do Not Place");
  for (const char* yes : {"yes", "Yes", "YES"}) {
    has_rdc.SetValue(yes);
    EXPECT_EQ(text(generic, "component_RDC", {}), "0 Double 100000");
  }
  for (const char* no : {"No", "y", "yes.", ""}) {
    has_rdc.SetValue(no);
    EXPECT_EQ(text(generic, "component_RDC", {}), "0 String Do Not Place");
  }
}

TEST_F(GenericComponents, TrapsGiveEmpty) {
  const std::vector<std::pair<const char*, Args>> cases = {
      {"component_RT", {0.0, 40000.0, 40000.0, 3600.0}},
      {"component_RT", {470e-12, 0.0, 40000.0, 3600.0}},
      {"component_RT", {Variant(), 40000.0, 40000.0, 3600.0}},
      {"component_RT", {470e-12, 1e39, 2e39, 3600.0}},  // too large for 32 bits
      {"component_RSTART", {0.0, 40000.0, 40000.0, 3600.0}},
      {"component_RPH", {24000.0, 470e-12, 0.0, 3600.0}},
      {"component_RPH", {1.0, 1.0, 0.5, 0.0}},
      {"component_RDT", {0.0, 1.0}},
      {"component_RDT", {0.0, 0.0}},
      {"component_RRUN", {1.0, 1.0, 0.5, 0.0, 0.0}},
      {"component_RRUN", {0.0, 1.0, 0.5, 0.0, 0.0}},
      {"component_RFMIN", {10000.0, 20000.0}},
      {"component_RIPH", {1e200, 1e200, 1.0}},
      {"component_RMAX", {4.0, 1.0, 0.0}},
      {"component_CRAMP", {1.0, 0.0}},
      {"component_CBUSxActivePFC", {0.0, 28.0}},
      {"component_CBUSxActivePFC", {3e9, 28.0}},  // too large for the integer division
      {"component_CBUS12xActivePFC", {0.0, 28.0}},
      {"component_CBUSxDC", {3e9}},
      {"component_L2", {1.0, 0.0}},
      {"component_R9orRBUS", {2.5}},
      {"component_R9orRBUS", {0.0}},
      {"component_RS", {0.0}},
      {"component_RVBUS", {4.0}},
  };
  for (const auto& [name, arguments] : cases) {
    EXPECT_EQ(text(generic, name, arguments), "Empty ") << name;
  }
}

TEST_F(GenericComponents, PlainFunctionsLeaveTheirFaultToTheCaller) {
  const auto fault_of = [&](const char* name, const Args& arguments) -> std::string {
    try {
      call(generic, name, arguments);
    } catch (const Fault& fault) {
      return fault.what();
    }
    return "none";
  };
  EXPECT_EQ(fault_of("component_L1", {62.1, 0.0}), "Division by zero");
  EXPECT_EQ(fault_of("component_L1", {0.0, 0.0}), "Division by zero");
  EXPECT_EQ(fault_of("component_L1", {"62.1", 90.0}), "Type mismatch");
  EXPECT_EQ(fault_of("component_CBUSx", {1e308}), "Overflow");
  EXPECT_EQ(fault_of("component_CBUSx", {"12"}), "Type mismatch");
  EXPECT_EQ(fault_of("component_CBUSx", {Null()}), "Invalid use of Null");
}

// Arguments keep their own width: a 32-bit one is widened, not rounded again.
TEST_F(GenericComponents, ResultsAreInSixtyFourBits) {
  expectNumber(generic, "component_CBUSx", {0.1F}, 0.20000000298023224);
  expectNumber(generic, "component_RS", {std::int32_t{4}}, 0.125);
}

}  // namespace
}  // namespace vantrel
