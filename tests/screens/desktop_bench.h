#pragma once

#include <gtest/gtest.h>

#include <QApplication>
#include <QLabel>
#include <QLineEdit>
#include <QPointer>
#include <QTest>
#include <QTimer>
#include <filesystem>
#include <memory>
#include <string>

#include "core/plain_ports.h"
#include "screens/desktop.h"
#include "support/fixtures.h"

namespace vantrel {

/// File dialogs that answer with the next given path, and cancel without one.
class GivenFiles : public FileDialogs {
 public:
  std::optional<std::string> askSave(std::string_view, std::string_view,
                                     std::string_view) override {
    return answer;
  }
  std::optional<std::string> askOpen(std::string_view, std::string_view,
                                     std::string_view) override {
    return answer;
  }

  std::optional<std::string> answer;
};

/// The desktop program on a copy of the shipped database and pictures, with settings and file
/// dialogs of its own, and without a splash.
class DesktopBench {
 public:
  DesktopBench() {
    namespace fs = std::filesystem;
    const fs::path shipped = fs::path(VANTREL_PROGRAM_FOLDER);
    fs::create_directories(home.path() / "Data");
    fs::copy_file(shipped / "Data" / "VTL.mdb", home.path() / "Data" / "VTL.mdb");
    for (const auto& entry : fs::directory_iterator(shipped)) {
      const std::string name = entry.path().filename().string();
      if (name == "Data" || !entry.is_directory()) continue;
      fs::create_directory_symlink(entry.path(), home.path() / name);
    }
    watchDialogs();
  }

  /// Fails the test when a dialog has waited for seconds, and closes it.
  void watchDialogs() {
    QObject::connect(&watch_, &QTimer::timeout, &watch_, [this] {
      QWidget* modal = QApplication::activeModalWidget();
      if (modal == nullptr || seen_ != modal) {
        seen_ = modal;
        return;
      }
      const auto* text = modal->findChild<QLabel*>("SysMessage");
      ADD_FAILURE() << "a dialog waits: "
                    << (text == nullptr ? modal->objectName() : text->text()).toStdString();
      modal->close();
    });
    watch_.start(2000);
  }
  /// For a test that opens and closes dialogs at random and looks after them itself.
  void leaveDialogsAlone() { watch_.stop(); }

  /// Starts the program anew, on what an earlier run has left behind.
  Desktop& start() {
    desktop.reset();
    desktop =
        std::make_unique<Desktop>(ProgramFolder(home.path()), settings, files, shell, "1.0.0");
    EXPECT_TRUE(desktop->start(false));
    pump();
    return *desktop;
  }

  /// Lets queued events run until there are none.
  static void pump(int rounds = 5) {
    for (int i = 0; i < rounds; ++i) QApplication::processEvents();
  }

  /// The child widget of that class and name; a test failure when there is none.
  template <typename Widget>
  Widget* find(std::string_view screen, const char* name) {
    QWidget* window = desktop->window(screen);
    auto* found = window == nullptr ? nullptr : window->findChild<Widget*>(name);
    EXPECT_NE(found, nullptr) << screen << ": " << name;
    return found;
  }
  /// Types into an editor as the user does and leaves it by Return.
  void enter(std::string_view screen, const char* field, const char* text) {
    auto* editor = find<QLineEdit>(screen, field);
    if (editor == nullptr) return;
    editor->setFocus();
    editor->selectAll();
    QTest::keyClicks(editor, text);
    QTest::keyClick(editor, Qt::Key_Return);
    pump();
  }
  std::string text(std::string_view screen, const char* field) {
    auto* editor = find<QLineEdit>(screen, field);
    return editor == nullptr ? std::string() : editor->text().toStdString();
  }

  test::TemporaryFolder home;
  MemorySettings settings;
  GivenFiles files;
  RecordingShell shell;
  std::unique_ptr<Desktop> desktop;

 private:
  QTimer watch_;
  QPointer<QWidget> seen_;  ///< The dialog of the last look.
};

}  // namespace vantrel
