#include "screens/banner.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QPainter>
#include <QPushButton>

#include "screens/view_connection.h"

namespace vantrel {

namespace {

constexpr int kPictureSize = 16;
constexpr qreal kCorner = 4;

}  // namespace

Banner::Banner(DesignStatus& status, Appearance& look, QWidget* parent)
    : QWidget(parent),
      status_(status),
      look_(look),
      picture_(new QLabel(this)),
      text_(new QLabel(this)),
      button_(new QPushButton(this)) {
  setObjectName("banner");
  text_->setObjectName("banner.text");
  button_->setObjectName("banner.button");
  auto* row = new QHBoxLayout(this);
  row->setContentsMargins(10, 4, 6, 4);
  row->addWidget(picture_);
  row->addWidget(text_, 1);
  row->addWidget(button_);
  text_->setWordWrap(true);
  connect(button_, &QPushButton::clicked, this, [this] {
    if (status_.state() == DesignStatus::State::Stale) {
      emit calculateRequested();
    } else {
      emit detailsRequested();
    }
  });
  connect_view(status.changed, this, [this] { refresh(); });
  connect_view(look.changed, this, [this] { refresh(); });
  refresh();
}

void Banner::refresh() {
  const QString words = to_qstring(status_.bannerText());
  setVisible(!words.isEmpty());
  const bool stale = status_.state() == DesignStatus::State::Stale;
  text_->setText(words);
  setAccessibleName(words);
  button_->setText(stale ? "Calculate (F5)" : "Details...");
  picture_->setPixmap(
      look_.pixmap(stale ? "clock" : "warning", Role::Warning, kPictureSize, devicePixelRatioF()));
  QPalette colours = palette();
  colours.setColor(QPalette::WindowText, look_.colour(Role::Warning));
  text_->setPalette(colours);
  update();
}

void Banner::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setPen(look_.colour(Role::Warning));
  painter.setBrush(look_.colour(Role::WarningBack));
  painter.drawRoundedRect(QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5), kCorner, kCorner);
}

}  // namespace vantrel
