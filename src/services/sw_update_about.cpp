#include "services/sw_update_about.h"

#include <algorithm>
#include <utility>

#include "core/text_parsing.h"
#include "services/utf8_text.h"

namespace vantrel {

namespace {

constexpr const char* kVersionTag = "(vtl-version)";
constexpr const char* kUrlTag = "(vtl-url)";
constexpr const char* kButtonCaption = "Check for updates";

}  // namespace

bool is_web_address(std::string_view address) {
  const bool clean = std::ranges::none_of(address, [](char letter) {
    return static_cast<unsigned char>(letter) <= ' ' || letter == '\x7f';
  });
  const std::size_t scheme = address.find("://");
  if (!clean || scheme == std::string_view::npos) return false;
  const std::string name = lower(address.substr(0, scheme));
  const std::string_view host = address.substr(scheme + 3);
  return (name == "http" || name == "https") && !host.empty() &&
         std::string_view("/?#:@").find(host.front()) == std::string_view::npos;
}

About::About(const AboutPorts& ports, std::unique_ptr<TcpClient> client,
             std::unique_ptr<Timer> timer, std::string_view version)
    : ports_(ports),
      update_(std::move(client), std::move(timer), events()),
      version_(version),
      version_label_("Version " + version_),
      button_caption_(kButtonCaption) {}

SWUpdateEvents About::events() {
  return {.UpdateError =
              [this](const std::string& text, int) {
                if (!quiet_) error("Update check error : " + text);
              },
          .UpdateTag = [this](const std::string& tag,
                              const std::string& value) { updateTag(tag, value); },
          .UpdateStatus = [this](const std::string& text) { show(text); },
          .UpdateFinished = [this] { button(true, kButtonCaption); }};
}

void About::load() {
  loaded_ = true;
  late_error_.clear();
  status_.clear();
  button(true, kButtonCaption);
}

void About::unload() {
  if (!loaded_) return;
  loaded_ = false;
  update_.abandon();
  if (onUnloaded) onUnloaded();
}

void About::StartAboutUpdateCheck() {
  button(false, "Checking ...");
  CheckForUpdate();
}

void About::CheckForUpdate(bool quiet) {
  quiet_ = quiet;
  latest_version_.clear();
  latest_url_.clear();
  const std::string host = trimmed(ports_.settings.get(kSettingsSection, kUpdateHostKey, ""));
  if (host.empty()) {
    show(kNoHost);
    button(true, kButtonCaption);
    if (!quiet_) say(kNoHost);
    return;
  }
  update_.server_fetch(host, kUpdatePort, host, "http://" + host + "/index.html", kVersionTag,
                       kUrlTag);
}

void About::updateTag(const std::string& tag, const std::string& value) {
  (tag == kVersionTag ? latest_version_ : latest_url_) = as_utf8(value);
  if (latest_version_.empty() || latest_url_.empty()) return;
  update_.client_Close();
  if (latest_version_ != version_) {
    offer();
  } else if (!quiet_) {
    say("You have the most current version installed");
  }
  unload();
}

/// Any other version is offered, an older one too.
void About::offer() {
  const std::string address = latest_url_;
  const int answer = say("A newer version (v" + latest_version_ +
                             ") of the Vantrel is available. Do you wish to download it ?",
                         kMessageYesNo);
  if (answer == kYes) open(address);
}

void About::open(const std::string& address) {
  const bool opened =
      ports_.shell != nullptr && is_web_address(address) && ports_.shell->open(address);
  if (!opened) {
    ports_.messages.msg(kName, "Could not open '" + address + "'", kMessageOk, kSeverityWarning);
  }
}

void About::button(bool enabled, const char* caption) {
  button_enabled_ = enabled;
  button_caption_ = caption;
  if (onChanged) onChanged();
}

void About::show(const std::string& status) {
  status_ = status;
  if (onChanged) onChanged();
}

/// The timer goes on behind an open message; an error of it waits until that has been answered, and
/// is of no use once the form has gone.
void About::error(const std::string& text) {
  late_error_ = text;
  while (!waiting_ && loaded_ && !late_error_.empty()) say(std::exchange(late_error_, {}));
}

int About::say(const std::string& text, int type) {
  waiting_ = true;
  const int answer = ports_.messages.msg(kName, text, type);
  waiting_ = false;
  return answer;
}

}  // namespace vantrel
