#include "screens/recent_projects.h"

#include "screens/appearance.h"

namespace vantrel {

namespace {

constexpr std::string_view kSection = "RecentProjects";

std::string key(int place) { return "Project" + std::to_string(place + 1); }

}  // namespace

RecentProjects::RecentProjects(SettingsStore& settings) : settings_(settings) {
  for (int i = 0; i < kMost; ++i) {
    const std::string path = settings.get(kSection, key(i), "");
    if (!path.empty()) paths_ << to_qstring(path);
  }
}

void RecentProjects::add(const QString& path) {
  if (path.isEmpty() || (!paths_.isEmpty() && paths_.first() == path)) return;
  paths_.removeAll(path);
  paths_.prepend(path);
  while (paths_.size() > kMost) paths_.removeLast();
  for (int i = 0; i < static_cast<int>(paths_.size()); ++i) {
    settings_.save(kSection, key(i), paths_[i].toStdString());
  }
  changed.raise();
}

}  // namespace vantrel
