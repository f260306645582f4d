#pragma once

#include <QStringList>

#include "core/ports.h"
#include "core/signal.h"

namespace vantrel {

/// The projects that were last saved or loaded, newest first, kept with the settings.
class RecentProjects {
 public:
  static constexpr int kMost = 8;

  /// `settings` must outlive the list.
  explicit RecentProjects(SettingsStore& settings);

  const QStringList& paths() const { return paths_; }
  /// Puts a project in front; the oldest of a full list goes.
  void add(const QString& path);

  Signal<> changed;

 private:
  SettingsStore& settings_;
  QStringList paths_;
};

}  // namespace vantrel
