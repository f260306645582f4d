#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <string_view>

#include "core/file_writer.h"
#include "core/ports.h"
#include "core/screen.h"
#include "services/messages/sysmsg.h"
#include "services/project_fields.h"
#include "services/project_file.h"

namespace vantrel {

/// What a project needs of other parts of the program. A callable may be empty.
struct ProjectHooks {
  std::function<std::int32_t(int slot)> GetInfo;  ///< ID of the selected item of a slot.
  /// `ItemSelect(true, slot, id, false, false, true)`; without it nothing can be loaded.
  std::function<bool(int slot, std::int32_t id)> ItemSelect;
  /// Switches the handling of changes on `Advanced` off and on again.
  std::function<void(bool on)> handleAdvancedChanges;
  std::function<void()> relabelAdvanced;            ///< What the handling has missed.
  std::function<void()> set_frames_from_tabstrips;  ///< `Advanced.set_frames_from_tabstrips`
  std::function<void()> set_layout;                 ///< `Advanced.set_layout`
  std::function<void(Screen&)> setWindowStateNormal;
  /// Switches the link between the preheat and the ignition time off and on again.
  std::function<void(bool on)> linkTimes;
  /// Takes the fields of `GraphOperatingPoints` over; with `redraw` it is drawn at once.
  std::function<void(bool redraw)> reloadGraphOperatingPoints;
  /// The same of `GraphTimeDomain`.
  std::function<void(bool redraw)> reloadGraphTimeDomain;
};

/// Saves the whole design in a project file and loads it again.
class Project {
 public:
  /// Titles and filter of the two file dialogs.
  static constexpr std::string_view kSaveTitle = "Select project filename to save";
  static constexpr std::string_view kLoadTitle = "Select project filename to load";
  static constexpr std::string_view kFilter = "Vantrel Projects (*.vtl)|*.vtl|All Files (*.*)|*.*";

  /// `loaded` lists all screens of the run, the seven design screens among them. `dialogs` may be
  /// missing: then no name can be asked for. All arguments must outlive the project.
  Project(const DesignScreens& design, const ScreenRegistry& loaded, SysMsg& messages,
          FileDialogs* dialogs, ProjectHooks hooks, FileCalls calls = system_file_calls());

  /// Asks for a name and saves. An empty answer ends the operation. `caller` names the screen that
  /// the command came from. True when the file was written.
  bool SaveProject(std::string_view caller);
  /// Asks for a name and loads. True when the design was loaded.
  bool LoadProject(std::string_view caller);

  /// Saves under a given path. A failure is reported and leaves an older file as it was.
  bool SaveProjectTo(std::string_view caller, const std::string& path);
  /// Loads from a given path. A file that cannot be read or is no sound project is reported and
  /// changes nothing. A selection whose item is gone is reported and stops the load; the slots
  /// before it have taken effect.
  bool LoadProjectFrom(std::string_view caller, const std::string& path);

  /// Path of the last project that was saved or loaded, empty before.
  const std::string& CurrentProjectPath() const { return current_path_; }

 private:
  ProjectData collect() const;
  bool load(std::string_view caller, const std::string& path, const ProjectData& data);
  bool select(std::string_view caller, const ProjectData& data);
  void show(const ProjectData& data);
  std::size_t restore(const ProjectData& data);
  void report(std::string_view caller, std::string_view before, const std::string& path,
              std::string_view after);

  DesignScreens design_;
  const ScreenRegistry& loaded_;
  SysMsg& messages_;
  FileDialogs* dialogs_;
  ProjectHooks hooks_;
  FileCalls calls_;
  std::string current_path_;
};

}  // namespace vantrel
