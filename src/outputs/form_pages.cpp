#include "outputs/form_pages.h"

#include <algorithm>
#include <memory>
#include <string_view>
#include <utility>

#include "core/theme.h"
#include "outputs/page_breaks.h"

namespace vantrel {
namespace {

/// Larger letters than these do not read better.
constexpr double kMostScale = 1.35;
/// Lines below the top of a frame or a tab that stay with its caption.
constexpr double kLinesWithCaption = 2;
constexpr double kLinesWithTab = 3;
constexpr double kTabRule = 2;

bool is_frame(const PlacedControl& placed) { return placed.type == "Frame"; }
bool is_tab(const PlacedControl& placed) { return placed.type == "Tab"; }

std::vector<KeptTogether> kept_together(const FormLayout& layout) {
  std::vector<KeptTogether> kept;
  for (const PlacedControl& placed : layout.controls) {
    const double top = placed.place.top;
    if (is_frame(placed)) {
      kept.push_back({top, placed.place.bottom(), Keeping::Frame});
      kept.push_back({top, top + kLinesWithCaption * kFormLine, Keeping::Row});
    } else if (is_tab(placed)) {
      kept.push_back({top, top + kLinesWithTab * kFormLine, Keeping::Row});
    } else {
      kept.push_back({top, placed.place.bottom(), Keeping::Row});
    }
    for (const PlacedText& text : placed.texts) {
      kept.push_back({text.at.y, text.at.y + kFormLine, Keeping::Line});
    }
  }
  return kept;
}

/// Draws the part of a form that stands on one page.
class FormDrawing {
 public:
  FormDrawing(DeviceContext& surface, PageSpan page, Font font)
      : surface_(surface), page_(page), font_(std::move(font)) {}

  void draw(const FormLayout& layout) {
    surface_.setPen({theme_colour(Role::PanelBorder, Theme::Print), 0.75, {}});
    surface_.setTextColour(theme_colour(Role::Text, Theme::Print));
    for (const PlacedControl& placed : layout.controls) {
      if (is_frame(placed)) edges(placed.place);
      if (is_tab(placed)) rule(placed);
    }
    for (const PlacedControl& placed : layout.controls) {
      for (const PlacedText& text : placed.texts) write(text);
    }
  }

 private:
  /// The edges of a frame; where the page cuts it, it stays open.
  void edges(const Box& frame) {
    const double top = std::max(frame.top, page_.top) - page_.top;
    const double bottom = std::min(frame.bottom(), page_.bottom) - page_.top;
    if (bottom <= top) return;
    line({frame.left, top}, {frame.left, bottom});
    line({frame.right(), top}, {frame.right(), bottom});
    if (frame.top >= page_.top) line({frame.left, top}, {frame.right(), top});
    if (frame.bottom() <= page_.bottom) line({frame.left, bottom}, {frame.right(), bottom});
  }

  void rule(const PlacedControl& tab) {
    if (tab.texts.empty()) return;
    const double y = tab.texts.back().at.y + kFormLine - kTabRule;
    if (y < page_.top || y > page_.bottom) return;
    line({tab.place.left, y - page_.top}, {tab.place.right(), y - page_.top});
  }

  void line(Point from, Point to) {
    surface_.moveTo(from);
    surface_.lineTo(to);
  }

  void write(const PlacedText& text) {
    if (text.at.y < page_.top || text.at.y >= page_.bottom) return;
    font_.bold = text.bold;
    surface_.setFont(font_);
    surface_.setTextAlign({text.align, VerticalAlign::Middle});
    surface_.text({text.at.x, text.at.y + kFormLine / 2 - page_.top}, text.words);
  }

  DeviceContext& surface_;
  PageSpan page_;
  Font font_;
};

}  // namespace

std::vector<PrintPage> form_pages(FormLayout layout, Size sheet, const Font& font) {
  const double scale = std::min(sheet.width / layout.size.width, kMostScale);
  const auto form = std::make_shared<const FormLayout>(std::move(layout));
  std::vector<PrintPage> pages;
  for (const PageSpan& span :
       page_spans(kept_together(*form), form->size.height, sheet.height / scale)) {
    PrintPart part{{}, scale, {form->size.width, span.bottom - span.top}, {}};
    part.draw = [form, span, font](DeviceContext& surface) {
      FormDrawing(surface, span, font).draw(*form);
    };
    pages.push_back({{std::move(part)}});
  }
  return pages;
}

}  // namespace vantrel
