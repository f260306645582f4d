#include "screens/splash.h"

#include <QCloseEvent>
#include <QGuiApplication>
#include <QKeyEvent>
#include <QPainter>
#include <QScreen>

namespace vantrel {

namespace {

constexpr QSize kSize(480, 280);
constexpr int kOpaque = 255;
constexpr int kFadeStep = 6;
constexpr int kLastOpacity = 10;
// The main screen is to be usable within a second of the start.
constexpr int kFadeInterval = 5;   // ms
constexpr int kDisplayTime = 250;  // ms

}  // namespace

Splash::Splash(const Appearance& look, const QString& version)
    : QWidget(nullptr, Qt::SplashScreen | Qt::FramelessWindowHint), look_(look), version_(version) {
  setObjectName("splash");
  setFixedSize(kSize);
  setAttribute(Qt::WA_DeleteOnClose);
  fade_timer_.setInterval(kFadeInterval);
  splash_timer_.setInterval(kDisplayTime);
  splash_timer_.setSingleShot(true);
  fade_out_timer_.setInterval(kFadeInterval);
  connect(&fade_timer_, &QTimer::timeout, this, [this] { fadeIn(); });
  connect(&splash_timer_, &QTimer::timeout, this, [this] { leave(); });
  connect(&fade_out_timer_, &QTimer::timeout, this, [this] { fadeOut(); });
}

void Splash::begin() {
  setWindowOpacity(0);
  move(screen()->availableGeometry().center() - rect().center());
  show();
  activateWindow();
  fade_timer_.start();
}

void Splash::fadeIn() {
  opacity_ = std::min(opacity_ + kFadeStep, kOpaque);
  setWindowOpacity(double(opacity_) / kOpaque);
  if (opacity_ < kOpaque) return;
  fade_timer_.stop();
  splash_timer_.start();
}

void Splash::leave() {
  fade_timer_.stop();
  splash_timer_.stop();
  if (!fade_out_timer_.isActive()) fade_out_timer_.start();
}

void Splash::fadeOut() {
  opacity_ -= kFadeStep;
  if (opacity_ < kLastOpacity) {
    end();
  } else {
    setWindowOpacity(double(opacity_) / kOpaque);
  }
}

void Splash::end() {
  if (ended_) return;
  ended_ = true;
  fade_out_timer_.stop();
  hide();
  emit finished();
  close();
}

void Splash::mousePressEvent(QMouseEvent*) { leave(); }

void Splash::keyPressEvent(QKeyEvent* event) {
  if (event->text().compare("c", Qt::CaseInsensitive) != 0) {
    leave();
    return;
  }
  ended_ = true;
  emit optionsRequested();
  close();
}

void Splash::closeEvent(QCloseEvent* event) {
  event->accept();
  if (!ended_) end();
}

void Splash::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  painter.setRenderHint(QPainter::Antialiasing);
  painter.fillRect(rect(), look_.colour(Role::Panel));
  painter.setPen(QPen(look_.colour(Role::Accent), 2));
  painter.drawRect(rect().adjusted(1, 1, -1, -1));
  constexpr int kPictureSize = 112;
  painter.drawPixmap((width() - kPictureSize) / 2, 36,
                     look_.pixmap("vantrel", Role::Accent, kPictureSize, devicePixelRatioF()));
  QFont title = font();
  title.setBold(true);
  title.setPointSizeF(title.pointSizeF() * 2.6);
  painter.setFont(title);
  painter.setPen(look_.colour(Role::Text));
  painter.drawText(QRect(0, 150, width(), 50), Qt::AlignCenter, "Vantrel");
  painter.setFont(font());
  painter.setPen(look_.colour(Role::Muted));
  painter.drawText(QRect(0, 200, width(), 24), Qt::AlignCenter,
                   "Design of electronic lamp ballasts");
  painter.drawText(QRect(0, 244, width() - 14, 24), Qt::AlignRight | Qt::AlignVCenter, version_);
}

}  // namespace vantrel
