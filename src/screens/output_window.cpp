#include "screens/output_window.h"

#include <QCloseEvent>
#include <QLabel>
#include <QMenu>
#include <QMenuBar>
#include <QShortcut>
#include <QStatusBar>
#include <QToolBar>
#include <QToolButton>

#include "screens/page_setup_dialog.h"
#include "screens/view_connection.h"
#include "selection/command_table.h"

namespace vantrel {

namespace {

/// The bar whose entries lead to the other windows.
constexpr std::string_view kMainBar = "Simple";

struct Shortcut {
  std::string_view command;
  const char* keys;
};

constexpr Shortcut kShortcuts[] = {{"c_print", "Ctrl+P"},
                                   {"c_export_bom", "Ctrl+E"},
                                   {"c_export_schematic", "Ctrl+E"},
                                   {"c_zoom_in", "Ctrl++"},
                                   {"c_zoom_out", "Ctrl+-"}};

QKeySequence image_shortcut(std::string_view command) {
  for (const Shortcut& row : kShortcuts) {
    if (row.command == command) return QKeySequence(row.keys);
  }
  return {};
}

}  // namespace

OutputWindow::OutputWindow(Screen& screen, Workbench bench, int flags)
    : screen_(screen),
      bench_(bench),
      bar_(*bench.session.bar(kMainBar)),
      tools_(addToolBar("Commands")),
      file_menu_(menuBar()->addMenu("&File")),
      edit_menu_(menuBar()->addMenu("&Edit")),
      window_menu_(menuBar()->addMenu("&Window")),
      left_(new QLabel(this)),
      right_(new QLabel(this)) {
  setObjectName(to_qstring(screen.name()));
  setContextMenuPolicy(Qt::NoContextMenu);
  tools_->setMovable(false);
  tools_->setIconSize({20, 20});
  left_->setObjectName("status");
  right_->setObjectName("summary");
  statusBar()->addWidget(left_, 1);
  statusBar()->addPermanentWidget(right_);
  statusBar()->setSizeGripEnabled(false);
  statusBar()->setContentsMargins(8, 0, 8, 0);
  fillTools(flags);
  fillWindowMenu(*window_menu_);
  connect_view(bar_.changed, this, [this] { followBar(); });
  connect_view(screen.layoutChanged, this,
               [this] { setWindowTitle(to_qstring(screen_.caption())); });
  setWindowTitle(to_qstring(screen.caption()));
  auto* main_action = new QShortcut(QKeySequence("F5"), this);
  connect(
      main_action, &QShortcut::activated, this, [this] { calculate(); }, Qt::QueuedConnection);
}

void OutputWindow::fillTools(int flags) {
  for (const CommandRow& row : command_rows(kToolbarImage)) {
    if (!row_applies(row.when, flags) || row.kind != CommandKind::Command) continue;
    auto* action = new QAction(bench_.look.barIcon(row.picture), row.caption, this);
    action->setObjectName(row.key);
    action->setToolTip(row.toolTip);
    action->setShortcut(image_shortcut(row.key));
    connect(
        action, &QAction::triggered, this, [this, key = row.key] { command(key); },
        Qt::QueuedConnection);
    tools_->addAction(action);
    file_menu_->addAction(action);
    if (std::string_view(row.key) == "c_print") addPrintActions();
  }
  tools_->addSeparator();
  file_menu_->addSeparator();
  QAction* close_action = file_menu_->addAction("&Close", this, [this] { close(); });
  close_action->setShortcut(QKeySequence::Close);
}

void OutputWindow::addPrintActions() {
  QAction* preview = file_menu_->addAction("Print Pre&view...");
  preview->setObjectName("printPreview");
  connect(
      preview, &QAction::triggered, this,
      [this] { session().printing().preview([this] { command("c_print"); }); },
      Qt::QueuedConnection);
  QAction* setup = file_menu_->addAction("Page Set&up...");
  setup->setObjectName("pageSetup");
  connect(
      setup, &QAction::triggered, this, [this] { edit_page_setup(session(), this); },
      Qt::QueuedConnection);
}

QAction* OutputWindow::addCommand(const char* icon, const QString& text,
                                  const QKeySequence& shortcut) {
  auto* action = new QAction(bench_.look.icon(icon), text, this);
  action->setShortcut(shortcut);
  tools_->addAction(action);
  edit_menu_->addAction(action);
  for (QAction* each : tools_->actions()) {
    auto* button = qobject_cast<QToolButton*>(tools_->widgetForAction(each));
    if (button == nullptr) continue;
    button->setFocusPolicy(Qt::TabFocus);
    button->setAccessibleName(each->toolTip());
  }
  return action;
}

void OutputWindow::addRight(QWidget* widget) {
  auto* space = new QWidget(tools_);
  space->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Preferred);
  tools_->addWidget(space);
  tools_->addWidget(widget);
}

void OutputWindow::fillWindowMenu(QMenu& menu) {
  for (const BarMenu& source : bar_.menus()) {
    if (source.name != "submenu_view" && source.name != "submenu_window") continue;
    for (const BarCommand& entry : source.entries) {
      if (entry.kind == CommandKind::Separator) {
        menu.addSeparator();
        continue;
      }
      QAction* action = menu.addAction(to_qstring(entry.caption));
      action->setObjectName(to_qstring(entry.command()));
      action->setShortcut(command_shortcut(entry.key));
      connect(
          action, &QAction::triggered, this,
          [this, text = entry.command()] { bar_.execute_command(text); }, Qt::QueuedConnection);
    }
    menu.addSeparator();
  }
  followBar();
}

void OutputWindow::followBar() {
  for (QAction* action : window_menu_->actions()) {
    if (action->isSeparator()) continue;
    action->setEnabled(bar_.is_enabled(action->objectName().toStdString()));
  }
}

void OutputWindow::showStatus(const QString& left, const QString& right) {
  left_->setText(left);
  right_->setText(right);
}

void OutputWindow::closeEvent(QCloseEvent* event) {
  event->ignore();
  screen_.visible(false);
}

void OutputWindow::keyPressEvent(QKeyEvent* event) {
  if (event->key() == Qt::Key_Escape) {
    screen_.visible(false);
    return;
  }
  QMainWindow::keyPressEvent(event);
}

}  // namespace vantrel
