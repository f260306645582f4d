#include <string_view>

#include "operating/targets/component_entry.h"
#include "operating/targets/component_result.h"
#include "operating/targets/shared_components.h"
#include "operating/targets/target.h"

namespace vantrel {
namespace {

/// A reference design: line limits and bus voltage, and what it fits.
struct ReferenceDesign {
  double line_min;
  double line_max;
  double bus_voltage;
  double rsupply;
  std::string_view rsupply_rating;
  double rar;
  std::string_view rar_rating;
};

constexpr ReferenceDesign kDesigns[] = {
    {90, 265, 500, 220000, "500V", 56000, "200V"}, {90, 265, 400, 220000, "400V", 56000, "100V"},
    {80, 140, 400, 200000, "400V", 50000, "100V"}, {185, 265, 400, 360000, "400V", 100000, "100V"},
    {80, 140, 300, 200000, "300V", 50000, "100V"},
};

bool is_exactly(const Variant& argument, double value) {
  return argument.is_numeric() && to_double(argument) == value;
}

const ReferenceDesign* design_for(const Variant& line_min, const Variant& line_max,
                                  const Variant& bus_voltage) {
  for (const ReferenceDesign& design : kDesigns) {
    if (is_exactly(line_min, design.line_min) && is_exactly(line_max, design.line_max) &&
        is_exactly(bus_voltage, design.bus_voltage)) {
      return &design;
    }
  }
  return nullptr;
}

/// Start-up resistor of the reference designs; Empty for any other line and bus.
Variant component_RSUPPLY(const Variant& line_min, const Variant& line_max,
                          const Variant& bus_voltage) {
  const ReferenceDesign* design = design_for(line_min, line_max, bus_voltage);
  return design ? value_result(design->rsupply, design->rsupply_rating) : Variant();
}

/// Each of the resistors in series with it; Empty for any other line and bus.
Variant component_RARx(const Variant& line_min, const Variant& line_max,
                       const Variant& bus_voltage) {
  const ReferenceDesign* design = design_for(line_min, line_max, bus_voltage);
  return design ? value_result(design->rar, design->rar_rating) : Variant();
}

/// Current sense resistor of the PFC stage, 1.2 V.
double component_ROC(double current) { return 1.2 / current; }

/// Current sense resistor, 1.3 V.
double component_RCS(double current) { return 1.3 / current; }

constexpr ComponentEntry kComponents[] = {
    trapped<oscillator_RT>("component_RT"),    trapped<component_ROC>("component_ROC"),
    trapped<quotient>("component_CPH"),        trapped<component_RSUPPLY>("component_RSUPPLY"),
    trapped<component_RARx>("component_RARx"), trapped<quotient>("component_CVCO"),
    trapped<snubber>("component_CSNUB"),       trapped<oscillator_RPH>("component_RPH"),
    trapped<component_RCS>("component_RCS"),   trapped<dc_bus_divider>("component_RVDC"),
};

}  // namespace

Target make_tv6109() { return {"tv6109", {}, kComponents}; }

}  // namespace vantrel
