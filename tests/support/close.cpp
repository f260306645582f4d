#include "support/close.h"

#include <cmath>

namespace vantrel::test {

bool close(double got, double want, double relative) {
  const double bound = want == 0.0 ? relative : std::abs(want) * relative;
  return std::abs(got - want) <= bound;
}

}  // namespace vantrel::test
