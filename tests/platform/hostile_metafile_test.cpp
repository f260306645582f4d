// Files that are made to hang the program: 100 MB of records each. Reading one for its texts and
// drawing it on a painter must end within two seconds of processor time.

#include <gtest/gtest.h>

#include <QImage>
#include <QPainter>
#include <ctime>

#include "core/plain_ports.h"
#include "outputs/metafile_player.h"
#include "outputs/metafile_writer.h"
#include "outputs/validate_schematic_texts.h"
#include "platform/gui_application.h"
#include "platform/painter_device_context.h"

namespace vantrel {
namespace {

using Words = std::vector<std::uint16_t>;
using Bytes = std::vector<std::uint8_t>;

#if defined(__SANITIZE_ADDRESS__) || !defined(NDEBUG)
constexpr std::size_t kFileSize = 4U << 20U;  // checked for what it reads, not for its time
constexpr double kMostSeconds = 60;
#else
constexpr std::size_t kFileSize = 100U << 20U;
constexpr double kMostSeconds = 2;
#endif

/// A picture of 3000 x 2000 units with an object or two, filled up with the same records.
Bytes flood(const Words& records) {
  MetafileWriter head(3000, 2000, 300);
  head.brush({255, 0, 0, 255});
  head.pen({}, 40, MetafileLine::Dot);
  Bytes file = head.bytes();
  constexpr std::ptrdiff_t kLastRecord = 6;  // which would end the picture
  file.erase(file.end() - kLastRecord, file.end());
  Bytes block;
  for (const std::uint16_t word : records) {
    block.push_back(static_cast<std::uint8_t>(word & 0xFFU));
    block.push_back(static_cast<std::uint8_t>(word >> 8U));
  }
  file.reserve(kFileSize + block.size());
  while (file.size() < kFileSize) file.insert(file.end(), block.begin(), block.end());
  return file;
}

/// A polygon that goes to and fro at random.
Words tangle(std::uint16_t points) {
  Words words{static_cast<std::uint16_t>(4 + 2 * points), 0, 0x0324, points};
  std::uint32_t random = 1;
  for (int i = 0; i < 2 * points; ++i) {
    random = random * 1103515245U + 12345U;
    words.push_back(static_cast<std::uint16_t>((random >> 16U) % (i % 2 == 0 ? 3000U : 2000U)));
  }
  return words;
}

/// Fonts of 200 sizes, each selected for two letters.
Words fonts() {
  Words words;
  for (std::uint16_t i = 0; i < 200; ++i) {
    Words font(28, 0);
    font[0] = 28;
    font[2] = 0x02FB;
    font[3] = static_cast<std::uint16_t>(-i * 7 - 1);
    words.insert(words.end(), font.begin(), font.end());
    const std::uint16_t slot = i + 3;
    const Words use{4, 0, 0x012D, slot, 8, 0, 0x0A32, 1000, 100, 2, 0, 0x4142};
    words.insert(words.end(), use.begin(), use.end());
  }
  return words;
}

TEST(HostileMetafile, EndsWithinTwoSeconds) {
  HeadlessGui gui;
  gui.ensure();
  const std::uint16_t far = 0x8001;
  const struct {
    const char* what;
    Words records;
  } kinds[] = {
      {"saves", {3, 0, 0x001E}},
      {"saves and restores", {3, 0, 0x001E, 3, 0, 0x001E, 4, 0, 0x0127, 0xFFFF}},
      {"records that are not known", {3, 0, 0x1234}},
      {"records without size", {0, 0, 0x0213, 0, 0}},
      {"objects", {8, 0, 0x02FA, 0, 1, 0, 0, 0}},
      {"lines", {5, 0, 0x0213, 1999, 2999, 5, 0, 0x0213, 3, 5}},
      {"dotted ellipses", {7, 0, 0x0418, 2000, 3000, 0, 0}},
      {"far places", {5, 0, 0x020C, 1, 1, 7, 0, 0x0418, 0x7FFF, 0x7FFF, far, far}},
      {"texts", {11, 0, 0x0A32, 1000, 100, 8, 0, 0x4142, 0x4344, 0x4546, 0x4748}},
      {"fonts", fonts()},
      {"tangled polygons", tangle(300)},
      {"huge polygons", tangle(10000)},
  };
  SteadyClock clock;
  const PlayLimits limits{.clock = &clock};
  QImage image(1200, 900, QImage::Format_RGB32);
  for (const auto& kind : kinds) {
    const Bytes file = flood(kind.records);
    image.fill(Qt::white);
    QPainter painter(&image);
    PainterDeviceContext surface(painter, {1200, 900});
    const std::clock_t begin = std::clock();
    const auto texts = read_schematic_texts(file);
    play_metafile(file, surface, {0, 0, 1200, 900}, limits);
    const double seconds = static_cast<double>(std::clock() - begin) / CLOCKS_PER_SEC;
    EXPECT_TRUE(texts.has_value()) << kind.what;
    EXPECT_LT(seconds, kMostSeconds) << kind.what;
    RecordProperty(kind.what, std::to_string(seconds));
  }
}

}  // namespace
}  // namespace vantrel
