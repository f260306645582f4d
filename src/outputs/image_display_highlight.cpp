#include "outputs/image_display_highlight.h"

#include <algorithm>
#include <numbers>
#include <utility>

namespace vantrel {

ImageHighlight::ImageHighlight(std::unique_ptr<Timer> timer, std::function<void()> redraw)
    : FlashHighlightTimer_(std::move(timer)), redraw_(std::move(redraw)) {}

void ImageHighlight::start(std::vector<Ring> rings) {
  stop();
  if (rings.empty()) return;
  rings_ = std::move(rings);
  phase_ = 0;
  if (redraw_) redraw_();
  if (FlashHighlightTimer_) FlashHighlightTimer_->start(kHalfPeriod, [this] { tick(); });
}

void ImageHighlight::stop() {
  if (FlashHighlightTimer_) FlashHighlightTimer_->stop();
  if (rings_.empty()) return;
  rings_.clear();
  if (redraw_) redraw_();
}

void ImageHighlight::tick() {
  if (++phase_ >= kHalfPeriods) FlashHighlightTimer_->stop();
  if (redraw_) redraw_();
}

Box ImageHighlight::ringBox(const Box& symbol) {
  constexpr double kSmallest = 32;
  const double width = std::max(symbol.width * std::numbers::sqrt2, kSmallest);
  const double height = std::max(symbol.height * std::numbers::sqrt2, kSmallest);
  return {symbol.left + (symbol.width - width) / 2, symbol.top + (symbol.height - height) / 2,
          width, height};
}

Box ImageHighlight::bounds() const {
  if (rings_.empty()) return {};
  Box all = ringBox(rings_.front().symbol);
  for (const Ring& ring : rings_) {
    const Box box = ringBox(ring.symbol);
    const double right = std::max(all.right(), box.right());
    const double bottom = std::max(all.bottom(), box.bottom());
    all.left = std::min(all.left, box.left);
    all.top = std::min(all.top, box.top);
    all.width = right - all.left;
    all.height = bottom - all.top;
  }
  return all;
}

}  // namespace vantrel
