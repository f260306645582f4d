#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace vantrel {

/// One record of a CSV text and the line that it begins in, from 1.
struct CsvRecord {
  std::size_t line = 0;
  std::vector<std::string> cells;
};

/// The records of a text in the form of RFC 4180, separated by ","; lines may end in CR LF or LF,
/// and blank ones are left out. Cells keep their blanks. Nothing, with a `fault`, when a quote is
/// never closed or text follows a closed one.
std::optional<std::vector<CsvRecord>> read_csv(std::string_view text, std::string& fault);

}  // namespace vantrel
