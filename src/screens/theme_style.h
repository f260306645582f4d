#pragma once

#include <QProxyStyle>

#include "screens/appearance.h"

class QPushButton;

namespace vantrel {

/// Fusion with the edges that it leaves too faint: main actions are flat in the accent colour, and
/// tick boxes, option rings and line edits have the edge of an input.
class ThemeStyle : public QProxyStyle {
 public:
  /// `look` must outlive the style.
  explicit ThemeStyle(const Appearance& look);

  /// Marks the one main action of a window.
  static void setMainAction(QPushButton& button);
  /// Marks a line edit that paints its own background.
  static void setOwnBackground(QWidget& editor);

  void drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                     const QWidget* widget) const override;
  void drawControl(ControlElement element, const QStyleOption* option, QPainter* painter,
                   const QWidget* widget) const override;
  int pixelMetric(PixelMetric metric, const QStyleOption* option,
                  const QWidget* widget) const override;

 private:
  void drawEdge(QPainter& painter, const QRectF& box, bool focused, bool enabled) const;
  void drawTick(QPainter& painter, const QStyleOption& option, bool round) const;

  const Appearance& look_;
};

}  // namespace vantrel
