// The desktop program on a platform without a display: how long a user waits.

#include <benchmark/benchmark.h>
#include <unistd.h>

#include <QApplication>
#include <cstdlib>
#include <filesystem>
#include <memory>

#include "core/plain_ports.h"
#include "screens/desktop.h"

namespace {

using namespace vantrel;
namespace fs = std::filesystem;

class NoFiles : public FileDialogs {
 public:
  std::optional<std::string> askSave(std::string_view, std::string_view,
                                     std::string_view) override {
    return std::nullopt;
  }
  std::optional<std::string> askOpen(std::string_view, std::string_view,
                                     std::string_view) override {
    return std::nullopt;
  }
};

/// A copy of the program's folder that goes away with the process.
class Home {
 public:
  Home() {
    std::string pattern = (fs::temp_directory_path() / "vantrel-XXXXXX").string();
    if (::mkdtemp(pattern.data()) == nullptr) std::abort();
    path = pattern;
    for (const char* part : {"Data", "graphics"}) {
      fs::copy(fs::path(VANTREL_PROGRAM_FOLDER) / part, path / part, fs::copy_options::recursive);
    }
  }
  ~Home() { fs::remove_all(path); }

  fs::path path;
};

struct Program {
  explicit Program(const Home& home)
      : desktop(ProgramFolder(home.path), settings, files, shell, "1.0.0") {}

  MemorySettings settings;
  NoFiles files;
  RecordingShell shell;
  Desktop desktop;
};

std::unique_ptr<Program> start(const Home& home) {
  auto program = std::make_unique<Program>(home);
  program->desktop.start(false);
  QApplication::processEvents();
  return program;
}

void BM_StartToShownWindow(benchmark::State& state) {
  const Home home;
  for (auto _ : state) {
    auto program = start(home);
    state.PauseTiming();
    program.reset();
    state.ResumeTiming();
  }
}
BENCHMARK(BM_StartToShownWindow)->Unit(benchmark::kMillisecond);

void BM_SimpleCalculateToShownResult(benchmark::State& state) {
  const Home home;
  auto program = start(home);
  QWidget* window = program->desktop.window("Simple");
  for (auto _ : state) {
    program->desktop.session().simple().MainButton_Click(Simple::kCalculateButton);
    QApplication::processEvents();
    window->repaint();
  }
}
BENCHMARK(BM_SimpleCalculateToShownResult)->Unit(benchmark::kMillisecond);

void BM_ChooseLampToShownSelection(benchmark::State& state) {
  const Home home;
  auto program = start(home);
  const char* const lamps[] = {"T8 36W", "T5 28W"};
  std::size_t turn = 0;
  for (auto _ : state) {
    program->desktop.session().selectByName(kSlotLamp, lamps[turn++ % 2]);
    QApplication::processEvents();
  }
}
BENCHMARK(BM_ChooseLampToShownSelection)->Unit(benchmark::kMillisecond);

/// A program on the default design, with its circuit diagram not yet on show.
std::unique_ptr<Program> designed(const Home& home) {
  auto program = start(home);
  Session& session = program->desktop.session();
  for (const char* option : {"display_schematic", "display_bom"}) {
    session.options().tick(option, false);
  }
  session.simple().MainButton_Click(Simple::kCalculateButton);
  QApplication::processEvents();
  return program;
}

void BM_FirstDisplayOfTheCircuit(benchmark::State& state) {
  const Home home;
  for (auto _ : state) {
    state.PauseTiming();
    auto program = designed(home);
    state.ResumeTiming();
    program->desktop.session().images().show_schematic();
    QApplication::processEvents();
    state.PauseTiming();
    program.reset();
    state.ResumeTiming();
  }
}
BENCHMARK(BM_FirstDisplayOfTheCircuit)->Unit(benchmark::kMillisecond)->Iterations(10);

/// A frame of the circuit diagram at a zoom level, scrolled a little each time.
void BM_ScrollTheCircuit(benchmark::State& state) {
  const Home home;
  auto program = designed(home);
  ImageDisplay& images = program->desktop.session().images();
  images.show_schematic();
  QWidget* window = program->desktop.window("ImageDisplay");
  window->resize(1280, 800);
  QApplication::processEvents();
  images.view().fit();
  for (auto level = state.range(0); level > 0; --level) images.view().zoomIn();
  double offset = 0;
  for (auto _ : state) {
    offset = offset > 300 ? 0 : offset + 20;
    images.view().scrollTo({offset, offset / 2});
    images.redrawRequested.raise();
    QApplication::processEvents();
  }
}
BENCHMARK(BM_ScrollTheCircuit)->ArgName("levels")->DenseRange(0, 3)->Unit(benchmark::kMillisecond);

}  // namespace

int main(int argc, char** argv) {
  qputenv("QT_QPA_PLATFORM", "offscreen");
  QApplication application(argc, argv);
  QApplication::setQuitOnLastWindowClosed(false);
  benchmark::Initialize(&argc, argv);
  benchmark::RunSpecifiedBenchmarks();
  return 0;
}
