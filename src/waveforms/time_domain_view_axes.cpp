#include <algorithm>
#include <cmath>
#include <string>
#include <vector>

#include "core/number_text.h"
#include "waveforms/time_domain_view_drawing.h"

namespace vantrel {

namespace {

constexpr double kWantedInterval = 20;  // pixels
constexpr double kLeastInterval = 4;
constexpr double kTick = 5;
constexpr double kLabelGap = 8;
constexpr double kLeastLabelGap = 10;
constexpr std::int32_t kMostTimeLabels = 8;
constexpr double kMicrosPerSecond = 1000000;

/// Nothing for an axis that is left out.
std::vector<double> tick_values(const AxisScale& scale, double interval) {
  std::vector<double> values;
  if (!(scale.max > scale.min)) return values;
  const double last = std::floor(scale.max / interval);
  for (double tick = std::ceil(scale.min / interval); tick <= last; ++tick) {
    values.push_back(tick * interval);
  }
  return values;
}

}  // namespace

double tick_interval(const AxisScale& scale, double height, double start, double limit) {
  const double pixels = height / (scale.max - scale.min);
  double spacing = start;
  while (spacing * pixels < kWantedInterval && spacing < limit) spacing *= 2;
  while (spacing * pixels < kLeastInterval) spacing *= 2;
  return spacing;
}

double TimeDomainDrawing::tickRow(double value, const AxisScale& scale) const {
  return std::min(std::clamp(y(value, scale), 0.0, plot_.height), plot_.height - 1);
}

void TimeDomainDrawing::drawGrid(const AxisScale& scale, double interval, bool volts) {
  surface_.setNoPen();
  surface_.setBrush(colour(volts ? Role::AxisVoltsBack : Role::AxisAmperesBack));
  for (const double value : tick_values(scale, interval)) {
    level(tickRow(value, scale), plot_.left, plot_.right());
  }
}

void TimeDomainDrawing::drawValueAxis(const AxisScale& scale, double interval, bool volts) {
  for (const double value : tick_values(scale, interval)) drawValueTick(value, scale, volts);
}

void TimeDomainDrawing::drawValueTick(double value, const AxisScale& scale, bool volts) {
  const double height = std::clamp(y(value, scale), 0.0, plot_.height);
  const double row = tickRow(value, scale);
  const double edge = volts ? plot_.left : plot_.right();
  const double out = volts ? -1 : 1;
  const Colour ink = colour(volts ? Role::AxisVolts : Role::AxisAmperes);
  surface_.setNoPen();
  surface_.setBrush(ink);
  level(row, std::min(edge, edge + out * kTick), std::max(edge, edge + out * kTick));
  const std::string text =
      volts ? format_mask(value, "0") + " V" : format_mask(value, "0.0") + " A";
  surface_.setFont({.bold = !volts});
  surface_.setTextColour(ink);
  surface_.setTextAlign(
      {volts ? HorizontalAlign::Right : HorizontalAlign::Left, VerticalAlign::Middle});
  const double half = surface_.textExtent(text).height / 2;
  surface_.text({edge + out * kLabelGap, std::clamp(height, half, plot_.height - half)}, text);
}

void TimeDomainDrawing::drawTimeAxis() {
  surface_.setFont({});
  surface_.setTextColour(colour(Role::AxisTime));
  surface_.setTextAlign({HorizontalAlign::Centre, VerticalAlign::Top});
  surface_.setNoPen();
  surface_.setBrush(colour(Role::AxisTime));
  const auto label = [this](std::int32_t column) {
    return format_mask(columns_.at(column).Time / kMicrosPerSecond, "0.000####") + "S";
  };
  const std::int32_t last = columns_.count() - 1;
  const auto spread = [&](std::int32_t count) {
    std::vector<std::int32_t> chosen;
    for (std::int32_t i = 0; i < count; ++i) {
      chosen.push_back(columns_.first +
                       static_cast<std::int32_t>(std::int64_t{last - columns_.first} * i /
                                                 std::max(count - 1, 1)));
    }
    return chosen;
  };
  const auto touch = [&](const std::vector<std::int32_t>& chosen) {
    for (std::size_t i = 1; i < chosen.size(); ++i) {
      const double room = x(chosen[i]) - x(chosen[i - 1]);
      const double taken = (surface_.textExtent(label(chosen[i])).width +
                            surface_.textExtent(label(chosen[i - 1])).width) /
                           2;
      if (room < taken + kLeastLabelGap) return true;
    }
    return false;
  };
  std::vector<std::int32_t> chosen = spread(kMostTimeLabels);
  while (chosen.size() > 1 && touch(chosen)) {
    chosen = spread(static_cast<std::int32_t>(chosen.size()) - 1);
  }
  for (const std::int32_t column : chosen) {
    upright(x(column), plot_.height, plot_.height + kTick);
    surface_.text({x(column) + 0.5, plot_.height + kLabelGap}, label(column));
  }
}

void TimeDomainDrawing::drawFrame() {
  surface_.setNoPen();
  surface_.setBrush(colour(Role::AxisVolts));
  upright(plot_.left - 1, 0, plot_.height);
  upright(plot_.right(), 0, plot_.height);
  level(plot_.height, plot_.left - 1, plot_.right() + 1);
}

}  // namespace vantrel
