#include "screens/image_sheet.h"

#include <QKeyEvent>
#include <QPainter>
#include <QScrollBar>
#include <QToolTip>
#include <utility>

#include "platform/painter_device_context.h"
#include "screens/view_connection.h"

namespace vantrel {

namespace {

constexpr double kArrowStep = 40;    // pixels
constexpr int kWheelStep = 120;      // one notch
constexpr double kNotchScroll = 60;  // pixels

Point to_point(QPointF at) { return {at.x(), at.y()}; }

}  // namespace

ImageSheet::ImageSheet(ImageDisplay& images, Appearance& look, QWidget* parent)
    : QAbstractScrollArea(parent), images_(images), look_(look) {
  setObjectName("sheet");
  setAccessibleName("Drawing");
  setFrameShape(QFrame::NoFrame);
  setFocusPolicy(Qt::StrongFocus);
  viewport()->setMouseTracking(true);
  connect_view(images.redrawRequested, this, [this] { refresh(); });
  connect_view(look.changed, this, [this] { viewport()->update(); });
}

void ImageSheet::refresh() {
  showBars();
  viewport()->update();
  emit viewChanged();
}

void ImageSheet::showBars() {
  following_ = true;
  const auto follow = [](QScrollBar& bar, const ImageScrollBar& model) {
    bar.setRange(0, model.visible ? static_cast<int>(model.most) : 0);
    bar.setPageStep(static_cast<int>(model.page));
    bar.setSingleStep(static_cast<int>(kArrowStep));
    bar.setValue(static_cast<int>(model.offset));
  };
  follow(*horizontalScrollBar(), images_.view().horizontal());
  follow(*verticalScrollBar(), images_.view().vertical());
  following_ = false;
}

void ImageSheet::scrollContentsBy(int, int) {
  if (following_) return;
  images_.view().scrollTo({static_cast<double>(horizontalScrollBar()->value()),
                           static_cast<double>(verticalScrollBar()->value())});
  viewport()->update();
}

void ImageSheet::paintEvent(QPaintEvent*) {
  QPainter painter(viewport());
  painter.setRenderHint(QPainter::Antialiasing);
  painter.fillRect(viewport()->rect(), look_.colour(Role::Window));
  PainterDeviceContext surface(painter, {static_cast<double>(viewport()->width()),
                                         static_cast<double>(viewport()->height())});
  images_.redraw(surface);
  const Size sheet = images_.document().size();
  const Point corner = images_.view().origin();
  const double scale = images_.view().scale();
  painter.setClipping(false);
  painter.setPen(look_.colour(Role::PanelBorder));
  painter.setBrush(Qt::NoBrush);
  painter.drawRect(QRectF(corner.x, corner.y, sheet.width * scale, sheet.height * scale));
}

void ImageSheet::resizeEvent(QResizeEvent*) {
  images_.setViewport(
      {static_cast<double>(viewport()->width()), static_cast<double>(viewport()->height())});
  // The first document was laid out before there was a window to fit it to.
  if (!std::exchange(fitted_, true)) images_.CheckForAutoZoomIn();
  refresh();
}

void ImageSheet::zoom(bool closer, QPointF at) {
  const bool changed =
      closer ? images_.view().zoomIn(to_point(at)) : images_.view().zoomOut(to_point(at));
  if (changed) refresh();
}

void ImageSheet::wheelEvent(QWheelEvent* event) {
  const int notches = event->angleDelta().y();
  if ((event->modifiers() & Qt::ControlModifier) != 0) {
    if (notches != 0) zoom(notches > 0, event->position());
    return;
  }
  QScrollBar& bar =
      (event->modifiers() & Qt::ShiftModifier) != 0 ? *horizontalScrollBar() : *verticalScrollBar();
  bar.setValue(bar.value() - static_cast<int>(notches * kNotchScroll / kWheelStep));
}

void ImageSheet::keyPressEvent(QKeyEvent* event) {
  const QPointF pointer = viewport()->mapFromGlobal(QCursor::pos());
  const QPointF at =
      viewport()->rect().contains(pointer.toPoint()) ? pointer : viewport()->rect().center();
  switch (event->key()) {
    case Qt::Key_Plus:
    case Qt::Key_Equal:
      zoom(true, at);
      return;
    case Qt::Key_Minus:
      zoom(false, at);
      return;
    case Qt::Key_Escape:
      if (images_.highlight().rings().empty()) break;
      images_.StopHighlight();
      return;
    default:
      break;
  }
  QAbstractScrollArea::keyPressEvent(event);
}

void ImageSheet::mousePressEvent(QMouseEvent* event) {
  images_.StopHighlight();
  if (event->button() != Qt::MiddleButton) return;
  dragging_ = true;
  drag_from_ = event->position();
  drag_offset_ = {images_.view().horizontal().offset, images_.view().vertical().offset};
  viewport()->setCursor(Qt::ClosedHandCursor);
}

void ImageSheet::mouseMoveEvent(QMouseEvent* event) {
  if (dragging_) {
    const QPointF moved = event->position() - drag_from_;
    images_.view().scrollTo({drag_offset_.x - moved.x(), drag_offset_.y - moved.y()});
    showBars();
    viewport()->update();
    return;
  }
  const QString words = to_qstring(images_.componentText(to_point(event->position())));
  QToolTip::showText(event->globalPosition().toPoint(), words, viewport());
  if (words == pointed_) return;
  pointed_ = words;
  emit pointed(words);
}

void ImageSheet::mouseReleaseEvent(QMouseEvent*) {
  dragging_ = false;
  viewport()->unsetCursor();
}

}  // namespace vantrel
