#include "screens/tile_button.h"

#include <QPainter>

namespace vantrel {

namespace {

constexpr qreal kCorner = 5;

}  // namespace

TileButton::TileButton(Appearance& look, const ProgramFolder& folder, QWidget* parent)
    : XButton(look, parent), folder_(folder) {}

void TileButton::setPicture(const std::string& path) {
  picture_.load(folder_, path);
  update();
}

QFont TileButton::boldFont(qreal scale) const {
  QFont bold = font();
  bold.setBold(true);
  bold.setPointSizeF(bold.pointSizeF() * scale);
  return bold;
}

void TileButton::paintPlate(QPainter& painter, bool marked) const {
  painter.setRenderHint(QPainter::Antialiasing);
  const bool accent = marked || hasFocus();
  const XButtonState present = state();
  const Role edge = accent                          ? Role::Accent
                    : present == XButtonState::Over ? Role::InputBorder
                                                    : Role::PanelBorder;
  painter.setPen(QPen(look_.colour(edge), accent ? 2 : 1));
  painter.setBrush(look_.colour(present == XButtonState::Clicked ? Role::Locked : Role::Panel));
  const qreal inset = accent ? 1 : 0.5;
  painter.drawRoundedRect(QRectF(rect()).adjusted(inset, inset, -inset, -inset), kCorner, kCorner);
}

void TileButton::writeLine(QPainter& painter, const QRect& box, const QFont& font,
                           const QColor& colour, int alignment, const QString& text) {
  painter.setFont(font);
  painter.setPen(colour);
  painter.drawText(box, alignment | Qt::AlignVCenter | Qt::TextSingleLine,
                   QFontMetrics(font).elidedText(text, Qt::ElideRight, box.width()));
}

}  // namespace vantrel
