#include "drawing_builder/net_list.h"

#include <numeric>

namespace vantrel::drawing {

namespace {

constexpr int kNodeBranches = 3;

class Groups {
 public:
  explicit Groups(std::size_t count) : leader_(count) {
    std::iota(leader_.begin(), leader_.end(), std::size_t{0});
  }
  std::size_t of(std::size_t item) {
    while (leader_[item] != item) item = leader_[item] = leader_[leader_[item]];
    return item;
  }
  void join(std::size_t a, std::size_t b) { leader_[of(a)] = of(b); }

 private:
  std::vector<std::size_t> leader_;
};

/// Everything that touches one point.
struct Junction {
  int branches = 0;
  std::set<std::size_t> wires;
  std::size_t signs = 0;  ///< Pins and marks.
};

class Follower {
 public:
  Follower(const Diagram& diagram, Problems& problems)
      : diagram_(diagram), problems_(problems), pieces_(segments(diagram)) {
    for (const Part& part : diagram.parts) {
      for (const Pin& pin : part.symbol->pins) point(part.place(pin.at)).signs += 1;
    }
    for (const Mark& mark : diagram.marks) point(mark.at).signs += 1;
    for (const Segment& piece : pieces_) {
      point(piece.from);
      point(piece.to);
    }
  }

  NetList follow() {
    checkPieces();
    Groups groups(pieces_.size() + points_.size());
    touch(groups);
    checkPoints();
    joinFlags(groups);
    return collect(groups);
  }

 private:
  Junction& point(Spot at) { return points_[at]; }
  std::size_t pointItem(Spot at) const {
    return pieces_.size() +
           static_cast<std::size_t>(std::distance(points_.begin(), points_.find(at)));
  }

  void touch(Groups& groups) {
    std::size_t item = pieces_.size();
    for (auto& [at, junction] : points_) {
      for (std::size_t i = 0; i < pieces_.size(); ++i) {
        if (!pieces_[i].contains(at)) continue;
        groups.join(i, item);
        junction.wires.insert(pieces_[i].wire);
        junction.branches += pieces_[i].from == at || pieces_[i].to == at ? 1 : 2;
      }
      junction.branches += static_cast<int>(junction.signs);
      ++item;
    }
  }

  void checkPieces() {
    for (std::size_t i = 0; i < pieces_.size(); ++i) {
      const Origin& origin = diagram_.wires[pieces_[i].wire].origin;
      const bool slanted = pieces_[i].from.x != pieces_[i].to.x && !pieces_[i].level();
      if (slanted || pieces_[i].from == pieces_[i].to) {
        report(problems_, origin, "the wire is slanted or has no length " + where(pieces_[i].from));
      }
      for (std::size_t k = 0; k < i; ++k) {
        const Area common = pieces_[i].area();
        const Area other = pieces_[k].area();
        const double width =
            std::min(common.right, other.right) - std::max(common.left, other.left);
        const double height =
            std::min(common.bottom, other.bottom) - std::max(common.top, other.top);
        if (width >= 0 && height >= 0 && width + height > 0) {
          report(problems_, origin, "the wire lies on another one " + where(pieces_[i].from));
        }
      }
    }
  }

  void checkPoints() {
    for (const Part& part : diagram_.parts) {
      for (const Pin& pin : part.symbol->pins) {
        if (point(part.place(pin.at)).branches > 1) continue;
        report(problems_, part.origin, "pin '" + part.key + "." + pin.name + "' is not connected");
      }
    }
    for (const Mark& mark : diagram_.marks) {
      if (point(mark.at).branches > 1) continue;
      report(problems_, mark.origin, "a sign is not connected " + where(mark.at));
    }
    for (const Wire& wire : diagram_.wires) {
      for (const Spot end : {wire.points.front(), wire.points.back()}) {
        const Junction& junction = point(end);
        if (junction.signs > 0 || junction.wires.size() > 1) continue;
        report(problems_, wire.origin, "the wire ends nowhere " + where(end));
      }
    }
    for (const auto& [at, junction] : points_) {
      if (junction.branches <= kNodeBranches) continue;
      const Origin origin =
          junction.wires.empty() ? Origin{} : diagram_.wires[*junction.wires.begin()].origin;
      report(problems_, origin, "more than three branches meet " + where(at));
    }
  }

  void joinFlags(Groups& groups) {
    std::map<std::string, std::vector<const Mark*>> flags;
    for (const Mark& mark : diagram_.marks) {
      if (mark.kind != BlockMark::Kind::Open) flags[mark.net].push_back(&mark);
    }
    for (const auto& [net, marks] : flags) {
      if (marks.size() == 1 && marks.front()->kind == BlockMark::Kind::Flag) {
        report(problems_, marks.front()->origin, "net '" + net + "' has one flag only");
      }
      for (const Mark* mark : marks) groups.join(pointItem(mark->at), pointItem(marks[0]->at));
    }
  }

  NetList collect(Groups& groups) {
    NetList result;
    std::map<std::size_t, std::size_t> numbers;
    const auto net = [&](Spot at) {
      const auto [place, added] = numbers.try_emplace(groups.of(pointItem(at)), numbers.size());
      if (added) {
        result.nets.emplace_back();
        result.names.emplace_back();
      }
      return place->second;
    };
    for (const Part& part : diagram_.parts) {
      for (const Pin& pin : part.symbol->pins) {
        result.nets[net(part.place(pin.at))].insert(part.key + "." + pin.name);
      }
    }
    for (const Mark& mark : diagram_.marks) {
      if (mark.kind == BlockMark::Kind::Open) continue;
      std::set<std::string>& names = result.names[net(mark.at)];
      if (names.insert(mark.net).second && names.size() > 1) {
        report(problems_, mark.origin, "'" + mark.net + "' is joined to another net");
      }
    }
    for (const auto& [at, junction] : points_) {
      if (junction.branches >= kNodeBranches) result.nodes.push_back(at);
    }
    return result;
  }

  static std::string where(Spot at) {
    return "at " + std::to_string(static_cast<int>(at.x)) + "," +
           std::to_string(static_cast<int>(at.y));
  }

  const Diagram& diagram_;
  Problems& problems_;
  std::vector<Segment> pieces_;
  std::map<Spot, Junction> points_;
};

}  // namespace

bool Segment::contains(Spot p) const {
  const Area within = area();
  return p.x >= within.left && p.x <= within.right && p.y >= within.top && p.y <= within.bottom;
}

std::vector<Segment> segments(const Diagram& diagram) {
  std::vector<Segment> result;
  for (std::size_t wire = 0; wire < diagram.wires.size(); ++wire) {
    const std::vector<Spot>& points = diagram.wires[wire].points;
    for (std::size_t i = 1; i < points.size(); ++i) {
      result.push_back({points[i - 1], points[i], wire});
    }
  }
  return result;
}

bool NetList::joined(const std::set<std::string>& pins) const {
  for (std::size_t i = 0; i < nets.size(); ++i) {
    const bool all = std::ranges::all_of(pins, [&](const std::string& pin) {
      return pin.starts_with('=') ? names[i].contains(pin.substr(1)) : nets[i].contains(pin);
    });
    if (all) return true;
  }
  return false;
}

NetList follow_wires(const Diagram& diagram, Problems& problems) {
  return Follower(diagram, problems).follow();
}

}  // namespace vantrel::drawing
