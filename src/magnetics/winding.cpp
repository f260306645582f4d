#include "magnetics/winding.h"

#include <cmath>

namespace vantrel {

double wire_area(double current) { return current / kCurrentDensity; }

double cut_diameter(double area) {
  return std::floor(10.0 * std::sqrt(area * 4.0 / kCircleConstant)) / 10.0;
}

double used_diameter(double diameter) {
  return diameter < kSmallestWireDiameter ? kSmallestWireDiameter : diameter;
}

double al_value(double permeability, double core_factor) {
  return (permeability * kPermeabilityConstant / core_factor) / 1000000000.0;
}

}  // namespace vantrel
