#pragma once

#include <QTimer>
#include <functional>
#include <memory>

#include "core/ports.h"

class QWidget;

namespace vantrel {

/// A timer of the toolkit's event loop.
class QtTimer : public Timer {
 public:
  QtTimer();
  void start(int interval_ms, std::function<void()> tick) override;
  void stop() override { timer_.stop(); }
  bool running() const override { return timer_.isActive(); }

 private:
  QTimer timer_;
  std::function<void()> tick_;
};

/// Lets the toolkit's queued events run, those of the user among them.
class QtEventPump : public EventPump {
 public:
  void yield() override;
};

/// The toolkit's file dialogs, over the window that is active.
class QtFileDialogs : public FileDialogs {
 public:
  std::optional<std::string> askSave(std::string_view title, std::string_view filter,
                                     std::string_view proposed) override;
  std::optional<std::string> askOpen(std::string_view title, std::string_view filter,
                                     std::string_view proposed) override;
  std::optional<std::string> askFolder(std::string_view title) override;
};

/// Hands addresses and files to the desktop's opener.
class QtShellOpen : public ShellOpen {
 public:
  bool open(const std::string& address) override;
};

/// Plays wave files by the toolkit's sound effects where they are built in; otherwise silent.
std::unique_ptr<SoundPlayer> make_sound_player();

}  // namespace vantrel
