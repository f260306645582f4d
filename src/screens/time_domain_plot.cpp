#include "screens/time_domain_plot.h"

#include <QApplication>
#include <QClipboard>
#include <QMouseEvent>
#include <QPainter>

#include "platform/painter_device_context.h"
#include "screens/view_connection.h"

namespace vantrel {

namespace {

constexpr int kEdge = 12;            // pixels at the ends of the plot that scroll
constexpr int kEdgeInterval = 60;    // ms
constexpr double kZoomFactor = 0.8;  // of the window, for a notch of the wheel
constexpr int kReadoutPadding = 8;
constexpr int kReadoutGap = 16;

}  // namespace

TimeDomainPlot::TimeDomainPlot(Workbench bench, QWidget* parent) : QWidget(parent), bench_(bench) {
  setObjectName("gr");
  setAccessibleName("Time domain graph");
  setMouseTracking(true);
  setFocusPolicy(Qt::StrongFocus);
  setMinimumSize(400, 240);
  setAttribute(Qt::WA_OpaquePaintEvent);
  ScrollLeftRightTimer_.setInterval(kEdgeInterval);
  connect(&ScrollLeftRightTimer_, &QTimer::timeout, this,
          [this] { form().scrollLeft(edge_left_); });
  connect_view(bench.look.changed, this, [this] { scheduleDraw(); });
}

void TimeDomainPlot::scheduleDraw() {
  if (due_) return;
  due_ = true;
  QTimer::singleShot(0, this, [this] { draw(); });
}

void TimeDomainPlot::draw() {
  due_ = false;
  if (!isVisible() || width() <= 0 || height() <= 0) return;
  const qreal ratio = devicePixelRatioF();
  if (drawing_.size() != size() * ratio) {
    drawing_ = QPixmap(size() * ratio);
    drawing_.setDevicePixelRatio(ratio);
  }
  drawing_.fill(bench_.look.colour(Role::TimeBackground));
  QPainter painter(&drawing_);
  painter.setRenderHint(QPainter::Antialiasing);
  PainterDeviceContext surface(painter, area());
  form().pictureSize(area());
  form().render(surface);
  painter.end();
  update();
  emit drawn();
}

void TimeDomainPlot::copy() {
  QPixmap picture = drawing_;
  QPainter painter(&picture);
  PainterDeviceContext surface(painter, area());
  draw_overlay(surface, view(), {{}, form().cursors(), {}}, bench_.look.theme());
  painter.end();
  QApplication::clipboard()->setPixmap(picture);
}

void TimeDomainPlot::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  painter.drawPixmap(0, 0, drawing_);
  if (view().PlotPoints().count() == 0) return;
  painter.setRenderHint(QPainter::Antialiasing);
  TimeDomainOverlay overlay;
  overlay.measuring = form().cursors();
  if (pointer_ && view().plotArea().contains({pointer_->x(), pointer_->y()})) {
    overlay.cursor = view().PlotPoints().columnAtX(pointer_->x());
  }
  if (band_from_ && pointer_) overlay.band = {{*band_from_, pointer_->x()}};
  PainterDeviceContext surface(painter, area());
  draw_overlay(surface, view(), overlay, bench_.look.theme());
  drawReadout(painter);
}

