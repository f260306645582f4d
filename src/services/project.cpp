#include "services/project.h"

#include <array>
#include <utility>
#include <variant>

#include "core/fault.h"
#include "core/program_folder.h"
#include "services/file_reader.h"

namespace vantrel {
namespace {

/// Far above any design; a larger file is none.
constexpr std::size_t kLongestProject = std::size_t{4} << 20U;

constexpr std::size_t kSimple = 0;
constexpr std::size_t kAdvanced = 1;

constexpr std::array<std::string_view, kProjectSlots> kRemoved = {
    "This project refers to an IC type which has been removed",
    "This project refers to an input type which has been removed",
    "This project refers to a lamp type which has been removed",
    "This project refers to a configuration which has been removed"};

constexpr std::string_view kLoadFailed = "Could not load project '";
constexpr std::string_view kSaveFailed = "Could not save project '";

template <typename... Args>
void call(const std::function<void(Args...)>& hook, std::type_identity_t<Args>... args) {
  if (hook) hook(args...);
}

/// Switches something off and, however the scope ends, on again.
class SwitchedOff {
 public:
  explicit SwitchedOff(const std::function<void(bool)>& hook) : hook_(hook) { call(hook_, false); }
  ~SwitchedOff() { call(hook_, true); }
  SwitchedOff(const SwitchedOff&) = delete;
  SwitchedOff& operator=(const SwitchedOff&) = delete;

 private:
  const std::function<void(bool)>& hook_;
};

std::string skipped_text(std::size_t count) {
  if (count == 1) return "1 value of this project has no place in this version and was skipped";
  return std::to_string(count) +
         " values of this project have no place in this version and were skipped";
}

/// One of the two main screens is always in sight, or the user would have no window at all.
void keep_a_main_screen(std::array<bool, kProjectScreens>& visible) {
  if (!visible[kAdvanced]) visible[kSimple] = true;
}

}  // namespace

Project::Project(const DesignScreens& design, const ScreenRegistry& loaded, SysMsg& messages,
                 FileDialogs* dialogs, ProjectHooks hooks, FileCalls calls)
    : design_(design),
      loaded_(loaded),
      messages_(messages),
      dialogs_(dialogs),
      hooks_(std::move(hooks)),
      calls_(std::move(calls)) {}

void Project::report(std::string_view caller, std::string_view before, const std::string& path,
                     std::string_view after) {
  messages_.msg(caller, std::string(before) + name_without_path(path) + std::string(after),
                kMessageOk, kSeverityInformation);
}

bool Project::SaveProject(std::string_view caller) {
  if (dialogs_ == nullptr) return false;
  const auto path = dialogs_->askSave(kSaveTitle, kFilter, current_path_);
  return path && !path->empty() && SaveProjectTo(caller, *path);
}

bool Project::LoadProject(std::string_view caller) {
  if (dialogs_ == nullptr) return false;
  const auto path = dialogs_->askOpen(kLoadTitle, kFilter, current_path_);
  return path && !path->empty() && LoadProjectFrom(caller, *path);
}

ProjectData Project::collect() const {
  ProjectData data;
  data.screenCount = static_cast<std::int32_t>(loaded_.screens().size());
  for (std::size_t slot = 0; slot < kProjectSlots; ++slot) {
    data.selection[slot] = hooks_.GetInfo ? hooks_.GetInfo(static_cast<int>(slot)) : -1;
  }
  for (std::size_t i = 0; i < kProjectScreens; ++i) data.visible[i] = design_[i]->visible();
  keep_a_main_screen(data.visible);
  data.values = collect_values(design_);
  data.lists = collect_lists(design_);
  return data;
}

bool Project::SaveProjectTo(std::string_view caller, const std::string& path) {
  if (write_file(path, encode(collect()), calls_)) {
    report(caller, kSaveFailed, path, "'");
    return false;
  }
  current_path_ = path;
  report(caller, "Project '", path, "' Saved OK");
  return true;
}

bool Project::LoadProjectFrom(std::string_view caller, const std::string& path) {
  const auto bytes = read_file(path, kLongestProject);
  if (bytes) {
    const auto decoded = decode(*bytes);
    if (const auto* data = std::get_if<ProjectData>(&decoded)) {
      try {
        return load(caller, path, *data);
      } catch (const Fault&) {
        report(caller, kLoadFailed, path, "'");
        return false;
      }
    }
  }
  report(caller, kLoadFailed, path, "'");
  return false;
}

bool Project::load(std::string_view caller, const std::string& path, const ProjectData& data) {
  const bool selected = select(caller, data);
  call(hooks_.relabelAdvanced);
  if (!selected) return false;
  call(hooks_.set_frames_from_tabstrips);
  call(hooks_.set_layout);
  show(data);
  const std::size_t skipped = restore(data);
  const bool redraw = !data.values.empty() && data.values.back().fixed;
  call(hooks_.reloadGraphOperatingPoints, redraw);
  call(hooks_.reloadGraphTimeDomain, redraw);
  current_path_ = path;
  if (skipped > 0) messages_.msg(caller, skipped_text(skipped), kMessageOk, kSeverityInformation);
  return true;
}

bool Project::select(std::string_view caller, const ProjectData& data) {
  const SwitchedOff handling(hooks_.handleAdvancedChanges);
  for (std::size_t slot = 0; slot < kProjectSlots; ++slot) {
    const bool selected =
        hooks_.ItemSelect && hooks_.ItemSelect(static_cast<int>(slot), data.selection[slot]);
    if (selected) continue;
    messages_.msg(caller, kRemoved[slot]);
    return false;
  }
  return true;
}

void Project::show(const ProjectData& data) {
  auto visible = data.visible;
  keep_a_main_screen(visible);
  for (Screen* const screen : loaded_.screens()) screen->visible(false);
  for (std::size_t i = 0; i < kProjectScreens; ++i) {
    design_[i]->visible(visible[i]);
    if (visible[i]) call(hooks_.setWindowStateNormal, *design_[i]);
  }
}

std::size_t Project::restore(const ProjectData& data) {
  const SwitchedOff link(hooks_.linkTimes);
  return apply_values(design_, data.values) + apply_lists(design_, data.lists);
}

}  // namespace vantrel
