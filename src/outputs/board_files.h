#pragma once

#include <span>
#include <string>
#include <string_view>

#include "core/file_writer.h"
#include "core/ports.h"
#include "core/program_folder.h"
#include "services/messages/sysmsg.h"

namespace vantrel {

/// Copies the files of the reference board into a folder of the user's: the files that make the
/// board, and the pictures of its layers.
class BoardFiles {
 public:
  static constexpr std::string_view kGerberTitle = "Export Gerber Files To Directory";
  static constexpr std::string_view kLayersTitle = "Export Photoboard Layers To Directory";

  /// `dialogs` may be missing: then no folder can be asked for. All arguments must outlive the
  /// object.
  BoardFiles(SysMsg& messages, FileDialogs* dialogs, const ProgramFolder& folder,
             FileCalls calls = system_file_calls());

  /// Asks for a folder and copies; no answer ends the operation. True when all files were copied.
  bool export_gerber();
  bool export_layers();
  /// The same to a given folder. Files that are there already are replaced only after a question.
  bool exportGerberTo(const std::string& target);
  bool exportLayersTo(const std::string& target);

 private:
  bool copy(std::string_view source, std::span<const std::string_view> names,
            const std::string& target);

  SysMsg& messages_;
  FileDialogs* dialogs_;
  const ProgramFolder& folder_;
  FileCalls calls_;
};

}  // namespace vantrel
