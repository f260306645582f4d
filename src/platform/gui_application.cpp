#include "platform/gui_application.h"

#include <QGuiApplication>
#include <clocale>
#include <cstdio>
#include <string>

namespace vantrel {

namespace {

/// Gives the process the locale back that it had. The toolkit takes the desktop's, with its decimal
/// comma, when its application object is made.
class KeptLocale {
 public:
  KeptLocale() : before_(std::setlocale(LC_ALL, nullptr)) {}
  ~KeptLocale() { std::setlocale(LC_ALL, before_.c_str()); }
  KeptLocale(const KeptLocale&) = delete;
  KeptLocale& operator=(const KeptLocale&) = delete;

 private:
  std::string before_;
};

/// Keeps the toolkit's notices off standard error, which is the program's own, while it looks for a
/// desktop that a program without windows has no use for. Fatal ones pass.
class KeptQuiet {
 public:
  KeptQuiet() : before_(qInstallMessageHandler(&KeptQuiet::drop)) {}
  ~KeptQuiet() { qInstallMessageHandler(before_); }
  KeptQuiet(const KeptQuiet&) = delete;
  KeptQuiet& operator=(const KeptQuiet&) = delete;

 private:
  static void drop(QtMsgType type, const QMessageLogContext&, const QString& text) {
    if (type == QtFatalMsg) std::fputs((text.toStdString() + "\n").c_str(), stderr);
  }
  QtMessageHandler before_;
};

/// The toolkit keeps references to both for as long as the application lives.
struct Arguments {
  char program[8] = "vantrel";
  char option[10] = "-platform";
  char platform[10] = "offscreen";
  char* list[4] = {program, option, platform, nullptr};
  int count = 3;
};

class HeadlessApplication : private Arguments, public QGuiApplication {
 public:
  HeadlessApplication() : QGuiApplication(count, list) {}
};

}  // namespace

HeadlessGui::HeadlessGui() = default;
HeadlessGui::~HeadlessGui() = default;

bool HeadlessGui::ensure() {
  if (QCoreApplication::instance() == nullptr) {
    const KeptLocale locale;
    const KeptQuiet quiet;
    application_ = std::make_unique<HeadlessApplication>();
  }
  return qobject_cast<QGuiApplication*>(QCoreApplication::instance()) != nullptr;
}

}  // namespace vantrel
