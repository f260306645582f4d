#include "screens/design_window.h"

#include <QCloseEvent>
#include <QFileInfo>
#include <QLabel>
#include <QMenu>
#include <QMenuBar>
#include <QStatusBar>
#include <QTimer>
#include <QToolBar>
#include <QToolButton>
#include <algorithm>

#include "app/design_report.h"
#include "screens/page_setup_dialog.h"
#include "screens/selection_strip.h"
#include "screens/value_editor.h"
#include "screens/view_connection.h"

namespace vantrel {

namespace {

struct Shortcut {
  const char* command;
  const char* keys;
};

constexpr Shortcut kShortcuts[] = {
    {"c_load_project", "Ctrl+O"}, {"c_save_project", "Ctrl+Shift+S"},
    {"c_quit", "Ctrl+Q"},         {"c_help", "F1"},
    {"c_simple", "Ctrl+1"},       {"c_advanced", "Ctrl+2"},
    {"c_previous", "Alt+Left"},   {"c_next", "Alt+Right"},
    {"c_bom", "Ctrl+3"},          {"c_schematic", "Ctrl+4"},
    {"c_photoplot", "Ctrl+5"},    {"c_lres", "Ctrl+6"},
    {"c_pfc", "Ctrl+7"},          {"c_transformer", "Ctrl+8"},
    {"c_graph_op", "Ctrl+9"},
};

/// Commands that stand at the right end of the tool bar, apart from those of the design.
bool stands_right(const BarCommand& command) {
  return command.key == "c_web_tv" || command.key == "c_help";
}

std::string shape_of(const BarCommand& command) {
  return command.command() + '\x1f' + command.caption + '\x1f' + command.picture;
}

}  // namespace

QKeySequence command_shortcut(std::string_view command) {
  for (const Shortcut& row : kShortcuts) {
    if (command == row.command) return QKeySequence(row.keys);
  }
  return {};
}

DesignWindow::DesignWindow(Screen& screen, control_bar& bar, Workbench bench, Strip strip,
                           QWidget* parent)
    : QMainWindow(parent),
      screen_(screen),
      bar_(bar),
      bench_(bench),
      tools_(addToolBar("Commands")),
      recent_menu_(new QMenu("&Recent Projects", this)),
      export_menu_(new QMenu("&Export", this)),
      status_text_(new QLabel(this)),
      key_numbers_(new QLabel(this)) {
  setObjectName(to_qstring(screen.name()));
  setContextMenuPolicy(Qt::NoContextMenu);
  tools_->setMovable(false);
  tools_->setIconSize({20, 20});
  if (strip == kWithStrip) {
    addToolBarBreak();
    QToolBar* row = addToolBar("Selection");
    row->setMovable(false);
    strip_ = new SelectionStrip(bench.session, bar, row);
    row->addWidget(strip_);
  }
  status_text_->setObjectName("status");
  key_numbers_->setObjectName("keyNumbers");
  statusBar()->addWidget(status_text_, 1);
  statusBar()->addPermanentWidget(key_numbers_);
  statusBar()->setSizeGripEnabled(false);
  statusBar()->setContentsMargins(8, 0, 8, 0);
  makeOwnActions();
  connect_view(bar.changed, this, [this] { scheduleRefresh(); });
  connect_view(screen.layoutChanged, this,
               [this] { setWindowTitle(to_qstring(screen_.caption())); });
  connect_view(bench.status.changed, this, [this] { scheduleRefresh(); });
  connect_view(bench.recent.changed, this, [this] { fillRecent(); });
  setWindowTitle(to_qstring(screen.caption()));
  fillRecent();
  refresh();
}

void DesignWindow::makeOwnActions() {
  save_ = new QAction("&Save", this);
  save_->setShortcut(QKeySequence::Save);
  connect(
      save_, &QAction::triggered, this, [this] { save(); }, Qt::QueuedConnection);
  report_ = new QAction("&Design Report...", this);
  report_->setObjectName("designReport");
  connect(
      report_, &QAction::triggered, this, [this] { exportReport(); }, Qt::QueuedConnection);
  print_ = new QAction("&Print...", this);
  print_->setShortcut(QKeySequence::Print);
  connect(
      print_, &QAction::triggered, this, [this] { run("c_print"); }, Qt::QueuedConnection);
  preview_ = new QAction("Print Pre&view...", this);
  preview_->setObjectName("printPreview");
  connect(
      preview_, &QAction::triggered, this,
      [this] { session().printing().preview([this] { run("c_print"); }); }, Qt::QueuedConnection);
  page_setup_ = new QAction("Page Set&up...", this);
  page_setup_->setObjectName("pageSetup");
  connect(
      page_setup_, &QAction::triggered, this, [this] { edit_page_setup(session(), this); },
      Qt::QueuedConnection);
  QAction* bill = export_menu_->addAction("&Bill of Materials...");
  bill->setShortcut(QKeySequence("Ctrl+E"));
  connect(
      bill, &QAction::triggered, this, [this] { exportBill(); }, Qt::QueuedConnection);
  QAction* graph = export_menu_->addAction("&Operating Points Graph...");
  connect(
      graph, &QAction::triggered, this, [this] { exportGraph(); }, Qt::QueuedConnection);
}

void DesignWindow::addMenuEntry(const std::string& menu, const QString& caption,
                                const QKeySequence& shortcut, std::function<void()> run) {
  auto* action = new QAction(caption, this);
  action->setShortcut(shortcut);
  connect(
      action, &QAction::triggered, this, [run = std::move(run)] { run(); }, Qt::QueuedConnection);
  own_entries_.push_back({menu, action});
  shape_.clear();
  refreshMenus();
}

void DesignWindow::run(const std::string& command) {
  commitTyping();
  bar_.execute_command(command);
}

void DesignWindow::commitTyping() {
  if (auto* editor = qobject_cast<ValueEditor*>(focusWidget())) editor->commit();
}

QAction* DesignWindow::makeAction(const BarCommand& command, QWidget& parent) {
  const QString caption = to_qstring(command.caption.empty() ? command.toolTip : command.caption);
  auto* action = new QAction(bench_.look.barIcon(command.picture), caption, &parent);
  action->setObjectName(to_qstring(command.command()));
  action->setToolTip(to_qstring(command.toolTip));
  action->setEnabled(command.enabled);
  action->setCheckable(command.checked);
  action->setChecked(command.checked);
  // Queued: the command may run dialogs, during which the bar is made anew.
  connect(
      action, &QAction::triggered, this, [this, text = command.command()] { run(text); },
      Qt::QueuedConnection);
  return action;
}

void DesignWindow::scheduleRefresh() {
  if (refresh_due_) return;
  refresh_due_ = true;
  QTimer::singleShot(0, this, [this] { refresh(); });
}

void DesignWindow::refresh() {
  refresh_due_ = false;
  std::vector<std::string> shape;
  for (const BarMenu& menu : bar_.menus()) {
    for (const BarCommand& entry : menu.entries) shape.push_back(shape_of(entry));
  }
  for (const BarCommand& button : bar_.buttons()) shape.push_back(shape_of(button));
  if (shape != shape_) {
    refreshMenus();
    refreshTools();
    shape_ = std::move(shape);
  } else {
    const auto follow = [](QWidget& owner, const BarCommand& command) {
      const auto name = to_qstring(command.command());
      for (QAction* action : owner.findChildren<QAction*>(name)) {
        action->setEnabled(command.enabled);
        action->setCheckable(command.checked);
        action->setChecked(command.checked);
      }
    };
    for (const BarMenu& menu : bar_.menus()) {
      for (const BarCommand& entry : menu.entries) follow(*menuBar(), entry);
    }
    for (const BarCommand& button : bar_.buttons()) follow(*tools_, button);
  }
  if (strip_ != nullptr) strip_->refresh();
  refreshStatus();
}

void DesignWindow::fillFileMenu(QMenu& menu) {
  // The bar's entries stay as they are; what every program's File menu has besides goes between.
  const auto find = [&](const char* name) -> QAction* {
    for (QAction* action : menu.actions()) {
      if (action->objectName() == name) return action;
    }
    return nullptr;
  };
  if (QAction* save_as = find("c_save_project")) menu.insertAction(save_as, save_);
  if (QAction* options = find("c_configure")) {
    menu.insertMenu(options, recent_menu_);
    menu.insertMenu(options, export_menu_);
    menu.insertActions(options, {report_, print_, preview_, page_setup_});
    menu.insertSeparator(options);
  }
}

void DesignWindow::refreshMenus() {
  menuBar()->clear();
  for (QMenu* old : menuBar()->findChildren<QMenu*>(Qt::FindDirectChildrenOnly)) {
    old->deleteLater();
  }
  for (const BarMenu& entry : bar_.menus()) {
    auto* menu = new QMenu(to_qstring(entry.caption), menuBar());
    menu->setObjectName(to_qstring(entry.name));
    menu->setToolTipsVisible(true);
    for (const BarCommand& command : entry.entries) {
      if (command.kind == CommandKind::Separator) {
        menu->addSeparator();
        continue;
      }
      QAction* action = makeAction(command, *menu);
      action->setShortcut(command_shortcut(command.key));
      menu->addAction(action);
    }
    if (entry.name == "submenu_file") fillFileMenu(*menu);
    for (const OwnEntry& own : own_entries_) {
      if (own.menu == entry.name) menu->addAction(own.action);
    }
    menuBar()->addMenu(menu);
  }
}

void DesignWindow::refreshTools() {
  tools_->clear();
  for (QAction* old : tools_->findChildren<QAction*>(Qt::FindDirectChildrenOnly)) {
    // The tool bar goes on using its own action for showing and hiding it.
    if (old != tools_->toggleViewAction()) delete old;
  }
  const std::vector<BarCommand> buttons = bar_.buttons();
  const auto add = [this](const BarCommand& command) {
    if (command.kind == CommandKind::Separator) {
      const auto present = tools_->actions();
      if (!present.isEmpty() && !present.last()->isSeparator()) tools_->addSeparator();
      return;
    }
    QAction* action = makeAction(command, *tools_);
    tools_->addAction(action);
    auto* button = qobject_cast<QToolButton*>(tools_->widgetForAction(action));
    button->setFocusPolicy(Qt::TabFocus);
    button->setAccessibleName(to_qstring(command.toolTip));
    if (command.kind != CommandKind::DropDown) return;
    for (QMenu* menu : menuBar()->findChildren<QMenu*>("submenu_weblinks")) action->setMenu(menu);
    button->setPopupMode(QToolButton::InstantPopup);
  };
  for (const BarCommand& command : buttons) {
    if (!stands_right(command)) add(command);
  }
  auto* space = new QWidget(tools_);
  space->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Preferred);
  tools_->addWidget(space);
  auto* options = new QAction(bench_.look.icon("options"), "Options", tools_);
  connect(
      options, &QAction::triggered, this, [this] { run("c_configure"); }, Qt::QueuedConnection);
  tools_->addAction(options);
  for (const BarCommand& command : buttons) {
    if (stands_right(command)) add(command);
  }
}

