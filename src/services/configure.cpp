#include "services/configure.h"

#include <algorithm>
#include <utility>

#include "core/text_parsing.h"

namespace vantrel {
namespace {

const char* stored_text(OptionKind kind, bool checked) {
  if (kind == OptionKind::kOptionButton) return checked ? "True" : "False";
  return checked ? "1" : "0";
}

bool is_button_of(const OptionSpec& option, std::string_view frame) {
  return option.kind == OptionKind::kOptionButton && option.frame == frame;
}

const OptionSpec* find_option(std::string_view name) {
  const auto options = option_specs();
  const auto found = std::find_if(options.begin(), options.end(), [&](const OptionSpec& option) {
    return equal_ignoring_case(option.name, name);
  });
  return found == options.end() ? nullptr : &*found;
}

std::size_t position_of(const OptionSpec& option) {
  return static_cast<std::size_t>(&option - option_specs().data());
}

}  // namespace

configure::configure(FieldContext& context, SettingsStore& store, ConfigureHooks hooks)
    : Screen("configure", "Configure Vantrel", context), store_(store), hooks_(std::move(hooks)) {
  for (const OptionFrame& frame : option_frames()) addFrame(frame.name, frame.caption);
  for (const OptionSpec& option : option_specs()) {
    addTickBox(option.name, option.caption, option.designed);
    applied_.push_back(option.designed);
  }
  addButton("command_ok", "OK");
  addButton("command_apply", "Apply");
  addButton("command_cancel", "Cancel");
  addButton("command_debug", "Debug");
  set_display(0);
}

void configure::config_show(bool start_up) {
  start_up_ = start_up;
  showApplied();
  visible(true);
}

void configure::set_display(int tab) {
  const auto frames = option_frames();
  const bool known = tab >= 0 && std::any_of(frames.begin(), frames.end(),
                                             [&](const auto& frame) { return frame.tab == tab; });
  if (!known) return;
  tab_ = tab;
  for (const OptionFrame& frame : frames) {
    setFrameVisible(frame.name, frame.tab == tab || frame.tab == OptionFrame::kEveryTab);
  }
}

int configure::height() const {
  for (const OptionFrame& frame : option_frames()) {
    if (frame.tab == tab_) return frame.height + kBelowFrame;
  }
  return kBelowFrame;
}

bool configure::isChecked(std::string_view name) const {
  const OptionSpec* const option = find_option(name);
  return option != nullptr && applied_[position_of(*option)];
}

bool configure::tick(std::string_view name, bool checked) {
  const OptionSpec* const option = find_option(name);
  if (option == nullptr) return false;
  if (option->kind == OptionKind::kTickBox) {
    findTickBox(name)->checked = checked;
  } else if (checked) {
    for (const OptionSpec& other : option_specs()) {
      if (is_button_of(other, option->frame)) findTickBox(other.name)->checked = &other == option;
    }
  }
  notifyLayoutChanged();
  return true;
}

void configure::load_all() {
  for (const OptionSpec& option : option_specs()) loadControl(option);
  Apply();
}

void configure::loadControl(const OptionSpec& option) {
  const std::string stored = loadItem(option.name);
  for (const bool state : {false, true}) {
    if (stored == stored_text(option.kind, state)) findTickBox(option.name)->checked = state;
  }
}

/// A damaged store, or controls that were set one by one, may leave several option buttons of a
/// frame set, or none: the designed one stands then.
void configure::settleOptionButtons(std::string_view frame) {
  const auto options = option_specs();
  const auto set = std::count_if(options.begin(), options.end(), [&](const OptionSpec& option) {
    return is_button_of(option, frame) && findTickBox(option.name)->checked;
  });
  if (set == 1) return;
  for (const OptionSpec& option : options) {
    if (is_button_of(option, frame)) findTickBox(option.name)->checked = option.designed;
  }
}

void configure::save_all() {
  for (const OptionSpec& option : option_specs()) {
    saveItem(option.name, stored_text(option.kind, findTickBox(option.name)->checked));
  }
}

void configure::saveItem(std::string_view name, std::string_view value) {
  store_.save(kSection, name, value);
}

std::string configure::loadItem(std::string_view name) {
  return store_.get(kSection, name, kMissing);
}

void configure::configure_enforcesettings() {
  if (!hooks_.enforce) return;
  hooks_.enforce({isChecked("default_to_e12_series"), isChecked("default_to_e24_series"),
                  isChecked("show_cc_debug")});
}

void configure::Apply() {
  for (const OptionFrame& frame : option_frames()) settleOptionButtons(frame.name);
  for (const OptionSpec& option : option_specs()) {
    applied_[position_of(option)] = findTickBox(option.name)->checked;
  }
  save_all();
  configure_enforcesettings();
  notifyLayoutChanged();
}

void configure::Cancel() {
  showApplied();
  close();
}

void configure::showApplied() {
  for (const OptionSpec& option : option_specs()) {
    findTickBox(option.name)->checked = applied_[position_of(option)];
  }
  notifyLayoutChanged();
}

bool configure::command_click(std::string_view button) {
  if (equal_ignoring_case(button, "command_ok")) {
    Apply();
    close();
  } else if (equal_ignoring_case(button, "command_apply")) {
    Apply();
  } else if (equal_ignoring_case(button, "command_cancel")) {
    Cancel();
  } else if (equal_ignoring_case(button, "command_debug")) {
    if (hooks_.showDebug) hooks_.showDebug();
  } else {
    return false;
  }
  return true;
}

void configure::close() {
  visible(false);
  if (std::exchange(start_up_, false) && hooks_.emergency_quit) hooks_.emergency_quit();
}

}  // namespace vantrel
