#include "platform/painter_device_context.h"

#include <QFontMetricsF>
#include <QImage>
#include <QPainter>
#include <QPainterPath>
#include <QPen>
#include <QPointF>
#include <QPolygonF>
#include <QString>
#include <algorithm>
#include <cmath>

namespace vantrel {

namespace {

QColor qt(Colour colour) { return {colour.red, colour.green, colour.blue, colour.alpha}; }
QPointF qt(Point point) { return {point.x, point.y}; }
QRectF qt(const Box& box) { return {box.left, box.top, box.width, box.height}; }
QString qt(std::string_view text) {
  return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

QPolygonF qt(std::span<const Point> points) {
  QPolygonF polygon;
  polygon.reserve(static_cast<qsizetype>(points.size()));
  for (const Point point : points) polygon.append(qt(point));
  return polygon;
}

QPen qt(const Pen& pen) {
  QPen result(qt(pen.colour), pen.width);
  result.setJoinStyle(Qt::RoundJoin);
  result.setCapStyle(pen.dashes.empty() ? Qt::RoundCap : Qt::FlatCap);
  if (!pen.dashes.empty()) {
    QList<qreal> pattern;
    for (const double length : pen.dashes) pattern.append(length / std::max(pen.width, 0.1));
    result.setDashPattern(pattern);
  }
  return result;
}

Qt::FillRule qt(FillRule rule) {
  return rule == FillRule::Winding ? Qt::WindingFill : Qt::OddEvenFill;
}

int whole_size(const Font& font) {
  return std::max(1, static_cast<int>(std::nearbyint(font.size)));
}

/// Fonts come in whole pixels; what the wanted size has beyond them is scaled.
double beyond_whole(const Font& font) { return font.size > 0 ? font.size / whole_size(font) : 1; }

/// What stands for a face that this machine may not have: the first one that is there.
QStringList families(const std::string& face) {
  if (face == "MS Sans Serif") return {"MS Sans Serif", "Liberation Sans", "DejaVu Sans"};
  return {qt(std::string_view(face))};
}

QFont qt(const Font& font) {
  QFont result;
  result.setFamilies(families(font.face));
  result.setStyleHint(QFont::SansSerif);
  result.setPixelSize(whole_size(font));
  result.setBold(font.bold);
  result.setItalic(font.italic);
  // Widths that do not depend on the resolution, so that every output has the same layout.
  result.setHintingPreference(QFont::PreferNoHinting);
  return result;
}

double left_of(HorizontalAlign align, double width) {
  if (align == HorizontalAlign::Left) return 0;
  return align == HorizontalAlign::Centre ? -width / 2 : -width;
}

/// Distance of the baseline below the point that the text is aligned to.
double baseline_below(VerticalAlign align, double ascent, double descent) {
  switch (align) {
    case VerticalAlign::Top:
      return ascent;
    case VerticalAlign::Middle:
      return (ascent - descent) / 2;
    case VerticalAlign::Baseline:
      return 0;
    case VerticalAlign::Bottom:
      break;
  }
  return -descent;
}

}  // namespace

PainterDeviceContext::PainterDeviceContext(QPainter& painter, Size size)
    : painter_(painter), size_(size) {
  painter_.setRenderHints(QPainter::Antialiasing | QPainter::TextAntialiasing);
}

void PainterDeviceContext::settle() {
  if (!takeChanged()) return;
  const DrawingState& now = state();
  const DrawingState* const before = handed_over_ ? &*handed_over_ : nullptr;
  if (before == nullptr || before->pen != now.pen) {
    painter_.setPen(now.pen ? qt(*now.pen) : QPen(Qt::NoPen));
  }
  if (before == nullptr || before->brush != now.brush) {
    painter_.setBrush(now.brush ? QBrush(qt(*now.brush)) : QBrush(Qt::NoBrush));
  }
  if (before == nullptr || before->font != now.font) painter_.setFont(font());
  if (before == nullptr || before->clip != now.clip) {
    if (now.clip) {
      painter_.setClipRect(qt(*now.clip));
    } else {
      painter_.setClipping(false);
    }
  }
  handed_over_ = now;
}

const QFont& PainterDeviceContext::font() {
  if (!extents_ || font_made_ != state().font) {
    font_made_ = state().font;
    qt_font_ = qt(font_made_);
    extents_.emplace(qt_font_);
  }
  return qt_font_;
}

void PainterDeviceContext::drawPolyline(std::span<const Point> points) {
  settle();
  if (points.size() == 2) {
    painter_.drawLine(qt(points[0]), qt(points[1]));
  } else {
    painter_.drawPolyline(qt(points));
  }
}

void PainterDeviceContext::drawPolygon(std::span<const Point> points) {
  settle();
  painter_.drawPolygon(qt(points), qt(state().fillRule));
}

void PainterDeviceContext::drawPolyPolygon(std::span<const std::vector<Point>> outlines) {
  settle();
  QPainterPath path;
  path.setFillRule(qt(state().fillRule));
  for (const std::vector<Point>& outline : outlines) {
    path.addPolygon(qt(std::span(outline)));
    path.closeSubpath();
  }
  painter_.drawPath(path);
}

void PainterDeviceContext::drawRectangle(const Box& box) {
  settle();
  painter_.drawRect(qt(box));
}

void PainterDeviceContext::drawEllipse(const Box& box) {
  settle();
  painter_.drawEllipse(qt(box));
}

Size PainterDeviceContext::textExtent(std::string_view words) {
  font();
  const double scale = beyond_whole(state().font);
  return {extents_->horizontalAdvance(qt(words)) * scale, extents_->height() * scale};
}

void PainterDeviceContext::drawText(Point at, std::string_view words) {
  settle();
  const QFontMetricsF metrics(painter_.font());
  const QString text = qt(words);
  const TextAlign align = state().textAlign;
  const QPointF start(left_of(align.horizontal, metrics.horizontalAdvance(text)),
                      baseline_below(align.vertical, metrics.ascent(), metrics.descent()));
  painter_.save();
  painter_.setPen(qt(state().textColour));
  painter_.translate(qt(at));
  painter_.rotate(-state().font.angle);
  const double scale = beyond_whole(state().font);
  if (scale != 1) painter_.scale(scale, scale);
  painter_.drawText(start, text);
  painter_.restore();
}

void PainterDeviceContext::drawImage(const Box& box, std::span<const std::uint8_t> file) {
  settle();
  const QImage image = QImage::fromData(file.data(), static_cast<int>(file.size()));
  if (image.isNull()) return;
  painter_.setRenderHint(QPainter::SmoothPixmapTransform);
  painter_.drawImage(qt(box), image);
}

}  // namespace vantrel
