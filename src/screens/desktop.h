#pragma once

#include <QObject>
#include <map>
#include <memory>
#include <string>

#include "app/design_status.h"
#include "app/session.h"
#include "core/plain_ports.h"
#include "platform/picture_export.h"
#include "screens/appearance.h"
#include "screens/design_window.h"
#include "screens/message_box.h"
#include "screens/qt_ports.h"
#include "screens/recent_projects.h"
#include "services/profile_file.h"
#include "services/sw_update_about.h"
#include "services/window_state.h"

class QDialog;
class QWidget;

namespace vantrel {

/// The desktop program: a session, its ports, and one window for each screen that is on show. It
/// shows and hides windows as their screens say, and ends the run.
class Desktop : public QObject {
  Q_OBJECT

 public:
  using ThemeChoice = vantrel::ThemeChoice;

  /// Everything that is handed in must outlive the desktop.
  Desktop(ProgramFolder folder, SettingsStore& settings, FileDialogs& dialogs, ShellOpen& shell,
          std::string_view version);
  ~Desktop() override;

  /// Starts the session and shows the main screen, behind a splash when `splash` is set. False when
  /// start-up has ended the run; the reason has been shown.
  bool start(bool splash);

  Session& session() { return *session_; }
  Appearance& appearance() { return look_; }
  DesignStatus& status() { return *status_; }
  Workbench workbench();

  /// The window of a screen, made when it is first asked for; nothing for a screen without one.
  QWidget* window(std::string_view screen);
  /// Brings a field in sight, flashing is left to the field. False when no window shows it.
  bool displayField(VTLValue& field);

  ThemeChoice themeChoice() const;
  void themeChoice(ThemeChoice choice);

  /// Ends the run, after the user was asked about an unsaved design and a calculation under way has
  /// been told to stop.
  void quit();
  bool hasEnded() const { return ended_; }

 signals:
  void ended();

 private:
  void setViews();
  void bind(Screen& screen);
  void follow(Screen& screen);
  void place(QWidget& window, std::string_view section);
  void recordPlaces();
  bool mayReplaceDesign();
  void showMainScreen();
  void applyTheme();
  void openChooser(int slot, std::string_view title);
  void editUserData(UserDataKind kind);
  void showMissingFields();
  void showAbout();
  void showDiagnostics();

  SettingsStore& settings_;
  FileDialogs& dialogs_;
  ShellOpen& shell_;
  bool system_is_dark_;
  SteadyClock clock_;
  std::unique_ptr<SoundPlayer> sound_;
  QtEventPump pump_;
  PictureExport pictures_;
  ProgramFolder folder_;
  Appearance look_;
  QtMessageDialog messages_;
  RecentProjects recent_;
  ProfileFile profile_;
  WindowState places_;
  std::unique_ptr<Session> session_;
  std::unique_ptr<DesignStatus> status_;
  std::map<std::string, std::unique_ptr<QWidget>, std::less<>> windows_;
  std::unique_ptr<About> about_;
  std::unique_ptr<QDialog> about_window_;
  std::unique_ptr<QDialog> diagnostics_;
  std::unique_ptr<QWidget> progress_window_;
  std::unique_ptr<QWidget> wait_window_;
  bool quitting_ = false;
  bool ended_ = false;
};

}  // namespace vantrel
