#include "screens/desktop.h"

#include <QApplication>
#include <QGuiApplication>
#include <QScreen>
#include <QStyleFactory>
#include <QTimer>

#include "app/version.h"
#include "platform/qt_tcp_client.h"
#include "screens/about_dialog.h"
#include "screens/bill_window.h"
#include "screens/c_tooltip.h"
#include "screens/chooser_dialog.h"
#include "screens/diagnostics_window.h"
#include "screens/missing_fields_dialog.h"
#include "screens/print_preview.h"
#include "screens/progress_window.h"
#include "screens/splash.h"
#include "screens/theme_style.h"
#include "screens/user_data_window.h"
#include "screens/view_connection.h"
#include "screens/wait_window.h"
#include "screens/windows.h"

namespace vantrel {

namespace {

constexpr std::string_view kThemeKey = "Theme";
constexpr std::array<const char*, 3> kThemeNames{"System", "Light", "Dark"};
constexpr std::string_view kProfile = "\\config.ini";
constexpr int kBusyPoll = 50;  // ms

std::vector<WindowRect> desktop_screens() {
  std::vector<WindowRect> screens;
  for (const QScreen* screen : QGuiApplication::screens()) {
    const QRect area = screen->availableGeometry();
    screens.push_back({area.left(), area.top(), area.width(), area.height()});
  }
  return screens;
}

bool desktop_is_dark() {
  const QPalette colours = QGuiApplication::palette();
  return colours.color(QPalette::WindowText).lightness() >
         colours.color(QPalette::Window).lightness();
}

std::filesystem::path profile_path(const ProgramFolder& folder) {
  const auto file = folder.writable(kProfile);
  return file ? *file : folder.home() / "config.ini";
}

}  // namespace

Desktop::Desktop(ProgramFolder folder, SettingsStore& settings, FileDialogs& dialogs,
                 ShellOpen& shell, std::string_view version)
    : settings_(settings),
      dialogs_(dialogs),
      shell_(shell),
      system_is_dark_(desktop_is_dark()),
      sound_(make_sound_player()),
      folder_(folder),
      look_(folder_, Theme::Light),
      messages_(look_),
      recent_(settings),
      profile_(profile_path(folder_)),
      places_(profile_,
              [this] { return session_->options().isChecked("rememberwindowpositions"); }),
      session_(std::make_unique<Session>(
          std::move(folder),
          SessionPorts{.settings = settings,
                       .clock = clock_,
                       .sound = *sound_,
                       .pump = pump_,
                       .makeTimer = [] { return std::make_unique<QtTimer>(); },
                       .dialogs = &dialogs,
                       .shell = &shell,
                       .writePicture =
                           [this](const auto& file, const Picture& picture) {
                             return pictures_.write(file, picture);
                           },
                       .writePages =
                           [this](const auto& file, const PrintJob& job, const PaperSetup& setup) {
                             return pictures_.writePages(file, job, setup);
                           }},
          version)),
      status_(std::make_unique<DesignStatus>(*session_)) {
  QApplication::setStyle(new ThemeStyle(look_));
  applyTheme();
  session_->messages().dialog(&messages_);
  messages_.isQuiet = [this] { return session_->simple().isTesting(); };
  setViews();
}

Desktop::~Desktop() {
  windows_.clear();
  session_->messages().dialog(nullptr);
}

Workbench Desktop::workbench() {
  return {*session_,
          look_,
          *status_,
          recent_,
          dialogs_,
          {[this] { return themeChoice(); }, [this](ThemeChoice choice) { themeChoice(choice); }}};
}

void Desktop::setViews() {
  SessionViews views;
  views.openChooser = [this](int slot, std::string_view title) { openChooser(slot, title); };
  views.editUserData = [this](UserDataKind kind) { editUserData(kind); };
  views.focusInputTabs = [this] {
    QWidget* advanced = window("Advanced");
    if (auto* tabs = advanced->findChild<QWidget*>("input_tabstrip")) tabs->setFocus();
  };
  views.showAbout = [this] { showAbout(); };
  views.showDiagnostics = [this] { showDiagnostics(); };
  views.checkForUpdate = [this] {
    showAbout();
    if (about_->isCmdCheckUpdateEnabled()) about_->StartAboutUpdateCheck();
  };
  views.showMissingFields = [this] { showMissingFields(); };
  views.displayField = [this](VTLValue& field) { return displayField(field); };
  views.print = [this](const PrintJob& job, bool preview) {
    QWidget* owner = QApplication::activeWindow();
    if (preview) {
      PrintPreview(*session_, job, owner).exec();
    } else {
      print_with_dialog(*session_, job, owner);
    }
  };
  views.markInBill = [this](const std::string& reference) {
    if (auto* bill = qobject_cast<BillWindow*>(window(session_->billOfMaterials().name()))) {
      bill->markReference(reference);
    }
  };
  views.quit = [this] { quit(); };
  views.stopProcess = [] { QCoreApplication::quit(); };
  views.repaint = [this] {
    for (const auto& [name, shown] : windows_) shown->update();
  };
  views.mayReplaceDesign = [this] { return mayReplaceDesign(); };
  views.projectStored = [this](const std::string& path) {
    recent_.add(to_qstring(path));
    status_->stored();
  };
  views.saveWindowPositions = [this] { recordPlaces(); };
  views.setWindowStateNormal = [this](Screen& screen) {
    if (QWidget* shown = window(screen.name())) shown->setWindowState(Qt::WindowNoState);
  };
  session_->setViews(std::move(views));
  session_->calculationStarted.connect([] { QGuiApplication::setOverrideCursor(Qt::WaitCursor); });
  session_->calculationEnded.connect([](bool) { QGuiApplication::restoreOverrideCursor(); });
}

bool Desktop::start(bool splash) {
  if (!session_->StartSession()) return false;
  status_->stored();
  applyTheme();
  for (Screen* screen : session_->screens().screens()) bind(*screen);
  progress_window_ = std::make_unique<ProgressWindow>(session_->progress());
  wait_window_ = std::make_unique<WaitWindow>(session_->pleaseWait(), look_);
  if (!splash) {
    showMainScreen();
    return true;
  }
  auto* cover = new Splash(look_, "v " + to_qstring(kProgramVersion));
  connect(cover, &Splash::finished, this, [this] { showMainScreen(); });
  connect(cover, &Splash::optionsRequested, this,
          [this] { session_->options().config_show(true); });
  cover->begin();
  return true;
}

void Desktop::showMainScreen() {
  if (session_->options().isChecked("start_in_advanced_screen")) {
    session_->simple().ShowAdvancedScreen();
  } else {
    session_->simple().ShowSimpleScreen();
  }
}

void Desktop::bind(Screen& screen) {
  connect_view(screen.layoutChanged, this, [this, &screen] { follow(screen); });
}

void Desktop::follow(Screen& screen) {
  const auto known = windows_.find(screen.name());
  if (!screen.visible() && known == windows_.end()) return;
  QWidget* shown = window(screen.name());
  if (shown == nullptr || shown->isVisible() == screen.visible()) return;
  if (screen.visible()) {
    place(*shown, screen.name());
    // A window that a calculation opens leaves the keyboard where the user is.
    const bool by_calculation = session_->isBusy();
    shown->setAttribute(Qt::WA_ShowWithoutActivating, by_calculation);
    shown->show();
    if (by_calculation) return;
    shown->raise();
    shown->activateWindow();
  } else {
    recordPlaces();
    shown->hide();
  }
}

QWidget* Desktop::window(std::string_view screen) {
  const auto known = windows_.find(screen);
  if (known != windows_.end()) return known->second.get();
  std::unique_ptr<QWidget> made = make_window(screen, workbench());
  if (made == nullptr) return nullptr;
  new ToolTipUtility(*made, look_);
  return windows_.emplace(screen, std::move(made)).first->second.get();
}

void Desktop::place(QWidget& window, std::string_view section) {
  const QSize size = window.size();
  const auto stored =
      places_.read(section, {-1, -1, size.width(), size.height()}, true, desktop_screens());
  if (!stored) return;
  window.resize(stored->width, stored->height);
  window.move(stored->left, stored->top);
}

void Desktop::recordPlaces() {
  for (const auto& [name, shown] : windows_) {
    if (!shown->isVisible() || shown->isMinimized()) continue;
    const QRect area(shown->pos(), shown->size());
    // A folder that cannot be written costs the positions only.
    static_cast<void>(places_.write(name, {area.left(), area.top(), area.width(), area.height()}));
  }
}

bool Desktop::displayField(VTLValue& field) {
  Screen& owner = field.GetOwnerForm();
  QWidget* shown = window(owner.name());
  if (shown == nullptr || !field.Visible()) return false;
  QString name = to_qstring(owner.name()) + "." + to_qstring(field.Name());
  if (field.Index() >= 0) name += "." + QString::number(field.Index());
  auto* editor = shown->findChild<QWidget*>(name);
  if (editor == nullptr) return false;
  if (&owner == &session_->advanced()) {
    if (!session_->advanced().isFrameInLayout(field.FrameName())) return false;
    session_->advanced().showFrame(field.FrameName());
  }
  owner.visible(true);
  shown->activateWindow();
  editor->setFocus(Qt::TabFocusReason);
  return true;
}

Desktop::ThemeChoice Desktop::themeChoice() const {
  const std::string stored = settings_.get(kSettingsSection, kThemeKey, kThemeNames[0]);
  for (std::size_t i = 0; i < kThemeNames.size(); ++i) {
    if (stored == kThemeNames[i]) return static_cast<ThemeChoice>(i);
  }
  return ThemeChoice::System;
}

void Desktop::themeChoice(ThemeChoice choice) {
  settings_.save(kSettingsSection, kThemeKey, kThemeNames[static_cast<std::size_t>(choice)]);
  applyTheme();
}

void Desktop::applyTheme() {
  const ThemeChoice choice = themeChoice();
  const bool dark =
      choice == ThemeChoice::Dark || (choice == ThemeChoice::System && system_is_dark_);
  look_.theme(dark ? Theme::Dark : Theme::Light);
  QApplication::setPalette(look_.palette());
}

void Desktop::openChooser(int slot, std::string_view title) {
  ChooserDialog chooser(workbench(), slot, to_qstring(title), QApplication::activeWindow());
  chooser.exec();
}

void Desktop::editUserData(UserDataKind kind) {
  // A calculation under way reads the rows.
  if (session_->isBusy()) return;
  EditUserData& form = session_->userData();
  form.show = [this, &form] { UserDataWindow(form, look_, QApplication::activeWindow()).exec(); };
  // A refusal has told its reason.
  if (kind == UserDataKind::Lamps) {
    form.InitialiseLamp();
  } else {
    form.InitialiseInductor();
  }
}

void Desktop::showMissingFields() {
  auto* list = new MissingFieldsDialog(session_->missingFields(), QApplication::activeWindow());
  list->setAttribute(Qt::WA_DeleteOnClose);
  list->show();
}

void Desktop::showAbout() {
  if (about_ == nullptr) {
    about_ = std::make_unique<About>(AboutPorts{session_->messages(), settings_, &shell_},
                                     std::make_unique<QtTcpClient>(), std::make_unique<QtTimer>(),
                                     kProgramVersion);
    about_window_ = std::make_unique<AboutDialog>(*about_, look_);
  }
  about_window_->open();
}

void Desktop::showDiagnostics() {
  if (diagnostics_ == nullptr) diagnostics_ = std::make_unique<DiagnosticsWindow>(workbench());
  diagnostics_->open();
}

bool Desktop::mayReplaceDesign() {
  if (!status_->isUnsaved()) return true;
  const int answer = session_->messages().msg(
      "", "The design has changed since it was last saved.¬¬Do you want to save it first?",
      kMessageYesNoCancel, kSeverityQuestion);
  if (answer == kNo) return true;
  if (answer != kYes) return false;
  const std::string& path = session_->project().CurrentProjectPath();
  const std::string& owner = session_->simple().name();
  return path.empty() ? session_->project().SaveProject(owner)
                      : session_->project().SaveProjectTo(owner, path);
}

void Desktop::quit() {
  if (ended_) return;
  if (session_->isBusy()) {
    if (quitting_) return;
    quitting_ = true;
    session_->simple().CancelTest();
    auto* poll = new QTimer(this);
    connect(poll, &QTimer::timeout, this, [this, poll] {
      if (session_->isBusy()) return;
      poll->deleteLater();
      quitting_ = false;
      quit();
    });
    poll->start(kBusyPoll);
    return;
  }
  if (!mayReplaceDesign()) return;
  ended_ = true;
  session_->simple().unload();
  emit ended();
}

}  // namespace vantrel
