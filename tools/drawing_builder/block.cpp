#include "drawing_builder/block.h"

#include <span>

#include "core/number_text.h"

namespace vantrel::drawing {

namespace {

std::optional<Spot> parse_spot(std::string_view word) {
  const std::size_t comma = word.find(',');
  if (comma == std::string_view::npos) return std::nullopt;
  const std::optional<double> x = parse_number(word.substr(0, comma));
  const std::optional<double> y = parse_number(word.substr(comma + 1));
  if (!x || !y) return std::nullopt;
  return Spot{*x, *y};
}

std::optional<WirePoint> parse_point(std::string_view word) {
  WirePoint point;
  if (word.starts_with('+')) {
    point.relative = true;
    word.remove_prefix(1);
  } else if (const std::size_t dot = word.find('.'); dot != std::string_view::npos &&
                                                     !word.starts_with('-') &&
                                                     (word.front() < '0' || word.front() > '9')) {
    point.pin_of = word.substr(0, dot);
    const std::size_t plus = std::min(word.find('+', dot), word.size());
    point.pin = word.substr(dot + 1, plus - dot - 1);
    if (plus == word.size()) return point;
    word.remove_prefix(plus + 1);
  }
  const std::optional<Spot> spot = parse_spot(word);
  if (!spot) return std::nullopt;
  point.at = *spot;
  return point;
}

std::optional<Bend> parse_bend(std::string_view word) {
  if (word == "--") return Bend::None;
  if (word == "-|") return Bend::LevelFirst;
  if (word == "|-") return Bend::UprightFirst;
  return std::nullopt;
}

int quarters(Side side) {
  switch (side) {
    case Side::Down:
      return 0;
    case Side::Left:
      return 1;
    case Side::Up:
      return 2;
    case Side::Right:
      break;
  }
  return 3;
}

/// The words behind a part's position.
bool read_stance(BlockPart& part, std::span<const std::string> words) {
  for (std::size_t i = 0; i < words.size(); ++i) {
    if (words[i] == "mirror") {
      part.turn.mirrored = true;
    } else if (words[i] == "text") {
      part.text_side = ++i < words.size() ? parse_side(words[i]) : std::nullopt;
      if (!part.text_side) return false;
    } else if (const std::optional<Side> side = parse_side(words[i])) {
      part.turn.quarters = quarters(*side);
    } else {
      return false;
    }
  }
  return true;
}

bool add_part(Block& block, const SourceLine& line) {
  const std::vector<std::string>& words = line.words;
  if (words.size() < 5) return false;
  const std::optional<double> x = parse_number(words[3]);
  const std::optional<double> y = parse_number(words[4]);
  if (!x || !y) return false;
  const std::size_t colon = words[1].find(':');
  BlockPart part{line.origin, words[1], words[1].substr(0, colon), words[2], {*x, *y}, {}, {}, {}};
  part.piece = words[0] == "piece";
  if (part.piece != (colon != std::string::npos)) return false;
  if (!read_stance(part, std::span(words).subspan(5))) return false;
  block.parts.push_back(part);
  return true;
}

bool add_wire(Block& block, const SourceLine& line) {
  if (line.words.size() < 4 || line.words.size() % 2 != 0) return false;
  BlockWire wire{line.origin, {}, {}};
  for (std::size_t i = 1; i < line.words.size(); ++i) {
    if (i % 2 == 0) {
      const std::optional<Bend> bend = parse_bend(line.words[i]);
      if (!bend) return false;
      wire.bends.push_back(*bend);
      continue;
    }
    const std::optional<WirePoint> point = parse_point(line.words[i]);
    if (!point || (i == 1 && point->relative)) return false;
    wire.points.push_back(*point);
  }
  block.wires.push_back(wire);
  return true;
}

bool add_mark(Block& block, const SourceLine& line) {
  const std::vector<std::string>& words = line.words;
  const bool flag = words[0] == "flag";
  if (words.size() != (flag ? 4U : 2U)) return false;
  const std::optional<WirePoint> point = parse_point(words[flag ? 2 : 1]);
  const std::optional<Side> side = flag ? parse_side(words[3]) : std::optional(Side::Down);
  if (!point || point->relative || !side) return false;
  BlockMark mark{line.origin, BlockMark::Kind::Flag, {}, *point, *side};
  if (flag) mark.net = words[1];
  if (words[0] == "ground") mark = {line.origin, BlockMark::Kind::Ground, "COM", *point, *side};
  if (words[0] == "earth") mark = {line.origin, BlockMark::Kind::Earth, "PE", *point, *side};
  if (words[0] == "open") mark.kind = BlockMark::Kind::Open;
  block.marks.push_back(mark);
  return true;
}

bool add_line(Block& block, const SourceLine& line) {
  const std::string& word = line.words.front();
  if (word == "part" || word == "piece") return add_part(block, line);
  if (word == "wire") return add_wire(block, line);
  constexpr std::string_view kMarks[]{"flag", "ground", "earth", "open"};
  return std::ranges::find(kMarks, word) != std::end(kMarks) && add_mark(block, line);
}

}  // namespace

void read_blocks(const std::vector<SourceLine>& lines, Blocks& blocks, Problems& problems) {
  Block* open = nullptr;
  for (const SourceLine& line : lines) {
    const std::string& word = line.words.front();
    if (word == "block" && line.words.size() == 2 && open == nullptr) {
      const auto [place, added] = blocks.try_emplace(line.words[1]);
      if (!added) report(problems, line.origin, "block '" + line.words[1] + "' stands here twice");
      open = &place->second;
    } else if (word == "end" && open != nullptr) {
      open = nullptr;
    } else if (open == nullptr) {
      report(problems, line.origin, "'" + word + "' stands outside of a block");
    } else if (!add_line(*open, line)) {
      report(problems, line.origin, "'" + word + "' cannot be read");
    }
  }
  if (open != nullptr) report(problems, lines.back().origin, "the last block has no end");
}

}  // namespace vantrel::drawing
