#pragma once

#include <functional>

#include "operating/advanced.h"
#include "operating/operating_block.h"
#include "services/messages/sysmsg.h"

namespace vantrel {

/// What the PFC stage needs besides the screen and the block.
struct PfcStageContext {
  SysMsg& messages;
  /// Factor of the input power for the selected lamp configuration.
  std::function<float()> powerFactor;
};

/// Designs the inductor of the power-factor correction for the block's run frequency and bus, and
/// writes it with its peak current (and, by the IC, its on-time and compensation) to the screen.
/// May raise `pfc_frequency`. An input power that is not above 0 is reported and empties the
/// results. A calculation that divides by zero or overflows is a Fault.
void run_pfc_stage(Advanced& advanced, OperatingBlock& block, const PfcStageContext& context);

}  // namespace vantrel
