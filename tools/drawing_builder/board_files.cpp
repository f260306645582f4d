#include "drawing_builder/board_files.h"

#include <cmath>
#include <set>

#include "core/number_text.h"
#include "drawing_builder/board_layers.h"

namespace vantrel::drawing {

namespace {

constexpr double kPixels = 10;  ///< Of the pictures, to a millimetre.
constexpr int kFirstAperture = 10;
constexpr double kMillion = 1e6;  ///< Coordinates have six decimals.

std::string coordinate(double millimetres) {
  return std::to_string(std::lround(millimetres * kMillion));
}

/// Apertures are numbered by size from 10 on.
std::map<double, int> apertures(const Layer& layer) {
  std::map<double, int> result;
  for (const Layer::Disc& disc : layer.discs) result[disc.diameter] = 0;
  for (const Layer::Stroke& stroke : layer.strokes) result[stroke.width] = 0;
  int number = kFirstAperture;
  for (auto& [size, code] : result) code = number++;
  return result;
}

std::string gerber(const Layer& layer, const std::string& name) {
  std::string text = "G04 Vantrel reference board, " + name + "*\n%FSLAX46Y46*%\n%MOMM*%\n%LPD*%\n";
  const std::map<double, int> codes = apertures(layer);
  for (const auto& [size, code] : codes) {
    text += "%ADD" + std::to_string(code) + "C," + format_mask(size, "0.000") + "*%\n";
  }
  text += "G01*\n";
  const auto at = [](Spot p) { return "X" + coordinate(p.x) + "Y" + coordinate(p.y); };
  for (const auto& [size, code] : codes) {
    text += "D" + std::to_string(code) + "*\n";
    for (const Layer::Disc& disc : layer.discs) {
      if (disc.diameter == size) text += at(disc.at) + "D03*\n";
    }
    for (const Layer::Stroke& stroke : layer.strokes) {
      if (stroke.width != size) continue;
      text += at(stroke.points.front()) + "D02*\n";
      for (std::size_t i = 1; i < stroke.points.size(); ++i)
        text += at(stroke.points[i]) + "D01*\n";
    }
  }
  return text + "M02*\n";
}

std::map<double, std::vector<Spot>> holes_by_size(const Board& board) {
  std::map<double, std::vector<Spot>> holes;
  for (const Board::Pad& pad : board.pads) holes[pad.hole].push_back(pad.at);
  return holes;
}

std::string excellon(const Board& board) {
  std::string head = "M48\nMETRIC,TZ\n";
  std::string body = "%\nG90\nG05\n";
  int tool = 1;
  for (const auto& [size, holes] : holes_by_size(board)) {
    const std::string name = "T" + std::to_string(tool++);
    head += name + "C" + format_mask(size, "0.000") + "\n";
    body += name + "\n";
    for (const Spot hole : holes) {
      body += "X" + format_mask(hole.x, "0.000") + "Y" + format_mask(hole.y, "0.000") + "\n";
    }
  }
  return head + body + "T0\nM30\n";
}

std::string drill_report(const Board& board) {
  std::string text = "Tool  Diameter (mm)  Holes\n";
  int tool = 1;
  std::size_t count = 0;
  for (const auto& [size, holes] : holes_by_size(board)) {
    text += "T" + std::to_string(tool++) + "    " + format_mask(size, "0.000") + "          " +
            std::to_string(holes.size()) + "\n";
    count += holes.size();
  }
  return text + "Total                " + std::to_string(count) + "\n";
}

/// Two colours, white and black, one byte a pixel.
class Raster {
 public:
  Raster(double width, double height)
      : columns_(static_cast<int>(std::lround(width * kPixels)) + 1),
        rows_(static_cast<int>(std::lround(height * kPixels)) + 1),
        pixels_(static_cast<std::size_t>(columns_ * rows_)) {}

  void draw(const Layer& layer) {
    for (const Layer::Disc& disc : layer.discs) draw(disc.at, disc.at, disc.diameter);
    for (const Layer::Stroke& stroke : layer.strokes) {
      for (std::size_t i = 1; i < stroke.points.size(); ++i) {
        draw(stroke.points[i - 1], stroke.points[i], stroke.width);
      }
    }
  }

