#include "outputs/image_display_layout.h"

#include <optional>
#include <span>
#include <vector>

#include "core/number_text.h"
#include "core/program_folder.h"

namespace vantrel {
namespace {

constexpr std::size_t kLastOverlay = 12;

std::vector<std::string_view> words_of(std::string_view line) {
  constexpr std::string_view kBlanks = " \t\r";
  std::vector<std::string_view> words;
  while (true) {
    const std::size_t start = line.find_first_not_of(kBlanks);
    if (start == std::string_view::npos) return words;
    line.remove_prefix(start);
    const std::size_t length = std::min(line.find_first_of(kBlanks), line.size());
    words.push_back(line.substr(0, length));
    line.remove_prefix(length);
  }
}

/// All words as numbers; nothing when one of them is none.
std::optional<std::vector<double>> numbers_of(std::span<const std::string_view> words) {
  std::vector<double> numbers;
  for (const std::string_view word : words) {
    const auto number = parse_number(word);
    if (!number) return std::nullopt;
    numbers.push_back(*number);
  }
  return numbers;
}

TextSlot slot_of(std::span<const double> numbers) { return {{numbers[0], numbers[1]}, numbers[2]}; }

std::optional<HorizontalAlign> align_of(std::string_view word) {
  if (word == "left") return HorizontalAlign::Left;
  if (word == "centre") return HorizontalAlign::Centre;
  if (word == "right") return HorizontalAlign::Right;
  return std::nullopt;
}

void read_overlay(DrawingLayout& layout, std::string_view key, std::span<const double> n) {
  for (std::size_t number = 1; number <= kLastOverlay; ++number) {
    if (key == std::to_string(number)) layout.overlays[number] = slot_of(n);
  }
}

/// Reads one entry: its kind, a key, numbers, and for a value the word of its alignment.
void read_line(DrawingLayout& layout, std::span<const std::string_view> words) {
  if (words.size() < 3) return;
  const std::string key(words[1]);
  const auto align = words[0] == "value" ? align_of(words.back()) : std::nullopt;
  const auto numbers = numbers_of(words.subspan(2, words.size() - 2 - (align ? 1 : 0)));
  if (!numbers) return;
  const std::vector<double>& n = *numbers;
  if (words[0] == "overlay" && n.size() == 3) read_overlay(layout, key, n);
  if (n.size() != 4) return;
  if (words[0] == "component") layout.components[key] = {n[0], n[1], n[2] - n[0], n[3] - n[1]};
  if (align) layout.values[key] = {slot_of(n), n[3], *align};
}

}  // namespace

DrawingLayout read_drawing_layout(std::string_view text) {
  DrawingLayout layout;
  while (!text.empty()) {
    const std::size_t length = std::min(text.find('\n'), text.size());
    const std::string_view line = text.substr(0, length);
    read_line(layout, words_of(line.substr(0, line.find('#'))));
    text.remove_prefix(std::min(length + 1, text.size()));
  }
  return layout;
}

std::string layout_path(std::string_view drawing) {
  return name_without_extension(drawing) + ".layout";
}

}  // namespace vantrel
