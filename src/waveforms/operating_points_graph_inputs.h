#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "operating/advanced.h"
#include "selection/missing_fields.h"

namespace vantrel {

/// Resistance that stands for the lamp before ignition, an open circuit; ohms.
inline constexpr float kOpenLamp = 1000000;

/// What the operating-points graph shows, as read from the design screen.
struct GraphInputs {
  std::int32_t target = 0;
  double L = 0;  ///< mH
  double C = 0;  ///< nF
  /// Load of each curve in ohms: the open lamp, then the running lamp, or the lamp at maximum and
  /// at minimum brightness. An IC without lamp results has the first alone.
  std::vector<float> loads;
  std::string max;               ///< Upper brightness as text, dimming ICs only.
  std::string min;               ///< Lower brightness.
  double preheat_frequency = 0;  ///< Hz, like all frequencies here.
  double ignition_frequency = 0;
  double start_frequency = 0;  ///< ICs without preheat only.
  /// Frequency of the operating point on each loaded curve, in the order of `loads` from 1.
  std::vector<double> run_frequencies;
};

/// Reads the inputs; nothing when one is empty or the IC has no tank. With `missing` each empty
/// field is noted there through the field, once. A Fault when a field holds no number.
std::optional<GraphInputs> read_graph_inputs(Advanced& advanced, const MissingFields* missing);

/// One operating point on the graph.
struct GraphMark {
  std::string label;  ///< Empty for a mark without one.
  double frequency = 0;
  float gain = 0;
  std::size_t curve = 0;  ///< Element of `GraphInputs::loads` it lies on.
  bool on_path = true;    ///< Belongs to the start-up of this IC.
};

/// The operating points in the order of the start-up. A Fault when a gain cannot be computed.
std::vector<GraphMark> graph_marks(const GraphInputs& inputs);

/// What the legend says of a curve: "before ignition, lamp open", "running, lamp 994.6 Ohm", or
/// "at 10%, lamp 1683 Ohm".
std::string curve_name(const GraphInputs& inputs, std::size_t curve);

/// One row of the table beside the graph; texts are empty where there is nothing to show.
struct OperatingPointRow {
  std::string name;
  std::string frequency;     ///< KHz, one decimal.
  std::string gain;          ///< Two decimals.
  std::string lamp_voltage;  ///< Peak volts, no decimals; empty at minimum brightness.
};

/// Start, preheat, ignition, run and resonance as a table; empty when inputs are missing or cannot
/// be computed. The lamp voltage is the gain times the first harmonic of the half-bridge, 2/pi of
/// the bus voltage of that stage.
std::vector<OperatingPointRow> operating_point_rows(Advanced& advanced);

}  // namespace vantrel