  /// GIF without compression: the table of codes is cleared before it could grow.
  std::vector<std::uint8_t> gif() const {
    std::vector<std::uint8_t> bytes{'G', 'I', 'F', '8', '9', 'a'};
    const auto word = [&](int value) {
      bytes.push_back(static_cast<std::uint8_t>(value & 0xFF));
      bytes.push_back(static_cast<std::uint8_t>(value >> 8));
    };
    word(columns_);
    word(rows_);
    constexpr std::uint8_t kTableOf128 = 0xF6;
    bytes.insert(bytes.end(), {kTableOf128, 0, 0});
    bytes.insert(bytes.end(), {255, 255, 255});
    bytes.resize(bytes.size() + 127 * 3);
    bytes.push_back(',');
    for (const int value : {0, 0, columns_, rows_}) word(value);
    constexpr std::uint8_t kCodeBits = 7;
    bytes.insert(bytes.end(), {0, kCodeBits});
    addBlocks(bytes);
    bytes.insert(bytes.end(), {0, ';'});
    return bytes;
  }

 private:
  void draw(Spot from, Spot to, double width) {
    const Spot ends[]{from, to};
    const Area area = around(ends).grown(width / 2);
    const auto pixel = [](double at) { return static_cast<int>(std::floor(at * kPixels)); };
    for (int row = pixel(area.top); row <= pixel(area.bottom) + 1; ++row) {
      for (int column = pixel(area.left); column <= pixel(area.right) + 1; ++column) {
        if (row < 0 || column < 0 || row >= rows_ || column >= columns_) continue;
        if (distance_to_line({column / kPixels, row / kPixels}, from, to) > width / 2) continue;
        pixels_[static_cast<std::size_t>((rows_ - 1 - row) * columns_ + column)] = 1;
      }
    }
  }

  /// Codes of 8 bits: 128 clears the table, 129 ends the picture.
  void addBlocks(std::vector<std::uint8_t>& bytes) const {
    constexpr std::size_t kBlock = 126;
    for (std::size_t first = 0; first < pixels_.size(); first += kBlock) {
      const std::size_t count = std::min(kBlock, pixels_.size() - first);
      const bool last = first + count == pixels_.size();
      bytes.push_back(static_cast<std::uint8_t>(count + 1 + (last ? 1 : 0)));
      bytes.push_back(128);
      const auto start = pixels_.begin() + static_cast<std::ptrdiff_t>(first);
      bytes.insert(bytes.end(), start, start + static_cast<std::ptrdiff_t>(count));
      if (last) bytes.push_back(129);
    }
  }

  int columns_;
  int rows_;
  std::vector<std::uint8_t> pixels_;
};

}  // namespace

std::map<std::string, std::string> board_files(const Board& board) {
  return {{"tvboard1.gbl", gerber(copper_layer(board), "copper")},
          {"tvboard1.gbo", gerber(copper_print_layer(board), "print on the copper side")},
          {"tvboard1.gbs", gerber(mask_layer(board), "solder mask on the copper side")},
          {"tvboard1.gm1", gerber(outline_layer(board), "outline")},
          {"tvboard1.gto", gerber(print_layer(board), "print on the component side")},
          {"tvboard1.drl", excellon(board)},
          {"tvboard1.txt", excellon(board)},
          {"tvboard1.drr", drill_report(board)}};
}

std::map<std::string, std::vector<std::uint8_t>> layer_pictures(const Board& board) {
  const std::vector<Layer> layers[]{{copper_layer(board), outline_layer(board)},
                                    {print_layer(board), outline_layer(board)},
                                    {hole_layer(board), outline_layer(board)}};
  std::map<std::string, std::vector<std::uint8_t>> pictures;
  int number = 1;
  for (const std::vector<Layer>& together : layers) {
    Raster raster(board.width, board.height);
    for (const Layer& layer : together) raster.draw(layer);
    pictures["Layer" + std::to_string(number++) + ".gif"] = raster.gif();
  }
  return pictures;
}

}  // namespace vantrel::drawing
