#include "database/lookup.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <vector>

#include "core/fault.h"
#include "core/number_text.h"

namespace vantrel {

namespace {

struct Point {
  float index = 0;
  float value = 0;
};

std::vector<Point> read_points(adoaccess_class& database, const std::string& name) {
  std::vector<Point> points;
  RecordSet set;
  // The name stands between brackets, which have no way to hold a closing one.
  if (name.find(']') != std::string::npos) return points;
  if (!database.read("select * from [" + name + "] order by index", set)) return points;
  for (; adoaccess_class::RSOK(set); set.MoveNext()) {
    points.push_back({to_single(adoaccess_class::rs_get(set, "Index")),
                      to_single(adoaccess_class::rs_get(set, "value"))});
  }
  return points;
}

void warn(const LookupLog& log, float x, const char* side, float limit) {
  if (!log) return;
  log("INTERPOLATION WARNING : Lookup index value (" + general_text(x) + ") is " + side +
      " initial table index (" + general_text(limit) + ")");
}

void check_range(const std::vector<Point>& points, float x, const LookupLog& log) {
  const float low = std::min(points.front().index, points.back().index);
  const float high = std::max(points.front().index, points.back().index);
  if (x < low) warn(log, x, "below", low);
  if (x > high) warn(log, x, "above", high);
}

double distance(const Point& point, double x) { return std::abs(x - point.index); }

// The first of the points that lie nearest to x.
std::size_t nearest(const std::vector<Point>& points, double x) {
  const auto best = std::min_element(
      points.begin(), points.end(),
      [x](const Point& a, const Point& b) { return distance(a, x) < distance(b, x); });
  return static_cast<std::size_t>(best - points.begin());
}

float interpolate(const std::vector<Point>& points, float x) {
  const std::size_t best = nearest(points, x);
  if (x == points[best].index) return points[best].value;
  // The distance counts from the nearest point at all times. At the ends the segment starts at the
  // inner point, so there the result does not pass through the end point.
  const double d = static_cast<double>(x) - points[best].index;
  const bool below = d < 0;
  std::size_t from = best;
  if (below && best == 0) from = 1;
  if (!below && best == points.size() - 1) from = points.size() - 2;
  const Point& start = points[from];
  const Point& end = points[below ? from - 1 : from + 1];
  const double di = static_cast<double>(end.index) - start.index;
  const double dv = static_cast<double>(end.value) - start.value;
  if (di == 0) throw Fault(fault_text::kDivisionByZero);
  return checked_single(start.value + d / di * dv);
}

}  // namespace

float Lookup::LookupInterpolate(std::string_view a, std::string_view b, float x,
                                const LookupLog& log) {
  const std::string name = "Lookup:" + std::string(a) + ":" + std::string(b);
  const std::vector<Point> points = read_points(database_, name);
  if (points.empty()) {
    messages_.msg("", "Could not read interpolation data from table : " + name);
    return 0;
  }
  if (points.size() < 2) {
    messages_.msg("",
                  "Not enough interpolation values in table ... minimum of 2 required: " + name);
    return 0;
  }
  check_range(points, x, log);
  return interpolate(points, x);
}

float Lookup::LookupValue(std::string_view a, std::string_view b, float x, double multiplier,
                          double divisor, const LookupLog& log) {
  const double value = LookupInterpolate(a, b, x, log);
  if (divisor == 0) throw Fault(fault_text::kDivisionByZero);
  return checked_single(value * multiplier / divisor);
}

}  // namespace vantrel
