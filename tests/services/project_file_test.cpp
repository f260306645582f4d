#include "services/project_file.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <string>

#include "core/code_page.h"

namespace vantrel {
namespace {

using Bytes = std::vector<std::uint8_t>;

ProjectData small_project() {
  ProjectData data;
  data.screenCount = 9;
  data.selection = {1, 2, 300, -1};
  data.visible = {true, false, true, false, false, false, true};
  data.values = {{1, "LValue", -1, true, "2.5"}, {2, "ind_inductance", 1, false, "0"}};
  data.lists = {{2, "ind_core", -1, 258}};
  return data;
}

// Offsets worked out by hand: 1 version, 4 screen count, 4 x 4 selection, 7 visible, 4 value count
// are 32 bytes; a value is 1 + 32 + 4 + 1 + 64 = 102, so the list count stands at 32 + 2 x 102 =
// 236, and a list of 1 + 32 + 4 + 4 = 41 ends the file at 240 + 41 = 281.
constexpr std::size_t kValueCount = 28;
constexpr std::size_t kFirstValue = 32;
constexpr std::size_t kSecondValue = 134;
constexpr std::size_t kListCount = 236;
constexpr std::size_t kList = 240;
constexpr std::size_t kLength = 281;

Bytes padded(const std::string& text, std::size_t width) {
  Bytes bytes(text.begin(), text.end());
  bytes.resize(width, 0x20);
  return bytes;
}

struct Piece {
  std::size_t offset;
  Bytes bytes;
};

TEST(ProjectFileTest, EncodesEveryFieldAtItsOffset) {
  const Bytes file = encode(small_project());
  ASSERT_EQ(file.size(), kLength);
  const std::vector<Piece> pieces = {
      {0, {2}},
      {1, {9, 0, 0, 0}},
      {5, {1, 0, 0, 0}},
      {9, {2, 0, 0, 0}},
      {13, {0x2C, 0x01, 0, 0}},
      {17, {0xFF, 0xFF, 0xFF, 0xFF}},
      {21, {1, 0, 1, 0, 0, 0, 1}},
      {kValueCount, {2, 0, 0, 0}},
      {kFirstValue, {1}},
      {33, padded("LValue", 32)},
      {65, {0xFF, 0xFF, 0xFF, 0xFF}},
      {69, {1}},
      {70, padded("2.5", 64)},
      {kSecondValue, {2}},
      {135, padded("ind_inductance", 32)},
      {167, {1, 0, 0, 0}},
      {171, {0}},
      {172, padded("0", 64)},
      {kListCount, {1, 0, 0, 0}},
      {kList, {2}},
      {241, padded("ind_core", 32)},
      {273, {0xFF, 0xFF, 0xFF, 0xFF}},
      {277, {0x02, 0x01, 0, 0}},
  };
  std::size_t covered = 0;
  for (const Piece& piece : pieces) {
    EXPECT_EQ(piece.offset, covered);
    EXPECT_TRUE(std::equal(piece.bytes.begin(), piece.bytes.end(),
                           file.begin() + static_cast<std::ptrdiff_t>(piece.offset)))
        << "at offset " << piece.offset;
    covered += piece.bytes.size();
  }
  EXPECT_EQ(covered, kLength);
}

TEST(ProjectFileTest, DecodesWhatItEncoded) {
  const auto decoded = decode(encode(small_project()));
  ASSERT_TRUE(std::holds_alternative<ProjectData>(decoded));
  EXPECT_EQ(std::get<ProjectData>(decoded), small_project());
}

TEST(ProjectFileTest, CutsLongTexts) {
  ProjectData data = small_project();
  data.values = {{0, std::string(40, 'n'), -1, false, std::string(63, 'x') + "éy"}};
  const auto decoded = decode(encode(data));
  ASSERT_TRUE(std::holds_alternative<ProjectData>(decoded));
  const ValueRecord& record = std::get<ProjectData>(decoded).values.front();
  EXPECT_EQ(record.name, std::string(32, 'n'));
  // 64 bytes of the code page: "é" takes one of them, though two in UTF-8.
  EXPECT_EQ(record.text, std::string(63, 'x') + "é");
}

TEST(ProjectFileTest, RefusesEveryPrefix) {
  const Bytes file = encode(small_project());
  for (std::size_t length = 0; length < file.size(); ++length) {
    EXPECT_TRUE(std::holds_alternative<ProjectError>(decode(std::span(file).first(length))))
        << length << " bytes";
  }
}

TEST(ProjectFileTest, RefusesWhatIsNotSound) {
  struct Case {
    const char* what;
    std::size_t offset;
    Bytes bytes;
  };
  const Bytes none = {0, 0, 0, 0};
  const Bytes minus_one = {0xFF, 0xFF, 0xFF, 0xFF};
  const Bytes most = {0xFF, 0xFF, 0xFF, 0x7F};
  const std::vector<Case> cases = {
      {"version 0", 0, {0}},
      {"version 3", 0, {3}},
      {"no values", kValueCount, none},
      {"one value less", kValueCount, {1, 0, 0, 0}},
      {"one value more", kValueCount, {3, 0, 0, 0}},
      {"-1 values", kValueCount, minus_one},
      {"most values", kValueCount, most},
      {"no lists", kListCount, none},
      {"-1 lists", kListCount, minus_one},
      {"most lists", kListCount, most},
      {"screen 7 of a value", kFirstValue, {7}},
      {"screen 255 of a value", kSecondValue, {255}},
      {"screen 7 of a list", kList, {7}},
      {"a byte too many", kLength, {0}},
  };
  for (const Case& test : cases) {
    Bytes file = encode(small_project());
    file.resize(std::max(file.size(), test.offset + test.bytes.size()));
    std::copy(test.bytes.begin(), test.bytes.end(),
              file.begin() + static_cast<std::ptrdiff_t>(test.offset));
    EXPECT_TRUE(std::holds_alternative<ProjectError>(decode(file))) << test.what;
  }
}

TEST(ProjectFileTest, ScreenCountIsIgnored) {
  Bytes file = encode(small_project());
  std::fill(file.begin() + 1, file.begin() + 5, std::uint8_t{0xFF});
  EXPECT_TRUE(std::holds_alternative<ProjectData>(decode(file)));
}

TEST(ProjectFileTest, OldFieldNameIsKnownInVersion1Only) {
  ProjectData data = small_project();
  data.values[0].name = "TV6114_DCOMP";
  Bytes file = encode(data);
  EXPECT_EQ(std::get<ProjectData>(decode(file)).values[0].name, "TV6114_DCOMP");
  file[0] = 1;
  EXPECT_EQ(std::get<ProjectData>(decode(file)).values[0].name, "TV6104_DCOMP");
}

TEST(CodePageTest, ConvertsBothWays) {
  struct Case {
    const char* utf8;
    const char* bytes;
  };
  const std::vector<Case> cases = {
      {"T5 28W", "T5 28W"},
      {"€", "\x80"},
      {"ÿ", "\xFF"},
      {"Ÿ", "\x9F"},
      {"„“”–—™", "\x84\x93\x94\x96\x97\x99"},
      {"\u00A0", "\xA0"},
      {"25 °C µH",
       "25 \xB0"
       "C \xB5"
       "H"},
      {"\u0081", "\x81"},
      {"Žž", "\x8E\x9E"},
  };
  for (const Case& test : cases) {
    EXPECT_EQ(to_code_page(test.utf8), test.bytes) << test.utf8;
    EXPECT_EQ(from_code_page(test.bytes), test.utf8) << test.utf8;
  }
}

TEST(CodePageTest, WritesAQuestionMarkForWhatItLacks) {
  EXPECT_EQ(to_code_page("Ω"), "?");
  EXPECT_EQ(to_code_page("→日😀"), "???");
  EXPECT_EQ(to_code_page("\u0080"), "?") << "the byte 0x80 is the euro sign";
  EXPECT_EQ(to_code_page("a\xFFz"), "a?z");
  EXPECT_EQ(to_code_page("a\xC3"), "a?") << "cut in the middle of a character";
  EXPECT_EQ(to_code_page("\xC0\xAF"), "??") << "an overlong spelling";
  EXPECT_EQ(to_code_page("\xE0\x80\xAF"), "???") << "an overlong spelling";
}

TEST(CodePageTest, EveryByteComesBack) {
  std::string all;
  for (int byte = 0; byte < 256; ++byte) all += static_cast<char>(byte);
  EXPECT_EQ(to_code_page(from_code_page(all)), all);
}

}  // namespace
}  // namespace vantrel
