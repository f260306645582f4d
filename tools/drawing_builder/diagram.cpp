#include "drawing_builder/diagram.h"

#include <set>

namespace vantrel::drawing {

namespace {

/// A block on its way to the sheet.
struct Placed {
  const Placing* placing;
  const Block* block;
};

std::string renamed_key(const Placing& placing, const std::string& key) {
  if (placing.renamed.contains(key)) return placing.name(key);
  const std::size_t colon = std::min(key.find(':'), key.size());
  return placing.name(key.substr(0, colon)) + key.substr(colon);
}

class Composer {
 public:
  Composer(const SymbolLibrary& library, Problems& problems)
      : library_(library), problems_(problems) {}

  void addParts(const Placed& placed) {
    for (const BlockPart& part : placed.block->parts) {
      const auto symbol = library_.find(placed.placing->name(part.symbol));
      if (symbol == library_.end()) {
        report(problems_, part.origin, "there is no symbol '" + part.symbol + "'");
        continue;
      }
      const std::string key = renamed_key(*placed.placing, part.key);
      if (!keys_.insert(key).second) {
        report(problems_, part.origin, "'" + key + "' stands on the sheet twice");
      }
      diagram_.parts.push_back({part.origin, key, placed.placing->name(part.reference),
                                &symbol->second, part.at + placed.placing->at, part.turn,
                                part.text_side, part.piece});
    }
  }

  void addWires(const Placed& placed) {
    for (const BlockWire& wire : placed.block->wires) {
      Wire result{wire.origin, {}};
      for (std::size_t i = 0; i < wire.points.size(); ++i) {
        const Spot last = result.points.empty() ? Spot{} : result.points.back();
        const std::optional<Spot> next = resolve(placed, wire.points[i], last, wire.origin);
        if (!next) return;
        if (i > 0) addBend(result, *next, wire.bends[i - 1]);
        result.points.push_back(*next);
      }
      diagram_.wires.push_back(result);
    }
    for (const BlockMark& mark : placed.block->marks) {
      const std::optional<Spot> at = resolve(placed, mark.at, {}, mark.origin);
      if (!at) continue;
      diagram_.marks.push_back(
          {mark.origin, mark.kind, placed.placing->name(mark.net), *at, mark.side});
    }
  }

  Diagram take() { return std::move(diagram_); }

 private:
  static void addBend(Wire& wire, Spot next, Bend bend) {
    const Spot last = wire.points.back();
    if (last.x == next.x || last.y == next.y || bend == Bend::None) return;
    wire.points.push_back(bend == Bend::LevelFirst ? Spot{next.x, last.y} : Spot{last.x, next.y});
  }

  std::optional<Spot> resolve(const Placed& placed, const WirePoint& point, Spot last,
                              const Origin& origin) {
    if (point.relative) return last + point.at;
    if (point.pin_of.empty()) return point.at + placed.placing->at;
    const std::string key = renamed_key(*placed.placing, point.pin_of);
    const auto part = std::ranges::find(diagram_.parts, key, &Part::key);
    const std::string& pin_name = placed.placing->name(point.pin);
    const Pin* pin = part == diagram_.parts.end() ? nullptr : part->symbol->pin(pin_name);
    if (pin == nullptr) {
      report(problems_, origin, "there is no pin '" + key + "." + pin_name + "'");
      return std::nullopt;
    }
    return part->place(pin->at) + point.at;
  }

  const SymbolLibrary& library_;
  Problems& problems_;
  Diagram diagram_;
  std::set<std::string> keys_;
};

}  // namespace

Area Part::body() const {
  const Area area = turned(symbol->body, turn);
  return {area.left + at.x, area.top + at.y, area.right + at.x, area.bottom + at.y};
}

Diagram compose(const Plan& plan, const Blocks& blocks, const SymbolLibrary& library,
                const Combination& combination, Problems& problems) {
  const std::vector<Placing> places = plan.chosen(combination, problems);
  std::vector<Placed> chosen;
  for (const Placing& placing : places) {
    const auto block = blocks.find(placing.block);
    if (block == blocks.end()) {
      report(problems, placing.origin, "there is no block '" + placing.block + "'");
      continue;
    }
    chosen.push_back({&placing, &block->second});
  }
  Composer composer(library, problems);
  for (const Placed& placed : chosen) composer.addParts(placed);
  for (const Placed& placed : chosen) composer.addWires(placed);
  return composer.take();
}

}  // namespace vantrel::drawing
