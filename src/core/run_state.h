#pragma once

#include <cstdint>

namespace vantrel {

/// The few numbers that every part of a run reads. One instance, owned by the composition root.
struct RunState {
  std::int32_t CurrentTarget = 0;  ///< Selected control IC: its row in the target table, 0 to 9.
  std::int32_t CurrentConfig = 0;  ///< Selected lamp configuration, 0 to 7.
  bool SelectionReady = false;     ///< Set once the default selection stands.
  bool SoundsReady = false;        ///< Set at the end of start-up; no click sound before.
};

}  // namespace vantrel
