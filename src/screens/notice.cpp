#include "screens/notice.h"

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

Notice::Notice(Appearance& look, const QString& button, QWidget* parent, const QString& name)
    : QWidget(parent), look_(look), picture_(new QLabel(this)), text_(new QLabel(this)) {
  setObjectName(name);
  text_->setObjectName(name + ".text");
  text_->setWordWrap(true);
  text_->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
  auto* row = new QHBoxLayout(this);
  row->setContentsMargins(10, 4, 6, 4);
  row->addWidget(picture_);
  row->addWidget(text_, 1);
  if (!button.isEmpty()) {
    button_ = new QPushButton(button, this);
    button_->setObjectName(name + ".button");
    row->addWidget(button_);
    connect(button_, &QPushButton::clicked, this, &Notice::buttonClicked, Qt::QueuedConnection);
  }
  connect_view(look.changed, this, [this] { settle(); });
  settle();
  hide();
}

void Notice::tell(const QString& text) {
  text_->setText(text.simplified());
  setAccessibleName(text_->text());
  setVisible(!text_->text().isEmpty());
}

QString Notice::text() const { return text_->text(); }

void Notice::setPicture(const char* name) {
  picture_name_ = name;
  settle();
}

void Notice::setButtonCaption(const QString& caption) { button_->setText(caption); }

void Notice::settle() {
  picture_->setPixmap(
      look_.pixmap(picture_name_, Role::Warning, kPictureSize, devicePixelRatioF()));
  QPalette colours = look_.palette();
  colours.setColor(QPalette::WindowText, look_.colour(Role::Warning));
  text_->setPalette(colours);
  update();
}

void Notice::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setPen(look_.colour(Role::Warning));
  painter.setBrush(look_.colour(Role::WarningBack));
  painter.drawRoundedRect(QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5), kCorner, kCorner);
}

}  // namespace vantrel
