#include "screens/theme_style.h"

#include <QPainter>
#include <QPushButton>
#include <QStyleOption>

namespace vantrel {

namespace {

constexpr char kMainAction[] = "mainAction";
constexpr char kOwnBackground[] = "ownBackground";
constexpr qreal kCorner = 3;
constexpr int kIndicatorSize = 15;

bool is_marked(const QWidget* widget, const char* mark) {
  return widget != nullptr && widget->property(mark).toBool();
}

}  // namespace

ThemeStyle::ThemeStyle(const Appearance& look) : QProxyStyle("Fusion"), look_(look) {}

void ThemeStyle::setMainAction(QPushButton& button) {
  button.setProperty(kMainAction, true);
  button.setDefault(true);
}

void ThemeStyle::setOwnBackground(QWidget& editor) { editor.setProperty(kOwnBackground, true); }

void ThemeStyle::drawEdge(QPainter& painter, const QRectF& box, bool focused, bool enabled) const {
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setPen(QPen(look_.colour(!enabled  ? Role::PanelBorder
                                   : focused ? Role::Accent
                                             : Role::InputBorder),
                      focused ? 2 : 1));
  painter.setBrush(look_.colour(Role::Input));
  const qreal inset = focused ? 1 : 0.5;
  painter.drawRoundedRect(box.adjusted(inset, inset, -inset, -inset), kCorner, kCorner);
}

void ThemeStyle::drawTick(QPainter& painter, const QStyleOption& option, bool round) const {
  const bool enabled = (option.state & State_Enabled) != 0;
  const bool on = (option.state & (State_On | State_NoChange)) != 0;
  const QRectF box = QRectF(option.rect).adjusted(0.5, 0.5, -0.5, -0.5);
  const qreal corner = round ? box.width() / 2 : kCorner;
  painter.save();
  painter.setRenderHint(QPainter::Antialiasing);
  const QColor edge = look_.colour(!enabled ? Role::Disabled : Role::InputBorder);
  const QColor filled = look_.colour(!enabled ? Role::Disabled : Role::Accent);
  painter.setPen(on ? filled : edge);
  painter.setBrush(on ? filled : look_.colour(Role::Input));
  painter.drawRoundedRect(box, corner, corner);
  if (on && round) {
    painter.setPen(Qt::NoPen);
    painter.setBrush(look_.colour(Role::OnAccent));
    const qreal inset = box.width() * 0.3;
    painter.drawEllipse(box.adjusted(inset, inset, -inset, -inset));
  } else if (on) {
    painter.setPen(
        QPen(look_.colour(Role::OnAccent), 2, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    const QPointF corners[] = {{box.left() + box.width() * 0.22, box.top() + box.height() * 0.52},
                               {box.left() + box.width() * 0.42, box.top() + box.height() * 0.72},
                               {box.left() + box.width() * 0.78, box.top() + box.height() * 0.3}};
    painter.drawPolyline(corners, 3);
  }
  painter.restore();
}

void ThemeStyle::drawPrimitive(PrimitiveElement element, const QStyleOption* option,
                               QPainter* painter, const QWidget* widget) const {
  switch (element) {
    case PE_PanelButtonCommand:
      if (!is_marked(widget, kMainAction)) break;
      painter->save();
      painter->setRenderHint(QPainter::Antialiasing);
      {
        const bool enabled = (option->state & State_Enabled) != 0;
        QColor fill = look_.colour(enabled ? Role::Accent : Role::PanelBorder);
        if ((option->state & State_Sunken) != 0) fill = fill.darker(115);
        painter->setPen(Qt::NoPen);
        painter->setBrush(fill);
        painter->drawRoundedRect(option->rect, kCorner, kCorner);
        if ((option->state & State_HasFocus) != 0) {
          painter->setPen(look_.colour(Role::OnAccent));
          painter->setBrush(Qt::NoBrush);
          painter->drawRoundedRect(QRectF(option->rect).adjusted(2.5, 2.5, -2.5, -2.5), 2, 2);
        }
      }
      painter->restore();
      return;
    case PE_PanelLineEdit:
      if (is_marked(widget, kOwnBackground)) return;
      if (const auto* frame = qstyleoption_cast<const QStyleOptionFrame*>(option);
          frame != nullptr && frame->lineWidth > 0) {
        painter->save();
        drawEdge(*painter, option->rect, (option->state & State_HasFocus) != 0,
                 (option->state & State_Enabled) != 0);
        painter->restore();
        return;
      }
      break;
    case PE_IndicatorCheckBox:
      drawTick(*painter, *option, false);
      return;
    case PE_IndicatorRadioButton:
      drawTick(*painter, *option, true);
      return;
    default:
      break;
  }
  QProxyStyle::drawPrimitive(element, option, painter, widget);
}

void ThemeStyle::drawControl(ControlElement element, const QStyleOption* option, QPainter* painter,
                             const QWidget* widget) const {
  const auto* button = qstyleoption_cast<const QStyleOptionButton*>(option);
  if (element == CE_PushButtonLabel && button != nullptr && is_marked(widget, kMainAction)) {
    QStyleOptionButton label(*button);
    const bool enabled = (option->state & State_Enabled) != 0;
    label.palette.setColor(QPalette::ButtonText,
                           look_.colour(enabled ? Role::OnAccent : Role::Disabled));
    QProxyStyle::drawControl(element, &label, painter, widget);
    return;
  }
  QProxyStyle::drawControl(element, option, painter, widget);
}

int ThemeStyle::pixelMetric(PixelMetric metric, const QStyleOption* option,
                            const QWidget* widget) const {
  switch (metric) {
    case PM_IndicatorWidth:
    case PM_IndicatorHeight:
    case PM_ExclusiveIndicatorWidth:
    case PM_ExclusiveIndicatorHeight:
      return kIndicatorSize;
    case PM_ToolBarIconSize:
      return 20;
    default:
      return QProxyStyle::pixelMetric(metric, option, widget);
  }
}

}  // namespace vantrel
