#pragma once

#include <QBuffer>
#include <QByteArray>
#include <QPageLayout>
#include <QPdfWriter>
#include <string>

namespace vantrel {

/// Drawings count in pixels of 1/96 inch.
inline constexpr double kPixelsPerInch = 96;

/// Has the toolkit's hashes come out the same in every process for as long as it lives: a PDF lists
/// its fonts in their order.
class FixedHashes {
 public:
  FixedHashes();
  ~FixedHashes();
  FixedHashes(const FixedHashes&) = delete;
  FixedHashes& operator=(const FixedHashes&) = delete;
};

/// A PDF file in memory. The same drawing gives the same bytes at any time and in any process.
class PdfDocument {
 public:
  /// Positions in the file are rounded to so many to an inch.
  static constexpr int kResolution = 1200;
  /// What a painter on the document is scaled by to draw in pixels of 1/96 inch.
  static constexpr double kScale = kResolution / kPixelsPerInch;

  /// Begins with a page of that layout.
  PdfDocument(const std::string& title, const QPageLayout& layout);

  /// The device to paint on.
  QPdfWriter& writer() { return writer_; }
  /// The file, once the painter has ended; without the date of creation, since a file that changes
  /// with the clock cannot be compared.
  QByteArray take();

 private:
  FixedHashes same_order_;
  QByteArray bytes_;
  QBuffer buffer_;
  QPdfWriter writer_;
};

}  // namespace vantrel
