#pragma once

#include <filesystem>
#include <optional>
#include <string>

#include "core/paper_setup.h"
#include "outputs/report_document.h"
#include "platform/gui_application.h"

namespace vantrel {

/// Writes reports to files without any window. The same report gives the same bytes at any time and
/// under any locale.
class ReportExport {
 public:
  /// Writes the report as PDF or HTML, as the extension of the file says in any case ("html" and
  /// "htm"). Of `paper` only the kind counts: pages lie as they read best. Gives the reason when it
  /// fails; an older file is then as it was.
  [[nodiscard]] std::optional<std::string> write(const std::filesystem::path& file,
                                                 const ReportDocument& report,
                                                 const PaperSetup& paper = {});
  /// Why a report cannot be written under that name, as far as its extension goes.
  static std::optional<std::string> refusal(const std::filesystem::path& file);

 private:
  HeadlessGui gui_;
};

}  // namespace vantrel
