#pragma once

#include <QPlainTextEdit>
#include <functional>

#include "screens/appearance.h"

namespace vantrel {

/// Lines of text in a font of fixed width, with a margin of line numbers and marks. The line of the
/// caret is the selected one.
class LineView : public QPlainTextEdit {
  Q_OBJECT

 public:
  /// What the margin tells of a line, which counts from 0.
  struct Marks {
    std::function<bool(int line)> breaks;   ///< A calculation stops here: a disc.
    std::function<bool(int line)> watched;  ///< The line is watched: an arrow and a background.
  };

  explicit LineView(Appearance& look, QWidget* parent = nullptr);

  void setMarks(Marks marks);
  /// Draws the marks anew.
  void refreshMarks();
  int currentLine() const { return textCursor().blockNumber(); }
  /// Puts the caret on a line and brings it in sight.
  void selectLine(int line);

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;
  void paintEvent(QPaintEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;

 private:
  void settleMargin();
  void paintMargin();
  void markLine();
  /// Calls the function for each line in sight with its top and height on the viewport.
  void forVisibleLines(const std::function<void(int line, const QRectF& area)>& use) const;

  Appearance& look_;
  Marks marks_;
  QWidget* margin_;
};

}  // namespace vantrel
