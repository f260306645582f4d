#include "screens/wait_window.h"

#include <QApplication>
#include <QCloseEvent>
#include <QKeyEvent>
#include <QLabel>
#include <QPainter>
#include <QProgressBar>
#include <QPushButton>
#include <QTimer>
#include <QVBoxLayout>
#include <cmath>
#include <numbers>

#include "screens/view_connection.h"

namespace vantrel {

namespace {

constexpr int kWidth = 360;
constexpr int kClockSize = 40;
constexpr int kFaces = PleaseWait::kLastClockSymbol - PleaseWait::kFirstClockSymbol + 1;
constexpr int kFillInterval = 50;  // ms

QPointF on_dial(QPointF middle, double turns, double radius) {
  const double angle = turns * 2 * std::numbers::pi;
  return middle + QPointF(std::sin(angle) * radius, -std::cos(angle) * radius);
}

}  // namespace

WaitWindow::WaitWindow(PleaseWait& wait, Appearance& look)
    : QWidget(nullptr, Qt::Dialog | Qt::CustomizeWindowHint | Qt::WindowTitleHint),
      wait_(wait),
      look_(look),
      clock_(new QLabel(this)),
      message_(new QLabel(this)),
      cancel_(new QPushButton("Cancel", this)),
      bar_(new QProgressBar(this)),
      fill_(new QTimer(this)) {
  setObjectName("PleaseWait");
  setWindowTitle("Vantrel");
  message_->setObjectName("message");
  message_->setWordWrap(true);
  cancel_->setObjectName("Cancel");
  bar_->setTextVisible(false);
  bar_->setAccessibleName("Time until the window closes");
  auto* row = new QHBoxLayout;
  row->setSpacing(16);
  row->addWidget(clock_);
  row->addWidget(message_, 1);
  auto* box = new QVBoxLayout(this);
  box->setContentsMargins(20, 16, 20, 16);
  box->addLayout(row);
  box->addWidget(bar_);
  box->addWidget(cancel_, 0, Qt::AlignHCenter);
  setFixedWidth(kWidth);
  connect(cancel_, &QPushButton::clicked, this, [this] { cancel(); });
  connect(fill_, &QTimer::timeout, this, [this] { bar_->setValue(bar_->value() + kFillInterval); });
  connect_view(wait.changed, this, [this] { refresh(); });
  refresh();
}

void WaitWindow::cancel() {
  cancel_->setText("Cancelling...");
  cancel_->setEnabled(false);
  wait_.Cancel();
}

QPixmap WaitWindow::clockFace() const {
  const qreal ratio = devicePixelRatioF();
  QPixmap picture(QSize(kClockSize, kClockSize) * ratio);
  picture.setDevicePixelRatio(ratio);
  picture.fill(Qt::transparent);
  QPainter painter(&picture);
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setPen(QPen(look_.colour(Role::Text), 2, Qt::SolidLine, Qt::RoundCap));
  painter.setBrush(look_.colour(Role::Panel));
  const QPointF middle(kClockSize / 2.0, kClockSize / 2.0);
  painter.drawEllipse(middle, kClockSize / 2.0 - 2, kClockSize / 2.0 - 2);
  const double hour = double(wait_.clockSymbol() - PleaseWait::kFirstClockSymbol) / kFaces;
  painter.drawLine(middle, on_dial(middle, hour, 9));
  painter.drawLine(middle, on_dial(middle, 0, 14));
  return picture;
}

void WaitWindow::refresh() {
  message_->setText(to_qstring(wait_.message()));
  clock_->setPixmap(clockFace());
  cancel_->setVisible(wait_.cancelVisible());
  bar_->setVisible(wait_.visible() && wait_.barMaximum() >= 0);
  if (isVisible() == wait_.visible()) return;
  cancel_->setText("Cancel");
  cancel_->setEnabled(true);
  if (wait_.barMaximum() > 0) {
    bar_->setRange(0, wait_.barMaximum());
    bar_->setValue(0);
    fill_->start(kFillInterval);
  }
  if (!wait_.visible()) fill_->stop();
  // A dialog that is open, as the print preview, would keep the clicks from Cancel.
  const bool is_covered = wait_.visible() && QApplication::activeModalWidget() != nullptr;
  setWindowModality(is_covered ? Qt::ApplicationModal : Qt::NonModal);
  setVisible(wait_.visible());
  adjustSize();
}

void WaitWindow::keyPressEvent(QKeyEvent* event) {
  if (event->key() == Qt::Key_Escape && cancel_->isVisible() && cancel_->isEnabled()) cancel();
}

void WaitWindow::closeEvent(QCloseEvent* event) { event->ignore(); }

}  // namespace vantrel
