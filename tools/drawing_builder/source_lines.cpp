#include "drawing_builder/source_lines.h"

#include <fstream>
#include <iterator>

#include "core/number_text.h"

namespace vantrel::drawing {

std::vector<SourceLine> split_lines(std::string_view text, const std::filesystem::path& file) {
  std::vector<SourceLine> lines;
  int number = 0;
  while (!text.empty()) {
    const std::size_t end = std::min(text.find('\n'), text.size());
    std::string_view rest = text.substr(0, end);
    text.remove_prefix(std::min(end + 1, text.size()));
    rest = rest.substr(0, rest.find('#'));
    SourceLine line{{file, ++number}, {}};
    constexpr std::string_view kBlanks = " \t\r";
    for (std::size_t at = rest.find_first_not_of(kBlanks); at != std::string_view::npos;
         at = rest.find_first_not_of(kBlanks)) {
      rest.remove_prefix(at);
      const std::size_t length = std::min(rest.find_first_of(kBlanks), rest.size());
      line.words.emplace_back(rest.substr(0, length));
      rest.remove_prefix(length);
    }
    if (!line.words.empty()) lines.push_back(std::move(line));
  }
  return lines;
}

std::vector<SourceLine> read_lines(const std::filesystem::path& file, Problems& problems) {
  std::ifstream in(file, std::ios::binary);
  const std::string text{std::istreambuf_iterator<char>(in), {}};
  if (!in.is_open() || in.bad()) {
    problems.add(file, 0, "could not be read");
    return {};
  }
  return split_lines(text, file);
}

void report(Problems& problems, const Origin& origin, std::string_view text) {
  problems.add(origin.file, origin.line, text);
}

std::optional<std::vector<double>> numbers(const SourceLine& line, std::size_t first) {
  std::vector<double> result;
  for (std::size_t i = first; i < line.words.size(); ++i) {
    const std::optional<double> number = parse_number(line.words[i]);
    if (!number) return std::nullopt;
    result.push_back(*number);
  }
  return result;
}

std::optional<Side> parse_side(std::string_view word) {
  if (word == "left") return Side::Left;
  if (word == "right") return Side::Right;
  if (word == "up" || word == "above") return Side::Up;
  if (word == "down" || word == "below") return Side::Down;
  return std::nullopt;
}

std::optional<Align> parse_align(std::string_view word) {
  if (word == "left") return Align::Left;
  if (word == "centre") return Align::Centre;
  if (word == "right") return Align::Right;
  return std::nullopt;
}

}  // namespace vantrel::drawing
