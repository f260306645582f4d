#include "core/save_dialog.h"

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

}  // namespace

std::string select_savefile(FileDialogs* dialogs, const ProgramFolder& folder,
                            std::string_view title, std::string_view name,
                            std::string_view filter) {
  if (dialogs == nullptr) return "";
  const auto proposed = folder.writable("\\Export\\" + std::string(name));
  if (!proposed) return dialogs->askSave(title, filter, "").value_or("");
  const ExportFolder exports(proposed->parent_path());
  const std::string path = dialogs->askSave(title, filter, proposed->string()).value_or("");
  if (path.empty()) exports.drop();
  return path;
}

}  // namespace vantrel
