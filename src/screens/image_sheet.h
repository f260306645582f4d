#pragma once

#include <QAbstractScrollArea>

#include "outputs/image_display.h"
#include "screens/appearance.h"

namespace vantrel {

/// The sheet of the image display with its scroll bars: wheel and arrows scroll, Ctrl with the
/// wheel zooms about the pointer, the middle button drags the sheet.
class ImageSheet : public QAbstractScrollArea {
  Q_OBJECT

 public:
  ImageSheet(ImageDisplay& images, Appearance& look, QWidget* parent = nullptr);

  /// Takes over what the model shows now.
  void refresh();

 signals:
  /// The zoom has changed.
  void viewChanged();
  /// The pointer has come to a component, which is named with its value, or left it.
  void pointed(const QString& component);

 protected:
  void paintEvent(QPaintEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  void scrollContentsBy(int dx, int dy) override;
  void wheelEvent(QWheelEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void mouseMoveEvent(QMouseEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;

 private:
  void showBars();
  void zoom(bool closer, QPointF at);

  ImageDisplay& images_;
  Appearance& look_;
  bool following_ = false;  ///< True while the scroll bars are set from the model.
  QPointF drag_from_;
  Point drag_offset_;
  bool dragging_ = false;
  bool fitted_ = false;
  QString pointed_;
};

}  // namespace vantrel
