#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "database_builder/problems.h"
#include "drawing_builder/geometry.h"

namespace vantrel::drawing {

using builder::Problem;
using builder::Problems;

/// Where something was written, for the problems that concern it.
struct Origin {
  std::filesystem::path file;
  int line = 0;
};

/// One line of a source: its words between blanks, without what follows a "#".
struct SourceLine {
  Origin origin;
  std::vector<std::string> words;
};

/// The lines of a text that hold at least one word.
std::vector<SourceLine> split_lines(std::string_view text, const std::filesystem::path& file);
/// The same for a file; one that cannot be read is a problem and has no lines.
std::vector<SourceLine> read_lines(const std::filesystem::path& file, Problems& problems);

void report(Problems& problems, const Origin& origin, std::string_view text);

/// The numbers that all words from `first` on spell, or nothing when one of them is no number.
std::optional<std::vector<double>> numbers(const SourceLine& line, std::size_t first);
std::optional<Side> parse_side(std::string_view word);
std::optional<Align> parse_align(std::string_view word);

}  // namespace vantrel::drawing
