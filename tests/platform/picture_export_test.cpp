#include "platform/picture_export.h"

#include <gtest/gtest.h>

#include <QImage>
#include <clocale>
#include <cstdlib>
#include <fstream>
#include <iterator>
#include <string>

#include "core/fault.h"
#include "core/number_text.h"
#include "operating/operating_fixture.h"
#include "support/fixtures.h"
#include "waveforms/operating_points_graph.h"

namespace vantrel {
namespace {

std::string content(const std::filesystem::path& file) {
  std::ifstream stream(file, std::ios::binary);
  return {std::istreambuf_iterator<char>(stream), std::istreambuf_iterator<char>()};
}

std::uint32_t big_endian(const std::string& bytes, std::size_t at) {
  std::uint32_t value = 0;
  for (std::size_t i = 0; i < 4; ++i) {
    value = value << 8U | static_cast<unsigned char>(bytes.at(at + i));
  }
  return value;
}

/// Puts the process under a locale with a decimal comma while it lives, its environment too.
class CommaLocale {
 public:
  CommaLocale() : before_(std::setlocale(LC_ALL, nullptr)) {
    const char* environment = std::getenv("LC_ALL");
    if (environment != nullptr) environment_ = environment;
    ::setenv("LC_ALL", "de_DE.UTF-8", 1);
    found_ = std::setlocale(LC_ALL, "de_DE.UTF-8") != nullptr;
  }
  ~CommaLocale() {
    std::setlocale(LC_ALL, before_.c_str());
    if (environment_.empty()) {
      ::unsetenv("LC_ALL");
    } else {
      ::setenv("LC_ALL", environment_.c_str(), 1);
    }
  }
  CommaLocale(const CommaLocale&) = delete;
  CommaLocale& operator=(const CommaLocale&) = delete;
  bool found() const { return found_; }

 private:
  std::string before_;
  std::string environment_;
  bool found_ = false;
};

/// The graph of the default design, calculated.
class PictureExportTest : public OperatingFixture {
 protected:
  void SetUp() override { ASSERT_TRUE(points.Calculate(true)); }
  std::filesystem::path path(const std::string& name) const { return folder.path() / name; }
  std::string exported(const std::string& name) {
    PictureExport pictures;
    EXPECT_EQ(pictures.write(path(name), graph.picture()), std::nullopt);
    return content(path(name));
  }

