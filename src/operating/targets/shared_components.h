#pragma once

#include <string>

#include "core/variant.h"

namespace vantrel {

// Formulas that several control ICs have in common, in base units.

/// Oscillator with a fixed charging resistance of 2892 ohms: the timing resistor. The second and
/// the fourth argument are taken and not looked at.
double oscillator_RT(double ct, const Variant& unused, double frequency, const Variant& spare);
/// The same oscillator: the resistor in parallel to `rt` that gives the preheat frequency, held in
/// 32 bits. The fourth argument is taken and not looked at.
float oscillator_RPH(double rt, double ct, double frequency, const Variant& spare);

/// Preheat capacitor: 1 uA up to 5.15 V.
double ramp_CPH(double time);
/// Current sense resistor that matches 50 uA through the threshold resistor.
double threshold_RCS(double roc, double current);
/// Lower resistor of a 2.5 V divider below two resistors in series.
double bus_divider(double bus_voltage, double upper1, double upper2);
/// Lower resistor of a 4 V divider below one resistor.
double dc_bus_divider(double upper, double bus_voltage);
/// 400 uA of start-up current at the lowest line peak.
double start_up_resistor(double line_voltage);
/// Supply dropper, 5 mA down to 15 V: a plain number, which is worked out anew in each pass.
Variant dc_input_dropper(double bus_voltage);
/// Time by volts per ampere, or another plain quotient.
double quotient(double dividend, double divisor);
/// Snubber capacitor by bus voltage, rated "630V".
Variant snubber(double bus_voltage);

/// The preferred resistance of the E24 series nearest to `ohms`.
Variant nearest_e24_resistor(double ohms);

/// A peak current as a rating: rounded to two places, shown with one.
std::string resonant_rating(double peak_current);
/// The inductance as it is, rated at the peak current itself.
Variant resonant_inductor(const Variant& inductance, double peak_current);
/// The capacitance as it is. Every voltage up to 1500 V is rated "1500V", anything above "2000V".
Variant resonant_capacitor(const Variant& capacitance, double voltage);
/// Half-bridge transistor for the ICs of small power.
Variant small_half_bridge(double voltage, double power);
/// Fixed start-up resistor of those ICs.
double small_start_up_resistor();

}  // namespace vantrel
