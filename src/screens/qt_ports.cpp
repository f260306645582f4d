#include "screens/qt_ports.h"

#include <QApplication>
#include <QDesktopServices>
#include <QFileDialog>
#include <QFileInfo>
#include <QUrl>

#include "core/plain_ports.h"
#include "screens/appearance.h"

#ifdef VANTREL_SOUND
#include <QSoundEffect>
#include <map>
#endif

namespace vantrel {

namespace {

/// "Words|pattern|Words|pattern" as the toolkit writes it.
QString toolkit_filter(std::string_view filter) {
  const QStringList parts = to_qstring(filter).split('|');
  QStringList entries;
  for (qsizetype i = 0; i + 1 < parts.size(); i += 2) {
    const QString words = parts[i].section('(', 0, 0).trimmed();
    entries << words + " (" + QString(parts[i + 1]).replace(';', ' ') + ")";
  }
  return entries.join(";;");
}

QString first_suffix(std::string_view filter) {
  return to_qstring(filter).section('|', 1, 1).section('.', -1).section(';', 0, 0);
}

std::optional<std::string> answer(QFileDialog& dialog) {
  if (dialog.exec() != QDialog::Accepted || dialog.selectedFiles().isEmpty()) return std::nullopt;
  return dialog.selectedFiles().constFirst().toStdString();
}

#ifdef VANTREL_SOUND
class QtSound : public SoundPlayer {
 public:
  void play(const std::string& path) override {
    QSoundEffect& effect = effects_[path];
    if (effect.source().isEmpty()) effect.setSource(QUrl::fromLocalFile(to_qstring(path)));
    effect.play();
  }

 private:
  std::map<std::string, QSoundEffect> effects_;
};
#endif

}  // namespace

QtTimer::QtTimer() {
  QObject::connect(&timer_, &QTimer::timeout, &timer_, [this] {
    const std::function<void()> tick = tick_;  // the tick may start the timer anew
    tick();
  });
}

void QtTimer::start(int interval_ms, std::function<void()> tick) {
  tick_ = std::move(tick);
  timer_.start(interval_ms);
}

void QtEventPump::yield() { QCoreApplication::processEvents(); }

std::optional<std::string> QtFileDialogs::askSave(std::string_view title, std::string_view filter,
                                                  std::string_view proposed) {
  QFileDialog dialog(QApplication::activeWindow(), to_qstring(title));
  dialog.setAcceptMode(QFileDialog::AcceptSave);
  dialog.setNameFilter(toolkit_filter(filter));
  const QString suffix = first_suffix(filter);
  if (suffix != "*") dialog.setDefaultSuffix(suffix);
  const QFileInfo start(to_qstring(proposed));
  if (start.dir().exists()) dialog.setDirectory(start.dir());
  dialog.selectFile(start.fileName());
  return answer(dialog);
}

std::optional<std::string> QtFileDialogs::askOpen(std::string_view title, std::string_view filter,
                                                  std::string_view proposed) {
  QFileDialog dialog(QApplication::activeWindow(), to_qstring(title));
  dialog.setFileMode(QFileDialog::ExistingFile);
  dialog.setNameFilter(toolkit_filter(filter));
  const QFileInfo start(to_qstring(proposed));
  if (start.dir().exists()) dialog.setDirectory(start.dir());
  return answer(dialog);
}

std::optional<std::string> QtFileDialogs::askFolder(std::string_view title) {
  QFileDialog dialog(QApplication::activeWindow(), to_qstring(title));
  dialog.setFileMode(QFileDialog::Directory);
  dialog.setOption(QFileDialog::ShowDirsOnly);
  return answer(dialog);
}

bool QtShellOpen::open(const std::string& address) {
  const QFileInfo file(to_qstring(address));
  return QDesktopServices::openUrl(file.exists() ? QUrl::fromLocalFile(file.absoluteFilePath())
                                                 : QUrl(to_qstring(address), QUrl::StrictMode));
}

std::unique_ptr<SoundPlayer> make_sound_player() {
#ifdef VANTREL_SOUND
  return std::make_unique<QtSound>();
#else
  return std::make_unique<SilentSound>();
#endif
}

}  // namespace vantrel
