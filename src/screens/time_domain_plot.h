#pragma once

#include <QPixmap>
#include <QTimer>
#include <QWidget>
#include <optional>

#include "screens/design_window.h"

namespace vantrel {

/// The oscilloscope: the picture of the simulated start with its cursors and the readout beside the
/// pointer. The picture is drawn anew when the form asks for it; pointer and cursors lie over it.
class TimeDomainPlot : public QWidget {
  Q_OBJECT

 public:
  TimeDomainPlot(Workbench bench, QWidget* parent = nullptr);

  /// Draws anew as soon as the pending events are through.
  void scheduleDraw();
  /// Puts the graph, with its cursors, on the clipboard as a picture.
  void copy();
  /// The form has other cursors, or another readout.
  void updateOverlay() { update(); }

 signals:
  void drawn();
  void cursorsMoved();
  /// A span to zoom into has been chosen.
  void spanChosen();

 protected:
  void paintEvent(QPaintEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  void showEvent(QShowEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void mouseMoveEvent(QMouseEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;
  void leaveEvent(QEvent* event) override;
  void wheelEvent(QWheelEvent* event) override;

 private:
  void draw();
  void drawReadout(QPainter& painter);
  void scrollAtEdge();
  Size area() const { return {static_cast<double>(width()), static_cast<double>(height())}; }
  GraphTimeDomain& form() { return bench_.session.timeDomainForm(); }
  TimeDomainView& view() { return bench_.session.timeDomainView(); }

  Workbench bench_;
  QPixmap drawing_;
  QTimer ScrollLeftRightTimer_;
  std::optional<QPointF> pointer_;
  std::optional<double> band_from_;
  bool edge_left_ = false;
  bool due_ = false;
};

}  // namespace vantrel
