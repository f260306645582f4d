#include "screens/trace_button.h"

#include <QPainter>

namespace vantrel {

namespace {

constexpr int kSample = 30;  // pixels
constexpr int kPadding = 10;
constexpr qreal kCorner = 4;

QPen sample_pen(const Pen& pen) {
  QPen sample(to_qcolor(pen.colour), pen.width);
  if (pen.dashes.empty()) return sample;
  QList<qreal> pattern;
  for (const double length : pen.dashes) pattern << length / pen.width;
  sample.setDashPattern(pattern);
  sample.setCapStyle(Qt::FlatCap);
  return sample;
}

}  // namespace

TraceButton::TraceButton(Trace trace, Appearance& look, QWidget* parent)
    : XButton(look, parent), trace_(trace) {
  const QString caption = to_qstring(trace_row(trace).caption);
  setText(caption);
  setObjectName("DisplayToggles." + to_qstring(trace_row(trace).label));
  setAccessibleName(caption);
  setCheckable(true);
  setFocusPolicy(Qt::TabFocus);
  setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
}

QSize TraceButton::sizeHint() const {
  const QFontMetrics metrics(font());
  return {metrics.horizontalAdvance(text()) + kSample + 3 * kPadding, metrics.height() + 14};
}

void TraceButton::DrawXButton(QPainter& painter) {
  painter.setRenderHint(QPainter::Antialiasing);
  const bool on = isChecked();
  const Pen pen = trace_pen(trace_, Theme::Dark);
  painter.setPen(QPen(on ? to_qcolor(pen.colour) : look_.colour(Role::PanelBorder), on ? 2 : 1));
  painter.setBrush(on ? to_qcolor(theme_colour(Role::TimeBackground, Theme::Dark))
                      : look_.colour(Role::Panel));
  painter.drawRoundedRect(QRectF(rect()).adjusted(1, 1, -1, -1), kCorner, kCorner);
  if (hasFocus()) {
    painter.setPen(QPen(look_.colour(Role::Accent), 1));
    painter.setBrush(Qt::NoBrush);
    painter.drawRoundedRect(QRectF(rect()).adjusted(3, 3, -3, -3), kCorner, kCorner);
  }
  const double middle = height() / 2.0;
  painter.setPen(on ? sample_pen(pen) : QPen(look_.colour(Role::Muted), 1));
  painter.drawLine(QPointF(kPadding, middle), QPointF(kPadding + kSample, middle));
  painter.setPen(on ? to_qcolor(theme_colour(Role::TimeText, Theme::Dark))
                    : look_.colour(Role::Muted));
  painter.drawText(rect().adjusted(kSample + 2 * kPadding, 0, 0, 0),
                   Qt::AlignLeft | Qt::AlignVCenter, text());
}

}  // namespace vantrel
