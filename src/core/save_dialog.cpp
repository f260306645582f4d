#include "core/save_dialog.h"

#include <algorithm>
#include <filesystem>
#include <system_error>

namespace vantrel {

namespace {

/// The folder of exports while the user is asked: a dialog can start only in one that exists. A new
/// one goes again unless a file is to be written.
class ExportFolder {
 public:
  explicit ExportFolder(std::filesystem::path path) : path_(std::move(path)) {
    // Without the folder the dialog starts elsewhere; the user may still choose a place.
    std::error_code ignored;
    made_ = std::filesystem::create_directories(path_, ignored);
  }
  void drop() const {
    std::error_code ignored;
    if (made_) std::filesystem::remove(path_, ignored);
  }

 private:
  std::filesystem::path path_;
  bool made_ = false;
};

/// A name that any file system takes as that of one file: titles hold slashes and the names that
/// users give, of any length.
std::string file_name(std::string_view words) {
  constexpr std::size_t kMostBytes = 120;
  constexpr std::string_view kApart = "/\\:*?\"<>|";
  std::string name(words);
  for (char& c : name) {
    if (static_cast<unsigned char>(c) < ' ' || kApart.find(c) != std::string_view::npos) c = '-';
  }
  if (name.size() <= kMostBytes) return name;
  const std::string extension = std::filesystem::path(name).extension().string();
  std::size_t end = kMostBytes - std::min(extension.size(), kMostBytes);
  while (end > 0 && (static_cast<unsigned char>(name[end]) & 0xC0) == 0x80) --end;
  return name.substr(0, end) + extension;
}

}  // namespace

std::string select_savefile(FileDialogs* dialogs, const ProgramFolder& folder,
                            std::string_view title, std::string_view name,
                            std::string_view filter) {
  if (dialogs == nullptr) return "";
  const auto proposed = folder.writable("\\Export\\" + file_name(name));
  if (!proposed) return dialogs->askSave(title, filter, "").value_or("");
  const ExportFolder exports(proposed->parent_path());
  const std::string path = dialogs->askSave(title, filter, proposed->string()).value_or("");
  if (path.empty()) exports.drop();
  return path;
}

}  // namespace vantrel
