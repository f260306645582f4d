#include "platform/picture_export.h"

#include <QBuffer>
#include <QByteArray>
#include <QImage>
#include <QMarginsF>
#include <QPageLayout>
#include <QPageSize>
#include <QPainter>
#include <QString>
#include <QSvgGenerator>
#include <algorithm>
#include <cmath>

#include "core/file_writer.h"
#include "core/text_parsing.h"
#include "outputs/printing.h"
#include "platform/painter_device_context.h"
#include "platform/pdf_document.h"
#include "platform/print_target.h"

namespace vantrel {

namespace {

constexpr const char* kNoGraphics = "Pictures need the toolkit's graphics";
constexpr double kPointsPerInch = 72;
constexpr double kInchesPerMetre = 1 / 0.0254;
constexpr double kMostPixels = 20000;  // of a bitmap's edge

/// The bytes of a file, empty when the format failed.
using Encoder = QByteArray (*)(const Picture& picture);

bool paint(QPaintDevice& device, const Picture& picture, double scale) {
  QPainter painter;
  if (!painter.begin(&device)) return false;
  painter.scale(scale, scale);
  PainterDeviceContext surface(painter, picture.size);
  picture.draw(surface);
  return painter.end();
}

QByteArray svg(const Picture& picture) {
  QByteArray bytes;
  QBuffer buffer(&bytes);
  QSvgGenerator generator;
  generator.setOutputDevice(&buffer);
  generator.setTitle(QString::fromStdString(picture.title));
  generator.setDescription(QString());
  generator.setResolution(static_cast<int>(kPixelsPerInch));
  generator.setSize(QSizeF(picture.size.width, picture.size.height).toSize());
  generator.setViewBox(QRectF(0, 0, picture.size.width, picture.size.height));
  return paint(generator, picture, 1) ? bytes : QByteArray();
}

QByteArray pdf(const Picture& picture) {
  const QSizeF points =
      QSizeF(picture.size.width, picture.size.height) * (kPointsPerInch / kPixelsPerInch);
  const QPageSize page(points, QPageSize::Point, QString(), QPageSize::ExactMatch);
  PdfDocument document(picture.title,
                       QPageLayout(page, QPageLayout::Portrait, QMarginsF(0, 0, 0, 0)));
  if (!paint(document.writer(), picture, PdfDocument::kScale)) return {};
  return document.take();
}

QByteArray bitmap(const Picture& picture, const char* format) {
  const double width = std::ceil(picture.size.width * picture.scale);
  const double height = std::ceil(picture.size.height * picture.scale);
  if (!(width >= 1 && height >= 1 && width <= kMostPixels && height <= kMostPixels)) return {};
  QImage image(static_cast<int>(width), static_cast<int>(height), QImage::Format_RGB32);
  if (image.isNull()) return {};
  image.fill(Qt::white);
  const int dots = static_cast<int>(kPixelsPerInch * picture.scale * kInchesPerMetre);
  image.setDotsPerMeterX(dots);
  image.setDotsPerMeterY(dots);
  QByteArray bytes;
  QBuffer buffer(&bytes);
  const bool done = paint(image, picture, picture.scale) && buffer.open(QIODevice::WriteOnly) &&
                    image.save(&buffer, format);
  return done ? bytes : QByteArray();
}

struct Format {
  std::string_view extension;
  Encoder encode;
};

constexpr Format kFormats[] = {
    {".svg", svg},
    {".png", [](const Picture& picture) { return bitmap(picture, "PNG"); }},
    {".bmp", [](const Picture& picture) { return bitmap(picture, "BMP"); }},
    {".pdf", pdf},
};

}  // namespace

std::optional<std::string> PictureExport::write(const std::filesystem::path& file,
                                                const Picture& picture) {
  const std::string extension = file.extension().string();
  const auto* format = std::find_if(
      std::begin(kFormats), std::end(kFormats),
      [&](const Format& each) { return equal_ignoring_case(each.extension, extension); });
  if (format == std::end(kFormats)) {
    return "No picture format of the extension '" + extension + "'; use svg, png, bmp or pdf";
  }
  if (!gui_.ensure()) return kNoGraphics;
  const QByteArray bytes = format->encode(picture);
  if (bytes.isEmpty()) return "The picture could not be drawn";
  return write_file(file,
                    std::string_view(bytes.constData(), static_cast<std::size_t>(bytes.size())));
}

std::optional<std::string> PictureExport::writePages(const std::filesystem::path& file,
                                                     const PrintJob& job, const PaperSetup& setup) {
  const std::string extension = file.extension().string();
  if (!equal_ignoring_case(extension, ".pdf")) {
    return "Pages are written as pdf, not as '" + extension + "'";
  }
  if (!gui_.ensure()) return kNoGraphics;
  PdfTarget target(file, job.title, page_layout(setup, job.landscape));
  if (Printing::draw(job, target)) return std::nullopt;
  return target.reason();
}

}  // namespace vantrel
