#include "drawing_builder/sheet_plan.h"

#include "core/number_text.h"

namespace vantrel::drawing {

namespace {

bool listed(const std::vector<std::string>& names, const std::string& name) {
  const bool excludes = names.front().starts_with('!');
  const bool found = std::ranges::any_of(names, [&](const std::string& entry) {
    return entry.substr(entry.starts_with('!') ? 1 : 0) == name;
  });
  return found != excludes;
}

bool read_word(Placing& placing, const std::string& word) {
  if (const std::size_t rename = word.find(":="); rename != std::string::npos) {
    placing.renamed[word.substr(0, rename)] = word.substr(rename + 2);
    return true;
  }
  const std::size_t equals = word.find('=');
  if (equals == std::string::npos) return false;
  const std::string kind = word.substr(0, equals);
  if (kind != "ic" && kind != "input" && kind != "config") return false;
  placing.conditions[kind] = builder::list_entries(std::string_view(word).substr(equals + 1));
  return !placing.conditions[kind].empty();
}

}  // namespace

bool Placing::fits(const Combination& combination) const {
  return std::ranges::all_of(conditions, [&](const auto& condition) {
    if (condition.first == "ic") return listed(condition.second, combination.ic);
    if (condition.first == "input") return listed(condition.second, combination.input);
    return listed(condition.second, combination.config);
  });
}

const std::string& Placing::name(const std::string& written) const {
  const auto found = renamed.find(written);
  return found == renamed.end() ? written : found->second;
}

std::vector<Placing> Plan::chosen(const Combination& combination, Problems& problems) const {
  std::vector<Placing> result;
  for (const Placing& place : places) {
    if (!place.fits(combination)) continue;
    const auto band = std::ranges::find_if(bands, [&](const Placing& candidate) {
      return candidate.block == place.band && candidate.fits(combination);
    });
    if (band == bands.end()) {
      report(problems, place.origin, "there is no band '" + place.band + "'");
      continue;
    }
    result.push_back(place);
    result.back().at = place.at + band->at;
  }
  return result;
}

Plan read_plan(const std::vector<SourceLine>& lines, Problems& problems) {
  Plan plan;
  for (const SourceLine& line : lines) {
    const bool band = line.words[0] == "band";
    const std::size_t first = band ? 2 : 3;
    bool good = line.words.size() >= first + 2 && (band || line.words[0] == "place");
    Placing placing{line.origin, {}, {}, {}, {}, {}};
    const std::optional<double> x = good ? parse_number(line.words[first]) : std::nullopt;
    const std::optional<double> y = good ? parse_number(line.words[first + 1]) : std::nullopt;
    good = good && x && y;
    for (std::size_t i = first + 2; good && i < line.words.size(); ++i) {
      good = read_word(placing, line.words[i]);
    }
    if (!good) {
      report(problems, line.origin, "the line cannot be read");
      continue;
    }
    placing.block = line.words[1];
    if (!band) placing.band = line.words[2];
    placing.at = {*x, *y};
    (band ? plan.bands : plan.places).push_back(placing);
  }
  return plan;
}

std::string sheet_name(const Combination& combination, bool with_input, bool with_config) {
  std::string name = combination.ic + "/" + combination.ic;
  if (with_input) name += "-" + combination.input;
  if (with_config) name += "-" + combination.config;
  return name;
}

}  // namespace vantrel::drawing
