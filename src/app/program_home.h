#pragma once

#include <filesystem>
#include <string>
#include <string_view>

#include "core/program_folder.h"

namespace vantrel {

/// Finds the program's folder, the one that holds "\Data\VTL.mdb" and everything else the program
/// reads and writes. The folder `beside` the executable serves when it can be written, otherwise
/// `user_program_folder` does.
ProgramFolder prepare_program_folder(const std::filesystem::path& beside,
                                     const std::filesystem::path& user_folder,
                                     std::string_view stored_version,
                                     std::string_view program_version);

/// The folder of an installed program: the design database is copied from `installed` to
/// `user_folder` at the first start, and again when `stored_version` (empty at a first start)
/// differs from `program_version`, with the former one kept as "VTL.mdb.OLD" so that start-up can
/// import the user's rows. Everything that the user's folder lacks is read from `installed`.
ProgramFolder user_program_folder(const std::filesystem::path& installed,
                                  const std::filesystem::path& user_folder,
                                  std::string_view stored_version,
                                  std::string_view program_version);

}  // namespace vantrel
