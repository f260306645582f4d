#include <algorithm>
#include <filesystem>
#include <iterator>

#include "core/text_parsing.h"
#include "selection/control_bar.h"

namespace vantrel {

/// A command that the bar carries out itself.
struct control_bar::OwnCommand {
  std::string_view key;
  void (*run)(control_bar& bar, const std::string& argument);
};

bool may_open(const std::string& address) {
  const bool clean = std::none_of(address.begin(), address.end(), [](char letter) {
    return static_cast<unsigned char>(letter) < ' ' || letter == '\x7f';
  });
  if (!clean) return false;
  const std::string start = lower(std::string_view(address).substr(0, address.find("://")));
  if (start == "http" || start == "https") return address.size() > start.size() + 3;
  std::error_code error;
  return std::filesystem::is_regular_file(address, error);
}

int control_bar::say(std::string_view text, int type, int severity) {
  return hooks_.messages == nullptr ? kClosed
                                    : hooks_.messages->msg(hooks_.owner, text, type, severity);
}

bool control_bar::execute_command(const std::string& command, const std::string& argument) {
  bool handled = false;
  execute_command(command, argument, handled);
  return handled;
}

void control_bar::execute_command(std::string command, std::string argument, bool& handled) {
  if (const std::size_t star = command.find('*'); star != std::string::npos) {
    argument = command.substr(star + 1);
    command.erase(star);
  }
  if (command != "c_quit" && hooks_.isBusy && hooks_.isBusy()) return;
  if (is_disabled(command)) return;
  if (hooks_.ownerHandler) hooks_.ownerHandler(command, argument, handled);
  // An owner that prints by itself has done so: the bar would print a second time.
  if (!handled) handled = run(command, argument);
}

bool control_bar::is_disabled(std::string_view key) const {
  const auto carries = [key](const BarCommand& one) { return one.key == key; };
  const auto first = std::find_if(commands_.begin(), commands_.end(), carries);
  return first != commands_.end() && !is_enabled(key);
}

bool control_bar::run(const std::string& command, const std::string& argument) {
  static constexpr OwnCommand kOwn[] = {
      {"c_print",
       [](control_bar& bar, const std::string&) {
         if (bar.hooks_.print_form) bar.hooks_.print_form();
       }},
      {"c_datasheet", [](control_bar& bar, const std::string&) { bar.view_datasheets(); }},
      {"c_web", [](control_bar& bar, const std::string& address) { bar.show_web(address); }},
      {"c_web_tv", [](control_bar& bar, const std::string&) { bar.dropWeblinks(); }},
      {"c_help", [](control_bar& bar, const std::string&) { bar.show_help(); }},
      {"c_about", [](control_bar& bar, const std::string&) { bar.showAboutScreen(); }},
      {"c_update", [](control_bar& bar, const std::string&) { bar.checkForUpdate(); }},
  };
  const auto* own = std::find_if(std::begin(kOwn), std::end(kOwn),
                                 [&](const OwnCommand& one) { return one.key == command; });
  if (own == std::end(kOwn)) return hooks_.application && hooks_.application(command, argument);
  own->run(*this, argument);
  return true;
}

void control_bar::dropWeblinks() { menuDropped.raise(find_menu_group("weblinks")->menu); }

void control_bar::showAboutScreen() {
  if (hooks_.showAbout) hooks_.showAbout();
}

void control_bar::checkForUpdate() {
  showAboutScreen();
  if (hooks_.StartAboutUpdateCheck) hooks_.StartAboutUpdateCheck();
}

void control_bar::view_datasheets() {
  const auto tell = [this](int info) {
    return hooks_.details == nullptr ? std::string()
                                     : NullToText(hooks_.details->TargetDetails(info));
  };
  const std::string target = tell(kTargetName);
  const std::string address = tell(kTargetUrl);
  if (address.empty()) {
    say("The Datasheet for the " + target + " is not currently available");
    return;
  }
  const int answer = say("Do you wish to view the " + target +
                             " datasheet from the Torvane website? You must have a .pdf viewer "
                             "such as Adobe Acrobat installed.",
                         kMessageYesNo);
  if (answer == kYes) show_web(address);
}

void control_bar::show_help() {
  const std::string page = hooks_.helpPage ? hooks_.helpPage() : std::string();
  std::error_code error;
  if (!std::filesystem::is_regular_file(page, error)) {
    say("Help is not available");
    return;
  }
  show_web(page);
}

void control_bar::show_web(const std::string& address) {
  const bool opened = hooks_.shell != nullptr && may_open(address) && hooks_.shell->open(address);
  if (!opened) say("Could not open '" + address + "'", kMessageOk, kSeverityWarning);
}

}  // namespace vantrel
