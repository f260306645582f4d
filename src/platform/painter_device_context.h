#pragma once

#include <QFont>
#include <QFontMetricsF>
#include <optional>

#include "core/device_context.h"

class QPainter;

namespace vantrel {

/// Draws through a painter: on a window, a printer page or a picture. The painter is set up by the
/// caller so that one of its units is a pixel of 1/96 inch, and outlives this.
class PainterDeviceContext : public DeviceContext {
 public:
  PainterDeviceContext(QPainter& painter, Size size);

  Size size() const override { return size_; }
  Size textExtent(std::string_view words) override;

 private:
  void drawPolyline(std::span<const Point> points) override;
  void drawPolygon(std::span<const Point> points) override;
  void drawPolyPolygon(std::span<const std::vector<Point>> outlines) override;
  void drawRectangle(const Box& box) override;
  void drawEllipse(const Box& box) override;
  void drawText(Point at, std::string_view words) override;
  void drawImage(const Box& box, std::span<const std::uint8_t> file) override;
  /// Hands what has changed of pen, brush, font and clip over.
  void settle();
  /// The font of the state; making one is dear.
  const QFont& font();

  QPainter& painter_;
  Size size_;
  std::optional<DrawingState> handed_over_;
  Font font_made_;
  QFont qt_font_;
  std::optional<QFontMetricsF> extents_;  ///< Of the same font.
};

}  // namespace vantrel
