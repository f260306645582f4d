// Takes a picture of every window on the default design, in one theme, for the documents and for
// the eye: vantrel_screenshots FOLDER light|dark [POINTS], where POINTS is the size of the font

#include <QDialog>
#include <QDir>
#include <QListWidget>
#include <QTabWidget>
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

/// Lamps and a core of the user, so that the editor has something to show.
void enter_rows(Session& session) {
  EditUserData& form = session.userData();
  SQLTableEdit& edit = form.SQLTableEdit1;
  const auto enter = [&](std::initializer_list<const char*> texts) {
    if (!edit.CommandNew()) return;
    std::size_t field = 0;
    for (const char* text : texts) edit.TypeField(field++, text);
    edit.CommandSave();
  };
  form.InitialiseLamp();
  for (const char* name : {"Laboratory T5 28W", "T8 36W sample", "CFL 13W prototype"}) {
    enter({name, "", "28", "236", "300", "700", "0.34", "1", "100", "28", "236", "10", "2.8", "260",
           "165", "Linear", "Yes"});
  }
  form.InitialiseInductor();
  enter({"EF25 own former", "57.8", "52", "1.1", "61", "1", "10"});
}

void picture_diagnostics(Camera& camera, Session& session) {
  session.options().command_click("command_debug");
  DesktopBench::pump();
  for (QWidget* top : QApplication::topLevelWidgets()) {
    auto* tabs = top->findChild<QTabWidget*>("Diagnostics.tabs");
    if (tabs == nullptr || !top->isVisible()) continue;
    top->findChild<QListWidget*>("DebugUtils.tests")->setCurrentRow(1);
    top->findChild<QListWidget*>("DebugUtils.components")->setCurrentRow(1);
    QTest::keyClick(top, Qt::Key_F5);
    QTest::qWait(2000);
    for (const QString name : {"checks", "log", "explain"}) {
      auto* names = top->findChild<QListWidget*>("Explain.names");
      if (name == "explain") names->setCurrentRow(names->count() / 2);
      DesktopBench::pump();
      camera.take(top, "diagnostics-" + name);
      tabs->setCurrentIndex(tabs->currentIndex() + 1);
      DesktopBench::pump();
    }
    return;
  }
}

}  // namespace

int main(int argc, char** argv) {
  if (argc != 3 && argc != 4) {
    std::fprintf(stderr, "usage: vantrel_screenshots FOLDER light|dark [POINTS]\n");
    return 1;
  }
  if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
  QApplication application(argc, argv);
  QApplication::setQuitOnLastWindowClosed(false);
  if (argc == 4) {
    QFont font = QApplication::font();
    font.setPointSize(QString(argv[3]).toInt());
    QApplication::setFont(font);
  }
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
  session.images().show_photoplot();
  camera.screen("ImageDisplay", "photoplot");
  session.bar("Simple")->execute_command("c_graph_td");
  QTest::qWait(200);
  camera.screen("GraphTimeDomain", "time-domain");
  session.outputCircuit().display();
  camera.screen("TimeDomainRCL", "output-circuit");
  enter_rows(session);
  camera.dialog("user-data-lamps", [&] { session.editUserData(UserDataKind::Lamps); });
  camera.dialog("user-data-cores", [&] { session.editUserData(UserDataKind::Cores); });
  session.log().keepLines(true);
  session.calculator().CalculateComponents(true, false);
  picture_diagnostics(camera, session);
  session.options().config_show();
  camera.screen("configure", "options");
  camera.dialog("message-question", [&] {
    session.messages().msg("", "No components have been calculated.¬¬Calculate them now?",
                           kMessageYesNo, kSeverityFromType);
  });
  return 0;
}
