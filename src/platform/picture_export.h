#pragma once

#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "core/device_context.h"
#include "core/print_job.h"
#include "platform/gui_application.h"

namespace vantrel {

/// Writes drawings to files without any window. The same drawing gives the same bytes at any time
/// and under any locale.
class PictureExport {
 public:
  /// Writes the picture as SVG, PNG, BMP or PDF, as the extension of the file says in any case.
  /// Gives the reason when it fails; an older file is then as it was.
  [[nodiscard]] std::optional<std::string> write(const std::filesystem::path& file,
                                                 const Picture& picture);
  /// Writes a print job as a PDF file, whatever its extension; the same otherwise.
  [[nodiscard]] std::optional<std::string> writePages(const std::filesystem::path& file,
                                                      const PrintJob& job, const PaperSetup& setup);

 private:
  HeadlessGui gui_;
};

}  // namespace vantrel
