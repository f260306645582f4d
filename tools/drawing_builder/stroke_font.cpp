#include "drawing_builder/stroke_font.h"

#include <array>
#include <cctype>
#include <string>

namespace vantrel::drawing {

namespace {

constexpr double kCapital = 6;  ///< Height of a capital in the steps of the table.
constexpr double kAdvance = 5.6;
constexpr double kWidth = 4;

struct Glyph {
  char letter;
  /// Columns 0 to 4 and rows 0 (top) to 6, two digits a point, a blank between lines.
  std::string_view lines;
};

constexpr std::array<Glyph, 51> kGlyphs{{
    {'A', "062046 1434"},
    {'B', "06003041423303 3344453606"},
    {'C', "4130100105163645"},
    {'D', "06002042442606"},
    {'E', "40000646 0333"},
    {'F', "400006 0333"},
    {'G', "413010010516364543 4323"},
    {'H', "0006 4046 0343"},
    {'I', "1030 2026 1636"},
    {'J', "4045361605"},
    {'K', "0006 4003 1246"},
    {'L', "000646"},
    {'M', "0600234046"},
    {'N', "06004640"},
    {'O', "103041453616050110"},
    {'P', "06003041423303"},
    {'Q', "103041453616050110 2446"},
    {'R', "06003041423303 2346"},
    {'S', "4130100102134445361605"},
    {'T', "0040 2026"},
    {'U', "000516364540"},
    {'V', "002640"},
    {'W', "0016233640"},
    {'X', "0046 4006"},
    {'Y', "002340 2326"},
    {'Z', "00400646"},
    {'0', "103041453616050110"},
    {'1', "012026 0646"},
    {'2', "0110304142060646"},
    {'3', "00402244453616 1605"},
    {'4', "36300444"},
    {'5', "400002324345361605"},
    {'6', "40200305163645443303"},
    {'7', "004016"},
    {'8', "103041423313020110 1304051636454433"},
    {'9', "4313020110304145361605"},
    {'+', "2125 0343"},
    {'-', "0343"},
    {'.', "25262625"},
    {',', "2516"},
    {'/', "0640"},
    {'=', "0242 0444"},
    {'~', "0312334332"},
    {'(', "30121436"},
    {')', "10323416"},
    {':', "2122 2425"},
    {'<', "400346"},
    {'>', "004306"},
    {'_', "0646"},
    {'*', "2125 0343 1135 3115"},
    {' ', ""},
}};

const Glyph* find(char letter) {
  const char capital = static_cast<char>(std::toupper(static_cast<unsigned char>(letter)));
  for (const Glyph& glyph : kGlyphs) {
    if (glyph.letter == capital) return &glyph;
  }
  return nullptr;
}

double left_edge(std::string_view text, Spot at, Align align, double height) {
  const double length = stroke_area(text, {}, Align::Left, height).width();
  if (align == Align::Centre) return at.x - length / 2;
  return align == Align::Right ? at.x - length : at.x;
}

}  // namespace

bool has_strokes(std::string_view text) {
  return std::ranges::all_of(text, [](char letter) { return find(letter) != nullptr; });
}

Area stroke_area(std::string_view text, Spot at, Align align, double height) {
  const double letters = static_cast<double>(text.size());
  const double length = text.empty() ? 0 : ((letters - 1) * kAdvance + kWidth) * height / kCapital;
  double left = at.x;
  if (align == Align::Centre) left -= length / 2;
  if (align == Align::Right) left -= length;
  return {left, at.y - height / 2, left + length, at.y + height / 2};
}

Strokes stroke_letters(std::string_view text, Spot at, Align align, double height) {
  Strokes strokes;
  const double step = height / kCapital;
  Spot corner{left_edge(text, at, align, height), at.y - height / 2};
  for (const char letter : text) {
    const Glyph* glyph = find(letter);
    std::vector<Spot> stroke;
    const auto finish = [&] {
      if (stroke.size() > 1) strokes.push_back(std::move(stroke));
      stroke.clear();
    };
    const std::string_view lines = glyph != nullptr ? glyph->lines : std::string_view{};
    for (std::size_t i = 0; i + 1 < lines.size();) {
      if (lines[i] == ' ') {
        finish();
        ++i;
        continue;
      }
      stroke.push_back(
          {corner.x + (lines[i] - '0') * step, corner.y + (lines[i + 1] - '0') * step});
      i += 2;
    }
    finish();
    corner.x += kAdvance * step;
  }
  return strokes;
}

}  // namespace vantrel::drawing
