#pragma once

#include <map>
#include <string>
#include <vector>

#include "database_builder/combinations.h"
#include "drawing_builder/source_lines.h"

namespace vantrel::drawing {

using builder::Combination;

/// One block on the sheet and the combinations that have it.
struct Placing {
  Origin origin;
  std::string block;
  std::string band;
  Spot at;  ///< In the band.
  /// For "ic", "input" and "config": the names that fit, or with a leading "!" those that do not.
  std::map<std::string, std::vector<std::string>, std::less<>> conditions;
  /// Names of components, symbols, pins and nets that are replaced.
  std::map<std::string, std::string, std::less<>> renamed;

  bool fits(const Combination& combination) const;
  const std::string& name(const std::string& written) const;
};

/// Where the blocks stand.
struct Plan {
  std::vector<Placing> bands;  ///< Parts of the sheet; the first one that fits is taken.
  std::vector<Placing> places;

  /// The places that fit, on the sheet instead of in their bands.
  std::vector<Placing> chosen(const Combination& combination, Problems& problems) const;
};

/// Reads the lines
///
///     band BAND x y [ic=NAME,...] [input=!NAME,...] [config=...]
///     place BLOCK BAND x y [conditions] [OLD:=NEW]...
Plan read_plan(const std::vector<SourceLine>& lines, Problems& problems);

/// Name of a circuit diagram below the folder of the ICs, "TV6103/TV6103-ActivePFC-SLCM". The IC
/// decides whether input and configuration are part of it.
std::string sheet_name(const Combination& combination, bool with_input, bool with_config);

}  // namespace vantrel::drawing
