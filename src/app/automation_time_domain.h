#pragma once

#include "app/automation.h"
#include "app/session.h"

namespace vantrel {

// The operations on the simulated start, in the form of those in automation_ops.h.
Json op_time_domain(Session& session, const Json& command);
Json op_stages(Session& session, const Json& command);
Json op_members(Session& session, const Json& command);
Json op_samples(Session& session, const Json& command);
Json op_envelope(Session& session, const Json& command);
Json op_find_item(Session& session, const Json& command);

/// Writes the netlist of the design's output stage. With "frequency":"measured" that of the last
/// run, driven at the frequency which its oscillator has really taken.
bool export_spice(Session& session, const Json& command);
/// Draws the whole of the last run, as far as one view can show it, into a picture file; gives the
/// reason when it fails.
std::optional<std::string> write_time_domain_picture(Session& session,
                                                     const std::filesystem::path& file);
/// Writes the last run: by the extension a picture, or the waveforms as CSV; with "step" only each
/// so manieth sample of them.
bool export_time_domain(Session& session, const Json& command);

}  // namespace vantrel
