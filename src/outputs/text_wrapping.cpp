#include "outputs/text_wrapping.h"

#include <algorithm>

namespace vantrel {

namespace {

/// Length of the character that starts at a place of a UTF-8 text.
std::size_t character_length(std::string_view text, std::size_t at) {
  std::size_t end = at + 1;
  while (end < text.size() && (static_cast<unsigned char>(text[end]) & 0xC0) == 0x80) ++end;
  return end - at;
}

/// The end of the piece that starts at a place: behind the next blank, comma, opening bracket, or
/// hyphen within a word.
std::size_t piece_end(std::string_view text, std::size_t at) {
  for (std::size_t mark = at; (mark = text.find_first_of(" ,(-", mark)) < text.size(); ++mark) {
    const bool leads = text[mark] == '-' && (mark == at || text[mark - 1] == ' ');
    if (!leads) return mark + 1;
  }
  return text.size();
}

std::string_view without_blank(std::string_view text) {
  while (text.ends_with(' ')) text.remove_suffix(1);
  return text;
}

/// How much of a text that is too wide fits; one character at the least.
std::size_t fitting(std::string_view text, const Font& font, double width,
                    const TextMeasure& measure) {
  std::size_t count = character_length(text, 0);
  while (count < text.size()) {
    const std::size_t next = count + character_length(text, count);
    if (measure(font, text.substr(0, next)).width > width) break;
    count = next;
  }
  return count;
}

void wrap_paragraph(std::string_view text, const Font& font, double width,
                    const TextMeasure& measure, std::vector<std::string>& lines) {
  std::string line;
  const auto fits = [&](std::string_view piece) {
    return measure(font, without_blank(line + std::string(piece))).width <= width;
  };
  const auto flush = [&] {
    lines.emplace_back(without_blank(line));
    line.clear();
  };
  for (std::size_t at = 0; at < text.size();) {
    const std::size_t end = piece_end(text, at);
    std::string_view piece = text.substr(at, end - at);
    if (!line.empty() && !fits(piece)) flush();
    while (!fits(piece)) {
      const std::size_t count = fitting(piece, font, width, measure);
      if (count >= piece.size()) break;
      line = piece.substr(0, count);
      flush();
      piece.remove_prefix(count);
    }
    line += piece;
    at = end;
  }
  flush();
}

double widest(const std::vector<double>& widths) {
  return widths.empty() ? 0 : *std::max_element(widths.begin(), widths.end());
}

/// Width of the widest piece that is not broken.
double least_width(std::string_view text, const Font& font, const TextMeasure& measure) {
  std::vector<double> widths;
  for (std::size_t at = 0; at < text.size();) {
    const std::size_t end = piece_end(text, at);
    widths.push_back(measure(font, without_blank(text.substr(at, end - at))).width);
    at = end;
  }
  return widest(widths);
}

/// Shrinks what is wider than an even share of the width until all fit.
void share_out(std::vector<double>& widths, double width) {
  std::vector<double> ascending = widths;
  std::sort(ascending.begin(), ascending.end());
  double most = width;
  for (std::size_t i = 0; i < ascending.size(); ++i) {
    most = width / static_cast<double>(ascending.size() - i);
    if (ascending[i] > most) break;
    width -= ascending[i];
  }
  for (double& each : widths) each = std::min(each, most);
}

double sum(const std::vector<double>& widths) {
  double total = 0;
  for (const double width : widths) total += width;
  return total;
}

/// Widths from the least ones up to the natural ones that fill `width`: all are cut at the same
/// width, so that short columns keep their natural one.
std::vector<double> between(const std::vector<double>& least, const std::vector<double>& natural,
                            double width) {
  constexpr int kSteps = 50;  // halves of the width, down to far below a pixel
  const auto cut_at = [&](double most) {
    std::vector<double> widths = least;
    for (std::size_t i = 0; i < widths.size(); ++i) {
      widths[i] = std::max(least[i], std::min(natural[i], most));
    }
    return widths;
  };
  double cut = 0;
  double step = width;
  for (int i = 0; i < kSteps; ++i) {
    step /= 2;
    if (sum(cut_at(cut + step)) <= width) cut += step;
  }
  return cut_at(cut);
}

}  // namespace

std::vector<std::string> wrapped_text(std::string_view text, const Font& font, double width,
                                      const TextMeasure& measure) {
  std::vector<std::string> lines;
  for (std::size_t begin = 0; begin <= text.size();) {
    const std::size_t end = std::min(text.find('\n', begin), text.size());
    wrap_paragraph(text.substr(begin, end - begin), font, width, measure, lines);
    begin = end + 1;
  }
  return lines;
}

std::string shortened_text(std::string_view text, const Font& font, double width,
                           const TextMeasure& measure) {
  if (measure(font, text).width <= width) return std::string(text);
  constexpr std::string_view kMore = "\u2026";
  const double room = width - measure(font, kMore).width;
  return std::string(text.substr(0, fitting(text, font, room, measure))).append(kMore);
}

std::vector<double> column_widths(const TableGrid& grid, const Font& head, const Font& cell,
                                  double padding, double width, const TextMeasure& measure) {
  std::vector<double> least;
  std::vector<double> natural;
  for (std::size_t i = 0; i < grid.columns.size(); ++i) {
    double shortest = least_width(grid.columns[i].title, head, measure);
    double longest = measure(head, grid.columns[i].title).width;
    for (const TableRow& row : grid.rows) {
      if (i >= row.size()) continue;
      shortest = std::max(shortest, least_width(row[i], cell, measure));
      longest = std::max(longest, measure(cell, row[i]).width);
    }
    least.push_back(shortest + padding);
    natural.push_back(longest + padding);
  }
  const double wanted = sum(natural);
  if (wanted <= width) {
    for (double& each : natural) each *= width / wanted;
    return natural;
  }
  if (sum(least) >= width) {
    share_out(least, width);
    return least;
  }
  return between(least, natural, width);
}

}  // namespace vantrel
