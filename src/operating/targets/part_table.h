#pragma once

#include <algorithm>
#include <array>
#include <cstddef>
#include <string_view>

namespace vantrel {

/// The step that `value` falls into: step i reaches up to and including `upper_bounds[i]`, the last
/// one is everything above.
template <std::size_t N>
constexpr std::size_t step_of(const std::array<double, N>& upper_bounds, double value) {
  return static_cast<std::size_t>(std::find_if(upper_bounds.begin(), upper_bounds.end(),
                                               [value](double bound) { return value <= bound; }) -
                                  upper_bounds.begin());
}

/// Part names by two quantities, each cut into steps.
template <std::size_t RowBounds, std::size_t ColumnBounds>
struct PartTable {
  std::array<double, RowBounds> row_bounds;
  std::array<double, ColumnBounds> column_bounds;
  std::array<std::array<std::string_view, ColumnBounds + 1>, RowBounds + 1> parts;

  constexpr std::string_view part(double row_value, double column_value) const {
    return parts[step_of(row_bounds, row_value)][step_of(column_bounds, column_value)];
  }
};

}  // namespace vantrel
