#pragma once

#include <functional>

#include "core/ports.h"
#include "core/program_folder.h"
#include "core/run_state.h"

namespace vantrel {

/// The click at each committed value, at most one every 0.4 s.
class ClickSound {
 public:
  /// `muted` tells whether the user has switched sounds off.
  ClickSound(const RunState& state, Clock& clock, SoundPlayer& player, const ProgramFolder& folder,
             std::function<bool()> muted);

  /// Plays the click unless sounds are off, the start-up still runs, or the last one is too recent.
  void PlayClickSound();

 private:
  const RunState& state_;
  Clock& clock_;
  SoundPlayer& player_;
  const ProgramFolder& folder_;
  std::function<bool()> muted_;
  double last_click_time_;
};

}  // namespace vantrel
