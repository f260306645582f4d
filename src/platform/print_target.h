#pragma once

#include <QImage>
#include <QPageLayout>
#include <QPainter>
#include <filesystem>
#include <optional>
#include <string>

#include "core/print_job.h"
#include "platform/painter_device_context.h"
#include "platform/pdf_document.h"

class QPagedPaintDevice;

namespace vantrel {

/// The toolkit's form of a setup, for a job that asks for landscape or does not.
QPageLayout page_layout(const PaperSetup& setup, bool landscape);

/// Draws pages on a printer, a preview or a PDF writer, which has its page layout already and must
/// outlive the target.
class PagedTarget : public PrintTarget {
 public:
  explicit PagedTarget(QPagedPaintDevice& device);

  Size sheet() const override;
  DeviceContext& measure() override { return measure_; }
  bool print(const PrintPage& page) override;
  bool end() override;
  void abort() override;

 private:
  QPagedPaintDevice& device_;
  QImage scratch_;
  QPainter scratch_painter_;
  PainterDeviceContext measure_;
  QPainter painter_;
};

/// Collects pages as a PDF document and writes the file when it ends; an older file stays whole
/// until then.
class PdfTarget : public PrintTarget {
 public:
  PdfTarget(std::filesystem::path file, const std::string& title, const QPageLayout& layout);

  Size sheet() const override { return pages_.sheet(); }
  DeviceContext& measure() override { return pages_.measure(); }
  bool print(const PrintPage& page) override { return pages_.print(page); }
  bool end() override;
  void abort() override { pages_.abort(); }
  /// Why the file was not written, once a page or the end has failed.
  const std::string& reason() const { return reason_; }

 private:
  std::filesystem::path file_;
  PdfDocument document_;
  PagedTarget pages_;
  std::string reason_ = "The pages could not be drawn";
};

}  // namespace vantrel
