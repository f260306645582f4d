#pragma once

#include <QDialog>
#include <QPrinter>

#include "app/session.h"
#include "core/print_job.h"

class QAction;
class QLabel;
class QPrintPreviewWidget;
class QToolBar;

namespace vantrel {

/// Asks for a printer, over `owner`, and prints a job on the sheet of the page setup.
void print_with_dialog(Session& session, const PrintJob& job, QWidget* owner);

/// Shows a job as it would be printed, page by page.
class PrintPreview : public QDialog {
  Q_OBJECT

 public:
  PrintPreview(Session& session, const PrintJob& job, QWidget* owner);

 private:
  QAction* add(const QString& name, const QString& caption, const QKeySequence& shortcut,
               void (PrintPreview::*slot)());
  void useSetup();
  void print();
  void savePdf();
  void editSetup();
  void previousPage();
  void nextPage();
  void zoomIn();
  void zoomOut();
  void fitPage();
  void tellPage();

  Session& session_;
  PrintJob job_;
  QPrinter printer_;
  QPrintPreviewWidget* view_;
  QToolBar* tools_;
  QLabel* page_;
};

}  // namespace vantrel
