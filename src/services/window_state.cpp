#include "services/window_state.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <utility>

namespace vantrel {
namespace {

/// No desktop reaches farther, in either direction.
constexpr int kFarthest = 32767;
/// A window that is narrower or lower cannot be used.
constexpr int kSmallest = 32;

/// Length of the part that two stretches share; below 0 the distance between them.
int overlap(int start, int length, int other_start, int other_length) {
  return std::min(start + length, other_start + other_length) - std::max(start, other_start);
}

/// How well a screen suits a window: shared area first, then nearness.
std::pair<std::int64_t, std::int64_t> suitability(const WindowRect& window,
                                                  const WindowRect& screen) {
  const std::int64_t across = overlap(window.left, window.width, screen.left, screen.width);
  const std::int64_t down = overlap(window.top, window.height, screen.top, screen.height);
  const std::int64_t shared = across > 0 && down > 0 ? across * down : 0;
  const std::int64_t far_across = std::min<std::int64_t>(across, 0);
  const std::int64_t far_down = std::min<std::int64_t>(down, 0);
  return {shared, -(far_across * far_across + far_down * far_down)};
}

/// The start that puts a stretch inside another one; its beginning is in sight in any case.
int inside(int start, int length, int outer_start, int outer_length) {
  return std::max(std::min(start, outer_start + outer_length - length), outer_start);
}

int within(std::optional<std::int32_t> stored, int least, int most, int designed) {
  return stored && *stored >= least && *stored <= most ? *stored : designed;
}

}  // namespace

WindowRect onto_screens(const WindowRect& window, bool resizable,
                        std::span<const WindowRect> screens) {
  if (screens.empty()) return window;
  const auto screen = std::max_element(screens.begin(), screens.end(),
                                       [&](const WindowRect& a, const WindowRect& b) {
                                         return suitability(window, a) < suitability(window, b);
                                       });
  WindowRect placed = window;
  if (resizable) {
    placed.width = std::min(placed.width, screen->width);
    placed.height = std::min(placed.height, screen->height);
  }
  placed.left = inside(placed.left, placed.width, screen->left, screen->width);
  placed.top = inside(placed.top, placed.height, screen->top, screen->height);
  return placed;
}

WindowState::WindowState(const ProfileFile& file, std::function<bool()> remember)
    : file_(file), remember_(std::move(remember)) {}

std::optional<WindowRect> WindowState::read(std::string_view section, const WindowRect& designed,
                                            bool resizable,
                                            std::span<const WindowRect> screens) const {
  if (!remember_ || !remember_()) return std::nullopt;
  const ProfileText text = file_.read();
  const auto left = text.getInt(section, "Left");
  const auto top = text.getInt(section, "Top");
  if (!left && !top) return std::nullopt;
  WindowRect window = designed;
  window.left = within(left, -kFarthest, kFarthest, designed.left);
  window.top = within(top, -kFarthest, kFarthest, designed.top);
  if (resizable) {
    window.width = within(text.getInt(section, "Width"), kSmallest, kFarthest, designed.width);
    window.height = within(text.getInt(section, "Height"), kSmallest, kFarthest, designed.height);
  }
  return onto_screens(window, resizable, screens);
}

std::optional<std::string> WindowState::write(std::string_view section,
                                              const WindowRect& window) const {
  const std::array values = {ProfileValue{"Top", std::to_string(window.top)},
                             ProfileValue{"Left", std::to_string(window.left)},
                             ProfileValue{"Width", std::to_string(window.width)},
                             ProfileValue{"Height", std::to_string(window.height)}};
  return file_.write(section, values);
}

}  // namespace vantrel
