#include "screens/x_button.h"

#include <QKeyEvent>
#include <QStyleOptionButton>
#include <QStylePainter>

#include "screens/view_connection.h"
#include "screens/x_button_tracking.h"

namespace vantrel {

namespace {

constexpr int kImageSize = 16;
constexpr int kPadding = 6;
constexpr qreal kCorner = 4;

}  // namespace

XButton::XButton(Appearance& look, QWidget* parent) : QAbstractButton(parent), look_(look) {
  setFocusPolicy(Qt::StrongFocus);
  setMouseTracking(true);
  setIconSize({kImageSize, kImageSize});
  connect_view(look.changed, this, [this] { update(); });
}

void XButton::ImageList(std::vector<QIcon> images) {
  images_ = std::move(images);
  SetXButtonImage();
}

void XButton::imageOf(XButtonState state, int place) {
  places_[static_cast<std::size_t>(state)] = place;
  SetXButtonImage();
}

void XButton::BorderStyle(XButtonBorder style) {
  border_style_ = style;
  update();
}

void XButton::BorderWidth(int pixels) {
  border_width_ = pixels;
  updateGeometry();
  update();
}

void XButton::FontBold(bool bold) {
  QFont own = font();
  own.setBold(bold);
  setFont(own);
}

void XButton::FontSize(qreal points) {
  QFont own = font();
  own.setPointSizeF(points);
  setFont(own);
}

void XButton::Style(XButtonStyle style) {
  style_ = style;
  updateGeometry();
  update();
}

XButtonState XButton::state() const {
  if (!isEnabled()) return XButtonState::Disabled;
  if (isDown()) return XButtonState::Clicked;
  return over_ ? XButtonState::Over : XButtonState::Enabled;
}

void XButton::SetXButtonImage() {
  const auto has = [this](int place) {
    return place >= 0 && static_cast<std::size_t>(place) < images_.size();
  };
  const int own = imageOf(state());
  const int place = has(own) ? own : ImageEnabled();
  setIcon(has(place) ? images_[static_cast<std::size_t>(place)] : QIcon());
  update();
}

void XButton::EventMouseMoved() {
  if (over_ || !isEnabled()) return;
  over_ = true;
  XButtonTracking::of(*window()).track(*this);
  SetXButtonImage();
}

void XButton::EventMouseLeft() {
  if (!over_) return;
  over_ = false;
  SetXButtonImage();
}

QSize XButton::sizeHint() const {
  const QSize image = icon().isNull() ? QSize() : iconSize();
  const int frame = 2 * (kPadding + border_width_);
  if (style_ == XButtonStyle::Graphic) {
    return iconSize() + QSize(frame + kPadding, frame);
  }
  QStyleOptionButton option;
  option.initFrom(this);
  option.text = text();
  QSize content = fontMetrics().size(Qt::TextShowMnemonic, text());
  if (!image.isEmpty()) {
    content += QSize(image.width() + kPadding, 0);
    content.setHeight(std::max(content.height(), image.height()));
  }
  return style()->sizeFromContents(QStyle::CT_PushButton, &option, content, this);
}

void XButton::DrawXButton(QPainter& painter) {
  if (style_ == XButtonStyle::Graphic) {
    DrawXButtonGraphic(painter);
  } else {
    DrawXButtonNormal(painter);
  }
}

void XButton::DrawXButtonGraphic(QPainter& painter) {
  painter.setRenderHint(QPainter::Antialiasing);
  const XButtonState present = state();
  const bool lit = present == XButtonState::Over || present == XButtonState::Clicked;
  if (lit || hasFocus()) {
    const qreal width = hasFocus() ? 2 : border_width_;
    painter.setPen(QPen(look_.colour(hasFocus() ? Role::Accent : Role::InputBorder), width));
    painter.setBrush(look_.colour(present == XButtonState::Clicked ? Role::Locked : Role::Panel));
    const qreal inset = width / 2;
    painter.drawRoundedRect(QRectF(rect()).adjusted(inset, inset, -inset, -inset), kCorner,
                            kCorner);
  }
  QRect box(QPoint(), iconSize());
  box.moveCenter(rect().center());
  icon().paint(&painter, box, Qt::AlignCenter, isEnabled() ? QIcon::Normal : QIcon::Disabled);
}

void XButton::DrawXButtonNormal(QPainter& painter) {
  QStyleOptionButton option;
  option.initFrom(this);
  option.text = text();
  option.icon = icon();
  option.iconSize = iconSize();
  const XButtonState present = state();
  option.state.setFlag(QStyle::State_MouseOver, present == XButtonState::Over);
  option.state |= present == XButtonState::Clicked ? QStyle::State_Sunken : QStyle::State_Raised;
  if (isChecked()) option.state |= QStyle::State_On;
  if (border_style_ == XButtonBorder::Platform) {
    style()->drawControl(QStyle::CE_PushButtonBevel, &option, &painter, this);
  } else if (border_style_ == XButtonBorder::Line) {
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(
        QPen(look_.colour(hasFocus() ? Role::Accent : Role::InputBorder), border_width_));
    painter.setBrush(look_.colour(present == XButtonState::Clicked ? Role::Locked : Role::Panel));
    const qreal inset = border_width_ / 2.0;
    painter.drawRoundedRect(QRectF(rect()).adjusted(inset, inset, -inset, -inset), kCorner,
                            kCorner);
  }
  style()->drawControl(QStyle::CE_PushButtonLabel, &option, &painter, this);
  if (!hasFocus() || border_style_ != XButtonBorder::None) return;
  painter.setPen(look_.colour(Role::Accent));
  painter.setBrush(Qt::NoBrush);
  painter.drawRect(rect().adjusted(0, 0, -1, -1));
}

bool XButton::event(QEvent* event) {
  const bool taken = QAbstractButton::event(event);
  switch (event->type()) {
    case QEvent::EnabledChange:
      over_ = over_ && isEnabled();
      SetXButtonImage();
      break;
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonRelease:
    case QEvent::KeyPress:
    case QEvent::KeyRelease:
      SetXButtonImage();
      break;
    default:
      break;
  }
  return taken;
}

void XButton::mouseMoveEvent(QMouseEvent* event) {
  QAbstractButton::mouseMoveEvent(event);
  if (rect().contains(event->position().toPoint())) EventMouseMoved();
}

void XButton::enterEvent(QEnterEvent* event) {
  QAbstractButton::enterEvent(event);
  EventMouseMoved();
}

void XButton::keyPressEvent(QKeyEvent* event) {
  if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) {
    click();
    return;
  }
  QAbstractButton::keyPressEvent(event);
}

void XButton::paintEvent(QPaintEvent*) {
  QStylePainter painter(this);
  DrawXButton(painter);
}

}  // namespace vantrel
