#pragma once

#include <QListWidget>

#include "core/screen.h"

namespace vantrel {

/// The finished calculations, one line each. A click or Return asks for a line; the arrow keys only
/// walk.
class HistoryList : public QListWidget {
  Q_OBJECT

 public:
  explicit HistoryList(QWidget* parent = nullptr);

  /// Lists the lines of the model and marks the one on show.
  void refresh(const PullDown& history);
  QSize sizeHint() const override;
  QSize minimumSizeHint() const override { return sizeHint(); }

 signals:
  void rowChosen(int row);

 protected:
  void keyPressEvent(QKeyEvent* event) override;

 private:
  int rowHeight() const { return fontMetrics().height() + 8; }
};

}  // namespace vantrel
