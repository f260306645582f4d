#include "operating/targets/tank_formulas.h"

#include <cmath>

namespace vantrel {

namespace {

using Arguments = std::span<const float>;

// The tank is designed with these ten digits; the last place of every result depends on them.
constexpr double kTwoPi = 6.283185308;
constexpr double kPi = 3.141592654;

double square(double x) { return x * x; }

double cube(double x) { return x * x * x; }

double single(double x) { return static_cast<float>(x); }

double calculate_resonance(Arguments a) {
  const double c = a[0], l = a[1];
  return 1.0 / (std::sqrt(c * l) * kTwoPi);
}

// The charge balance of the unloaded tank above resonance, solved for the capacitor's voltage.
double calculate_preheat_voltage(Arguments a) {
  const double bus = a[0], l = a[1], c = a[2], current = a[3];
  const double energy = single(2.0 * (l / c) * square(current));
  const double drive_squared = single(square(bus / kPi));
  const double offset = single(-(bus / kPi));
  return offset + std::sqrt(energy + drive_squared);
}

double calculate_preheat_frequency(Arguments a) {
  const double current = a[0], c = a[1], voltage = a[2];
  return (current * 1.414) / (voltage * c * 2.0 * kPi);
}

double calculate_ignition_frequency(Arguments a) {
  const double half_bus = a[0], voltage = a[1], l = a[2], c = a[3];
  return std::sqrt((1.0 + (half_bus * (4.0 / kPi)) / voltage) / (l * c)) / kTwoPi;
}

double calculate_ignition_current(Arguments a) {
  const double frequency = a[0], c = a[1], voltage = a[2];
  return frequency * c * voltage * 2.0 * kPi;
}

double calculate_lamp_resistance(Arguments a) {
  const double voltage = a[0], power = a[1];
  return square(voltage) / (2.0 * power);
}

// The upper root in omega squared of |H|^2 = 1 / x^2 for the tank loaded by the lamp, where x is
// the half-bridge's first harmonic over the lamp voltage. The last quotient and product cancel but
// for their roundings.
double loaded_frequency(double l, double c, double x, double power, double voltage) {
  const double a = 1.0 - square(x);
  const double u = 1.0 / (l * c);
  const double b = 2.0 * square(power / (square(voltage) * c));
  const double s = std::sqrt(square(u - b) - a / square(l * c));
  return std::sqrt((u - b) + s) / kTwoPi / 1000.0 * 1000.0;
}

double calculate_run_frequency(Arguments a) {
  const double l = a[0], c = a[1], bus = a[3], voltage = a[4], power = a[5];
  const double x = single((4.0 * (bus * 0.5) / voltage) / kPi);
  return loaded_frequency(l, c, x, power, voltage);
}

double calculate_min_run_frequency(Arguments a) {
  const double l = a[0], c = a[1], max_power = a[4], fraction = a[5], voltage = a[6], bus = a[7];
  const double x = (4.0 * (bus * 0.5)) / (voltage * kPi);
  return loaded_frequency(l, c, x, fraction * max_power, voltage);
}

// Angle of the tank's input impedance with the lamp burning, in degrees.
double input_phase(double l, double c, double frequency_khz, double power, double voltage) {
  const double f = frequency_khz * 1000.0;
  const double v2 = square(voltage);
  const double t1 = 2.0 * kPi * f * ((v2 * c / 2.0) / power - (2.0 * power * l) / v2);
  const double t2 = (l * v2 * square(c) * 4.0 * cube(kPi) * cube(f)) / power;
  return std::atan(t1 - t2) * 360.0 / 2.0 / kPi;
}

double calculate_phimax(Arguments a) { return input_phase(a[0], a[1], a[2], a[3], a[4]); }

double calculate_phimin(Arguments a) {
  const double fraction = a[3], power = a[4];
  return input_phase(a[0], a[1], a[2], power * fraction, a[5]);
}

double calculate_l(Arguments a) {
  const double p = a[0], q = a[1], r = a[2], s = a[3];
  return (square(p) * q) / (r * std::sqrt(2.0) * square(kPi) * s);
}

constexpr TankEntry kGeneric[] = {
    {"calculate_resonance", 2, calculate_resonance},
    {"calculate_preheat_voltage", 4, calculate_preheat_voltage},
    {"calculate_preheat_frequency", 3, calculate_preheat_frequency},
    {"calculate_ignition_frequency", 4, calculate_ignition_frequency},
    {"calculate_ignition_current", 3, calculate_ignition_current},
    {"calculate_lamp_resistance", 2, calculate_lamp_resistance},
    {"calculate_run_frequency", 6, calculate_run_frequency},
    {"calculate_phimax", 5, calculate_phimax},
    {"calculate_phimin", 6, calculate_phimin},
    {"calculate_l", 4, calculate_l},
};

constexpr TankEntry kDimming[] = {
    {"calculate_min_run_frequency", 8, calculate_min_run_frequency},
};

}  // namespace

std::span<const TankEntry> generic_tank_formulas() { return kGeneric; }

std::span<const TankEntry> dimming_tank_formulas() { return kDimming; }

}  // namespace vantrel
