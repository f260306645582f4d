#include <array>
#include <cstdint>
#include <string>

#include "core/number_text.h"
#include "core/text_parsing.h"
#include "operating/targets/component_result.h"
#include "operating/targets/generic_components.h"
#include "operating/targets/part_table.h"
#include "operating/targets/shared_components.h"

namespace vantrel {
namespace {

constexpr double kMicro = 1e-6;

constexpr std::array kC1PowerSteps{20.0, 40.0, 60.0};
constexpr std::array kC1Microfarads{0.1, 0.22, 0.33, 0.47};

constexpr PartTable<2, 2> kLowSideParts{{350, 450},
                                        {40, 60},
                                        {{{"TVF110", "TVF120", "TVF150"},
                                          {"TVF130", "TVF140", "TVF160"},
                                          {"TVF170", "TVF180", "TVF190"}}}};
constexpr PartTable<2, 2> kHalfBridgeParts{{350, 450},
                                           {40, 60},
                                           {{{"TVF110", "TVF120", "TVF210"},
                                             {"TVF130", "TVF140", "TVF200"},
                                             {"TVF170", "TVF180", "TVF190"}}}};
/// Rows by bus voltage, columns by current.
constexpr PartTable<2, 1> kPfcParts{
    {360, 460}, {1.5}, {{{"TVF120", "TVF210"}, {"TVF140", "TVF200"}, {"TVF180", "TVF190"}}}};

/// Integer division: both operands rounded to 32 bits, half to even, the quotient cut toward zero.
double integer_quotient(double dividend, std::int32_t divisor) {
  return round_to_int32(dividend) / divisor;
}

/// The next 50 V step above the voltage.
std::string bus_rating(double voltage) {
  return general_text(50 * integer_quotient(voltage + 50, 50)) + "V";
}

/// Configurations 0 and 1 drive a single lamp.
bool has_single_lamp(const RunState& state) {
  return state.CurrentConfig == 0 || state.CurrentConfig == 1;
}

std::string choke_rating(double power, double voltage) {
  return format_mask(power / voltage, "0.0") + "A";
}

}  // namespace

Variant component_L1(const ComponentContext& context, double power, double voltage) {
  return value_result(has_single_lamp(context.state) ? "2x10mH" : "2x5.1mH",
                      choke_rating(power, voltage));
}

double component_C1(double power) { return kC1Microfarads[step_of(kC1PowerSteps, power)] * kMicro; }

Variant component_CBUSxActivePFC(double bus_voltage, double power) {
  return value_result(200 * power / bus_voltage * kMicro, bus_rating(bus_voltage));
}

Variant component_CBUS12xActivePFC(double bus_voltage, double power) {
  return value_result(2 * 200 * power / bus_voltage * kMicro, bus_rating(bus_voltage / 2));
}

Variant component_CBUS12xVoltageDoubler(const Variant& /*voltage*/, double power) {
  return value_result(0.6 * power * kMicro, "250V");
}

Variant component_CBUSxFullBridgeRectifier(double line_voltage, double power) {
  if (line_voltage < 185) return value_result(200 * power / 127.26 * kMicro, "250V");
  return value_result(200 * power / 261.59 * kMicro, "450V");
}

double component_CBUSxDC(double power) {
  const double x = 50 * integer_quotient(power, 10);
  return (x <= 0 ? 50 : x) * kMicro;
}

double component_CBUSx(double value) { return 2 * value; }

Variant component_L2(double power, double voltage) {
  return rating_result(choke_rating(power, voltage));
}

double component_RVDC(double line_voltage) { return line_voltage <= 140 ? 130000 : 56000; }

Variant component_RDC(const ComponentContext& context) {
  const Variant has_rdc = context.advanced.field("lamp_hasrdc").GetValue();
  if (lower(to_text(has_rdc)) == "yes") return value_result(100000.0);
  return value_result("Do Not Place");
}

Variant component_MLS(double voltage, double power) {
  return value_result(kLowSideParts.part(voltage, power));
}

double component_R9orRBUS(double bus_voltage) {
  return 1000 * (1640 * (2.5 / bus_voltage)) / (1 - 2.5 / bus_voltage);
}

Variant component_MPFC(double current, double bus_voltage) {
  return value_result(kPfcParts.part(bus_voltage, current));
}

double component_RS(double current) { return 0.5 / current; }

Variant component_RSxDCInput(double bus_voltage) { return dc_input_dropper(bus_voltage); }

Variant component_LRESs(const Variant& inductance, double current) {
  return value_result(inductance, resonant_rating(1.15 * current));
}

Variant component_CRESs(const Variant& capacitance) { return value_result(capacitance); }

Variant component_MHSorMLS(double voltage, double power) {
  return value_result(kHalfBridgeParts.part(voltage, power));
}

double component_RVBUS(double bus_voltage) { return 5440 / (bus_voltage - 4); }

Variant component_LPFC(const Variant& inductance, double current) {
  return value_result(inductance, general_text(round_to(1.15 * current, 1)) + " Apk");
}

double component_RSUPPLY(double line_voltage) { return start_up_resistor(line_voltage); }

}  // namespace vantrel
