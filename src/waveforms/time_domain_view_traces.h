#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string_view>

#include "core/device_context.h"
#include "core/theme.h"
#include "waveforms/time_domain_view_points.h"

namespace vantrel {

/// The traces of the time-domain view. Their numbers in menus are one higher.
enum class Trace : std::uint8_t { VIN, IL, VR, IR, IC, Freq };
inline constexpr std::size_t kTraceCount = 6;

enum class TraceAxis : std::uint8_t { Volts, Amperes, Frequency };

/// All that is known of a trace.
struct TraceRow {
  Trace trace;
  std::string_view label;
  std::string_view caption;  ///< On menu and toggle.
  TraceAxis axis;
  Role colour;
  Role text_colour;  ///< Where it stands on a dark ground.
  double (*lower)(const PlotPoint& point);
  double (*upper)(const PlotPoint& point);
  double (*value)(const TimeDomainSample& sample);
};

/// The traces by number.
const std::array<TraceRow, kTraceCount>& traces();
inline const TraceRow& trace_row(Trace trace) { return traces()[static_cast<std::size_t>(trace)]; }
/// The trace with that label; nothing for an unknown one.
std::optional<Trace> find_trace(std::string_view label);

/// The pen that tells a trace from the others without its colour.
Pen trace_pen(Trace trace, Theme theme);

/// In the order in which they are drawn, the last on top.
inline constexpr std::array<Trace, kTraceCount> kDrawingOrder{Trace::IC, Trace::IR, Trace::VIN,
                                                              Trace::VR, Trace::IL, Trace::Freq};
/// In the order of the toggle buttons.
inline constexpr std::array<Trace, kTraceCount> kToggleOrder{Trace::IL,   Trace::VIN, Trace::VR,
                                                             Trace::Freq, Trace::IC,  Trace::IR};

/// Which traces are shown.
struct TraceSet {
  std::array<bool, kTraceCount> shown{};
  bool operator[](Trace trace) const { return shown[static_cast<std::size_t>(trace)]; }
  bool& operator[](Trace trace) { return shown[static_cast<std::size_t>(trace)]; }
  friend bool operator==(const TraceSet&, const TraceSet&) = default;
};

}  // namespace vantrel
