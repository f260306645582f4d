#include "platform/report_export.h"

#include <QByteArray>
#include <QFontMetricsF>
#include <QPageLayout>
#include <QPainter>
#include <string_view>

#include "core/file_writer.h"
#include "core/text_parsing.h"
#include "outputs/report_html.h"
#include "outputs/report_layout.h"
#include "platform/painter_device_context.h"
#include "platform/pdf_document.h"
#include "platform/print_target.h"

namespace vantrel {

namespace {

/// Measures at a size at which nothing is rounded.
Size measured(const Font& font, std::string_view words) {
  constexpr int kEm = 100;
  QFont measuring(QString::fromStdString(font.face));
  measuring.setPixelSize(kEm);
  measuring.setBold(font.bold);
  measuring.setItalic(font.italic);
  measuring.setHintingPreference(QFont::PreferNoHinting);
  const QFontMetricsF metrics(measuring);
  const QString text = QString::fromUtf8(words.data(), static_cast<qsizetype>(words.size()));
  return {metrics.horizontalAdvance(text) * font.size / kEm, metrics.height() * font.size / kEm};
}

/// Draws a picture of the report into its box.
void paint_picture(QPainter& painter, const PlacedPicture& placed) {
  const Picture& picture = *placed.picture;
  painter.save();
  painter.translate(placed.box.left, placed.box.top);
  painter.scale(placed.box.width / picture.size.width, placed.box.height / picture.size.height);
  PainterDeviceContext surface(painter, picture.size);
  picture.draw(surface);
  painter.restore();
}

void paint_page(QPainter& painter, const ReportPage& page) {
  painter.save();
  painter.scale(PdfDocument::kScale, PdfDocument::kScale);
  PainterDeviceContext surface(painter, page.size);
  draw_report_page(page, surface,
                   [&](const PlacedPicture& placed) { paint_picture(painter, placed); });
  painter.restore();
}

/// A sheet without margins, which the report has of its own.
QPageLayout sheet_of(const ReportPage& page, PaperSetup paper) {
  paper.orientation = PaperOrientation::Automatic;
  paper.left = paper.top = paper.right = paper.bottom = 0;
  return page_layout(paper, page.size.width > page.size.height);
}

QByteArray pdf(const ReportDocument& report, const PaperSetup& paper) {
  const auto pages = report_pages(report, upright_sheet(paper), measured);
  PdfDocument document(report.title + ": " + report.subtitle, sheet_of(pages.front(), paper));
  QPainter painter;
  if (!painter.begin(&document.writer())) return {};
  for (const ReportPage& page : pages) {
    if (&page != &pages.front()) {
      document.writer().setPageLayout(sheet_of(page, paper));
      if (!document.writer().newPage()) return {};
    }
    paint_page(painter, page);
  }
  if (!painter.end()) return {};
  return document.take();
}

bool has_extension(const std::filesystem::path& file, std::string_view extension) {
  return equal_ignoring_case(file.extension().string(), extension);
}

bool is_html(const std::filesystem::path& file) {
  return has_extension(file, ".html") || has_extension(file, ".htm");
}

}  // namespace

std::optional<std::string> ReportExport::refusal(const std::filesystem::path& file) {
  if (is_html(file) || has_extension(file, ".pdf")) return std::nullopt;
  return "A report is written as pdf or html, not as '" + file.extension().string() + "'";
}

std::optional<std::string> ReportExport::write(const std::filesystem::path& file,
                                               const ReportDocument& report,
                                               const PaperSetup& paper) {
  if (auto why = refusal(file)) return why;
  if (!gui_.ensure()) return "Reports need the toolkit's graphics";
  if (is_html(file)) return write_file(file, report_html(report, measured));
  const QByteArray bytes = pdf(report, paper);
  if (bytes.isEmpty()) return "The report could not be drawn";
  return write_file(file,
                    std::string_view(bytes.constData(), static_cast<std::size_t>(bytes.size())));
}

}  // namespace vantrel
