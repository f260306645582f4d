#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <string_view>

#include "core/ports.h"
#include "services/messages/sysmsg.h"
#include "services/sw_update.h"

namespace vantrel {

/// True for an address that may be handed to the desktop's opener as a web page: http or https, a
/// host behind it, and no blank or control character.
bool is_web_address(std::string_view address);

/// What the form uses of the outside; all of it must outlive the form.
struct AboutPorts {
  SysMsg& messages;
  SettingsStore& settings;
  ShellOpen* shell = nullptr;
};

/// The About form: the program's version, and the check whether the update host has another one.
/// Nothing goes out before `StartAboutUpdateCheck`.
class About {
 public:
  static constexpr std::string_view kName = "About";
  static constexpr std::string_view kSettingsSection = "Configure";
  /// Name of the host that is asked for updates; empty until somebody sets it.
  static constexpr std::string_view kUpdateHostKey = "UpdateHost";
  static constexpr std::uint16_t kUpdatePort = 80;
  static constexpr const char* kNoHost = "No update host is configured";

  /// `version` is major, minor and revision joined by ".".
  About(const AboutPorts& ports, std::unique_ptr<TcpClient> client, std::unique_ptr<Timer> timer,
        std::string_view version);

  /// The form comes up, with everything as at the start.
  void load();
  /// The form goes away: a check under way ends, and its timer with it.
  void unload();
  bool loaded() const { return loaded_; }

  /// The button "Check for updates".
  void StartAboutUpdateCheck();
  /// Asks the update host; `quiet` leaves out errors and the news that there is none.
  void CheckForUpdate(bool quiet = false);
  /// The credits, of which there are none.
  void ShowTeam() {}

  const std::string& lblVersion() const { return version_label_; }
  const std::string& status() const { return status_; }
  const std::string& CmdCheckUpdateCaption() const { return button_caption_; }
  bool isCmdCheckUpdateEnabled() const { return button_enabled_; }
  const std::string& LatestVersion() const { return latest_version_; }
  const std::string& LatestUrl() const { return latest_url_; }

  /// Called when a label or the button has changed.
  std::function<void()> onChanged;
  /// Called when the form has gone away by itself; the object itself must live on.
  std::function<void()> onUnloaded;

 private:
  SWUpdateEvents events();
  void updateTag(const std::string& tag, const std::string& value);
  void offer();
  void open(const std::string& address);
  void button(bool enabled, const char* caption);
  void show(const std::string& status);
  void error(const std::string& text);
  int say(const std::string& text, int type = kMessageOk);

  AboutPorts ports_;
  SWUpdate update_;
  std::string version_;
  std::string version_label_;
  std::string status_;
  std::string button_caption_;
  bool button_enabled_ = true;
  bool loaded_ = false;
  bool quiet_ = false;
  /// A message of the form waits for its answer.
  bool waiting_ = false;
  /// The error that came up meanwhile, empty for none.
  std::string late_error_;
  std::string latest_version_;
  std::string latest_url_;
};

}  // namespace vantrel
