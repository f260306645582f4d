#include "screens/print_preview.h"

#include <QAction>
#include <QLabel>
#include <QPrintDialog>
#include <QPrintPreviewWidget>
#include <QToolBar>
#include <QVBoxLayout>

#include "platform/print_target.h"
#include "screens/appearance.h"
#include "screens/page_setup_dialog.h"

namespace vantrel {

namespace {

/// A printer, which drops what it has taken when the document is given up.
class PrinterTarget : public PagedTarget {
 public:
  explicit PrinterTarget(QPrinter& printer) : PagedTarget(printer), printer_(printer) {}

  void abort() override {
    printer_.abort();
    PagedTarget::abort();
  }

 private:
  QPrinter& printer_;
};

constexpr QSize kSize(900, 700);
constexpr double kZoomStep = 1.25;
constexpr std::string_view kPdfTitle = "Save as PDF";
constexpr std::string_view kPdfFilter = "PDF (*.pdf)|*.pdf";

}  // namespace

void print_with_dialog(Session& session, const PrintJob& job, QWidget* owner) {
  QPrinter printer(QPrinter::HighResolution);
  printer.setDocName(to_qstring(job.title));
  printer.setPageLayout(page_layout(session.paperSetup(), job.landscape));
  QPrintDialog dialog(&printer, owner);
  if (dialog.exec() != QDialog::Accepted) return;
  if (printer.outputFormat() == QPrinter::PdfFormat) {
    // Our own writer leaves an older file whole until the new one is complete.
    PdfTarget file(printer.outputFileName().toStdString(), job.title, printer.pageLayout());
    session.printing().run(job, file);
    return;
  }
  PrinterTarget paper(printer);
  session.printing().run(job, paper);
}

PrintPreview::PrintPreview(Session& session, const PrintJob& job, QWidget* owner)
    : QDialog(owner),
      session_(session),
      job_(job),
      printer_(QPrinter::HighResolution),
      view_(new QPrintPreviewWidget(&printer_, this)),
      tools_(new QToolBar(this)),
      page_(new QLabel(this)) {
  setObjectName("PrintPreview");
  setWindowTitle("Print Preview - " + to_qstring(job.title));
  setWindowFlag(Qt::WindowMaximizeButtonHint);
  add("print", "&Print...", QKeySequence::Print, &PrintPreview::print);
  add("savePdf", "&Save as PDF...", QKeySequence::Save, &PrintPreview::savePdf);
  add("pageSetup", "Page Set&up...", {}, &PrintPreview::editSetup);
  tools_->addSeparator();
  add("previousPage", "Pre&vious Page", QKeySequence::MoveToPreviousPage,
      &PrintPreview::previousPage);
  page_->setObjectName("page");
  page_->setMargin(6);
  tools_->addWidget(page_);
  add("nextPage", "&Next Page", QKeySequence::MoveToNextPage, &PrintPreview::nextPage);
  tools_->addSeparator();
  add("zoomIn", "Zoom &In", QKeySequence::ZoomIn, &PrintPreview::zoomIn);
  add("zoomOut", "Zoom &Out", QKeySequence::ZoomOut, &PrintPreview::zoomOut);
  add("fit", "&Whole Page", QKeySequence("0"), &PrintPreview::fitPage);
  auto* column = new QVBoxLayout(this);
  column->setContentsMargins(0, 0, 0, 0);
  column->setSpacing(0);
  column->addWidget(tools_);
  column->addWidget(view_, 1);
  view_->setAccessibleName("Pages");
  connect(view_, &QPrintPreviewWidget::paintRequested, this, [this](QPrinter* printer) {
    PagedTarget paper(*printer);
    Printing::draw(job_, paper);
  });
  connect(view_, &QPrintPreviewWidget::previewChanged, this, &PrintPreview::tellPage);
  useSetup();
  fitPage();
  resize(kSize);
}

QAction* PrintPreview::add(const QString& name, const QString& caption,
                           const QKeySequence& shortcut, void (PrintPreview::*slot)()) {
  QAction* action = tools_->addAction(caption);
  action->setObjectName(name);
  action->setShortcut(shortcut);
  connect(action, &QAction::triggered, this, slot, Qt::QueuedConnection);
  return action;
}

void PrintPreview::useSetup() {
  printer_.setPageLayout(page_layout(session_.paperSetup(), job_.landscape));
  view_->updatePreview();
}

void PrintPreview::print() { print_with_dialog(session_, job_, this); }

void PrintPreview::savePdf() {
  const std::string path =
      session_.printing().select_savefile(kPdfTitle, job_.title + ".pdf", kPdfFilter);
  if (path.empty()) return;
  PdfTarget file(path, job_.title, printer_.pageLayout());
  if (Printing::draw(job_, file)) return;
  session_.messages().msg(
      "Printing", "Could not export file '" + name_without_path(path) + "' (" + file.reason() + ")",
      kMessageOk, kSeverityWarning);
}

void PrintPreview::editSetup() {
  if (edit_page_setup(session_, this)) useSetup();
}

void PrintPreview::previousPage() { view_->setCurrentPage(view_->currentPage() - 1); }
void PrintPreview::nextPage() { view_->setCurrentPage(view_->currentPage() + 1); }
void PrintPreview::zoomIn() { view_->zoomIn(kZoomStep); }
void PrintPreview::zoomOut() { view_->zoomOut(kZoomStep); }
void PrintPreview::fitPage() { view_->fitInView(); }

void PrintPreview::tellPage() {
  page_->setText(QString("Page %1 of %2").arg(view_->currentPage()).arg(view_->pageCount()));
}

}  // namespace vantrel
