#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <fstream>
#include <iterator>
#include <sstream>

#include "core/number_text.h"
#include "drawing_builder/board_files.h"
#include "support/fixtures.h"

namespace vantrel::drawing {
namespace {

std::string first_problem(std::string_view text) {
  Problems problems;
  read_board(split_lines(text, "board"), problems);
  return problems.empty() ? "" : problems.list().front().text;
}

TEST(Board, RefusesWhatCannotBeMade) {
  constexpr std::string_view kPads = "size 40 20\npad - A A 5 10 2 1\npad - B A 15 10 2 1\n";
  const std::pair<std::string_view, std::string_view> cases[]{
      {"track A 1 5 10 15 10", ""},
      {"", "copper of net 'A' hangs in the air"},
      {"track A 1 5 10 15 10\npad - C C 10 11 1.5 0.8", "nets 'A' and 'C' are too close"},
      {"track A 1 5 10 15 10\npad - C C 30 19.5 1.5 0.8", "copper is too near to the edge"},
      {"track A 1 5 10 15 10\npad - C C 30 10 1.5 1.2", "the hole leaves too little of the pad"},
      {"track A 1 5 10", "the line cannot be read"},
  };
  for (const auto& [lines, expected] : cases) {
    EXPECT_EQ(first_problem(std::string(kPads) + std::string(lines)), expected) << lines;
  }
}

/// Flashes and drawn lines of an RS-274X file with their aperture, in millimetres.
struct Gerber {
  std::map<int, double> apertures;
  std::multiset<std::tuple<double, double, double>> flashes;
  double drawn = 0;  ///< Length of all lines.
};

/// The whole number behind a letter of a line.
double number_behind(const std::string& line, char letter) {
  return static_cast<double>(std::stol(line.substr(line.find(letter) + 1)));
}

/// `unit` is the length of one in the file, `apertures` that of one of their diameters.
Gerber parse(const std::string& text, double unit = 1e-6, double apertures = 1) {
  Gerber result;
  EXPECT_TRUE(text.ends_with("M02*\n"));
  double size = 0;
  Spot last;
  std::istringstream lines(text);
  for (std::string line; std::getline(lines, line);) {
    if (line.starts_with("%ADD")) {
      const std::size_t comma = line.find("C,");
      const std::string diameter = line.substr(comma + 2, line.find('*') - comma - 2);
      result.apertures[std::stoi(line.substr(4))] = parse_number(diameter).value_or(0) * apertures;
    } else if (line.starts_with('D') || line.starts_with("G54D")) {
      const auto number = static_cast<int>(number_behind(line, 'D'));
      EXPECT_TRUE(result.apertures.contains(number)) << line;
      size = result.apertures[number];
    } else if (line.find('X') != std::string::npos && !line.starts_with("G04")) {
      const Spot at{number_behind(line, 'X') * unit, number_behind(line, 'Y') * unit};
      if (line.ends_with("D03*")) result.flashes.insert({at.x, at.y, size});
      if (line.ends_with("D01*")) result.drawn += std::abs(at.x - last.x) + std::abs(at.y - last.y);
      last = at;
    }
  }
  return result;
}

TEST(Board, ShippedFilesReadBackAsTheBoard) {
  Problems problems;
  const Board board = read_board(read_lines(VANTREL_DRAWINGS "/board.txt", problems), problems);
  for (const Problem& problem : problems.list()) ADD_FAILURE() << to_string(problem);
  const std::map<std::string, std::string> files = board_files(board);
  EXPECT_EQ(files.size(), 8U);
  for (const char* name : {"tvboard1.gbl", "tvboard1.gto"}) {
    EXPECT_NE(files.at(name).find("%FSLAX46Y46*%\n%MOMM*%\n"), std::string::npos) << name;
  }
  const Gerber copper = parse(files.at("tvboard1.gbl"));
  std::multiset<std::tuple<double, double, double>> pads;
  for (const Board::Pad& pad : board.pads) pads.insert({pad.at.x, pad.at.y, pad.diameter});
  EXPECT_EQ(copper.flashes, pads);
  double tracks = 0;
  for (const Board::Track& track : board.tracks) {
    for (std::size_t i = 1; i < track.points.size(); ++i) {
      const Spot piece = track.points[i] - track.points[i - 1];
      tracks += std::abs(piece.x) + std::abs(piece.y);
    }
  }
  EXPECT_NEAR(copper.drawn, tracks, 1e-6);
  EXPECT_NEAR(parse(files.at("tvboard1.gm1")).drawn, 2 * (70 + 44), 1e-6);
  EXPECT_EQ(parse(files.at("tvboard1.gbs")).flashes.size(), board.pads.size());
  EXPECT_GT(parse(files.at("tvboard1.gto")).drawn, 200);
  EXPECT_GT(parse(files.at("tvboard1.gbo")).drawn, 10);

  const std::string& drill = files.at("tvboard1.txt");
  EXPECT_TRUE(drill.starts_with("M48\nMETRIC,TZ\nT1C0.800\n"));
  EXPECT_TRUE(drill.ends_with("T0\nM30\n"));
  EXPECT_EQ(static_cast<std::size_t>(std::ranges::count(drill, 'X')), board.pads.size());
  EXPECT_NE(drill.find("X65.000Y34.000"), std::string::npos);
  EXPECT_EQ(files.at("tvboard1.drl"), drill);
}

std::string content(const std::filesystem::path& path) {
  std::ifstream file(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(file), {}};
}

/// What another program makes of a file of the board, in its own form; empty when it complains.
std::string read_by_gerbv(const test::TemporaryFolder& home, const std::string& name,
                          const std::string& bytes, const char* form) {
  home.write(name, bytes);
  const std::string folder = home.path().string() + "/";
  const std::string command = "gerbv -x " + std::string(form) + " -o '" + folder + "out' '" +
                              folder + name + "' >'" + folder + "said' 2>&1";
  EXPECT_EQ(std::system(command.c_str()), 0) << content(home.path() / "said");
  EXPECT_EQ(content(home.path() / "said"), "") << name;
  return content(home.path() / "out");
}

TEST(Board, AnotherProgramReadsTheSame) {
  if (std::system("command -v gerbv >/dev/null") != 0) GTEST_SKIP() << "gerbv is missing";
  constexpr double kInch = 25.4;
  constexpr double kTolerance = 0.0026;  // a ten-thousandth of an inch
  Problems problems;
  const Board board = read_board(read_lines(VANTREL_DRAWINGS "/board.txt", problems), problems);
  const test::TemporaryFolder home;
  for (const auto& [name, bytes] : board_files(board)) {
    if (name.ends_with(".drr")) continue;  // a report for people
    const bool drill = bytes.starts_with("M48");
    const std::string read = read_by_gerbv(home, name, bytes, drill ? "drill" : "rs274x");
    if (drill) {
      std::istringstream lines(read);
      std::size_t holes = 0;
      for (std::string line; std::getline(lines, line);) {
        if (!line.starts_with('X')) continue;
        ++holes;
        const Spot at{number_behind(line, 'X') * kInch / 1e4,
                      number_behind(line, 'Y') * kInch / 1e4};
        EXPECT_TRUE(std::ranges::any_of(board.pads, [&](const Board::Pad& pad) {
          return std::hypot(pad.at.x - at.x, pad.at.y - at.y) < 2 * kTolerance;
        })) << line;
      }
      EXPECT_EQ(holes, board.pads.size()) << name;
      continue;
    }
    const Gerber ours = parse(bytes);
    const Gerber theirs = parse(read, kInch / 1e6, kInch);
    EXPECT_NEAR(ours.drawn, theirs.drawn, 1e-3 * ours.drawn + 1e-9) << name;
    ASSERT_EQ(ours.flashes.size(), theirs.flashes.size()) << name;
    for (const auto& [x, y, size] : ours.flashes) {
      EXPECT_TRUE(std::ranges::any_of(theirs.flashes,
                                      [&](const auto& flash) {
                                        return std::abs(std::get<0>(flash) - x) < kTolerance &&
                                               std::abs(std::get<1>(flash) - y) < kTolerance &&
                                               std::abs(std::get<2>(flash) - size) < kTolerance;
                                      }))
          << name << ": " << x << ", " << y;
    }
  }
}

TEST(Board, LayerPicturesAreWholeGifs) {
  Problems problems;
  const Board board = read_board(split_lines("size 4 2\npad - A A 2 1 1 0.4", "board"), problems);
  for (const auto& [name, bytes] : layer_pictures(board)) {
    // 41 x 21 pixels in blocks of 126 with a clear code each, one table of 128 colours.
    const std::size_t pixels = 41 * 21;
    const std::size_t blocks = (pixels + 125) / 126;
    EXPECT_EQ(bytes.size(), 13 + 384 + 10 + 1 + pixels + 2 * blocks + 1 + 2) << name;
    EXPECT_EQ(std::string(bytes.begin(), bytes.begin() + 6), "GIF89a");
    EXPECT_EQ(bytes[6], 41);
    EXPECT_EQ(bytes[8], 21);
    EXPECT_EQ(bytes.back(), ';');
  }
}

}  // namespace
}  // namespace vantrel::drawing
