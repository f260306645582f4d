#include "platform/picture_export.h"

#include <QBuffer>
#include <QByteArray>
#include <QImage>
#include <QMarginsF>
#include <QPageSize>
#include <QPainter>
#include <QPdfWriter>
#include <QString>
#include <QSvgGenerator>
#include <algorithm>
#include <cmath>

#include "core/file_writer.h"
#include "core/text_parsing.h"
#include "platform/painter_device_context.h"

namespace vantrel {

namespace {

constexpr double kPixelsPerInch = 96;
constexpr double kPointsPerInch = 72;
constexpr int kPdfResolution = 1200;
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

/// Blanks the date of creation out: a file that changes with the clock cannot be compared. Blanks
/// between the entries are of no meaning, and the offsets in the file stay as they are.
void blank_creation_date(QByteArray& pdf) {
  const qsizetype begin = pdf.indexOf("/CreationDate (");
  if (begin < 0) return;
  const qsizetype end = pdf.indexOf(')', begin);
  if (end > begin) std::fill(pdf.begin() + begin, pdf.begin() + end + 1, ' ');
}

QByteArray pdf(const Picture& picture) {
  QByteArray bytes;
  QBuffer buffer(&bytes);
  if (!buffer.open(QIODevice::WriteOnly)) return {};
  QPdfWriter writer(&buffer);
  writer.setTitle(QString::fromStdString(picture.title));
  writer.setCreator(QStringLiteral("Vantrel"));
  writer.setResolution(kPdfResolution);
  const QSizeF points =
      QSizeF(picture.size.width, picture.size.height) * (kPointsPerInch / kPixelsPerInch);
  writer.setPageSize(QPageSize(points, QPageSize::Point, QString(), QPageSize::ExactMatch));
  writer.setPageMargins(QMarginsF(0, 0, 0, 0));
  if (!paint(writer, picture, kPdfResolution / kPixelsPerInch)) return {};
  blank_creation_date(bytes);
  return bytes;
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
  if (!gui_.ensure()) return "Pictures need the toolkit's graphics";
  const QByteArray bytes = format->encode(picture);
  if (bytes.isEmpty()) return "The picture could not be drawn";
  return write_file(file,
                    std::string_view(bytes.constData(), static_cast<std::size_t>(bytes.size())));
}

}  // namespace vantrel
