#include "platform/print_target.h"

#include <QMarginsF>
#include <QPageSize>
#include <QPagedPaintDevice>
#include <string_view>
#include <utility>

#include "core/file_writer.h"

namespace vantrel {

namespace {

constexpr QPageSize::PageSizeId kPageSizes[] = {QPageSize::A4, QPageSize::Letter};
static_assert(std::size(kPageSizes) == kPapers.size());

}  // namespace

QPageLayout page_layout(const PaperSetup& setup, bool landscape) {
  return {QPageSize(kPageSizes[setup.paper]),
          setup.landscape(landscape) ? QPageLayout::Landscape : QPageLayout::Portrait,
          QMarginsF(setup.left, setup.top, setup.right, setup.bottom), QPageLayout::Millimeter};
}

PagedTarget::PagedTarget(QPagedPaintDevice& device)
    : device_(device),
      scratch_(1, 1, QImage::Format_RGB32),
      scratch_painter_(&scratch_),
      measure_(scratch_painter_, {1, 1}) {}

Size PagedTarget::sheet() const {
  const QRectF room = device_.pageLayout().paintRect(QPageLayout::Inch);
  return {room.width() * kPixelsPerInch, room.height() * kPixelsPerInch};
}

bool PagedTarget::print(const PrintPage& page) {
  if (painter_.isActive() ? !device_.newPage() : !painter_.begin(&device_)) return false;
  for (const PrintPart& part : page.parts) {
    painter_.save();
    painter_.scale(device_.logicalDpiX() / kPixelsPerInch, device_.logicalDpiY() / kPixelsPerInch);
    painter_.translate(part.at.x, part.at.y);
    painter_.scale(part.scale, part.scale);
    PainterDeviceContext surface(painter_, part.size);
    part.draw(surface);
    painter_.restore();
  }
  return true;
}

bool PagedTarget::end() { return painter_.isActive() && painter_.end(); }

void PagedTarget::abort() {
  if (painter_.isActive()) painter_.end();
}

PdfTarget::PdfTarget(std::filesystem::path file, const std::string& title,
                     const QPageLayout& layout)
    : file_(std::move(file)), document_(title, layout), pages_(document_.writer()) {}

bool PdfTarget::end() {
  if (!pages_.end()) return false;
  const QByteArray bytes = document_.take();
  const auto failure = write_file(
      file_, std::string_view(bytes.constData(), static_cast<std::size_t>(bytes.size())));
  reason_ = failure.value_or("");
  return !failure;
}

}  // namespace vantrel
