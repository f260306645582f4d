#include "app/program_home.h"

#include <unistd.h>

namespace vantrel {

namespace fs = std::filesystem;

namespace {

bool can_write(const fs::path& folder) { return ::access(folder.c_str(), W_OK) == 0; }

/// Copies beside the target first, so that a full disk never leaves half a database under its name.
void copy_whole(const fs::path& from, const fs::path& to) {
  const fs::path unfinished = to.string() + ".new";
  std::error_code error;
  if (fs::copy_file(from, unfinished, fs::copy_options::overwrite_existing, error)) {
    fs::permissions(unfinished, fs::perms::owner_write, fs::perm_options::add, error);
    fs::rename(unfinished, to, error);
  }
  if (error) fs::remove(unfinished, error);
}

}  // namespace

ProgramFolder prepare_program_folder(const fs::path& beside, const fs::path& user_folder,
                                     std::string_view stored_version,
                                     std::string_view program_version) {
  if (can_write(beside) && can_write(beside / "Data")) return ProgramFolder(beside);
  return user_program_folder(beside, user_folder, stored_version, program_version);
}

ProgramFolder user_program_folder(const fs::path& installed, const fs::path& user_folder,
                                  std::string_view stored_version,
                                  std::string_view program_version) {
  const fs::path database = user_folder / "Data" / "VTL.mdb";
  std::error_code error;
  fs::create_directories(database.parent_path(), error);
  const bool upgraded = !stored_version.empty() && stored_version != program_version;
  if (upgraded && fs::exists(database, error)) {
    fs::rename(database, database.string() + ".OLD", error);
  }
  if (!fs::exists(database, error)) copy_whole(installed / "Data" / "VTL.mdb", database);
  return ProgramFolder(user_folder, installed);
}

}  // namespace vantrel
