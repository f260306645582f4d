#include "outputs/page_breaks.h"

#include <algorithm>

#include "core/text_parsing.h"
#include "outputs/text_wrapping.h"

namespace vantrel {
namespace {

/// A page that ends in front of this part of its height is taken for half empty.
constexpr double kWellFilled = 0.5;

/// The latest cut up to `limit` that splits no stretch that is kept at least as much as `keeping`
/// and fits on a page.
double cut_before(std::span<const KeptTogether> kept, double limit, double height,
                  Keeping keeping) {
  double cut = limit;
  for (bool moved = true; moved;) {
    moved = false;
    for (const KeptTogether& each : kept) {
      if (each.keeping > keeping || each.bottom - each.top > height) continue;
      if (each.top >= cut || each.bottom <= cut) continue;
      cut = each.top;
      moved = true;
    }
  }
  return cut;
}

double page_end(std::span<const KeptTogether> kept, double top, double height) {
  for (const Keeping keeping : {Keeping::Frame, Keeping::Row}) {
    const double cut = cut_before(kept, top + height, height, keeping);
    if (cut > top + height * kWellFilled) return cut;
  }
  const double cut = cut_before(kept, top + height, height, Keeping::Line);
  return cut > top ? cut : top + height;
}

}  // namespace

std::vector<PageSpan> page_spans(std::span<const KeptTogether> kept, double length, double height) {
  std::vector<PageSpan> pages;
  double top = 0;
  while (length - top > height) {
    const double bottom = page_end(kept, top, height);
    pages.push_back({top, bottom});
    top = bottom;
  }
  pages.push_back({top, std::max(length, top)});
  return pages;
}

std::vector<std::string> wrapped_lines(DeviceContext& measure, std::string_view text,
                                       double width) {
  const auto extent = [&measure](const Font& /*present*/, std::string_view words) {
    return measure.textExtent(words);
  };
  std::vector<std::string> lines = wrapped_text(text, {}, width, extent);
  for (std::string& line : lines) line = trimmed(line);
  return lines;
}

}  // namespace vantrel
