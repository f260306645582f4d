// Takes a picture of every window on the default design, in one theme, for the documents and for
// the eye: vantrel_screenshots FOLDER light|dark

#include <QDialog>
#include <QDir>
#include <QTimer>
#include <cstdio>
#include <functional>

#include "screens/chooser_dialog.h"
#include "screens/desktop_bench.h"
#include "screens/splash.h"

namespace {

using namespace vantrel;

class Camera {
 public:
  Camera(DesktopBench& bench, QString folder, QString suffix)
      : bench_(bench), folder_(std::move(folder)), suffix_(std::move(suffix)) {}

  void take(QWidget* window, const QString& name) {
    if (window == nullptr) return;
    window->show();
    DesktopBench::pump();
    const QString file = folder_ + "/" + name + suffix_ + ".png";
    if (!window->grab().save(file)) std::fprintf(stderr, "cannot write %s\n", qPrintable(file));
  }
  void screen(const char* name, const QString& picture) {
    QWidget* window = bench_.desktop->window(name);
    if (window == nullptr) return;
    take(window, picture);
  }
  /// A picture of the modal dialog that `open` runs, which is closed again.
  void dialog(const QString& name, const std::function<void()>& open) {
    QTimer::singleShot(100, QApplication::instance(), [this, name] {
      QWidget* modal = QApplication::activeModalWidget();
      if (modal == nullptr) return;
      take(modal, name);
      modal->close();
    });
    open();
    DesktopBench::pump();
  }

 private:
  DesktopBench& bench_;
  QString folder_;
  QString suffix_;
};

}  // namespace

int main(int argc, char** argv) {
  if (argc != 3) {
    std::fprintf(stderr, "usage: vantrel_screenshots FOLDER light|dark\n");
    return 1;
  }
  if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
  QApplication application(argc, argv);
  QApplication::setQuitOnLastWindowClosed(false);
  const QString folder(argv[1]);
  const QString theme(argv[2]);
  QDir().mkpath(folder);
  DesktopBench bench;
  Desktop& desktop = bench.start();
  desktop.themeChoice(theme == "dark" ? Desktop::ThemeChoice::Dark : Desktop::ThemeChoice::Light);
  const qreal scale = application.devicePixelRatio();
  Camera camera(bench, folder, "-" + theme + (scale > 1 ? "-" + QString::number(scale * 100) : ""));

  camera.screen("Simple", "simple-empty");
  Session& session = desktop.session();
  session.simple().MainButton_Click(4);
  QTest::qWait(3000);  // the progress runs full and opens what the options ask for
  camera.screen("Simple", "simple");
  for (int slot = 0; slot < kSlotCount; ++slot) {
    camera.dialog("chooser-" + QString::number(slot),
                  [&] { session.simple().MainButton_Click(slot); });
  }
  session.simple().ShowAdvancedScreen();
  camera.screen("Advanced", "advanced");
  session.calculator().visible(true);
  camera.screen("Calculator", "calculator");
  session.inductor().visible(true);
  camera.screen("Inductor", "inductor");
  session.transformer().visible(true);
  camera.screen("Transformer", "transformer");
  session.billOfMaterials().setup_bom();
  camera.screen(session.billOfMaterials().name().c_str(), "bill-of-materials");
  session.graphOperatingPoints().visible(true);
  camera.screen("GraphOperatingPoints", "operating-points");
  session.images().show_schematic();
  camera.screen("ImageDisplay", "circuit-diagram");
  session.schematicCheck().validate();
  camera.screen("ValidateSchematic", "validate");
  session.images().show_lres();
  camera.screen("ImageDisplay", "lres");
  session.bar("Simple")->execute_command("c_graph_td");
  QTest::qWait(200);
  camera.screen("GraphTimeDomain", "time-domain");
  session.options().config_show();
  camera.screen("configure", "options");
  camera.dialog("message-question", [&] {
    session.messages().msg("", "No components have been calculated.¬¬Calculate them now?",
                           kMessageYesNo, kSeverityFromType);
  });
  return 0;
}
