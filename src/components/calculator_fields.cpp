#include "components/calculator_fields.h"

namespace vantrel {

namespace {

constexpr const char* kPreheat = "frame_preheat";
constexpr const char* kOperatingPoints = "frame_operating_points";
constexpr const char* kPhaseAngle = "frame_phase_angle";
constexpr const char* kMisc = "frame_misc";

constexpr CalculatorFrame kFrames[] = {
    {kMisc, "Miscellaneous"},
    {kOperatingPoints, "Operating Points"},
    {kPreheat, "Preheat and Ignition"},
    {kPhaseAngle, "Phase Angle"},
};

constexpr FieldSpec kFields[] = {
    // Name, label, unit, places, style, tick, tooltip, frame.
    {"cc_preheat_time", "Preheat Time", "Sec", "2", kInput, true,
     "Time to heat the filaments before ignition", kPreheat},
    {"cc_ignition_time", "Ignition Time", "Sec", "2", kInput, true,
     "Time for which the ignition sequence lasts", kPreheat},
    {"cc_start_frequency", "Start Frequency", "KHz", "2", kInput, false,
     "Halfbridge oscillating frequency at startup", kOperatingPoints},
    {"cc_preheat_frequency", "Preheat Frequency", "KHz", "2", kInput, false,
     "Halfbridge oscillating frequency while the filaments are heated", kOperatingPoints},
    {"cc_ignition_frequency", "Ignition Frequency", "KHz", "2", kInput, false,
     "Halfbridge oscillating frequency where maximum ignition voltage occurs", kOperatingPoints},
    {"cc_run_frequency", "Run Frequency", "KHz", "2", kInput, false,
     "Halfbridge oscillating frequency where running lamp parameters are fulfilled",
     kOperatingPoints},
    {"cc_max_frequency", "MAX% Frequency", "KHz", "2", kInput, false,
     "Halfbridge oscillating frequency at maximum brightness", kOperatingPoints},
    {"cc_min_frequency", "MIN% Frequency", "KHz", "2", kInput, false,
     "Halfbridge oscillating frequency at minimum brightness", kOperatingPoints},
    {"cc_phimax", "PhiMax", "Deg", "2", kInput, false,
     "Phase angle of the tank at maximum brightness", kPhaseAngle},
    {"cc_phimin", "PhiMin", "Deg", "2", kInput, false,
     "Phase angle of the tank at minimum brightness", kPhaseAngle},
    {"cc_deadtime", "Dead Time", "uSec", "2", kInput, false,
     "Time between the conduction of the two halfbridge switches", kMisc},
    {"cc_ignition_ramp_time", "Ignition Ramp Time", "mSec", "2", kInput, false,
     "Time in which the frequency falls from preheat to ignition", kPreheat},
};

}  // namespace

std::span<const CalculatorFrame> calculator_input_frames() { return kFrames; }

std::span<const FieldSpec> calculator_fields() { return kFields; }

FieldSpec output_row_field(int index) {
  return {.name = kOutputRow,
          .label = "",
          .unit = "",
          .places = "2",
          .style = kLockedPrefixed,
          .frame = kOutputsFrame,
          .index = index};
}

}  // namespace vantrel
