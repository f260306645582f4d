#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "core/ports.h"
#include "core/program_folder.h"

namespace vantrel {

/// The save dialog of every export. It starts with `name` in the folder "\Export\" of the program,
/// which is made when it is missing and a file is chosen; what no file name holds is replaced by
/// "-" in it. `filter` is a list of pairs as
/// FileDialogs takes it. The chosen path, empty on Cancel or without dialogs.
std::string select_savefile(FileDialogs* dialogs, const ProgramFolder& folder,
                            std::string_view title, std::string_view name,
                            std::string_view filter = "All Files (*.*)|*.*");

/// Pictures by their extensions.
inline constexpr std::string_view kPictureFilter =
    "Bitmap (*.bmp)|*.bmp|PNG (*.png)|*.png|SVG (*.svg)|*.svg|PDF (*.pdf)|*.pdf";

}  // namespace vantrel
