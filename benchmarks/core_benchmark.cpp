// Times of the core without windows: start of a session, a change of the selection, a tank search.

#include <benchmark/benchmark.h>

#include <memory>

#include "app/session.h"
#include "core/plain_ports.h"

namespace {

using namespace vantrel;

/// A started session on the built program's folder; nothing is written there.
class Bench {
 public:
  Bench()
      : session_(ProgramFolder(VANTREL_PROGRAM_FOLDER),
                 SessionPorts{.settings = settings_,
                              .clock = clock_,
                              .sound = sound_,
                              .pump = pump_,
                              .makeTimer = [] { return std::make_unique<ManualTimer>(); },
                              .writePicture = {}},
                 "1.0.0") {}

  bool start() { return session_.StartSession(); }
  Session& session() { return session_; }

 private:
  MemorySettings settings_;
  SteadyClock clock_;
  SilentSound sound_;
  NoEvents pump_;
  Session session_;
};

void start_session(benchmark::State& state) {
  for (auto step : state) {
    Bench bench;
    if (!bench.start()) state.SkipWithError("no design database");
  }
}
BENCHMARK(start_session)->Unit(benchmark::kMillisecond);

void change_selection(benchmark::State& state) {
  Bench bench;
  if (!bench.start()) state.SkipWithError("no design database");
  const int slot = static_cast<int>(state.range(0));
  const char* names[][2] = {
      {"TV6101", "TV6103"},
      {"90 to 265VAC/400VDC", "90 to 265VAC/500VDC"},
      {"T8 36W", "T5 28W"},
      {"Dual lamp series/current-mode heating", "Single lamp/current-mode heating"}};
  std::size_t next = 0;
  for (auto step : state) {
    if (!bench.session().selectByName(slot, names[slot][next])) state.SkipWithError("not offered");
    next = 1 - next;
  }
}
BENCHMARK(change_selection)->DenseRange(0, 3)->Unit(benchmark::kMicrosecond);

void search_tank(benchmark::State& state) {
  Bench bench;
  if (!bench.start()) state.SkipWithError("no design database");
  TargetFactory targets(bench.session().messages(), bench.session().state());
  TankCalculator calculator(targets, bench.session().messages());
  calculator.SelectTarget(1);
  // Out of reach of every tank on the grid, so that all 91 x 8 pairs are evaluated up to the last
  // test: a lamp that wants a run frequency no pair has.
  bench.session().operatingPoints().Calculate(false);
  OperatingBlock block = bench.session().operatingPoints().block();
  block.FBallast = 1e9F;
  TankSearch search(calculator, block);
  for (auto step : state) {
    benchmark::DoNotOptimize(search.SearchAndSelect({.target = 1, .currentMode = false}));
  }
}
BENCHMARK(search_tank)->Unit(benchmark::kMicrosecond);

void calculate_operating_points(benchmark::State& state) {
  Bench bench;
  if (!bench.start()) state.SkipWithError("no design database");
  for (auto step : state) {
    benchmark::DoNotOptimize(bench.session().operatingPoints().Calculate(false));
  }
}
BENCHMARK(calculate_operating_points)->Unit(benchmark::kMicrosecond);

void design_whole_ballast(benchmark::State& state) {
  Bench bench;
  if (!bench.start()) state.SkipWithError("no design database");
  for (auto step : state) {
    if (!bench.session().simple().calculate_simple(true, true, true, true)) {
      state.SkipWithError("the chain ended early");
    }
  }
}
BENCHMARK(design_whole_ballast)->Unit(benchmark::kMillisecond);

}  // namespace

BENCHMARK_MAIN();
