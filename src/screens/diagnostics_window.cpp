#include "screens/diagnostics_window.h"

#include <QDialogButtonBox>
#include <QPushButton>
#include <QShowEvent>
#include <QTabWidget>
#include <QVBoxLayout>

#include "screens/check_page.h"
#include "screens/explain_page.h"
#include "screens/log_page.h"
#include "screens/view_connection.h"

namespace vantrel {

namespace {

constexpr QSize kSize(900, 600);
constexpr int kMargin = 12;

}  // namespace

DiagnosticsWindow::DiagnosticsWindow(Workbench bench, QWidget* parent)
    : QDialog(parent),
      tabs_(new QTabWidget(this)),
      checks_(new CheckPage(bench, this)),
      log_(new LogPage(bench, this)),
      explain_(new ExplainPage(bench, this)) {
  setObjectName("Diagnostics");
  setWindowTitle("Diagnostics");
  tabs_->setObjectName("Diagnostics.tabs");
  tabs_->setAccessibleName("Diagnostics");
  tabs_->addTab(checks_, "Database checks");
  tabs_->addTab(log_, "Calculation log");
  tabs_->addTab(explain_, "Explain");
  auto* buttons = new QDialogButtonBox(QDialogButtonBox::Close, this);
  buttons->button(QDialogButtonBox::Close)->setAutoDefault(false);
  buttons->button(QDialogButtonBox::Close)->setDefault(false);
  auto* box = new QVBoxLayout(this);
  box->setContentsMargins(kMargin, kMargin, kMargin, kMargin);
  box->setSpacing(kMargin);
  box->addWidget(tabs_, 1);
  box->addWidget(buttons);
  connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
  connect(tabs_, &QTabWidget::currentChanged, this, [this] { refreshShown(); });
  // Queued, so that the calculation has returned when its results are read.
  const auto later = [this] {
    QMetaObject::invokeMethod(
        this, [this] { refreshShown(); }, Qt::QueuedConnection);
  };
  connect_view(bench.session.calculationEnded, this, [later](bool) { later(); });
  connect_view(bench.session.designShown, this, later);
  resize(kSize);
}

void DiagnosticsWindow::open() {
  show();
  raise();
  activateWindow();
}

void DiagnosticsWindow::showEvent(QShowEvent* event) {
  QDialog::showEvent(event);
  if (!event->spontaneous()) refreshShown();
}

void DiagnosticsWindow::refreshShown() {
  if (!isVisible()) return;
  if (tabs_->currentWidget() == log_) log_->refresh();
  if (tabs_->currentWidget() == explain_) explain_->refresh();
}

}  // namespace vantrel
