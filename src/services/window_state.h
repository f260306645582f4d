#pragma once

#include <functional>
#include <optional>
#include <span>
#include <string>
#include <string_view>

#include "services/profile_file.h"

namespace vantrel {

/// A rectangle on the desktop, in pixels.
struct WindowRect {
  int left = 0;
  int top = 0;
  int width = 0;
  int height = 0;
  friend bool operator==(const WindowRect&, const WindowRect&) = default;
};

/// The window moved onto the screen that it overlaps most, or lies nearest to, so that all of it is
/// in sight. A window that is larger than that screen shrinks when it is `resizable`; otherwise
/// its top left corner is in sight. Without any screen it stays where it is.
WindowRect onto_screens(const WindowRect& window, bool resizable,
                        std::span<const WindowRect> screens);

/// Positions of the windows from run to run, one section of the file for each window.
class WindowState {
 public:
  /// `remember` tells whether positions are to be restored.
  WindowState(const ProfileFile& file, std::function<bool()> remember);

  /// Where a window belongs. `designed` gives what the file lacks or states absurdly; width and
  /// height come from the file for a resizable window only. Nothing when positions are not to be
  /// restored or none is on record.
  std::optional<WindowRect> read(std::string_view section, const WindowRect& designed,
                                 bool resizable, std::span<const WindowRect> screens) const;
  /// Records where a window is. Gives the reason when that fails.
  std::optional<std::string> write(std::string_view section, const WindowRect& window) const;

 private:
  const ProfileFile& file_;
  std::function<bool()> remember_;
};

}  // namespace vantrel
