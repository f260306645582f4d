#pragma once

#include <filesystem>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "core/device_context.h"
#include "core/paper_setup.h"

namespace vantrel {

/// A drawing on a page: it has coordinates of its own, stands with its corner at `at`, and each of
/// its pixels takes `scale` pixels of the page.
struct PrintPart {
  Point at;
  double scale = 1;
  Size size;  ///< In its own coordinates.
  std::function<void(DeviceContext&)> draw;
};

/// One page as the drawings on it.
struct PrintPage {
  std::vector<PrintPart> parts;
};

/// Something to print. The same job serves a printer, a preview and a file.
struct PrintJob {
  std::string title;
  /// How the paper lies unless the user has chosen otherwise.
  bool landscape = false;
  /// Makes the pages for sheets with that much room inside their margins, in pixels of 1/96 inch.
  /// `measure` tells how large texts are.
  std::function<std::vector<PrintPage>(DeviceContext& measure, Size sheet)> pages;
};

/// Paper that pages are drawn on one after the other.
class PrintTarget {
 public:
  virtual ~PrintTarget() = default;
  /// Room inside the margins of a sheet, in pixels of 1/96 inch.
  virtual Size sheet() const = 0;
  /// A surface that tells how large texts are.
  virtual DeviceContext& measure() = 0;
  /// Draws a page on a sheet of its own; false when it could not.
  virtual bool print(const PrintPage& page) = 0;
  /// Ends the document; false when something of it was lost.
  virtual bool end() = 0;
  /// Gives the document up; to be called in place of `end`.
  virtual void abort() = 0;
};

/// Writes a job as a PDF file on paper of that kind; gives the reason when it fails.
using PageWriter = std::function<std::optional<std::string>(
    const std::filesystem::path& file, const PrintJob& job, const PaperSetup& setup)>;

}  // namespace vantrel
