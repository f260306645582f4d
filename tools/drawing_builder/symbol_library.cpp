#include "drawing_builder/symbol_library.h"

#include "core/number_text.h"
#include "drawing_builder/stroke_font.h"

namespace vantrel::drawing {

namespace {

constexpr double kLeadLength = 2;
constexpr double kNameGap = 0.6;
constexpr double kNumberHeight = 0.95;

Spot direction(Side side) {
  switch (side) {
    case Side::Left:
      return {-1, 0};
    case Side::Right:
      return {1, 0};
    case Side::Up:
      return {0, -1};
    case Side::Down:
      break;
  }
  return {0, 1};
}

Shape written(std::string_view text, Spot at, Align align, double height) {
  Shape shape;
  shape.kind = Shape::Kind::Letters;
  shape.letters = text;
  shape.points = {at};
  shape.align = align;
  shape.height = height;
  return shape;
}

/// A pin of an IC: the line to the body, its number beside the line and its name in the body.
void add_lead(Symbol& symbol, const SourceLine& line, Spot tip, Side side) {
  const std::string& name = line.words[1];
  const std::string& number = line.words[2];
  const Spot out = direction(side);
  const Spot foot{tip.x - out.x * kLeadLength, tip.y - out.y * kLeadLength};
  Shape lead;
  lead.points = {tip, foot};
  symbol.shapes.push_back(lead);
  const bool level = side == Side::Left || side == Side::Right;
  const Spot inside{foot.x - out.x * kNameGap, foot.y - out.y * (kNameGap + kLetterHeight / 2)};
  const Align into = side == Side::Left    ? Align::Left
                     : side == Side::Right ? Align::Right
                                           : Align::Centre;
  const Spot beside =
      level ? Spot{(tip.x + foot.x) / 2, tip.y - 0.9} : Spot{tip.x + 0.4, (tip.y + foot.y) / 2};
  symbol.shapes.push_back(
      written(number, beside, level ? Align::Centre : Align::Left, kNumberHeight));
  symbol.shapes.push_back(written(name, inside, into, kLetterHeight));
  symbol.pins.push_back({name, tip});
}

bool add_pin(Symbol& symbol, const SourceLine& line) {
  const bool lead = line.words[0] == "lead";
  if (line.words.size() != (lead ? 6U : 4U)) return false;
  const std::size_t first = lead ? 3 : 2;
  const std::optional<double> x = parse_number(line.words[first]);
  const std::optional<double> y = parse_number(line.words[first + 1]);
  if (!x || !y || symbol.pin(line.words[1]) != nullptr) return false;
  if (!lead) {
    symbol.pins.push_back({line.words[1], {*x, *y}});
    return true;
  }
  const std::optional<Side> side = parse_side(line.words[5]);
  if (!side || !has_strokes(line.words[1]) || !has_strokes(line.words[2])) return false;
  add_lead(symbol, line, {*x, *y}, *side);
  return true;
}

bool add_body(Symbol& symbol, const SourceLine& line) {
  const std::optional<std::vector<double>> v = numbers(line, 1);
  if (!v || v->size() != 4 || (*v)[0] >= (*v)[2] || (*v)[1] >= (*v)[3]) return false;
  symbol.body = {(*v)[0], (*v)[1], (*v)[2], (*v)[3]};
  return true;
}

bool add_text_place(Symbol& symbol, const SourceLine& line) {
  if (line.words.size() != 4) return false;
  const std::optional<double> x = parse_number(line.words[1]);
  const std::optional<double> y = parse_number(line.words[2]);
  const std::optional<Align> align = parse_align(line.words[3]);
  if (!x || !y || !align) return false;
  (line.words[0] == "value" ? symbol.value : symbol.designator) = TextPlace{{*x, *y}, *align};
  return true;
}

/// One line of a symbol.
void add_line(Symbol& symbol, const SourceLine& line, Problems& problems) {
  if (std::optional<Shape> shape = parse_shape(line, problems)) {
    if (!shape->points.empty()) symbol.shapes.push_back(std::move(*shape));
    return;
  }
  const std::string& word = line.words.front();
  bool good = false;
  if (word == "pin" || word == "lead") good = add_pin(symbol, line);
  if (word == "body") good = add_body(symbol, line);
  if (word == "designator" || word == "value") good = add_text_place(symbol, line);
  if (!good) report(problems, line.origin, "'" + word + "' cannot be read in a symbol");
}

}  // namespace

const Pin* Symbol::pin(std::string_view pin_name) const {
  const auto found = std::ranges::find(pins, pin_name, &Pin::name);
  return found == pins.end() ? nullptr : &*found;
}

void read_symbols(const std::vector<SourceLine>& lines, SymbolLibrary& library,
                  Problems& problems) {
  std::optional<Symbol> open;
  Origin last;
  for (const SourceLine& line : lines) {
    last = line.origin;
    if (line.words.front() == "symbol" && line.words.size() == 2 && !open) {
      open = Symbol{line.words[1], {}, {}, {}, {}, {}};
    } else if (line.words.front() == "end" && open) {
      if (open->pins.empty() || open->body.width() <= 0) {
        report(problems, line.origin, "symbol '" + open->name + "' lacks pins or a body");
      }
      if (!library.emplace(open->name, *open).second) {
        report(problems, line.origin, "symbol '" + open->name + "' stands here twice");
      }
      open.reset();
    } else if (open) {
      add_line(*open, line, problems);
    } else {
      report(problems, line.origin, "'" + line.words.front() + "' stands outside of a symbol");
    }
  }
  if (open) report(problems, last, "symbol '" + open->name + "' has no end");
}

}  // namespace vantrel::drawing
