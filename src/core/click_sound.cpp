#include "core/click_sound.h"

#include <limits>

namespace vantrel {

namespace {
constexpr double kSecondsBetweenClicks = 0.4;
}

ClickSound::ClickSound(const RunState& state, Clock& clock, SoundPlayer& player,
                       const ProgramFolder& folder, std::function<bool()> muted)
    : state_(state),
      clock_(clock),
      player_(player),
      folder_(folder),
      muted_(std::move(muted)),
      last_click_time_(-std::numeric_limits<double>::infinity()) {}

void ClickSound::PlayClickSound() {
  if (!state_.SoundsReady || muted_()) return;
  const double now = clock_.seconds();
  if (now - last_click_time_ < kSecondsBetweenClicks) return;
  last_click_time_ = now;
  if (const auto file = folder_.find("\\Sounds\\Click1.wav")) player_.play(file->string());
}

}  // namespace vantrel
