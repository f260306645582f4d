#include "platform/user_folders.h"

#include <QStandardPaths>
#include <QString>

namespace vantrel {

namespace {

constexpr const char* kApplicationFolder = "Vantrel";

std::filesystem::path user_folder(QStandardPaths::StandardLocation location) {
  const QString base = QStandardPaths::writableLocation(location);
  return std::filesystem::path(base.toStdString()) / kApplicationFolder;
}

}  // namespace

std::filesystem::path executable_folder() {
  std::error_code error;
  const auto executable = std::filesystem::read_symlink("/proc/self/exe", error);
  return error ? std::filesystem::current_path() : executable.parent_path();
}

std::filesystem::path user_data_folder() {
  return user_folder(QStandardPaths::GenericDataLocation);
}

std::filesystem::path user_settings_file() {
  return user_folder(QStandardPaths::GenericConfigLocation) / "Configure.ini";
}

}  // namespace vantrel
