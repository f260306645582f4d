#pragma once

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <string>

#include "app/json_variant.h"
#include "app/session.h"

namespace vantrel {

/// The whole design as JSON: selection, every field of the design screens with its unit, the
/// components, the bill of materials, and the messages from position `first_message` on.
Json design_json(Session& session, bool complete, std::size_t first_message);

/// Where the files of a design go.
struct DesignOutput {
  std::filesystem::path folder;    ///< Made when it is missing.
  std::int32_t waveform_step = 1;  ///< Each so manieth sample is written.
};

/// Simulates the start of a design that has a tank and all its components. True when there are
/// waveforms; what went wrong has been told.
bool simulate_start(Session& session);

/// Writes "design.json", "bom.csv", the gain graph as "operating-points.svg" and ".png", and with
/// `simulated` the last run as "time-domain.png" and "waveforms.csv". What the design lacks is left
/// out. Gives the reason of a failure, empty when all was written.
std::string write_design(Session& session, const Json& design, bool simulated,
                         const DesignOutput& output);

}  // namespace vantrel
