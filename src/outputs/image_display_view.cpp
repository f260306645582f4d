#include "outputs/image_display_view.h"

#include <algorithm>
#include <cmath>

namespace vantrel {
namespace {

constexpr double kLargestScale = 4;
constexpr double kPercent = 100;

/// Tolerates what the rounding of sizes leaves over.
constexpr double kHair = 1e-6;

void settle(ImageScrollBar& bar, double content, double page) {
  bar.page = page;
  bar.visible = content > page + kHair;
  bar.most = bar.visible ? content - page : 0;
  bar.offset = std::clamp(bar.offset, 0.0, bar.most);
}

double origin_of(const ImageScrollBar& bar, double content) {
  return bar.visible ? -bar.offset : (bar.page - content) / 2;
}

double percentage(double place, double length) {
  return length > 0 ? place / length * kPercent : 0;
}

}  // namespace

double ImageView::scale() const { return kLargestScale / std::exp2(level_); }

void ImageView::setDocument(Size size) {
  const Point centre = toDocument(middle());
  document_ = size;
  recalculate_scrollbars();
  place(centre, middle());
}

void ImageView::setViewport(Size size) {
  const Point centre = toDocument(middle());
  viewport_ = size;
  recalculate_scrollbars();
  place(centre, middle());
}

bool ImageView::setLevel(double level, Point anchor) {
  level = std::clamp(level, 0.0, kLastLevel);
  if (level == level_) return false;
  const Point kept = toDocument(anchor);
  level_ = level;
  recalculate_scrollbars();
  place(kept, anchor);
  return true;
}

void ImageView::fit() {
  const double scale = std::min(viewport_.width / std::max(document_.width, 1.0),
                                viewport_.height / std::max(document_.height, 1.0));
  level_ = scale > 0 ? std::clamp(std::log2(kLargestScale / scale), 0.0, kLastLevel) : kLastLevel;
  recalculate_scrollbars();
}

void ImageView::recalculate_scrollbars() {
  settle(horizontal_, document_.width * scale(), viewport_.width);
  settle(vertical_, document_.height * scale(), viewport_.height);
}

void ImageView::scrollTo(Point offset) {
  horizontal_.offset = offset.x;
  vertical_.offset = offset.y;
  recalculate_scrollbars();
}

Point ImageView::origin() const {
  return {origin_of(horizontal_, document_.width * scale()),
          origin_of(vertical_, document_.height * scale())};
}

Point ImageView::toView(Point document) const {
  return {origin().x + document.x * scale(), origin().y + document.y * scale()};
}

Point ImageView::toDocument(Point view) const {
  return {(view.x - origin().x) / scale(), (view.y - origin().y) / scale()};
}

void ImageView::place(Point document, Point view) {
  scrollTo({document.x * scale() - view.x, document.y * scale() - view.y});
}

void ImageView::MoveDisplayTo(double x_percent, double y_percent) {
  place({x_percent / kPercent * document_.width, y_percent / kPercent * document_.height},
        middle());
}

void ImageView::showInMiddle(const Box& document) {
  const Point centre{document.left + document.width / 2, document.top + document.height / 2};
  const Point now = toView(centre);
  const Point then{std::clamp(now.x, viewport_.width / 3, viewport_.width * 2 / 3),
                   std::clamp(now.y, viewport_.height / 3, viewport_.height * 2 / 3)};
  place(centre, then);
}

double ImageView::GetXPercentageOfCentre() const {
  return percentage(toDocument(middle()).x, document_.width);
}

double ImageView::GetYPercentageOfCentre() const {
  return percentage(toDocument(middle()).y, document_.height);
}

double ImageView::GetXPercentageOfLeft() const {
  return percentage(toDocument({}).x, document_.width);
}

double ImageView::GetYPercentageOfTop() const {
  return percentage(toDocument({}).y, document_.height);
}

}  // namespace vantrel
