#include "components/preferred/preferred_values.h"

#include <array>
#include <cmath>
#include <limits>
#include <span>
#include <string>

#include "core/text_parsing.h"

namespace vantrel {
namespace {

constexpr std::array kE12{1.0, 1.2, 1.5, 1.8, 2.2, 2.7, 3.3, 3.9, 4.7, 5.6, 6.8, 8.2};
constexpr std::array kE24{1.0, 1.1, 1.2, 1.3, 1.5, 1.6, 1.8, 2.0, 2.2, 2.4, 2.7, 3.0,
                          3.3, 3.6, 3.9, 4.3, 4.7, 5.1, 5.6, 6.2, 6.8, 7.5, 8.2, 9.1};

/// The table of a series after rewriting 0 and 1; an unknown series is reported and has none.
std::span<const double> series_table(std::int32_t& series, std::string_view routine,
                                     SysMsg& messages) {
  if (series == kSeriesE12) series = 12;
  if (series == kSeriesE24) series = 24;
  if (series == 12) return kE12;
  if (series == 24) return kE24;
  messages.msg("", "Unknown series parameter in " + std::string(routine));
  return {};
}

/// The best difference so far, as the two searches keep it. Both keep it at 32 bits; the resistor
/// search compares a new one at 64, and takes it only when it is also below the best at 64 bits, so
/// that of two equally near values the lower stays: |1.2 - 1.25| at 32 bits lies a little above
/// |1.3 - 1.25| at 64.
struct ResistorBest {
  float single = 0;
  double exact = 0;
  bool beaten_by(double difference) const { return difference < single && difference < exact; }
  void keep(double difference) {
    single = static_cast<float>(difference);
    exact = difference;
  }
};

struct CapacitorBest {
  float single = 0;
  bool beaten_by(double difference) const { return static_cast<float>(difference) < single; }
  void keep(double difference) { single = static_cast<float>(difference); }
};

/// Walks the decades upwards. The multiplier is accumulated, rounding errors and all: they are part
/// of the values found.
template <typename Best>
Variant nearest(double value, std::span<const double> table, double multiplier, double last) {
  Variant found;
  Best best;
  while (multiplier <= last) {
    for (const double entry : table) {
      const double candidate = entry * multiplier;
      const double difference = std::abs(candidate - value);
      if (found.is_empty() || best.beaten_by(difference)) {
        found = candidate;
        best.keep(difference);
      }
    }
    multiplier *= 10;
  }
  return found;
}

}  // namespace

Variant find_nearest_resistor(double value, std::int32_t& series, SysMsg& messages) {
  const auto table = series_table(series, "find_nearest_resistor", messages);
  return nearest<ResistorBest>(value, table, 0.001, 1e7);
}

Variant find_nearest_capacitor(double value, std::int32_t& series, SysMsg& messages) {
  const auto table = series_table(series, "find_nearest_capacitor", messages);
  return nearest<CapacitorBest>(value, table, 1e-10, 1e6);
}

std::int32_t ReturnForceTypeBits(std::string_view text) {
  const std::string series = lower(trimmed(text));
  if (series == "e12") return kForceE12;
  return series == "e24" ? kForceE24 : 0;
}

std::int32_t OverrideSeriesBasedOnBitSettings(std::int32_t series, std::int32_t bits) {
  if ((bits & kForceE12) != 0) return kSeriesE12;
  return (bits & kForceE24) != 0 ? kSeriesE24 : series;
}

}  // namespace vantrel
