// Metafiles of another program: LibreOffice exports a drawing as a metafile and as a picture, and
// the metafile that is played here must look like that picture. Left out where it is missing.

#include <gtest/gtest.h>

#include <QImage>
#include <QPainter>
#include <QProcess>
#include <QStandardPaths>
#include <cstdlib>
#include <fstream>
#include <iterator>

#include "outputs/metafile_player.h"
#include "platform/gui_application.h"
#include "platform/painter_device_context.h"
#include "support/fixtures.h"

namespace vantrel {
namespace {

constexpr int kTimeout = 240000;  // ms

/// Converts the drawing; false when the program fails.
bool convert(const QString& office, const QString& folder, const QString& form) {
  QProcess process;
  process.start(office, {"-env:UserInstallation=file://" + folder + "/profile", "--headless",
                         "--convert-to", form, "--outdir", folder, VANTREL_OFFICE_DRAWING});
  return process.waitForFinished(kTimeout) && process.exitCode() == 0;
}

QImage played(const std::filesystem::path& file, QSize size) {
  std::ifstream stream(file, std::ios::binary);
  const std::vector<std::uint8_t> bytes((std::istreambuf_iterator<char>(stream)), {});
  QImage image(size, QImage::Format_RGB32);
  image.fill(Qt::white);
  QPainter painter(&image);
  const Size area{static_cast<double>(size.width()), static_cast<double>(size.height())};
  PainterDeviceContext surface(painter, area);
  EXPECT_TRUE(play_metafile(bytes, surface, {0, 0, area.width, area.height}));
  return image;
}

QImage on_paper(const QImage& drawn) {
  QImage paper(drawn.size(), QImage::Format_RGB32);
  paper.fill(Qt::white);
  QPainter(&paper).drawImage(0, 0, drawn);
  return paper;
}

/// Share of the pixels, after a blur of six by six, that differ by more than a quarter of the way
/// from black to white.
double difference(const QImage& one, const QImage& other) {
  constexpr int kBlur = 6;
  constexpr int kNoticeable = 64;
  const auto blurred = [](const QImage& image) {
    return image.scaled(image.width() / kBlur, image.height() / kBlur, Qt::IgnoreAspectRatio,
                        Qt::SmoothTransformation);
  };
  const QImage a = blurred(one);
  const QImage b = blurred(other);
  int count = 0;
  for (int y = 0; y < a.height(); ++y) {
    for (int x = 0; x < a.width(); ++x) {
      const QRgb p = a.pixel(x, y);
      const QRgb q = b.pixel(x, y);
      const int far = std::max({std::abs(qRed(p) - qRed(q)), std::abs(qGreen(p) - qGreen(q)),
                                std::abs(qBlue(p) - qBlue(q))});
      if (far > kNoticeable) ++count;
    }
  }
  return static_cast<double>(count) / (a.width() * a.height());
}

TEST(OfficeMetafile, LooksAsItsProgramShowsIt) {
  const QString office = QStandardPaths::findExecutable("soffice");
  if (office.isEmpty()) GTEST_SKIP() << "soffice is missing";
  HeadlessGui gui;
  gui.ensure();
  const test::TemporaryFolder home;
  const QString folder = QString::fromStdString(home.path().string());
  ASSERT_TRUE(convert(office, folder, "wmf"));
  ASSERT_TRUE(convert(office, folder, "png"));
  const QImage shown = on_paper(QImage(folder + "/drawing.png"));
  ASSERT_GT(shown.width(), 300);
  const QImage drawn = played(home.path() / "drawing.wmf", shown.size());
  if (const char* keep = std::getenv("VANTREL_KEEP_PICTURES")) {
    shown.save(QString(keep) + "/shown.png");
    drawn.save(QString(keep) + "/drawn.png");
  }
  EXPECT_LT(difference(shown, drawn), 0.01);
  // The measure does tell a blank sheet from the drawing.
  QImage blank(shown.size(), QImage::Format_RGB32);
  blank.fill(Qt::white);
  EXPECT_GT(difference(shown, blank), 0.1);
}

}  // namespace
}  // namespace vantrel