void DesignWindow::refreshStatus() {
  const std::int32_t shown = bench_.status.calculationNumber();
  const bool complete = shown > 0 && bench_.status.state() == DesignStatus::State::Current;
  QString words = to_qstring(bar_.status());
  if (complete) {
    words = QString("Calculation #%1 complete").arg(shown);
    if (!bench_.status.warning().empty()) words += ", with a warning";
  }
  status_text_->setText(words);
  QStringList numbers;
  for (const KeyNumber& number : bench_.status.keyNumbers()) {
    numbers << to_qstring(number.label + " " + number.value + " " + number.unit);
  }
  key_numbers_->setText(numbers.join("      "));
  const bool stale = bench_.status.state() == DesignStatus::State::Stale;
  key_numbers_->setForegroundRole(stale ? QPalette::PlaceholderText : QPalette::WindowText);
  key_numbers_->setToolTip(stale ? "Out of date" : "");
}

void DesignWindow::fillRecent() {
  recent_menu_->clear();
  for (const QString& path : bench_.recent.paths()) {
    QAction* action = recent_menu_->addAction(QFileInfo(path).fileName());
    action->setToolTip(path);
    action->setEnabled(QFileInfo::exists(path));
    connect(
        action, &QAction::triggered, this,
        [this, path] { session().loadProjectFrom(screen_.name(), path.toStdString()); },
        Qt::QueuedConnection);
  }
  recent_menu_->setEnabled(!recent_menu_->isEmpty());
}

void DesignWindow::save() {
  commitTyping();
  const std::string& path = session().project().CurrentProjectPath();
  if (path.empty()) {
    run("c_save_project");
  } else {
    session().saveProjectTo(screen_.name(), path);
  }
}

void DesignWindow::exportBill() {
  if (session().isBusy()) return;
  if (session().billOfMaterials().setup_bom()) session().billOfMaterials().ExportTable();
}

void DesignWindow::exportGraph() {
  if (session().isBusy()) return;
  session().operatingPointsGraph().ExportGraph(bench_.dialogs, session().folder(),
                                               [this](const auto& file, const Picture& picture) {
                                                 return session().writePicture(file, picture);
                                               });
}

void DesignWindow::exportReport() {
  if (session().isBusy()) return;
  commitTyping();
  export_report(session(), bench_.status, &bench_.dialogs);
}

void DesignWindow::closeEvent(QCloseEvent* event) {
  event->ignore();
  const bool last = &screen_ == &session().simple() ||
                    (&screen_ == &session().advanced() && !session().simple().visible());
  if (last) {
    QTimer::singleShot(0, this, [this] { run("c_quit"); });
  } else {
    screen_.visible(false);
  }
}

}  // namespace vantrel
