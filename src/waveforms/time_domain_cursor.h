#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "waveforms/time_domain_measure.h"
#include "waveforms/time_domain_view.h"

namespace vantrel {

/// One line of a readout.
struct TDInfoRow {
  std::string label;
  std::string text;
  Role colour = Role::TimeText;
  friend bool operator==(const TDInfoRow&, const TDInfoRow&) = default;
};

/// The readout beside the cursor.
class TDInfo {
 public:
  void SetType(std::int32_t type) { type_ = type; }
  void SetInfo(std::vector<TDInfoRow> values) { rows_ = std::move(values); }
  std::int32_t type() const { return type_; }
  const std::vector<TDInfoRow>& rows() const { return rows_; }

 private:
  std::int32_t type_ = 0;
  std::vector<TDInfoRow> rows_;
};

/// What the cursor reads out.
struct CursorMode {
  std::string_view caption;  ///< On the button.
  std::int32_t info_type;    ///< Of TDInfo; 0 without a readout.
};
/// Absolute values, domain values, no values.
inline constexpr std::array<CursorMode, 3> kCursorModes{
    {{"Absolute Values", 4}, {"Domain Values", 6}, {"No Values", 0}}};

/// The lines of the readout at a column for the shown traces. In envelope mode domain values are
/// given from bound to bound with their mean, absolute ones are those of the column's sample.
/// Empty for a column that is not drawn.
std::vector<TDInfoRow> cursor_rows(const GraphTD& graph, const PlotColumns& columns,
                                   std::int32_t column, const TraceSet& shown,
                                   std::int32_t cursor_mode);

/// Where the readout stands: beside the cursor at x, right of it or else left, within the area.
/// Nothing when the pointer is outside the plot.
std::optional<Box> place_info(Point cursor, Size info, const Box& plot, Size area);

/// The two measuring cursors, in microseconds on the time axis.
struct MeasuringCursors {
  std::optional<double> a;
  std::optional<double> b;
};

/// The time under a pixel; a border of stages within 6 pixels attracts it.
double snapped_time(const GraphTD& graph, const PlotColumns& columns, double x);

/// The table of the measuring cursors: one row of cells for each line.
struct CursorTable {
  std::vector<std::string> header;             ///< "", "Time", "Freq", then the traces.
  std::vector<std::vector<std::string>> rows;  ///< "A", "B", "B - A", "RMS", "Min", "Max".
};

/// Values at A and at B, bounds in envelope mode; with both also the differences, 1/(B - A), and
/// what lies between them. Empty without a cursor. The span between is left out when it is too long
/// to be measured.
CursorTable cursor_table(const GraphTD& graph, bool envelope, const MeasuringCursors& cursors);

/// What is drawn over the picture.
struct TimeDomainOverlay {
  std::optional<std::int32_t> cursor;         ///< Column under the pointer.
  MeasuringCursors measuring;                 ///< A solid, B dotted.
  std::optional<std::array<double, 2>> band;  ///< Rubber band, pixels.
};

/// Draws the cursors and the rubber band with its length on the plot of the last drawing.
void draw_overlay(DeviceContext& surface, const TimeDomainView& view,
                  const TimeDomainOverlay& overlay, Theme theme);

}  // namespace vantrel
