#include "screens/group_strip.h"

#include <QHBoxLayout>
#include <QPainter>
#include <QScrollBar>
#include <QSignalBlocker>
#include <QWheelEvent>

namespace vantrel {

namespace {

constexpr int kMargin = 8;
constexpr int kLineGap = 4;
constexpr int kTextLines = 3;
constexpr int kPictureLines = 5;
constexpr int kTileGap = 8;
constexpr int kWidthInCharacters = 20;

}  // namespace

GroupTileButton::GroupTileButton(Appearance& look, const ProgramFolder& folder, QWidget* parent)
    : TileButton(look, folder, parent) {
  // The keyboard walks the groups by the arrows and by the list of groups.
  setFocusPolicy(Qt::NoFocus);
  setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
}

void GroupTileButton::show(const GroupTile& tile, bool listed) {
  tile_ = tile;
  listed_ = listed;
  setPicture(tile.picture);
  const QString words =
      to_qstring(tile.firstLine + " " + tile.secondLine + tile.marker).simplified();
  setAccessibleName(words);
  setToolTip(words);
  setVisible(tile.groupIndex >= 0);
}

QSize GroupTileButton::sizeHint() const {
  const QFontMetrics metrics(font());
  const int lines = kTextLines * (metrics.height() + kLineGap);
  return {metrics.averageCharWidth() * kWidthInCharacters,
          kPictureLines * metrics.height() + lines + 2 * kMargin};
}

void GroupTileButton::DrawXButton(QPainter& painter) {
  paintPlate(painter, listed_);
  const QRect inner = rect().adjusted(kMargin, kMargin, -kMargin, -kMargin);
  const int height = QFontMetrics(font()).height();
  const int text_top = inner.bottom() - kTextLines * (height + kLineGap);
  picture().paint(painter, QRectF(inner.left(), inner.top(), inner.width(), text_top - inner.top()),
                  look_, isEnabled());
  QRect line(inner.left(), text_top + kLineGap, inner.width(), height);
  const QColor text = look_.colour(Role::Text);
  writeLine(painter, line, boldFont(1), text, Qt::AlignHCenter, to_qstring(tile_.firstLine));
  line.translate(0, height + kLineGap);
  writeLine(painter, line, font(), text, Qt::AlignHCenter, to_qstring(tile_.secondLine));
  line.translate(0, height + kLineGap);
  writeLine(painter, line, boldFont(1), look_.colour(Role::Accent), Qt::AlignHCenter,
            to_qstring(tile_.marker).trimmed());
}

GroupStrip::GroupStrip(browser_control& browser, Appearance& look, const ProgramFolder& folder,
                       QWidget* parent)
    : QWidget(parent), browser_(browser), scroll_(new QScrollBar(Qt::Horizontal, this)) {
  auto* column = new QVBoxLayout(this);
  column->setContentsMargins(0, 0, 0, 0);
  column->setSpacing(kTileGap);
  scroll_->setObjectName("groups.scroll");
  scroll_->setAccessibleName("Groups in sight");
  scroll_->setPageStep(kGroupsInSight);
  column->addWidget(scroll_);
  auto* row = new QHBoxLayout;
  row->setSpacing(kTileGap);
  for (GroupTileButton*& tile : tiles_) {
    tile = new GroupTileButton(look, folder, this);
    row->addWidget(tile, 1);
    connect(tile, &QAbstractButton::clicked, this,
            [this, pressed = tile] { emit groupPressed(pressed->groupIndex()); });
  }
  column->addLayout(row);
  connect(scroll_, &QScrollBar::valueChanged, this, [this](int position) {
    browser_.ScrollPosition(position);
    refresh();
  });
  refresh();
}

void GroupStrip::refresh() {
  const QSignalBlocker quiet(scroll_);
  scroll_->setRange(0, browser_.ScrollMaximum());
  scroll_->setValue(browser_.ScrollPosition());
  scroll_->setEnabled(browser_.ScrollMaximum() > 0);
  const std::vector<GroupTile> in_sight = SelectionPictures(browser_);
  for (std::size_t i = 0; i < tiles_.size(); ++i) {
    const GroupTile tile = i < in_sight.size() ? in_sight[i] : GroupTile();
    tiles_[i]->setObjectName("group." + QString::number(i));
    tiles_[i]->show(tile, tile.groupIndex == browser_.ListedGroup());
  }
}

void GroupStrip::wheelEvent(QWheelEvent* event) {
  const QPoint turn = event->angleDelta();
  const int step = turn.y() != 0 ? turn.y() : turn.x();
  if (step != 0) scroll_->setValue(scroll_->value() + (step < 0 ? 1 : -1));
  event->accept();
}

}  // namespace vantrel
