#include "screens/progress_window.h"

#include <QCloseEvent>
#include <QLabel>
#include <QProgressBar>
#include <QVBoxLayout>

#include "screens/view_connection.h"

namespace vantrel {

namespace {

constexpr int kWidth = 360;
/// The bar is drawn in steps finer than the model's, which halves what remains.
constexpr int kSubSteps = 10;

}  // namespace

ProgressWindow::ProgressWindow(ProgressScreen& progress)
    : QWidget(nullptr, Qt::Dialog | Qt::CustomizeWindowHint | Qt::WindowTitleHint),
      progress_(progress),
      bar_(new QProgressBar(this)) {
  setObjectName("ProgressScreen");
  setWindowTitle("Vantrel");
  setAttribute(Qt::WA_ShowWithoutActivating);
  auto* box = new QVBoxLayout(this);
  box->setContentsMargins(20, 16, 20, 20);
  box->addWidget(new QLabel("Calculating the components", this));
  bar_->setRange(0, ProgressScreen::kMaximum * kSubSteps);
  bar_->setTextVisible(false);
  bar_->setAccessibleName("Progress of the calculation");
  box->addWidget(bar_);
  setFixedWidth(kWidth);
  connect_view(progress.changed, this, [this] { refresh(); });
  refresh();
}

void ProgressWindow::refresh() {
  bar_->setValue(static_cast<int>(progress_.value() * kSubSteps));
  if (isVisible() != progress_.visible()) setVisible(progress_.visible());
}

void ProgressWindow::closeEvent(QCloseEvent* event) { event->ignore(); }

}  // namespace vantrel