  test::TemporaryFolder folder;
  GraphOP graph{advanced, missing, messages, [this](int slot) { return names[slot]; }};
};

TEST_F(PictureExportTest, SvgHoldsTheTextsAsText) {
  const std::string svg = exported("graph.svg");
  EXPECT_EQ(svg.rfind("<?xml", 0), 0U);
  EXPECT_NE(svg.find("viewBox=\"0 0 1080 600\""), std::string::npos);
  EXPECT_NE(svg.find("<title>Operating Points Graph</title>"), std::string::npos);
  EXPECT_NE(svg.find("</svg>"), std::string::npos);
  for (const char* text : {"Frequency (Khz)", "V Lamp / V in", "L = 5.30 mH,  C = 3.30 nF",
                           "running, lamp 994.6 Ohm", "Preheat", "Ignition", "Run"}) {
    EXPECT_NE(svg.find('>' + std::string(text) + "</text>"), std::string::npos) << text;
  }
}

TEST_F(PictureExportTest, BitmapsHaveTheSizeOfThePicture) {
  const std::string png = exported("graph.png");
  EXPECT_EQ(png.substr(0, 8), "\x89PNG\r\n\x1a\n");
  EXPECT_EQ(big_endian(png, 16), 1080U);
  EXPECT_EQ(big_endian(png, 20), 600U);
  const std::string bmp = exported("Operating Points Graph.BMP");
  EXPECT_EQ(bmp.substr(0, 2), "BM");
  const QImage from_bmp(QString::fromStdString(path("Operating Points Graph.BMP").string()));
  const QImage from_png(QString::fromStdString(path("graph.png").string()));
  ASSERT_EQ(from_bmp.size(), QSize(1080, 600));
  EXPECT_EQ(from_bmp.convertToFormat(QImage::Format_RGB32),
            from_png.convertToFormat(QImage::Format_RGB32));
  // The running lamp's dot is green: 40.1 kHz on the axis to 86.1 kHz, at a gain of 0.742.
  const int x = static_cast<int>(50 + 35100.0 / 81100 * 1020);
  const int y = static_cast<int>(560 - 546.0 / 7 * 0.742);
  EXPECT_EQ(from_png.pixelColor(x, y), QColor(0x1B, 0x7A, 0x3A));

  Picture twice = graph.picture();
  twice.scale = 2;
  PictureExport pictures;
  EXPECT_EQ(pictures.write(path("twice.png"), twice), std::nullopt);
  EXPECT_EQ(big_endian(content(path("twice.png")), 16), 2160U);
}

TEST_F(PictureExportTest, PdfIsAPageOfThePicturesSizeWithoutADate) {
  const std::string pdf = exported("graph.pdf");
  EXPECT_EQ(pdf.rfind("%PDF-1.", 0), 0U);
  EXPECT_NE(pdf.find("/MediaBox [0 0 810.000000 450.000000]"), std::string::npos);
  EXPECT_EQ(pdf.find("CreationDate"), std::string::npos);
  const std::size_t start = pdf.rfind("startxref\n");
  ASSERT_NE(start, std::string::npos);
  const std::size_t digits = start + 10;
  const auto offset = parse_number(pdf.substr(digits, pdf.find('\n', digits) - digits));
  ASSERT_TRUE(offset);
  EXPECT_EQ(pdf.compare(static_cast<std::size_t>(*offset), 4, "xref"), 0);
}

TEST_F(PictureExportTest, TheDesktopsLocaleChangesNoByte) {
  for (const char* name : {"graph.svg", "graph.png", "graph.bmp", "graph.pdf"}) {
    const std::string plain = exported(name);
    const CommaLocale comma;
    if (!comma.found()) GTEST_SKIP() << "no locale with a decimal comma is installed";
    EXPECT_EQ(exported(name), plain) << name;
  }
}

TEST_F(PictureExportTest, TheProcessKeepsItsLocale) {
  // The toolkit takes the locale over once in a process; CTest runs this case in one of its own.
  const CommaLocale comma;
  std::setlocale(LC_ALL, "C");  // as the command line runs on such a desktop
  exported("graph.png");
  EXPECT_STREQ(std::setlocale(LC_ALL, nullptr), "C");
}

TEST_F(PictureExportTest, FailuresGiveTheReason) {
  PictureExport pictures;
  const Picture picture = graph.picture();
  EXPECT_EQ(pictures.write(path("graph.tiff"), picture),
            "No picture format of the extension '.tiff'; use svg, png, bmp or pdf");
  EXPECT_FALSE(std::filesystem::exists(path("graph.tiff")));
  EXPECT_EQ(pictures.write(path("none") / "graph.png", picture), "No such file or directory");
  Picture huge = picture;
  huge.scale = 1e6;
  EXPECT_EQ(pictures.write(path("graph.png"), huge), "The picture could not be drawn");

  const PrintJob torn{"Job", false,
                      [](DeviceContext&, Size) -> std::vector<PrintPage> { throw Fault("jam"); }};
  EXPECT_EQ(pictures.writePages(path("pages.pdf"), torn, {}), "The pages could not be drawn");
  EXPECT_EQ(pictures.writePages(path("pages.bmp"), torn, {}),
            "Pages are written as pdf, not as '.bmp'");
  EXPECT_FALSE(std::filesystem::exists(path("pages.pdf")));
}

}  // namespace
}  // namespace vantrel
