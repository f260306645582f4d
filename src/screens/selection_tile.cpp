#include "screens/selection_tile.h"

#include <QPainter>

namespace vantrel {

namespace {

constexpr int kMargin = 12;
constexpr int kGap = 16;
constexpr int kLineGap = 3;
constexpr int kChevronSize = 16;
constexpr int kWidthInCharacters = 73;
constexpr qreal kNameScale = 1.2;
/// Width of a group's picture over its height.
constexpr qreal kPictureShape = 160.0 / 96.0;
constexpr const char* kNothing = "Nothing selected";
constexpr const char* kGivenByIc = "given by the target IC";

}  // namespace

SelectionTile::SelectionTile(int slot, Appearance& look, const ProgramFolder& folder,
                             QWidget* parent)
    : TileButton(look, folder, parent), caption_(to_qstring(SlotCaption(slot))) {
  setObjectName("MainButton." + QString::number(slot));
  setFocusPolicy(Qt::StrongFocus);
  setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
}

QString SelectionTile::lastLine() const { return isEnabled() ? group_ : QString(kGivenByIc); }

void SelectionTile::show(const SelectionCard& card, bool available) {
  name_ = card.name.empty() ? QString(kNothing) : to_qstring(card.name);
  group_ = to_qstring(card.group);
  setEnabled(available);
  setPicture(card.picture);
  setAccessibleName(caption_ + ": " + name_);
  setAccessibleDescription(lastLine());
  setToolTip(name_ + "\n" + lastLine());
}

QSize SelectionTile::sizeHint() const {
  const QFontMetrics plain(font());
  const QFontMetrics name(boldFont(kNameScale));
  return {plain.averageCharWidth() * kWidthInCharacters,
          2 * plain.height() + name.height() + 2 * kLineGap + 2 * kMargin};
}

void SelectionTile::DrawXButton(QPainter& painter) {
  paintPlate(painter, false);
  const QRect inner = rect().adjusted(kMargin, kMargin, -kMargin, -kMargin);
  const int picture_width = qRound(inner.height() * kPictureShape);
  picture().paint(painter, QRectF(inner.left(), inner.top(), picture_width, inner.height()), look_,
                  isEnabled());

  const QFont name_font = boldFont(kNameScale);
  const int plain_height = QFontMetrics(font()).height();
  const int name_height = QFontMetrics(name_font).height();
  const QColor muted = look_.colour(isEnabled() ? Role::Muted : Role::Disabled);
  const QColor strong = look_.colour(isEnabled() ? Role::Text : Role::Disabled);
  const int left = inner.left() + picture_width + kGap;
  QRect line(left, inner.top(), inner.right() - kChevronSize - kMargin - left, plain_height);
  writeLine(painter, line, font(), muted, Qt::AlignLeft, caption_);
  line.translate(0, plain_height + kLineGap);
  line.setHeight(name_height);
  writeLine(painter, line, name_font, strong, Qt::AlignLeft, name_);
  line.translate(0, name_height + kLineGap);
  line.setHeight(plain_height);
  writeLine(painter, line, font(), muted, Qt::AlignLeft, lastLine());

  if (!isEnabled()) return;
  painter.drawPixmap(
      QPointF(inner.right() - kChevronSize, rect().center().y() - kChevronSize / 2.0),
      look_.pixmap("chevron", Role::Muted, kChevronSize, devicePixelRatioF()));
}

}  // namespace vantrel
