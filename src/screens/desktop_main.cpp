// The desktop program. It reads no command line.

#include <QApplication>
#include <cstdio>

#include "app/program_home.h"
#include "app/session.h"
#include "app/version.h"
#include "platform/qt_settings.h"
#include "platform/user_folders.h"
#include "screens/desktop.h"

int main(int argc, char** argv) {
  using namespace vantrel;
  QApplication application(argc, argv);
  QApplication::setApplicationName("Vantrel");
  QApplication::setApplicationVersion(to_qstring(kProgramVersion));
  QApplication::setQuitOnLastWindowClosed(false);
  QtSettings settings(user_settings_file().string());
  QtFileDialogs dialogs;
  QtShellOpen shell;
  ProgramFolder folder =
      prepare_program_folder(executable_folder(), user_data_folder(),
                             settings.get(kSettingsSection, kAppVersionKey, ""), kProgramVersion);
  Desktop desktop(std::move(folder), settings, dialogs, shell, kProgramVersion);
  QObject::connect(&desktop, &Desktop::ended, &application, &QCoreApplication::quit,
                   Qt::QueuedConnection);
  // A platform without a screen has nothing to fade.
  const bool splash = QGuiApplication::platformName() != "offscreen";
  if (!desktop.start(splash)) return 1;
  return QApplication::exec();
}
