#pragma once

#include <QWidget>

#include "core/progress_screen.h"

class QProgressBar;

namespace vantrel {

/// The progress of a component calculation. It has no button: the model opens and closes it.
class ProgressWindow : public QWidget {
  Q_OBJECT

 public:
  ProgressWindow(ProgressScreen& progress);

 protected:
  void closeEvent(QCloseEvent* event) override;

 private:
  void refresh();

  ProgressScreen& progress_;
  QProgressBar* bar_;
};

}  // namespace vantrel
