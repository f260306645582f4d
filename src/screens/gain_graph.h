#pragma once

#include <QPixmap>
#include <QWidget>
#include <optional>

#include "screens/design_window.h"
#include "waveforms/operating_points_graph_curves.h"

namespace vantrel {

/// The operating-points graph on a widget. It is drawn anew when the graph asks for it, at another
/// size and in another theme; painting shows the last drawing and the cursor.
class GainGraph : public QWidget {
  Q_OBJECT

 public:
  GainGraph(Workbench bench, QWidget* parent = nullptr);

  /// Draws anew as soon as the pending events are through.
  void scheduleDraw();
  /// Moves both ends of the frequency axis by so many Hz.
  void setOffset(double hertz);
  double offset() const { return offset_; }
  /// Frequencies at the ends of the axis; nothing while inputs are missing.
  std::optional<GainScale> scale() const;
  /// The last drawing.
  const QPixmap& drawing() const { return drawing_; }
  /// Frequency and gains under the cursor, empty without one.
  QString readout() const;
  /// Number of drawings so far.
  int drawCount() const { return draws_; }

 signals:
  /// A drawing is done.
  void drawn();
  /// The cursor has moved, appeared or gone.
  void cursorMoved();

 protected:
  void paintEvent(QPaintEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  void showEvent(QShowEvent* event) override;
  void mouseMoveEvent(QMouseEvent* event) override;
  void leaveEvent(QEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void wheelEvent(QWheelEvent* event) override;

 private:
  void draw();
  void setCursorAt(std::optional<double> hertz);
  void bringInSight(double hertz);
  Size area() const { return {static_cast<double>(width()), static_cast<double>(height())}; }

  Workbench bench_;
  QPixmap drawing_;
  double offset_ = 0;
  std::optional<double> cursor_;  ///< Hz
  bool due_ = false;
  int draws_ = 0;
};

}  // namespace vantrel
