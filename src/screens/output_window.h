#pragma once

#include <QMainWindow>
#include <string>

#include "screens/design_window.h"

class QLabel;
class QToolBar;

namespace vantrel {

/// The window of an output of the design: a plain tool bar with the commands of image screens, the
/// ways to the other windows, and a status line. Esc puts it away.
class OutputWindow : public QMainWindow {
  Q_OBJECT

 public:
  /// `flags` are the ToolbarFlags that choose the commands.
  OutputWindow(Screen& screen, Workbench bench, int flags);

  Screen& screen() { return screen_; }

 protected:
  /// Carries out one of the commands of the tool bar.
  virtual void command(const std::string& key) = 0;

  /// Adds a command of the window's own behind those of the bar; into the menu Edit.
  QAction* addCommand(const char* icon, const QString& text, const QKeySequence& shortcut);
  /// Adds a widget at the right end of the tool bar.
  void addRight(QWidget* widget);
  /// F5 and every button made by `makeCalculateButton` run this.
  virtual void calculate() = 0;

  void showStatus(const QString& left, const QString& right);
  Session& session() { return bench_.session; }
  Workbench& bench() { return bench_; }

  void closeEvent(QCloseEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;

 private:
  void fillTools(int flags);
  void addPrintActions();
  void fillWindowMenu(QMenu& menu);
  void followBar();

  Screen& screen_;
  Workbench bench_;
  control_bar& bar_;
  QToolBar* tools_;
  QMenu* file_menu_;
  QMenu* edit_menu_;
  QMenu* window_menu_;
  QLabel* left_;
  QLabel* right_;
};

}  // namespace vantrel
