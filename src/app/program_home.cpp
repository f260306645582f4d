#include "app/program_home.h"

#include <unistd.h>

namespace vantrel {

namespace fs = std::filesystem;

namespace {

bool can_write(const fs::path& folder) { return ::access(folder.c_str(), W_OK) == 0; }

/// Puts a copy of the installed database in place, and the former one aside when there is one. The
/// copy is finished before anything moves, so that a full disk leaves the former database as it
/// was.
void install_database(const fs::path& installed, const fs::path& database) {
  const fs::path copy = database.string() + ".new";
  std::error_code error;
  if (fs::copy_file(installed, copy, fs::copy_options::overwrite_existing, error)) {
    fs::permissions(copy, fs::perms::owner_write, fs::perm_options::add, error);
    std::error_code nothing_to_keep;
    fs::rename(database, database.string() + ".OLD", nothing_to_keep);
    fs::rename(copy, database, error);
  }
  if (error) fs::remove(copy, error);
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
  if (upgraded || !fs::exists(database, error)) {
    install_database(installed / "Data" / "VTL.mdb", database);
  }
  return ProgramFolder(user_folder, installed);
}

}  // namespace vantrel
