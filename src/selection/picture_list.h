#pragma once

#include <span>
#include <string>
#include <string_view>

namespace vantrel {

/// A picture of the bars in its two states. Names are those of the files in the picture folder.
struct BarPicture {
  const char* key;
  const char* on;   ///< File of a command that is available.
  const char* off;  ///< File of one that is not; the same file when there is no other.
};

/// Folder of the pictures, below the program's.
inline constexpr std::string_view kPictureFolder = "\\graphics\\icons\\";

/// All pictures in the order in which they are loaded.
std::span<const BarPicture> bar_pictures();
/// The picture of a key; nothing for an unknown one, whose button stays blank. The board export
/// asks for "Save Gerber" and gets the drawing of "Save Photoplot".
const BarPicture* find_bar_picture(std::string_view key);
/// Path of a picture below the program's folder; empty for an unknown key.
std::string bar_picture_path(std::string_view key, bool on);
/// Path of the drawing that both pictures were made from, which is sharp at any size and takes the
/// colour that its root element names; empty for an unknown key.
std::string bar_drawing_path(std::string_view key);

}  // namespace vantrel
