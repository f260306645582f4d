#include "waveforms/operating_points_graph_curves.h"

#include <cmath>
#include <optional>

#include "core/fault.h"
#include "core/number_text.h"
#include "operating/target_traits.h"

namespace vantrel {

namespace {

constexpr double kLeftMargin = 50;
constexpr double kRightMargin = 10;
constexpr double kBottomMargin = 40;
constexpr double kTopMargin = 14;  // half a line of text above the topmost label
constexpr int kStep = 5;
constexpr std::size_t kStepsOfSecondPass = 3;

constexpr double kFirstFrequency = 5000;
constexpr double kRoomAfterStart = 10000;
constexpr double kRoomAfterPreheat = 1.5;

double last_frequency(const GraphInputs& inputs) {
  const TargetTraits& traits = target_traits(inputs.target);
  const bool ends_after_start = !traits.preheats && !traits.dimming;
  return ends_after_start ? inputs.start_frequency + kRoomAfterStart
                          : kRoomAfterPreheat * inputs.preheat_frequency;
}

struct GainPoint {
  Point at;
  double gain;
};

/// Where a line from inside the plot meets its top.
Point at_top(const GainScale& scale, const GainPoint& a, const GainPoint& b) {
  const double share = (GainScale::kMaxGain - a.gain) / (b.gain - a.gain);
  return {a.at.x + share * (b.at.x - a.at.x), scale.y(GainScale::kMaxGain)};
}

std::optional<CurveSegment> cut(const GainScale& scale, const GainPoint& a, const GainPoint& b) {
  const bool a_inside = a.gain <= GainScale::kMaxGain;
  const bool b_inside = b.gain <= GainScale::kMaxGain;
  if (!a_inside && !b_inside) return std::nullopt;
  CurveSegment segment;
  segment.ends = {a_inside ? a.at : at_top(scale, a, b), b_inside ? b.at : at_top(scale, a, b)};
  segment.whole = a_inside && b_inside;
  return segment;
}

}  // namespace

float calculate_vlamp(double L, double C, double R, double f) {
  if (R == 0) throw Fault(fault_text::kDivisionByZero);
  const double real = 1.0 - 39.478 * (f * f) * L * C;
  const double sum = real * real + 39.478 * (f * f) * (L * L) / (R * R);
  if (sum == 0) throw Fault(fault_text::kDivisionByZero);
  if (!std::isfinite(sum)) throw Fault(fault_text::kOverflow);
  return checked_single(1.0 / std::sqrt(sum));
}

GainScale::GainScale(Size area, const GraphInputs& inputs, double start_offset, double end_offset)
    : plot{kLeftMargin, kTopMargin, area.width - kLeftMargin - kRightMargin,
           area.height - kTopMargin - kBottomMargin},
      start(kFirstFrequency + start_offset),
      end(last_frequency(inputs) + end_offset) {
  if (!(end > start)) throw Fault(fault_text::kDivisionByZero);
  if (plot.width < 1 || plot.height < 1) throw Fault(fault_text::kInvalidCall);
}

double GainScale::x(double hertz) const {
  return plot.left + (hertz - start) / (end - start) * plot.width;
}

double GainScale::y(double gain) const {
  return plot.bottom() - (gain - kMinGain) / (kMaxGain - kMinGain) * plot.height;
}

double GainScale::frequency(double pixel) const {
  return (end - start) * (pixel / plot.width) + start;
}

bool GainScale::shows(double hertz, double gain) const {
  return hertz >= start && hertz <= end && gain >= kMinGain && gain <= kMaxGain;
}

TickSpacing tick_spacing(double plot_width) {
  if (plot_width < 200) return {50000, 2000};
  if (plot_width < 400) return {20000, 2000};
  if (plot_width < 600) return {10000, 1000};
  return {5000, 1000};
}

std::vector<CurveSegment> curve_segments(const GainScale& scale, const GraphInputs& inputs,
                                         std::size_t curve) {
  std::vector<CurveSegment> segments;
  std::optional<GainPoint> last;
  std::size_t index = 0;
  for (int pixel = 0; pixel <= scale.plot.width - 1; pixel += kStep) {
    const double gain = static_cast<double>(
        calculate_vlamp(inputs.L * 0.001, inputs.C * 1e-9, static_cast<double>(inputs.loads[curve]),
                        scale.frequency(pixel)));
    const GainPoint point{{scale.plot.left + pixel, scale.y(gain)}, gain};
    if (last) {
      if (auto segment = cut(scale, *last, point)) {
        segment->index = index;
        segments.push_back(*segment);
      }
      ++index;
    }
    last = point;
  }
  return segments;
}

std::vector<std::vector<Point>> joined(const std::vector<CurveSegment>& segments) {
  std::vector<std::vector<Point>> lines;
  for (const CurveSegment& segment : segments) {
    if (lines.empty() || !(lines.back().back() == segment.ends[0])) {
      lines.push_back({segment.ends[0]});
    }
    lines.back().push_back(segment.ends[1]);
  }
  return lines;
}

std::vector<CurveSegment> full_steps(const std::vector<CurveSegment>& segments) {
  std::vector<CurveSegment> kept;
  for (std::size_t at = 0; at + kStepsOfSecondPass <= segments.size();) {
    const CurveSegment* step = &segments[at];
    const bool full = step[0].index % kStepsOfSecondPass == 0 &&
                      step[2].index == step[0].index + 2 && step[0].whole && step[1].whole &&
                      step[2].whole;
    if (full) kept.insert(kept.end(), step, step + kStepsOfSecondPass);
    at += full ? kStepsOfSecondPass : 1;
  }
  return kept;
}

}  // namespace vantrel
