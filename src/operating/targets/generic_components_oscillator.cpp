#include <algorithm>
#include <numbers>

#include "core/number_text.h"
#include "operating/targets/component_result.h"
#include "operating/targets/generic_components.h"

namespace vantrel {

// Numbers that are held in 32 bits on the way go through `checked_single` and are widened again.

double component_RT(double ct, double f1, double f2, double rdt) {
  const double f = checked_single(std::min(f1, f2));
  return (1 / (2 * f) - 0.69 * ct * rdt) / ct;
}

double component_RPH(double rt, double ct, double frequency, double rdt) {
  const double t = checked_single(1 / (2 * frequency) - 0.69 * ct * rdt);
  return (t / ct) / (1 - t / (rt * ct));
}

double component_RDT(double ct, double dead_time) { return 1.44 * dead_time / ct; }

Variant component_RRUN(const Variant& rt, const Variant& ct, double frequency,
                       const Variant& dead_time, double limit) {
  if (frequency < limit) return not_connected();
  const double t = checked_single(1 / (2 * frequency) - number(dead_time));
  const double a = checked_single(t / number(ct));
  const double b = checked_single(1 - t / (number(rt) * number(ct)));
  const float r = checked_single(a / b);
  return r < 1e6F && r > 0 ? value_result(r) : not_connected();
}

double component_RFMIN(double f1, double f2) {
  const double k = checked_single(std::min(f1, f2) / 1000);
  const double x = (k - 10) * 1000;
  return (2.5e-5 - 8 * x * 1.25e-11) / (64 * x * 1.25e-11 * 2.5e-5) / 1000;
}

double component_RIPH(double current, double rcs, double rfmin) {
  return std::numbers::sqrt2 * current * rcs * rfmin;
}

double component_RMIN(double rfmin, double phase) { return 0.25 * rfmin * (1 - phase / 45); }

double component_RMAX(double rfmin, double rmin, double phase) {
  return 0.86 * rfmin * rmin / (4 * rmin - rfmin * (1 - phase / 45));
}

double component_ROC(double rcs, double current) { return rcs * current / 5e-05; }

double component_CRAMP(double time, double slope) { return time / slope; }

}  // namespace vantrel
