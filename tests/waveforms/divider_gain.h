#pragma once

#include <complex>
#include <numbers>

namespace vantrel {

/// Gain of the tank as a divider of complex impedances.
inline double divider_gain(double L, double C, double R, double f) {
  const std::complex<double> jw(0, 2 * std::numbers::pi * f);
  const std::complex<double> load = 1.0 / (1.0 / R + jw * C);
  return std::abs(load / (load + jw * L));
}

}  // namespace vantrel
