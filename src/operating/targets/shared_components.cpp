#include "operating/targets/shared_components.h"

#include <cstdint>
#include <string_view>

#include "components/preferred/preferred_values.h"
#include "core/number_text.h"
#include "operating/targets/component_result.h"
#include "operating/targets/part_table.h"
#include "services/messages/sysmsg.h"

namespace vantrel {
namespace {

constexpr double kNano = 1e-9;

constexpr PartTable<1, 1> kSmallHalfBridgeParts{
    {350}, {30}, {{{"TVF110", "TVF120"}, {"TVF130", "TVF140"}}}};

struct VoltageRating {
  double up_to;
  std::string_view rating;
};

constexpr VoltageRating kCapacitorRatings[] = {{1000, "1000V"}, {1200, "1200V"}, {1500, "1500V"}};

/// Timing resistance that gives the frequency.
double timing_resistance(double ct, double frequency) { return 1 / (1.02 * ct * frequency) - 2892; }

}  // namespace

double oscillator_RT(double ct, const Variant& /*unused*/, double frequency,
                     const Variant& /*spare*/) {
  return timing_resistance(ct, frequency);
}

float oscillator_RPH(double rt, double ct, double frequency, const Variant& /*spare*/) {
  const double b = timing_resistance(ct, frequency);
  const double numerator = checked_single(rt * b);
  const double denominator = checked_single(rt - b);
  return checked_single(numerator / denominator);
}

double ramp_CPH(double time) { return time / 5150000; }

double threshold_RCS(double roc, double current) { return roc * 5e-05 / current; }

double bus_divider(double bus_voltage, double upper1, double upper2) {
  return (upper1 + upper2) * 2.5 / (bus_voltage - 2.5);
}

double dc_bus_divider(double upper, double bus_voltage) { return 4 * upper / (bus_voltage - 4); }

double start_up_resistor(double line_voltage) { return (1.414 * line_voltage + 10) / 0.0004; }

Variant dc_input_dropper(double bus_voltage) { return (bus_voltage - 15) / 0.005; }

double quotient(double dividend, double divisor) { return dividend / divisor; }

Variant snubber(double bus_voltage) {
  return value_result((bus_voltage <= 300 ? 1.2 : 1) * kNano, "630V");
}

Variant nearest_e24_resistor(double ohms) {
  std::int32_t series = kSeriesE24;
  SysMsg nothing_to_report;  // only an unknown series is reported
  return find_nearest_resistor(ohms, series, nothing_to_report);
}

std::string resonant_rating(double peak_current) {
  return format_mask(round_to(peak_current, 2), "0.0") + " Apk";
}

Variant resonant_inductor(const Variant& inductance, double peak_current) {
  return value_result(inductance, resonant_rating(peak_current));
}

// The steps do not exclude one another and the last that holds wins, so "1000V" and "1200V" never
// come out.
Variant resonant_capacitor(const Variant& capacitance, double voltage) {
  std::string_view rating = "2000V";
  for (const VoltageRating& step : kCapacitorRatings) {
    if (voltage <= step.up_to) rating = step.rating;
  }
  return value_result(capacitance, rating);
}

Variant small_half_bridge(double voltage, double power) {
  return value_result(kSmallHalfBridgeParts.part(voltage, power));
}

double small_start_up_resistor() { return 1500000; }

}  // namespace vantrel
