#pragma once

#include <QMainWindow>
#include <functional>
#include <vector>

#include "app/design_status.h"
#include "screens/appearance.h"
#include "screens/recent_projects.h"
#include "selection/control_bar.h"

class QLabel;
class QMenu;
class QToolBar;

namespace vantrel {

class SelectionStrip;

/// Theme of the windows; `System` follows the desktop.
enum class ThemeChoice { System, Light, Dark };

/// The choice of the theme as the desktop keeps it. Changing it changes and stores it at once.
struct ThemeSetting {
  std::function<ThemeChoice()> get;
  std::function<void(ThemeChoice)> set;
};

/// What every window works with; all of it outlives the windows.
struct Workbench {
  Session& session;
  Appearance& look;
  DesignStatus& status;
  RecentProjects& recent;
  FileDialogs& dialogs;
  ThemeSetting theme;
};

/// The keys of a command of the bars; none for most.
QKeySequence command_shortcut(std::string_view command);

/// The window of a screen that carries a control bar: menus, tool bar, selection strip and status
/// line are made from the bar, the middle is the window's own.
class DesignWindow : public QMainWindow {
  Q_OBJECT

 public:
  enum Strip { kWithStrip, kWithoutStrip };

  DesignWindow(Screen& screen, control_bar& bar, Workbench bench, Strip strip,
               QWidget* parent = nullptr);

  Screen& screen() { return screen_; }
  /// Adds an entry of the window's own to a menu ("submenu_file" and the like).
  void addMenuEntry(const std::string& menu, const QString& caption, const QKeySequence& shortcut,
                    std::function<void()> run);

 protected:
  Session& session() { return bench_.session; }
  Workbench& bench() { return bench_; }
  control_bar& bar() { return bar_; }
  /// Runs a command of the bar, its argument behind a "*".
  void run(const std::string& command);
  /// Stores what is being typed into a value; every command that works on the design begins so.
  void commitTyping();
  void closeEvent(QCloseEvent* event) override;

 private:
  struct OwnEntry {
    std::string menu;
    QAction* action;
  };
  void scheduleRefresh();
  void refresh();
  void refreshMenus();
  void refreshTools();
  void refreshStatus();
  QAction* makeAction(const BarCommand& command, QWidget& parent);
  void fillFileMenu(QMenu& menu);
  void makeOwnActions();
  void fillRecent();
  void save();
  void exportBill();
  void exportGraph();
  void exportReport();

  Screen& screen_;
  control_bar& bar_;
  Workbench bench_;
  QToolBar* tools_;
  SelectionStrip* strip_ = nullptr;
  std::vector<OwnEntry> own_entries_;
  std::vector<std::string> shape_;
  QMenu* recent_menu_;
  QMenu* export_menu_;
  QAction* save_;
  QAction* report_;
  QAction* print_;
  QAction* preview_;
  QAction* page_setup_;
  QLabel* status_text_;
  QLabel* key_numbers_;
  bool refresh_due_ = false;
};

}  // namespace vantrel
