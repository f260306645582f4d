#pragma once

#include <QWidget>

#include "screens/design_window.h"
#include "services/textfile_viewer.h"

class QLabel;
class QLineEdit;

namespace vantrel {

class LineView;

/// Shows the lines of the last calculation, or a text file, and sets where a calculation breaks and
/// what is watched.
class LogPage : public QWidget {
  Q_OBJECT

 public:
  explicit LogPage(Workbench bench, QWidget* parent = nullptr);

  /// Shows the lines of the last calculation, unless a file is on show.
  void refresh();

 private:
  TextfileViewerHooks viewerHooks();
  QWidget* makeFindBar();
  QWidget* makeButtons();
  void addActions();
  void addEntry(const QString& text, const QKeySequence& key, void (LogPage::*routine)());
  void showText();
  void showMarks();
  void showLog();
  void openFile();
  void displayFindBar();
  void findNext();
  void setBreak() { viewer_.MnuSetBreak(); }
  void clearBreak() { viewer_.MnuClearBreak(); }
  void setWatch() { viewer_.MnuSetTrapVariable(); }
  void clearWatch() { viewer_.MnuClearTrapVariable(); }
  std::optional<std::string> askText(std::string_view title, std::string_view prompt,
                                     const std::string& present);

  Workbench bench_;
  TextfileViewer viewer_;
  bool shows_log_ = true;
  QLabel* caption_;
  LineView* text_;
  QWidget* find_bar_ = nullptr;
  QLineEdit* find_ = nullptr;
  QLabel* marks_;
};

}  // namespace vantrel
