#pragma once

#include <filesystem>

namespace vantrel {

/// Folder of the running executable.
std::filesystem::path executable_folder();
/// Per-user folder for the program's files when it is installed where it cannot write.
std::filesystem::path user_data_folder();
/// File of the per-user settings.
std::filesystem::path user_settings_file();

}  // namespace vantrel
