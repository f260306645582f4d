#include "drawing_builder/board.h"

#include <cmath>
#include <set>

#include "core/number_text.h"

namespace vantrel::drawing {

namespace {

constexpr double kRing = 0.3;  ///< Least copper around a hole.

/// A straight piece of copper with round ends; a pad is one without length.
struct Copper {
  const Origin* origin;
  std::string net;
  Spot from;
  Spot to;
  double width;
};

double distance(const Copper& a, const Copper& b) {
  const auto side = [](Spot p, Spot q, Spot r) {
    return (q.x - p.x) * (r.y - p.y) - (q.y - p.y) * (r.x - p.x);
  };
  const bool cross = side(a.from, a.to, b.from) * side(a.from, a.to, b.to) < 0 &&
                     side(b.from, b.to, a.from) * side(b.from, b.to, a.to) < 0;
  const double middle =
      cross ? 0
            : std::min(
                  {distance_to_line(a.from, b.from, b.to), distance_to_line(a.to, b.from, b.to),
                   distance_to_line(b.from, a.from, a.to), distance_to_line(b.to, a.from, a.to)});
  return middle - (a.width + b.width) / 2;
}

std::vector<Copper> copper_of(const Board& board) {
  std::vector<Copper> pieces;
  for (const Board::Pad& pad : board.pads) {
    pieces.push_back({&pad.origin, pad.net, pad.at, pad.at, pad.diameter});
  }
  for (const Board::Track& track : board.tracks) {
    for (std::size_t i = 1; i < track.points.size(); ++i) {
      pieces.push_back(
          {&track.origin, track.net, track.points[i - 1], track.points[i], track.width});
    }
  }
  return pieces;
}

/// Everything that hangs together with the first piece of each net must be the whole net.
void check_joined(const std::vector<Copper>& pieces, Problems& problems) {
  std::set<std::string> done;
  for (const Copper& first : pieces) {
    if (!done.insert(first.net).second) continue;
    std::vector<const Copper*> reached{&first};
    std::set<const Copper*> seen{&first};
    for (std::size_t i = 0; i < reached.size(); ++i) {
      for (const Copper& other : pieces) {
        if (other.net != first.net || distance(*reached[i], other) >= 0) continue;
        if (seen.insert(&other).second) reached.push_back(&other);
      }
    }
    for (const Copper& other : pieces) {
      if (other.net == first.net && !seen.contains(&other)) {
        report(problems, *other.origin, "copper of net '" + other.net + "' hangs in the air");
      }
    }
  }
}

void check(const Board& board, Problems& problems) {
  const std::vector<Copper> pieces = copper_of(board);
  for (std::size_t i = 0; i < pieces.size(); ++i) {
    for (std::size_t k = 0; k < i; ++k) {
      if (pieces[i].net == pieces[k].net || distance(pieces[i], pieces[k]) >= kClearance) continue;
      report(problems, *pieces[i].origin,
             "nets '" + pieces[i].net + "' and '" + pieces[k].net + "' are too close");
    }
    const double reach = pieces[i].width / 2 + kClearance;
    for (const Spot end : {pieces[i].from, pieces[i].to}) {
      const Area inside = Area{0, 0, board.width, board.height}.grown(-reach);
      if (inside.covers({end.x, end.y, end.x, end.y})) continue;
      report(problems, *pieces[i].origin, "copper is too near to the edge");
    }
  }
  for (const Board::Pad& pad : board.pads) {
    if (pad.diameter - pad.hole < 2 * kRing) {
      report(problems, pad.origin, "the hole leaves too little of the pad");
    }
  }
  check_joined(pieces, problems);
}

std::optional<std::vector<Spot>> spots(const SourceLine& line, std::size_t first) {
  const std::optional<std::vector<double>> v = numbers(line, first);
  if (!v || v->size() < 4 || v->size() % 2 != 0) return std::nullopt;
  std::vector<Spot> points;
  for (std::size_t i = 0; i < v->size(); i += 2) points.push_back({(*v)[i], (*v)[i + 1]});
  return points;
}

bool read_line(Board& board, const SourceLine& line) {
  const std::vector<std::string>& words = line.words;
  if (words[0] == "size" && words.size() == 3) {
    const std::optional<std::vector<double>> v = numbers(line, 1);
    if (v) board.width = (*v)[0], board.height = (*v)[1];
    return v.has_value();
  }
  if (words[0] == "pad" && words.size() == 8) {
    const std::optional<std::vector<double>> v = numbers(line, 4);
    if (!v) return false;
    board.pads.push_back(
        {line.origin, words[1], words[2], words[3], {(*v)[0], (*v)[1]}, (*v)[2], (*v)[3]});
    return true;
  }
  const bool track = words[0] == "track" && words.size() > 3;
  if (!track && !(words[0] == "silk" && words.size() > 2)) return false;
  const std::optional<double> width = track ? parse_number(words[2]) : std::optional(0.0);
  const std::optional<std::vector<Spot>> points = spots(line, track ? 3 : 2);
  if (!points || !width) return false;
  if (track) {
    board.tracks.push_back({line.origin, words[1], *width, *points});
  } else {
    board.silk.push_back({words[1], *points});
  }
  return true;
}

}  // namespace

double distance_to_line(Spot p, Spot from, Spot to) {
  const Spot along = to - from;
  const double length = along.x * along.x + along.y * along.y;
  const Spot start = p - from;
  const double share =
      length > 0 ? std::clamp((start.x * along.x + start.y * along.y) / length, 0.0, 1.0) : 0.0;
  return std::hypot(start.x - share * along.x, start.y - share * along.y);
}

Board read_board(const std::vector<SourceLine>& lines, Problems& problems) {
  Board board;
  for (const SourceLine& line : lines) {
    if (!read_line(board, line)) report(problems, line.origin, "the line cannot be read");
  }
  check(board, problems);
  return board;
}

}  // namespace vantrel::drawing
