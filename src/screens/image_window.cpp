#include "screens/image_window.h"

#include <QEvent>
#include <cmath>

#include "screens/view_connection.h"

namespace vantrel {

ImageWindow::ImageWindow(Workbench bench)
    : OutputWindow(bench.session.images(), bench, kToolbarSchematic),
      sheet_(new ImageSheet(bench.session.images(), bench.look, this)) {
  setCentralWidget(sheet_);
  QAction* fit = addCommand("fit", "&Fit", QKeySequence("0"));
  connect(fit, &QAction::triggered, this, [this] {
    session().images().CheckForAutoZoomIn();
    sheet_->refresh();
  });
  check_ = addCommand("check", "&Validate Schematic", QKeySequence("Ctrl+Shift+V"));
  connect(
      check_, &QAction::triggered, this, [this] { session().schematicCheck().validate(); },
      Qt::QueuedConnection);
  balance_ = addCommand("transformer", "&Balance Transformer", {});
  connect(
      balance_, &QAction::triggered, this, [this] { session().images().show_balancetransformer(); },
      Qt::QueuedConnection);
  gerber_ = findChild<QAction*>("c_export_gerber");
  connect(sheet_, &ImageSheet::viewChanged, this, [this] { refresh(); });
  connect(sheet_, &ImageSheet::pointed, this, [this](const QString& component) {
    pointed_ = component;
    refresh();
  });
  connect_view(bench.session.images().layoutChanged, this, [this] {
    sheet_->refresh();
    refresh();
  });
  connect_view(bench.status.changed, this, [this] { refresh(); });
  resize(1180, 760);
  refresh();
}

void ImageWindow::command(const std::string& key) { session().images().execute_command(key); }

void ImageWindow::calculate() { session().simple().MainButton_Click(Simple::kCalculateButton); }

void ImageWindow::changeEvent(QEvent* event) {
  OutputWindow::changeEvent(event);
  if (event->type() == QEvent::WindowStateChange) session().images().setmin(isMinimized());
}

void ImageWindow::refresh() {
  const ImageDisplay& images = session().images();
  const bool schematic = images.isSchematicDisplayed();
  check_->setVisible(schematic);
  balance_->setVisible(session().details().ConfigDetails(kConfigShortCode) == "DLPVMB");
  if (gerber_ != nullptr) gerber_->setVisible(schematic);
  QStringList names;
  for (const ImagePicture& picture : images.document().pictures()) {
    names << to_qstring(name_without_path(picture.file));
  }
  const bool stale = bench().status.state() == DesignStatus::State::Stale;
  QString left = names.join(", ");
  if (stale) left += "   (out of date)";
  if (!pointed_.isEmpty()) left += "   " + pointed_;
  showStatus(left, QString::number(std::lround(images.view().scale() * 100)) + " %");
}

}  // namespace vantrel