void TimeDomainPlot::drawReadout(QPainter& painter) {
  if (!pointer_ || band_from_) return;
  const QFontMetrics metrics(font());
  const Point pointer{pointer_->x(), pointer_->y()};
  // The form fills the rows; their size decides the place, so it is asked for twice.
  if (!form().DisplayInfo(pointer, {})) return;
  int labels = 0;
  int texts = 0;
  for (const TDInfoRow& row : form().info().rows()) {
    labels = std::max(labels, metrics.horizontalAdvance(to_qstring(row.label)));
    texts = std::max(texts, metrics.horizontalAdvance(to_qstring(row.text)));
  }
  const int line = metrics.height() + 2;
  const auto rows = static_cast<int>(form().info().rows().size());
  if (rows == 0) return;
  const Size size{static_cast<double>(labels + texts + kReadoutGap + 2 * kReadoutPadding),
                  static_cast<double>(rows * line + 2 * kReadoutPadding)};
  const auto box = form().DisplayInfo(pointer, size);
  if (!box) return;
  const QRectF frame(box->left, box->top, box->width, box->height);
  QColor ground = to_qcolor(theme_colour(Role::TimeBackground, Theme::Dark));
  ground.setAlpha(230);
  painter.setPen(to_qcolor(theme_colour(Role::AxisVolts, Theme::Dark)));
  painter.setBrush(ground);
  painter.drawRoundedRect(frame, 4, 4);
  painter.setFont(font());
  double top = frame.top() + kReadoutPadding;
  for (const TDInfoRow& row : form().info().rows()) {
    const QRectF cell(frame.left() + kReadoutPadding, top, frame.width() - 2 * kReadoutPadding,
                      line);
    painter.setPen(to_qcolor(theme_colour(row.colour, Theme::Dark)));
    painter.drawText(cell, Qt::AlignLeft | Qt::AlignVCenter, to_qstring(row.label));
    painter.setPen(to_qcolor(theme_colour(Role::TimeText, Theme::Dark)));
    painter.drawText(cell, Qt::AlignRight | Qt::AlignVCenter, to_qstring(row.text));
    top += line;
  }
}

void TimeDomainPlot::resizeEvent(QResizeEvent*) { scheduleDraw(); }

void TimeDomainPlot::showEvent(QShowEvent*) { scheduleDraw(); }

void TimeDomainPlot::mousePressEvent(QMouseEvent* event) {
  pointer_ = event->position();
  if (event->button() == Qt::RightButton) {
    band_from_ = event->position().x();
    return;
  }
  if (event->button() != Qt::LeftButton) return;
  const Box plot = view().plotArea();
  const double x = event->position().x();
  if (x < plot.left + kEdge || x > plot.right() - kEdge) {
    edge_left_ = x < plot.left + kEdge;
    scrollAtEdge();
    return;
  }
  form().setCursor((event->modifiers() & Qt::ShiftModifier) != 0, x);
  update();
  emit cursorsMoved();
}

void TimeDomainPlot::scrollAtEdge() {
  form().scrollLeft(edge_left_);
  ScrollLeftRightTimer_.start();
}

void TimeDomainPlot::mouseMoveEvent(QMouseEvent* event) {
  pointer_ = event->position();
  if ((event->buttons() & Qt::LeftButton) != 0 && !ScrollLeftRightTimer_.isActive()) {
    form().setCursor((event->modifiers() & Qt::ShiftModifier) != 0, event->position().x());
    emit cursorsMoved();
  }
  update();
}

void TimeDomainPlot::mouseReleaseEvent(QMouseEvent* event) {
  ScrollLeftRightTimer_.stop();
  if (event->button() != Qt::RightButton || !band_from_) return;
  form().zoomSpan(*band_from_, event->position().x());
  band_from_.reset();
  update();
  emit spanChosen();
}

void TimeDomainPlot::leaveEvent(QEvent*) {
  ScrollLeftRightTimer_.stop();
  pointer_.reset();
  update();
}

void TimeDomainPlot::wheelEvent(QWheelEvent* event) {
  const int notches = event->angleDelta().y() + event->angleDelta().x();
  if (notches == 0) return;
  if ((event->modifiers() & Qt::ShiftModifier) != 0) {
    form().scrollLeft(notches > 0);
    return;
  }
  const Box plot = view().plotArea();
  const double share =
      plot.width > 0 ? std::clamp((event->position().x() - plot.left) / plot.width, 0.0, 1.0) : 0.5;
  form().zoomAbout(share, notches > 0 ? kZoomFactor : 1 / kZoomFactor);
}

}  // namespace vantrel
