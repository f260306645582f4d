#include "screens/gain_graph.h"

#include <QMouseEvent>
#include <QPainter>
#include <QTimer>
#include <QToolTip>
#include <algorithm>

#include "core/fault.h"
#include "platform/painter_device_context.h"
#include "screens/view_connection.h"

namespace vantrel {

namespace {

constexpr double kCursorStep = 100;  // Hz
constexpr double kLargeCursorStep = 1000;
constexpr double kScrollStep = 1000;  // Hz for one notch of the wheel
constexpr double kNotch = 120;

}  // namespace

GainGraph::GainGraph(Workbench bench, QWidget* parent) : QWidget(parent), bench_(bench) {
  setObjectName("graph");
  setAccessibleName("Operating points graph");
  setFocusPolicy(Qt::StrongFocus);
  setMouseTracking(true);
  setMinimumSize(420, 300);
  connect_view(bench.session.graphOperatingPoints().layoutChanged, this,
               [this] { scheduleDraw(); });
  // A selection has taken the results away; results that are merely old stay on show.
  connect_view(bench.status.changed, this, [this] {
    if (bench_.status.state() == DesignStatus::State::Empty) scheduleDraw();
  });
  connect_view(bench.look.changed, this, [this] { scheduleDraw(); });
}

void GainGraph::scheduleDraw() {
  if (due_) return;
  due_ = true;
  // Never from within a paint or a calculation: a drawing that fails tells the user.
  if (isVisible()) QTimer::singleShot(0, this, [this] { draw(); });
}

void GainGraph::draw() {
  if (!due_ || !isVisible()) return;
  due_ = false;
  ++draws_;
  const qreal ratio = devicePixelRatioF();
  drawing_ = QPixmap((QSizeF(size()) * ratio).toSize());
  drawing_.setDevicePixelRatio(ratio);
  drawing_.fill(bench_.look.colour(Role::Panel));
  {
    QPainter painter(&drawing_);
    painter.setRenderHint(QPainter::Antialiasing);
    PainterDeviceContext surface(painter, area());
    bench_.session.operatingPointsGraph().RenderOperatingPoints(surface, bench_.look.theme(),
                                                                offset_, offset_);
  }
  update();
  emit drawn();
  emit cursorMoved();
}

std::optional<GainScale> GainGraph::scale() const {
  try {
    const auto inputs = read_graph_inputs(bench_.session.advanced(), nullptr);
    if (inputs) return GainScale(area(), *inputs, offset_, offset_);
  } catch (const Fault&) {
    // The drawing itself tells of inputs that make no graph.
  }
  return std::nullopt;
}

QString GainGraph::readout() const {
  const auto axes = scale();
  if (!axes || !cursor_) return {};
  const Point at{axes->x(*cursor_), axes->plot.top + axes->plot.height / 2};
  return to_qstring(bench_.session.operatingPointsGraph().tttext(at, area(), offset_, offset_));
}

void GainGraph::setOffset(double hertz) {
  const double offset = std::max(0.0, hertz);
  if (offset == offset_) return;
  offset_ = offset;
  scheduleDraw();
}

void GainGraph::setCursorAt(std::optional<double> hertz) {
  cursor_ = hertz;
  update();
  emit cursorMoved();
}

void GainGraph::bringInSight(double hertz) {
  const auto axes = scale();
  if (!axes) return;
  if (hertz < axes->start) setOffset(offset_ - (axes->start - hertz));
  if (hertz > axes->end) setOffset(offset_ + (hertz - axes->end));
}

void GainGraph::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  if (drawing_.isNull()) {
    painter.fillRect(rect(), bench_.look.colour(Role::Panel));
    return;
  }
  painter.drawPixmap(0, 0, drawing_);
  const auto axes = scale();
  if (axes && cursor_ && *cursor_ >= axes->start && *cursor_ <= axes->end) {
    painter.setPen(QPen(bench_.look.colour(Role::Muted), 1, Qt::DashLine));
    const double x = axes->x(*cursor_);
    painter.drawLine(QPointF(x, axes->plot.top), QPointF(x, axes->plot.bottom()));
  }
  if (hasFocus()) {
    painter.setPen(bench_.look.colour(Role::Accent));
    painter.drawRect(rect().adjusted(0, 0, -1, -1));
  }
}

void GainGraph::resizeEvent(QResizeEvent* event) {
  QWidget::resizeEvent(event);
  scheduleDraw();
}

void GainGraph::showEvent(QShowEvent* event) {
  QWidget::showEvent(event);
  // What was asked for while hidden had no timer.
  due_ = false;
  scheduleDraw();
}

void GainGraph::mouseMoveEvent(QMouseEvent* event) {
  const auto axes = scale();
  const QPointF at = event->position();
  if (!axes || !axes->plot.contains({at.x(), at.y()})) {
    QToolTip::hideText();
    return;
  }
  setCursorAt(axes->frequency(at.x() - axes->plot.left));
  QToolTip::showText(event->globalPosition().toPoint(), readout(), this);
}

void GainGraph::leaveEvent(QEvent* event) {
  QWidget::leaveEvent(event);
  if (!hasFocus()) setCursorAt(std::nullopt);
}

void GainGraph::keyPressEvent(QKeyEvent* event) {
  const auto axes = scale();
  const bool large = (event->modifiers() & Qt::ShiftModifier) != 0;
  const double step = large ? kLargeCursorStep : kCursorStep;
  double direction = 0;
  if (event->key() == Qt::Key_Left) direction = -1;
  if (event->key() == Qt::Key_Right) direction = 1;
  if (!axes || direction == 0) {
    QWidget::keyPressEvent(event);
    return;
  }
  if ((event->modifiers() & Qt::ControlModifier) != 0) {
    setOffset(offset_ + direction * kScrollStep);
    return;
  }
  const double from = cursor_.value_or((axes->start + axes->end) / 2);
  const double to = cursor_ ? std::max(kCursorStep, from + direction * step) : from;
  bringInSight(to);
  setCursorAt(to);
}

void GainGraph::wheelEvent(QWheelEvent* event) {
  const QPoint turn = event->angleDelta();
  const double notches = (turn.x() != 0 ? turn.x() : turn.y()) / kNotch;
  setOffset(offset_ - notches * kScrollStep);
  event->accept();
}

}  // namespace vantrel
